#pragma once

#include "CoreMinimal.h"
#include "K2Node_MakeStruct.h"

/** Writes some members of a struct that stands elsewhere. */
class UK2Node_SetFieldsInStruct : public UK2Node_MakeStruct
{
	EDITOR_CLASS(UK2Node_SetFieldsInStruct, UK2Node_MakeStruct)

public:
	bool IsNodePure() const override { return false; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void PostPlacedNewNode() override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
