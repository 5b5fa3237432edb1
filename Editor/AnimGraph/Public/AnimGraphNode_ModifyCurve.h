#pragma once

#include "AnimGraphNode_Base.h"

/** Sets curves of a pose, each by a pin that is called after it. */
class UAnimGraphNode_ModifyCurve : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_ModifyCurve, UAnimGraphNode_Base)

protected:
	void CustomizePinData(UEdGraphPin* Pin, FName SourcePropertyName, int32 ArrayIndex) const override;
};
