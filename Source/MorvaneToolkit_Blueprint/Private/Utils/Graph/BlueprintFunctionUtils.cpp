#include "BlueprintCreateModifyRemoveUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/MemberReference.h"
#include "JsonReading.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Graph/MemberNames.h"

// The functions of FBlueprintCreateModifyRemoveUtils: one plain function at a time, for siblings.

namespace BlueprintFunctionUtils
{
static UEdGraph* FindFunctionGraph(const UBlueprint& Blueprint, const FString& Name)
{
	for (UEdGraph* const Graph : Blueprint.FunctionGraphs)
	{
		if (Graph && Graph->GetName().Equals(Name, ESearchCase::IgnoreCase))
		{
			return Graph;
		}
	}
	return nullptr;
}

/** False, reported, without a Blueprint or a name. */
static bool ReadName(
	const UBlueprint* Blueprint, const FJsonObject& Function, FString& OutName, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint"));
		return false;
	}
	if (!MorvaneJson::TryGetStringField(Function, TEXT("name"), OutName))
	{
		Result.AddErrorMessage(TEXT("Missing required field 'name' for function"));
		return false;
	}
	return true;
}

static bool ReportNotFound(const FString& Name, Morvane::FToolResult& Result)
{
	Result.AddErrorMessage(FString::Printf(TEXT("Function '%s' not found"), *Name));
	return false;
}
} // namespace BlueprintFunctionUtils

bool FBlueprintCreateModifyRemoveUtils::CreateFunction(
	UBlueprint* Blueprint, const FJsonObject& Function, Morvane::FToolResult& Result)
{
	FString Name;
	if (!BlueprintFunctionUtils::ReadName(Blueprint, Function, Name, Result))
	{
		return false;
	}
	if (BlueprintFunctionUtils::FindFunctionGraph(*Blueprint, Name))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Function '%s' already exists"), *Name));
		return false;
	}
	const FString Obstacle = MemberNames::DescribeObstacle(*Blueprint, Name);
	if (!Obstacle.IsEmpty())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to create function '%s' (%s)"), *Name, *Obstacle));
		return false;
	}
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint, FName(*Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FGraphNodeCreator<UK2Node_FunctionEntry> Creator(*Graph);
	UK2Node_FunctionEntry* const Entry = Creator.CreateNode(false);
	Entry->FunctionReference.SetExternalMember(FName(*Name), Blueprint->GeneratedClass);
	Creator.Finalize();
	Blueprint->FunctionGraphs.Add(Graph);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	Result.AddSuccessMessage(FString::Printf(TEXT("Created function '%s'"), *Name));
	return true;
}

bool FBlueprintCreateModifyRemoveUtils::ModifyFunction(
	UBlueprint* Blueprint, const FJsonObject& Function, Morvane::FToolResult& Result)
{
	FString Name;
	if (!BlueprintFunctionUtils::ReadName(Blueprint, Function, Name, Result))
	{
		return false;
	}
	if (!BlueprintFunctionUtils::FindFunctionGraph(*Blueprint, Name))
	{
		return BlueprintFunctionUtils::ReportNotFound(Name, Result);
	}
	// A function is changed through its graph; here it stays as it is, and the caller is told what to do instead.
	Result.AddWarningMessage(
		TEXT("Function modification not fully implemented. Consider removing and recreating the function."));
	return true;
}

bool FBlueprintCreateModifyRemoveUtils::RemoveFunction(
	UBlueprint* Blueprint, const FString& FunctionName, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint"));
		return false;
	}
	UEdGraph* const Graph = BlueprintFunctionUtils::FindFunctionGraph(*Blueprint, FunctionName);
	if (!Graph)
	{
		return BlueprintFunctionUtils::ReportNotFound(FunctionName, Result);
	}
	FBlueprintEditorUtils::RemoveGraph(Blueprint, Graph, EGraphRemoveFlags::Default);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	Result.AddSuccessMessage(FString::Printf(TEXT("Removed function '%s'"), *FunctionName));
	return true;
}
