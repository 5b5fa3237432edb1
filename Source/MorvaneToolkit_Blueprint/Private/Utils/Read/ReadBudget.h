#pragma once

#include "CoreMinimal.h"

class UEdGraphNode;

/**
 * How much of graphs one call may show: no Blueprint makes an answer without bound, not one whose thousand events lead
 * to the same thousand nodes, nor a request that names the same graph ten thousand times. What is beyond the bound is
 * one object with "error" in the place of the nodes that are left out.
 */
class FReadBudget
{
public:
	/** Nodes, pins and links together: some sixty megabytes of JSON. */
	static constexpr int32 MaxParts = 250'000;

	/** At the begin of each call. */
	static void Begin();
	/** Takes what the node costs; false, once it is spent. */
	static bool Take(const UEdGraphNode& Node);

private:
	static int32 PartsLeft;
};
