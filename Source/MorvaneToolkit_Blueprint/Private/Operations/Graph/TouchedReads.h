#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

class FEventTrace;
class UBlueprint;
class UEdGraph;
class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/** What a caller may want to read again after a run on one graph: found out before the changes, and again after them.
 */
class FTouchedReads
{
public:
	/** The graph as it is before the first change. */
	FTouchedReads(UBlueprint& InBlueprint, UEdGraph& InGraph);
	~FTouchedReads();

	/** Before the node changes or goes. */
	void TouchNode(UEdGraphNode& Node);
	/** The graph as a whole, and what it declares. */
	void TouchGraph();
	/** Tells the reads that show it all. The graph may be gone by then. */
	void Track(const FString& Path, Morvane::FToolResult& Result);

private:
	/** The node of the page that a node of a graph within it hangs on; the node itself on the page. */
	UEdGraphNode* GetNodeOfPage(UEdGraphNode& Node) const;
	void NoteEvents(const FEventTrace& Trace, UEdGraphNode& Node);
	void TrackEvents(
		const FString& Path, const TCHAR* NameField, const TSet<FString>& Names, Morvane::FToolResult& Result) const;

	UBlueprint& Blueprint;
	UEdGraph& TopGraph;
	FString TopGraphName;
	/** Null in a graph without events. */
	TUniquePtr<FEventTrace> TraceBefore;
	TArray<TWeakObjectPtr<UEdGraphNode>> Touched;
	TSet<const UEdGraphNode*> Known;
	/** Guids, since a node may be gone by the end. */
	TSet<FString> Shown;

	TSet<FString> Events;
	TSet<FString> FloatingNodes;
	TSet<FString> Functions;
	TSet<FString> Delegates;
	TSet<FString> Macros;
	TSet<FString> Interfaces;
};
