#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** A reference to an object of the level. */
class UK2Node_Literal : public UK2Node
{
	EDITOR_CLASS(UK2Node_Literal, UK2Node)

public:
	UEdGraphPin* GetValuePin() const;

	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	ERedirectType DoPinsMatchForReconstruction(
		const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	TObjectPtr<UObject> ObjectRef;
};
