#pragma once

#include "CoreMinimal.h"
#include "K2Node_MakeStruct.h"

/** Writes some members of a struct that stands elsewhere. */
class UK2Node_SetFieldsInStruct : public UK2Node_MakeStruct
{
	EDITOR_CLASS(UK2Node_SetFieldsInStruct, UK2Node_MakeStruct)

public:
	enum class EPinsToRemove : uint8
	{
		GivenPin,
		AllOtherPins,
	};
	bool AllPinsAreShown() const;
	/** Hides the member of the pin, or all others; their links go. */
	void RemoveFieldPins(UEdGraphPin* Pin, EPinsToRemove Selection);
	void RestoreAllPins();

	bool IsNodePure() const override { return false; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

protected:
	/** Members stay untouched until an author picks them. */
	bool IsMemberShownAtFirst() const override { return false; }
};
