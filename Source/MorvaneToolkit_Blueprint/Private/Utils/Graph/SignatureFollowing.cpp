#include "Utils/Graph/SignatureFollowing.h"

#include "BlueprintGraphUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Composite.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Graph/MemberUsers.h"
#include "Utils/Graph/NodeRefresh.h"

namespace SignatureFollowingImpl
{
/** Other Blueprints change in memory, and their files do not: an agent has to know. */
static void TellOtherBlueprints(
	const UBlueprint& Blueprint, const TArray<UK2Node*>& Nodes, Morvane::FToolResult& Result)
{
	TArray<FString> Paths;
	for (const UK2Node* const Node : Nodes)
	{
		UBlueprint* const Home = Node->GetBlueprint();
		if (Home && Home != &Blueprint)
		{
			FBlueprintEditorUtils::MarkBlueprintAsModified(Home);
			Paths.AddUnique(Home->GetOutermost()->GetName());
		}
	}
	if (!Paths.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Nodes of other Blueprints changed with it, in memory only. Compile these to save them: %s"),
			*FString::Join(Paths, TEXT(", "))));
	}
}

static void TellLostLinks(const TArray<FString>& Lost, Morvane::FToolResult& Result)
{
	if (!Lost.IsEmpty())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("These links do not fit any more: %s"), *FString::Join(Lost, TEXT(", "))));
	}
}

/** Whether the graph's function is one that the Blueprint declares itself. */
static bool DeclaresFunction(UBlueprint& Blueprint, const UEdGraph& Graph)
{
	const UClass* const Class = FMemberReference::GetBlueprintSelfClass(&Blueprint);
	return FBlueprintGraphUtils::IsFunctionGraph(&Blueprint, &Graph) && Class
		&& Class->FindFunctionByName(Graph.GetFName());
}

/** The calls among the nodes whose purity is not what the function says. */
static TArray<UK2Node*> TakePurity(const TArray<UK2Node*>& Users, bool bPure)
{
	TArray<UK2Node*> Changed;
	for (UK2Node* const User : Users)
	{
		UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(User);
		if (Call && (Call->bDefaultsToPureFunc != bPure || (!bPure && Call->IsNodePure())))
		{
			Call->Modify();
			Call->bDefaultsToPureFunc = bPure;
			// Only a call of a pure function has a choice.
			Call->NodePurityOverride = bPure ? Call->NodePurityOverride : ENodePurityOverride::Unset;
			Changed.Add(Call);
		}
	}
	return Changed;
}
} // namespace SignatureFollowingImpl

FDeclaredMembers SignatureFollowing::GetMembersOf(const UBlueprint& Blueprint, const UK2Node_EditablePinBase& Node)
{
	FDeclaredMembers Members;
	if (const UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(&Node))
	{
		Members.Functions.Add(Event->GetFunctionName());
		return Members;
	}
	const UEdGraph& Graph = *Node.GetGraph();
	if (FBlueprintGraphUtils::IsDelegateSignatureGraph(&Blueprint, &Graph))
	{
		Members.Dispatchers.Add(Graph.GetFName());
	}
	else if (Node.IsA<UK2Node_FunctionTerminator>())
	{
		Members.Functions.Add(Graph.GetFName());
	}
	else
	{
		Members.Macros.Add(&Graph);
	}
	return Members;
}

void SignatureFollowing::Refresh(UBlueprint& Blueprint, const FDeclaredMembers& Members, Morvane::FToolResult& Result)
{
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	const TArray<UK2Node*> Users = MemberUsers::Find(Blueprint, Members);
	SignatureFollowingImpl::TellLostLinks(NodeRefresh::Reconstruct(Users), Result);
	SignatureFollowingImpl::TellOtherBlueprints(Blueprint, Users, Result);
}

void SignatureFollowing::RefreshOwner(const UEdGraph& Graph, Morvane::FToolResult& Result)
{
	if (UK2Node_Composite* const Owner = Cast<UK2Node_Composite>(Graph.GetOuter()))
	{
		SignatureFollowingImpl::TellLostLinks(NodeRefresh::Reconstruct({Owner}), Result);
	}
}

bool SignatureFollowing::SetPure(UBlueprint& Blueprint, UEdGraph& Graph, bool bPure, Morvane::FToolResult& Result)
{
	using namespace SignatureFollowingImpl;
	UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(&Graph);
	if (!Entry || !DeclaresFunction(Blueprint, Graph))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Failed to set is_pure on graph, Could not get Function from Graph: %s"), *Graph.GetName()));
		return false;
	}
	if (!Entry->IsEditable())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Failed to set is_pure on graph, the function is declared elsewhere: %s"), *Graph.GetName()));
		return false;
	}
	Entry->Modify();
	if (bPure)
	{
		Entry->AddExtraFlags(FUNC_BlueprintPure);
	}
	else
	{
		Entry->ClearExtraFlags(FUNC_BlueprintPure);
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	FDeclaredMembers Members;
	Members.Functions.Add(Graph.GetFName());
	const TArray<UK2Node*> Calls = TakePurity(MemberUsers::Find(Blueprint, Members), bPure);
	TellLostLinks(NodeRefresh::Reconstruct(Calls), Result);
	if (!bPure && !Calls.IsEmpty())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Function '%s' is not pure any more. These calls need an execution link now: %s"),
				*Graph.GetName(), *NodeRefresh::DescribeAll(Calls)));
	}
	TellOtherBlueprints(Blueprint, Calls, Result);
	return true;
}
