#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"

/** A graph of poses. */
class UAnimationGraph : public UEdGraph
{
	EDITOR_CLASS(UAnimationGraph, UEdGraph)
};
