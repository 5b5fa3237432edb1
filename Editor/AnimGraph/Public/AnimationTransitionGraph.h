#pragma once

#include "AnimationGraph.h"

/** The rule of one transition or conduit. */
class UAnimationTransitionGraph : public UAnimationGraph
{
	EDITOR_CLASS(UAnimationTransitionGraph, UAnimationGraph)
};
