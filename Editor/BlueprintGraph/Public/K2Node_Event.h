#pragma once

#include "CoreMinimal.h"
#include "K2Node_EditablePinBase.h"
#include "K2Node_EventNodeInterface.h"

/** The start of an execution flow: an override of a parent's event, or the base of the other event nodes. */
class UK2Node_Event : public UK2Node_EditablePinBase, public IK2Node_EventNodeInterface
{
	EDITOR_CLASS(UK2Node_Event, UK2Node_EditablePinBase)

public:
	static const FName DelegateOutputName;

	/** The name of the function that the event implements. */
	virtual FName GetFunctionName() const;
	/** The function that the event overrides or whose signature it has; null when it is gone. */
	UFunction* FindEventSignatureFunction() const;
	bool IsInterfaceEventNode() const;
	static FText GetLocalizedNetString(uint32 FunctionFlags, bool bCalling);
	void UpdateDelegatePin(bool bSilent = false);

	bool DrawNodeAsEntry() const override { return true; }
	void HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
		const FName& InOldFuncName, const FName& InNewFuncName) override;
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	FText GetKeywords() const override;
	bool NodeCausesStructuralBlueprintChange() const override { return true; }
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	bool CanPasteHere(const UEdGraph* TargetGraph) const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;

	FMemberReference EventReference;
	bool bOverrideFunction = false;
	bool bInternalEvent = false;
	FName CustomFunctionName;
	uint32 FunctionFlags = 0;
};
