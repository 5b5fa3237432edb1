#include "BlueprintGraphUtils.h"

#include "BlueprintMatchingUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Graph/MemberNames.h"

namespace BlueprintGraphUtils
{
static bool Holds(const TArray<TObjectPtr<UEdGraph>>& Graphs, const UEdGraph* Graph)
{
	return Graph && Graphs.ContainsByPredicate([Graph](const UEdGraph* Candidate) { return Candidate == Graph; });
}

template <typename TNode>
TNode* FindFirst(const UEdGraph* Graph)
{
	if (Graph)
	{
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			if (TNode* const Typed = Cast<TNode>(Node))
			{
				return Typed;
			}
		}
	}
	return nullptr;
}

static UEdGraph* FindPage(const UBlueprint& Blueprint, const FString& Name)
{
	for (UEdGraph* const Page : Blueprint.UbergraphPages)
	{
		if (Page && Page->GetName().Equals(Name, ESearchCase::IgnoreCase))
		{
			return Page;
		}
	}
	return nullptr;
}
} // namespace BlueprintGraphUtils

bool FBlueprintGraphUtils::IsUbergraphPage(const UBlueprint* Blueprint, const UEdGraph* Graph)
{
	return Blueprint && BlueprintGraphUtils::Holds(Blueprint->UbergraphPages, Graph);
}

bool FBlueprintGraphUtils::IsFunctionGraph(const UBlueprint* Blueprint, const UEdGraph* Graph)
{
	return Blueprint && BlueprintGraphUtils::Holds(Blueprint->FunctionGraphs, Graph);
}

bool FBlueprintGraphUtils::IsDelegateSignatureGraph(const UBlueprint* Blueprint, const UEdGraph* Graph)
{
	return Blueprint && BlueprintGraphUtils::Holds(Blueprint->DelegateSignatureGraphs, Graph);
}

UK2Node_FunctionEntry* FBlueprintGraphUtils::FindFunctionEntry(const UEdGraph* Graph)
{
	return BlueprintGraphUtils::FindFirst<UK2Node_FunctionEntry>(Graph);
}

UK2Node_FunctionResult* FBlueprintGraphUtils::FindFunctionResult(const UEdGraph* Graph)
{
	return BlueprintGraphUtils::FindFirst<UK2Node_FunctionResult>(Graph);
}

UEdGraph* FBlueprintGraphUtils::EnsureEventGraph(
	UBlueprint* Blueprint, const FString& Name, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint when ensuring EventGraph"));
		return nullptr;
	}
	const FString GraphName = Name.IsEmpty() ? UEdGraphSchema_K2::GN_EventGraph.ToString() : Name;
	if (UEdGraph* const Page = BlueprintGraphUtils::FindPage(*Blueprint, GraphName))
	{
		return Page;
	}
	const bool bNameIsTaken = FBlueprintMatchingUtils::FindGraphByName(Blueprint, GraphName) != nullptr;
	if (bNameIsTaken)
	{
		if (UEdGraph* const MainGraph = FBlueprintEditorUtils::FindEventGraph(Blueprint))
		{
			return MainGraph;
		}
	}

	FString Obstacle = MemberNames::WhyNoEventGraph(*Blueprint);
	Obstacle = Obstacle.IsEmpty() ? MemberNames::DescribeObstacle(*Blueprint, GraphName) : Obstacle;
	if (!Obstacle.IsEmpty())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to create event graph '%s' (%s)"), *GraphName, *Obstacle));
		return nullptr;
	}
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint, FName(*GraphName), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	// It starts empty: the schema's default node is a function's entry, which no event graph may hold.
	FBlueprintEditorUtils::AddUbergraphPage(Blueprint, Graph);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	Result.AddSuccessMessage(FString::Printf(TEXT("Created event graph '%s'"), *Graph->GetName()));
	return Graph;
}
