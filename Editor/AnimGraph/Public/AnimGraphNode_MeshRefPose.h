#pragma once

#include "AnimGraphNode_Base.h"

/** The reference pose in the space of the component. */
class UAnimGraphNode_MeshRefPose : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_MeshRefPose, UAnimGraphNode_Base)

protected:
	void CreateOutputPins() override;
};
