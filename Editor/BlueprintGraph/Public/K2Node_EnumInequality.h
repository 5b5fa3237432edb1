#pragma once

#include "CoreMinimal.h"
#include "K2Node_EnumEquality.h"

/** Whether two entries of an enum differ. */
class UK2Node_EnumInequality : public UK2Node_EnumEquality
{
	EDITOR_CLASS(UK2Node_EnumInequality, UK2Node_EnumEquality)

public:
	FText GetCompactNodeTitle() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
};
