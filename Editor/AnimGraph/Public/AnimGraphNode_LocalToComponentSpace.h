#pragma once

#include "AnimGraphNode_Base.h"

/** Turns a pose in local space into one in the space of the component. */
class UAnimGraphNode_LocalToComponentSpace : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_LocalToComponentSpace, UAnimGraphNode_Base)

protected:
	void CreateOutputPins() override;
};
