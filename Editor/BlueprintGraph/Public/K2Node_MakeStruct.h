#pragma once

#include "CoreMinimal.h"
#include "K2Node_StructMemberSet.h"

/** Makes a struct out of its members. */
class UK2Node_MakeStruct : public UK2Node_StructMemberSet
{
	EDITOR_CLASS(UK2Node_MakeStruct, UK2Node_StructMemberSet)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void PostPlacedNewNode() override;

	bool bMadeAfterOverridePinRemoval = false;
};
