#pragma once

#include "CoreMinimal.h"
#include "K2Node_MakeContainer.h"

/** Makes a set of its inputs. */
class UK2Node_MakeSet : public UK2Node_MakeContainer
{
	EDITOR_CLASS(UK2Node_MakeSet, UK2Node_MakeContainer)

public:
	UK2Node_MakeSet() { ContainerType = EPinContainerType::Set; }
	FName GetOutputPinName() const override;
	FName GetPinName(int32 PinIndex) const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
};
