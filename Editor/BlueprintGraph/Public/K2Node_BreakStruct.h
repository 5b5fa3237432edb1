#pragma once

#include "CoreMinimal.h"
#include "K2Node_StructMemberGet.h"

/** Takes a struct apart. */
class UK2Node_BreakStruct : public UK2Node_StructMemberGet
{
	EDITOR_CLASS(UK2Node_BreakStruct, UK2Node_StructMemberGet)

public:
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void PostPlacedNewNode() override;

	bool bMadeAfterOverridePinRemoval = false;
};
