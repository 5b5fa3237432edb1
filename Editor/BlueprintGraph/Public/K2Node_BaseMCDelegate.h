#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** The base of the nodes about an event dispatcher. */
class UK2Node_BaseMCDelegate : public UK2Node
{
	EDITOR_CLASS(UK2Node_BaseMCDelegate, UK2Node)

public:
	void SetFromProperty(const FProperty* Property, bool bSelfContext, UClass* OwnerClass);
	/** The dispatcher; null when it is gone. */
	FProperty* GetProperty() const;
	FName GetPropertyName() const { return DelegateReference.GetMemberName(); }
	FText GetPropertyDisplayName() const;
	/** The signature of its events, or null. */
	UFunction* GetDelegateSignature(bool bForceSkeleton = false) const;
	UEdGraphPin* GetDelegatePin() const;

	void HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass, UEdGraph* InGraph,
		const FName& InOldVarName, const FName& InNewVarName) override;
	bool ReferencesVariable(const FName& InVarName, const UStruct* InScope) const override;
	bool AllowMultipleSelfs(bool) const override { return true; }
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FMemberReference DelegateReference;

protected:
	/** The pin that takes the event to bind, by reference and const. */
	UEdGraphPin* CreateEventPin();
	FText MakeTitle(const TCHAR* Before, ENodeTitleType::Type TitleType) const;
};
