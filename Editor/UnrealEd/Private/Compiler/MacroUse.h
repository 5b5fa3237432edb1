#pragma once

#include "CoreMinimal.h"

class UEdGraph;
class UEdGraphNode;

/** What macros hold when they are unfolded: other macros, and themselves if things went wrong. Remembers each graph. */
class FMacroUse
{
public:
	/** Whether unfolding the macro would never end, as it leads back to itself. */
	bool IsEndless(const UEdGraph* Macro);
	/** Whether the macro, or one in it, holds a latent action. Endless macros answer for what they hold once. */
	bool HoldsLatentAction(const UEdGraph* Macro);

private:
	struct FFacts
	{
		bool bEndless = false;
		bool bLatent = false;
		/** Still on the way down. */
		bool bOpen = true;
	};

	const FFacts& Explore(const UEdGraph& Macro);
	void ExploreNode(const UEdGraphNode& Node, FFacts& Facts);

	TMap<const UEdGraph*, FFacts> Known;
};
