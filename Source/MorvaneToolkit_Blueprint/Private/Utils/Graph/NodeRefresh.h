#pragma once

#include "CoreMinimal.h"

class UEdGraphNode;
class UK2Node;

/** Brings nodes in line with what they stand for, after that has changed. Silent; the caller tells of the losses. */
namespace NodeRefresh
{
/** "Print String (1A2B3C4)": the title in one line, and the id by which a request can name the node. */
FString Describe(const UEdGraphNode& Node);
/** Several of them with commas between. */
FString DescribeAll(const TArray<UK2Node*>& Nodes);

/**
 * Makes the pins of the nodes anew. Answers the links that stood before and do not fit any more, each as
 * "node.pin -> node.pin", once: they are gone, or hang on a pin that the node keeps only because of them. An execution
 * link of a node that has become pure is no loss, since the flow goes past the node.
 */
TArray<FString> Reconstruct(const TArray<UK2Node*>& Nodes);
} // namespace NodeRefresh
