#include "Utils/Graph/StateMachineGraphs.h"

#include "AnimationStateMachineGraph.h"
#include "AnimStateTransitionNode.h"
#include "Engine/Blueprint.h"

namespace StateMachineGraphsImpl
{
static bool Fits(const FString& Asked, const FString& Name)
{
	return Asked.IsEmpty() || Asked.Equals(Name, ESearchCase::IgnoreCase);
}

static bool IsCalled(const UEdGraph* Graph, const FString& Name)
{
	return Graph && Graph->GetName().Equals(Name, ESearchCase::IgnoreCase);
}

static UEdGraph* FindRule(const UEdGraph& Machine, const FString& GraphName, const StateMachineGraphs::FPlace& Place)
{
	UEdGraph* First = nullptr;
	TArray<UAnimStateTransitionNode*> Transitions;
	Machine.GetNodesOfClass(Transitions);
	for (const UAnimStateTransitionNode* const Transition : Transitions)
	{
		const UAnimStateNodeBase* const From = Transition->GetPreviousState();
		const UAnimStateNodeBase* const To = Transition->GetNextState();
		if (!From || !To || !Fits(Place.FromState, From->GetStateName()) || !Fits(Place.ToState, To->GetStateName()))
		{
			continue;
		}
		UEdGraph* const Rule = Transition->GetBoundGraph();
		if (IsCalled(Rule, GraphName))
		{
			return Rule;
		}
		First = First ? First : Rule;
	}
	return First;
}

static UEdGraph* FindWithin(UEdGraph& Machine, const FString& GraphName)
{
	TArray<UEdGraph*> Graphs = {&Machine};
	Machine.GetAllChildrenGraphs(Graphs);
	UEdGraph* const* const Found = Graphs.FindByPredicate(
		[&GraphName](const UEdGraph* Graph) { return IsCalled(Graph, GraphName); });
	return Found ? *Found : nullptr;
}
} // namespace StateMachineGraphsImpl

UEdGraph* StateMachineGraphs::Find(const UBlueprint& Blueprint, const FString& GraphName, const FPlace& Place)
{
	using namespace StateMachineGraphsImpl;
	const bool bRule = !Place.FromState.IsEmpty() || !Place.ToState.IsEmpty();
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	for (UEdGraph* const Graph : Graphs)
	{
		UEdGraph* Found = nullptr;
		if (Graph->IsA<UAnimationStateMachineGraph>() && Fits(Place.Machine, Graph->GetName()))
		{
			Found = bRule ? FindRule(*Graph, GraphName, Place) : FindWithin(*Graph, GraphName);
		}
		if (Found)
		{
			return Found;
		}
	}
	return nullptr;
}
