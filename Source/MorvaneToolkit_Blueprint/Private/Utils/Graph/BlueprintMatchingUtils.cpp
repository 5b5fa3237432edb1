#include "BlueprintMatchingUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "Engine/Blueprint.h"

namespace BlueprintMatchingUtils
{
constexpr int32 ShortIdDigits = 7;
constexpr int32 GuidDigits = 32;

/** The text as hex digits and nothing else; unset for any other. */
static TOptional<uint32> ReadHex(FStringView Text)
{
	uint32 Value = 0;
	for (const TCHAR Char : Text)
	{
		const TCHAR Lower = FChar::ToLower(Char);
		const bool bDigit = Lower >= TEXT('0') && Lower <= TEXT('9');
		if (!bDigit && (Lower < TEXT('a') || Lower > TEXT('f')))
		{
			return {};
		}
		Value = Value * 16 + static_cast<uint32>(bDigit ? Lower - TEXT('0') : Lower - TEXT('a') + 10);
	}
	return Value;
}

/** What an id means: a guid, or the number of a short id. Neither is set for text that is no id. */
struct FNodeId
{
	explicit FNodeId(const FString& Text)
	{
		if (Text.Len() == ShortIdDigits)
		{
			ShortId = ReadHex(Text);
			return;
		}
		if (Text.Len() != GuidDigits)
		{
			return;
		}
		uint32 Parts[4] = {};
		for (int32 Index = 0; Index < 4; ++Index)
		{
			const TOptional<uint32> Part = ReadHex(FStringView(Text).Mid(Index * 8, 8));
			if (!Part)
			{
				return;
			}
			Parts[Index] = *Part;
		}
		Guid = FGuid(Parts[0], Parts[1], Parts[2], Parts[3]);
	}

	bool Matches(const FGuid& Of) const { return ShortId ? GetShortId(Of) == *ShortId : Guid && *Guid == Of; }
	static uint32 GetShortId(const FGuid& Of) { return Of.A >> 4; }

	TOptional<uint32> ShortId;
	TOptional<FGuid> Guid;
};

static UEdGraph* FindNested(UEdGraph* Graph, FName Name, TSet<const UEdGraph*>& Visited)
{
	if (!Graph || Visited.Contains(Graph))
	{
		return nullptr;
	}
	Visited.Add(Graph);
	if (Graph->GetFName() == Name)
	{
		return Graph;
	}
	for (UEdGraph* const SubGraph : Graph->SubGraphs)
	{
		if (UEdGraph* const Found = FindNested(SubGraph, Name, Visited))
		{
			return Found;
		}
	}
	return nullptr;
}

static UEdGraph* GetTopGraph(UEdGraph* Graph)
{
	UEdGraph* Top = Graph;
	for (UEdGraph* Outer = Graph; Outer; Outer = UEdGraph::GetOuterGraph(Outer->GetOuter()))
	{
		Top = Outer;
	}
	return Top;
}
} // namespace BlueprintMatchingUtils

UEdGraphNode* FBlueprintMatchingUtils::FindNodeByGuid(const UEdGraph* Graph, const FString& Id)
{
	// Numbers are compared and no texts: graphs are large.
	const BlueprintMatchingUtils::FNodeId Wanted(Id);
	if (!Graph || (!Wanted.ShortId && !Wanted.Guid))
	{
		return nullptr;
	}
	for (UEdGraphNode* const Node : Graph->Nodes)
	{
		if (Node && Wanted.Matches(Node->NodeGuid))
		{
			return Node;
		}
	}
	return nullptr;
}

FNodeIdIndex::FNodeIdIndex(const UEdGraph& Graph)
{
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (Node)
		{
			// The first in the graph's order keeps an id that several have.
			NodeByGuid.FindOrAdd(Node->NodeGuid, Node);
			NodeByShortId.FindOrAdd(BlueprintMatchingUtils::FNodeId::GetShortId(Node->NodeGuid), Node);
		}
	}
}

UEdGraphNode* FNodeIdIndex::Find(const FString& Id) const
{
	const BlueprintMatchingUtils::FNodeId Wanted(Id);
	if (Wanted.ShortId)
	{
		return NodeByShortId.FindRef(*Wanted.ShortId);
	}
	return Wanted.Guid ? NodeByGuid.FindRef(*Wanted.Guid) : nullptr;
}

UEdGraph* FBlueprintMatchingUtils::FindGraphByName(
	const UBlueprint* Blueprint, const FString& Name, UEdGraph** OutTopGraph)
{
	// A name that no graph in memory has needs no walk: requests ask for each graph that they are about to make.
	const FName Wanted(*Name);
	if (!Blueprint || Wanted.IsNone() || !FindFirstObject<UEdGraph>(*Wanted.ToString()))
	{
		return nullptr;
	}
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	TSet<const UEdGraph*> Visited;
	for (UEdGraph* const Graph : Graphs)
	{
		if (UEdGraph* const Found = BlueprintMatchingUtils::FindNested(Graph, Wanted, Visited))
		{
			if (OutTopGraph)
			{
				*OutTopGraph = BlueprintMatchingUtils::GetTopGraph(Found);
			}
			return Found;
		}
	}
	return nullptr;
}
