#pragma once

#include "AnimGraphNode_Base.h"

/** A node that moves bones, in the space of the component. */
class UAnimGraphNode_SkeletalControlBase : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_SkeletalControlBase, UAnimGraphNode_Base)

protected:
	void CreateOutputPins() override;
};
