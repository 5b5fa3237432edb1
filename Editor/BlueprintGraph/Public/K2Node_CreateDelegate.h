#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Makes an event out of a function of an object. */
class UK2Node_CreateDelegate : public UK2Node
{
	EDITOR_CLASS(UK2Node_CreateDelegate, UK2Node)

public:
	/** The signature that what is linked asks for; null when nothing is. */
	UFunction* GetDelegateSignature() const;
	/** The class in which the function is looked for: that of the linked object, else the Blueprint's. */
	UClass* GetScopeClass(bool bDontUseSkeletalClassForSelf = false) const;
	UEdGraphPin* GetDelegateOutPin() const;
	UEdGraphPin* GetObjectInPin() const;
	FName GetFunctionName() const { return SelectedFunctionName; }
	void SetFunction(FName Name);
	/** Whether the chosen function is there and fits; a reason when it does not. */
	bool IsValid(FString* OutMsg = nullptr, bool bDontUseSkeletalClassForSelf = false) const;
	void HandleAnyChange(bool bForceModify = false);
	void HandleAnyChangeWithoutNotifying();

	bool IsNodePure() const override { return true; }
	void HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
		const FName& InOldFuncName, const FName& InNewFuncName) override;
	void AllocateDefaultPins() override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PinTypeChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FName SelectedFunctionName;
	FGuid SelectedFunctionGuid;
};
