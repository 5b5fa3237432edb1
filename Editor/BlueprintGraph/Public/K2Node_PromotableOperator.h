#pragma once

#include "CoreMinimal.h"
#include "K2Node_AddPinInterface.h"
#include "K2Node_CallFunction.h"

/** An operator whose operands take the type of what is linked: the overload that fits is chosen again after each
 * change. */
class UK2Node_PromotableOperator : public UK2Node_CallFunction, public IK2Node_AddPinInterface
{
	EDITOR_CLASS(UK2Node_PromotableOperator, UK2Node_CallFunction)

public:
	/** Takes the operator that the function is an overload of ("Add" of Add_IntInt). */
	void SetFromFunction(const UFunction* Function) override;
	/** Whether operands still take any type. */
	bool HasConnectionsOrDefaults() const;
	void ResetNodeToWildcard();
	void ConvertPinType(UEdGraphPin* PinToChange, const FEdGraphPinType NewPinType);
	UEdGraphPin* GetOutputPin() const;
	TArray<UEdGraphPin*> GetInputPins(bool bIncludeLinks = false) const;
	UEdGraphPin* FindTolerancePin() const;
	/** Whether some overload takes a value of the type as that operand, beside what is linked to the others. */
	bool TakesOperand(const UEdGraphPin& Operand, const FEdGraphPinType& Type) const;

	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PostReconstructNode() override;
	void NodeConnectionListChanged() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	void AddInputPin() override;
	bool CanAddPin() const override;
	bool CanRemovePin(const UEdGraphPin* Pin) const override;
	void RemoveInputPin(UEdGraphPin* Pin) override;

	bool CreatePinsForFunctionCall(const UFunction* Function) override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	FText GetKeywords() const override;
	bool ShouldDrawCompact() const override { return true; }
	FText GetCompactNodeTitle() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	/** Gives the operands the types of the bound overload, as after a link that asked for it. */
	void TakeTypesOfFunction();

	FName OperationName;
	int32 NumAdditionalInputs = 0;

private:
	bool UpdateOpName(const UFunction* Function);
	void UpdateFromBestMatchingFunction();
	/** The hidden pin of a comparison that is exact. */
	void CreateTolerancePin(const UFunction* Function);
};
