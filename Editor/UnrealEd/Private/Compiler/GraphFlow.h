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

/**
 * What of a graph takes part in it: what execution comes to from an entry, what gives values to that, and values that
 * nobody takes yet. The rest, chains that nothing executes, is dropped by a compile as if it were not there, so
 * whatever is wrong with it harms nobody.
 */
class FGraphUse
{
public:
	explicit FGraphUse(const UEdGraph& InGraph);

	bool IsUsed(const UEdGraphNode* Node) const { return Used.Contains(Node); }
	/** Notes for what is dropped, at the first node of each chain; a warning where a value of it is missed. */
	void Tell(FCompilerResultsLog& Log) const;

private:
	void FollowValues();
	void TellOfUnexecuted(FCompilerResultsLog& Log) const;
	void TellOfMissingValues(FCompilerResultsLog& Log) const;

	const UEdGraph& Graph;
	TSet<const UEdGraphNode*> Used;
	/** Whether an entry leads to anything at all. */
	bool bActs = false;
};
/** Pure nodes that need their own value. */
void CheckDataCycles(const UEdGraph& Graph, FCompilerResultsLog& Log);
} // namespace GraphFlow
