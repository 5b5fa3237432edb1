#pragma once

#include "CoreMinimal.h"
#include "K2Node_Variable.h"

enum class EGetNodeVariation : uint8
{
	Pure,
	ValidatedObject,
	Branch,
};

/** Reads a variable. */
class UK2Node_VariableGet : public UK2Node_Variable
{
	EDITOR_CLASS(UK2Node_VariableGet, UK2Node_Variable)

public:
	bool IsNodePure() const override { return CurrentVariation == EGetNodeVariation::Pure; }
	/** With or without execution pins. A value that nothing can be asked of stays pure. */
	void SetPurity(bool bNewPurity);
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	void PostEditImport() override;
	void PostLoad() override;

	EGetNodeVariation CurrentVariation = EGetNodeVariation::Pure;

private:
	/** What said so before there was more than one variation beside the pure one. */
	bool bIsPureGet = true;
	void TakeOldPurity();
};

template <>
UEnum* StaticEnum<EGetNodeVariation>();
