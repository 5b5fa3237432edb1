#include "BlueprintMatchingUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "Engine/Blueprint.h"

namespace BlueprintMatchingUtils
{
constexpr int32 ShortIdDigits = 7;
constexpr int32 GuidDigits = 32;

/** The text as hex digits and nothing else; unset for any other. */
TOptional<uint32> ReadHex(FStringView Text)
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

UEdGraph* FindNested(UEdGraph* Graph, const FString& Name, TSet<const UEdGraph*>& Visited)
{
	if (!Graph || Visited.Contains(Graph))
	{
		return nullptr;
	}
	Visited.Add(Graph);
	if (Graph->GetName().Equals(Name, ESearchCase::IgnoreCase))
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

UEdGraph* GetTopGraph(UEdGraph* Graph)
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
	using namespace BlueprintMatchingUtils;
	// Numbers are compared and no texts: a run over a large graph asks this for each of its links.
	const bool bShort = Id.Len() == ShortIdDigits;
	if (!Graph || (!bShort && Id.Len() != GuidDigits))
	{
		return nullptr;
	}
	TOptional<uint32> Parts[4];
	for (int32 Index = 0; Index < (bShort ? 1 : 4); ++Index)
	{
		Parts[Index] = ReadHex(bShort ? FStringView(Id) : FStringView(Id).Mid(Index * 8, 8));
		if (!Parts[Index])
		{
			return nullptr;
		}
	}
	for (UEdGraphNode* const Node : Graph->Nodes)
	{
		if (!Node)
		{
			continue;
		}
		const FGuid& Guid = Node->NodeGuid;
		if (bShort ? Guid.A >> 4 == *Parts[0]
				   : Guid.A == *Parts[0] && Guid.B == *Parts[1] && Guid.C == *Parts[2] && Guid.D == *Parts[3])
		{
			return Node;
		}
	}
	return nullptr;
}

UEdGraph* FBlueprintMatchingUtils::FindGraphByName(
	const UBlueprint* Blueprint, const FString& Name, UEdGraph** OutTopGraph)
{
	if (!Blueprint)
	{
		return nullptr;
	}
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	TSet<const UEdGraph*> Visited;
	for (UEdGraph* const Graph : Graphs)
	{
		if (UEdGraph* const Found = BlueprintMatchingUtils::FindNested(Graph, Name, Visited))
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
