#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;

/** Checks of a graph as a whole: what execution comes to, and where values come from. */
namespace GraphFlow
{
/** Whether the node counts for a compile: comments and disabled nodes do not. */
bool IsCompiled(const UEdGraphNode* Node);
/** The first execution input, or null. */
UEdGraphPin* FindExecInput(const UEdGraphNode& Node);

/** Impure nodes that no entry's execution comes to, told at the first node of each such chain. */
void CheckReachability(const UEdGraph& Graph, FCompilerResultsLog& Log);
/** Pure nodes that need their own value. */
void CheckDataCycles(const UEdGraph& Graph, FCompilerResultsLog& Log);
} // namespace GraphFlow
