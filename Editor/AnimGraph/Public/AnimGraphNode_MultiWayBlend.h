#pragma once

#include "AnimGraphNode_Base.h"

/** Several poses, each with a weight of its own. */
class UAnimGraphNode_MultiWayBlend : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_MultiWayBlend, UAnimGraphNode_Base)

public:
	void AllocateDefaultPins() override;

private:
	void SetNumPoses(int32 Num);
};
