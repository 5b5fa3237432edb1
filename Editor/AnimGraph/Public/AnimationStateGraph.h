#pragma once

#include "AnimationGraph.h"

/** The graph of one state. */
class UAnimationStateGraph : public UAnimationGraph
{
	EDITOR_CLASS(UAnimationStateGraph, UAnimationGraph)
};
