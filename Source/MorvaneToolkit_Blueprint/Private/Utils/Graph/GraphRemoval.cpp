#include "Utils/Graph/GraphRemoval.h"

#include "BlueprintGraphUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Editor.h"
#include "Engine/Blueprint.h"
#include "K2Node_CreateDelegate.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Subsystems/AssetEditorSubsystem.h"
#include "ToolResult.h"
#include "Utils/Graph/MemberUsers.h"
#include "Utils/Graph/NodeRefresh.h"

namespace GraphRemovalImpl
{
static bool MayBeRemoved(const UEdGraph& Graph, Morvane::FToolResult& Result)
{
	if (!Graph.GetSchema())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Failed to delete graph: %s, schema not found"), *Graph.GetName()));
		return false;
	}
	// The functions of an interface stand as long as it is implemented.
	if (!Graph.bAllowDeletion || FBlueprintEditorUtils::IsInterfaceGraph(&Graph))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Failed to delete graph: %s, bAllowDeletion is false"), *Graph.GetName()));
		return false;
	}
	return true;
}

static bool IsInside(const UEdGraphNode& Node, const UEdGraph& Graph)
{
	for (const UEdGraph* Outer = Node.GetGraph(); Outer; Outer = Outer->GetTypedOuter<UEdGraph>())
	{
		if (Outer == &Graph)
		{
			return true;
		}
	}
	return false;
}

static void CloseEditors(UEdGraph& Graph)
{
	UAssetEditorSubsystem* const Editors = GEditor ? GEditor->GetEditorSubsystem<UAssetEditorSubsystem>() : nullptr;
	if (Editors)
	{
		Editors->CloseAllEditorsForAsset(&Graph);
	}
}

static bool IsDispatcher(const UBlueprint& Blueprint, FName Name)
{
	return Blueprint.NewVariables.ContainsByPredicate([Name](const FBPVariableDescription& Variable)
		{ return Variable.VarName == Name && Variable.VarType.PinCategory == UEdGraphSchema_K2::PC_MCDelegate; });
}
} // namespace GraphRemovalImpl

void GraphRemoval::TellUsers(const TArray<UK2Node*>& Users, const FString& What, Morvane::FToolResult& Result)
{
	if (!Users.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("%s is gone, and these nodes still name what it declared: %s"),
			*What, *NodeRefresh::DescribeAll(Users)));
	}
}

bool GraphRemoval::Remove(UBlueprint& Blueprint, UEdGraph& Graph, Morvane::FToolResult& Result)
{
	using namespace GraphRemovalImpl;
	if (!MayBeRemoved(Graph, Result))
	{
		return false;
	}
	const FString Name = Graph.GetName();
	TArray<UK2Node*> Users = MemberUsers::Find(Blueprint, FDeclaredMembers::OfGraph(Blueprint, Graph));
	Users.RemoveAll([&Graph](const UK2Node* Node) { return IsInside(*Node, Graph); });

	FKismetEditorUtilities::BringKismetToFocusAttentionOnObject(&Graph);
	const bool bDispatcher = FBlueprintGraphUtils::IsDelegateSignatureGraph(&Blueprint, &Graph)
		&& IsDispatcher(Blueprint, Graph.GetFName());
	if (bDispatcher)
	{
		FBlueprintEditorUtils::RemoveMemberVariable(&Blueprint, Graph.GetFName());
	}
	if (IsValid(&Graph))
	{
		FBlueprintEditorUtils::RemoveGraph(&Blueprint, &Graph, EGraphRemoveFlags::Default);
	}
	CloseEditors(Graph);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);

	Result.AddSuccessMessage(FString::Printf(TEXT("Successfully removed graph: %s"), *Name));
	Users.RemoveAll([](const UK2Node* Node) { return !IsValid(Node); });
	for (UK2Node* const User : Users)
	{
		if (UK2Node_CreateDelegate* const Chosen = Cast<UK2Node_CreateDelegate>(User))
		{
			Chosen->HandleAnyChange();
		}
	}
	TellUsers(Users, FString::Printf(TEXT("Graph '%s'"), *Name), Result);
	return true;
}
