#pragma once

#include "CoreMinimal.h"
#include "K2Node_MakeContainer.h"

/** Makes a map of pairs of inputs. */
class UK2Node_MakeMap : public UK2Node_MakeContainer
{
	EDITOR_CLASS(UK2Node_MakeMap, UK2Node_MakeContainer)

public:
	UK2Node_MakeMap() { ContainerType = EPinContainerType::Map; }
	FName GetOutputPinName() const override;
	FName GetPinName(int32 PinIndex) const override;
	void GetKeyAndValuePins(TArray<UEdGraphPin*>& KeyPins, TArray<UEdGraphPin*>& ValuePins) const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void RemoveInputPin(UEdGraphPin* Pin) override;

protected:
	void CreateElementPins(int32 Index) override;
};
