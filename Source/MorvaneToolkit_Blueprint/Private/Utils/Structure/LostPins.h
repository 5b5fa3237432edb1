#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UEdGraphNode;
class UEdGraphPin;

/**
 * What nodes lose when what they stand for changes. Made before the change and told after the nodes were made anew: the
 * pins that no longer have a place are taken out, so that the Blueprint compiles, and each link and value that went
 * with them is named.
 */
class FLostPins
{
public:
	/** Pins that had no place before stay as they are. */
	explicit FLostPins(const TArray<UEdGraphNode*>& InNodes);
	/** Reason begins the warnings: "Variable 'Health' changed its type". */
	void TakeOut(const FString& Reason, Morvane::FToolResult& Result) const;

private:
	TArray<UEdGraphNode*> Nodes;
	TSet<const UEdGraphPin*> KnownOrphans;
};
