#pragma once

#include "CoreMinimal.h"
#include "K2Node_EditablePinBase.h"

/** The entry or a result of a function graph. */
class UK2Node_FunctionTerminator : public UK2Node_EditablePinBase
{
	EDITOR_CLASS(UK2Node_FunctionTerminator, UK2Node_EditablePinBase)

public:
	/** The function that the graph implements or whose signature it has; null for a new one that is not compiled. */
	UFunction* FindSignatureFunction() const;
	bool CanUserDeleteNode() const override { return false; }
	bool NodeCausesStructuralBlueprintChange() const override { return true; }
	bool CanCreateUserDefinedPin(
		const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage) override;
	void HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
		const FName& InOldFuncName, const FName& InNewFuncName) override;
	void PromoteFromInterfaceOverride(bool bIsPrimaryTerminator = true);

	FMemberReference FunctionReference;
};
