#pragma once

#include "CoreMinimal.h"
#include "K2Node_Event.h"

/** An event that the Blueprint itself declares and calls. */
class UK2Node_CustomEvent : public UK2Node_Event
{
	EDITOR_CLASS(UK2Node_CustomEvent, UK2Node_Event)

public:
	UK2Node_CustomEvent()
	{
		bCanRenameNode = true;
		bIsEditable = true;
	}
	/** A custom event with the signature of a function or delegate, placed at a point. */
	static UK2Node_CustomEvent* CreateFromFunction(FVector2D GraphPosition, UEdGraph* ParentGraph, const FString& Name,
		const UFunction* Function, bool bSelectNewNode = true);
	bool IsEditable() const override;
	/** Gives the event the name and renames what follows it. */
	void RenameCustomEventCloseToName(int32 StartIndex = 1);
	void SetDelegateSignature(const UFunction* DelegateSignature);

	void OnRenameNode(const FString& NewName) override;
	TSharedPtr<INameValidatorInterface> MakeNameValidator() const override;
	bool CanCreateUserDefinedPin(
		const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage) override;
	void AllocateDefaultPins() override;
	void ReconstructNode() override;
	void PostPlacedNewNode() override;
	void PostPasteNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	FText GetKeywords() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	FKismetUserDeclaredFunctionMetadata UserDefinedMetaData;
	bool bCallInEditor = false;
	bool bIsDeprecated = false;
	FString DeprecationMessage;
	/** Set for an event whose name a request gave, so that pasting keeps it. */
	bool bHasExplicitName = false;

protected:
	UEdGraphPin* CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo) override;
};
