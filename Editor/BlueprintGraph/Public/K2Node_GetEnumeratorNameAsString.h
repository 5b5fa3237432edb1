#pragma once

#include "CoreMinimal.h"
#include "K2Node_GetEnumeratorName.h"

/** The name of an enum's entry as a string. */
class UK2Node_GetEnumeratorNameAsString : public UK2Node_GetEnumeratorName
{
	EDITOR_CLASS(UK2Node_GetEnumeratorNameAsString, UK2Node_GetEnumeratorName)

public:
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

protected:
	FName GetResultCategory() const override;
};
