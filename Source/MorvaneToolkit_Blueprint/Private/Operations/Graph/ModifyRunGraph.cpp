#include "Operations/Graph/ModifyRun.h"

#include "AssetOperationBase.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintMatchingUtils.h"
#include "BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_Event.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Operations/Frame/OperationFrame.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"
#include "Utils/Graph/EventNodes.h"
#include "Utils/Graph/GraphRemoval.h"
#include "Utils/Graph/StateMachineGraphs.h"

// The steps about the Blueprint and the graph as a whole.

FModifyRun::FModifyRun(const FBPGraphModification& InRequest, Morvane::FToolResult& InResult)
	: Request(InRequest)
	, Result(InResult)
	, GraphName(InRequest.GraphName)
{
}

FModifyRun::~FModifyRun() = default;

bool FModifyRun::NamesBlueprint() const
{
	const FString& Name = Request.BlueprintName;
	const FString Package = Blueprint->GetOutermost()->GetName();
	return Name.Equals(Blueprint->GetName(), ESearchCase::IgnoreCase)
		|| Name.Equals(Blueprint->GetPathName(), ESearchCase::IgnoreCase)
		|| FAssetOperationBase::NormalizeAssetPath(Name).Equals(Package, ESearchCase::IgnoreCase);
}

bool FModifyRun::LoadBlueprint()
{
	Blueprint = FBlueprintUtils::LoadBlueprint(FAssetOperationBase::NormalizeAssetPath(Request.Path), Result);
	if (!Blueprint)
	{
		return false;
	}
	Result.AddModifiedObjects(Blueprint);
	if (!NamesBlueprint())
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT(
				"blueprint_name '%s' does not name the Blueprint at path '%s'. Give the last name or the path of the same asset: %s"),
			*Request.BlueprintName, *Request.Path, *Blueprint->GetName()));
		return false;
	}
	const bool bBlueprintIsValid = IsValid(Blueprint) && Blueprint->ParentClass.Get();
	if (!ensure(bBlueprintIsValid))
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Blueprint '%s' is not valid."), *Blueprint->GetName()));
		return false;
	}
	return OperationFrame::CheckOut(*Blueprint, Result);
}

UEdGraph* FModifyRun::FindGraph() const
{
	const StateMachineGraphs::FPlace Place = {Request.StateMachineName, Request.FromStateName, Request.ToStateName};
	return Place.IsGiven() ? StateMachineGraphs::Find(*Blueprint, Request.GraphName, Place)
						   : FBlueprintMatchingUtils::FindGraphByName(Blueprint, Request.GraphName);
}

bool FModifyRun::ApplyGraphAction()
{
	Graph = FindGraph();
	GraphName = Graph ? Graph->GetName() : Request.GraphName;
	if (Request.GraphAction == EBPNodeAction::Add)
	{
		if (Request.bFromTool)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("ProcessModification : We should not use EGraphAction::Add with this tool: %s"), *GraphName));
			Fail();
			return true;
		}
		bGraphAdded = AddGraph();
		return true;
	}
	if (Request.GraphAction == EBPNodeAction::Remove)
	{
		RemoveGraph();
		return true;
	}
	if (!Graph)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Graph doesn't exist: %s"), *GraphName));
	}
	return Graph != nullptr;
}

void FModifyRun::RemoveGraph()
{
	if (!Graph)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Graph '%s' not found for removal"), *GraphName));
		Fail();
		return;
	}
	TUniquePtr<FTouchedReads> Shown = MakeUnique<FTouchedReads>(*Blueprint, *Graph);
	UEdGraphNode* const Owner = Graph->GetTypedOuter<UEdGraphNode>();
	if (Owner)
	{
		Shown->TouchNode(*Owner);
	}
	else
	{
		Shown->TouchGraph();
	}
	bGraphRemoved = GraphRemoval::Remove(*Blueprint, *Graph, Result);
	if (!bGraphRemoved)
	{
		Fail();
		return;
	}
	Shown->Track(Blueprint->GetOutermost()->GetName(), Result);
	bChanged = true;
	Graph = nullptr;
}

bool FModifyRun::AddEventOverride(const UFunction& Function, UClass* Class)
{
	UEdGraph* const Page = FBlueprintGraphUtils::EnsureEventGraph(Blueprint, FString(), Result);
	const UK2Node_Event* Event = Page
		? FBlueprintEditorUtils::FindOverrideForFunction(Blueprint, Class, Function.GetFName())
		: nullptr;
	if (Page && !Event)
	{
		Event = FBlueprintEventNodeUtils::SpawnEventOverride(*Page, Function, Class, Page->GetGoodPlaceForNewNode());
	}
	Graph = Event ? Page : Graph;
	return Event != nullptr;
}

bool FModifyRun::AddGraph()
{
	if (Graph)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Graph already exists: %s"), *GraphName));
		Fail();
		return false;
	}
	UFunction* Function = nullptr;
	UClass* const Class = FBlueprintEditorUtils::GetOverrideFunctionClass(Blueprint, FName(*GraphName), &Function);
	if (Function && UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(Function))
	{
		AddEventOverride(*Function, Class);
	}
	else
	{
		Graph = FBlueprintEditorUtils::CreateNewGraph(
			Blueprint, FName(*GraphName), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	}
	if (Graph && Graph->Nodes.IsEmpty() && Function)
	{
		FBlueprintEditorUtils::AddFunctionGraph(Blueprint, Graph, false, Class);
		Result.AddSuccessMessage(FString::Printf(
			TEXT(
				"Overriding function: %s in parent class: %s because the parent class implements this node as a function. Continue with implementing this as a function"),
			*GraphName, Class ? *Class->GetName() : TEXT("Unknown")));
	}
	else if (Graph && !Function)
	{
		FBlueprintEditorUtils::AddUbergraphPage(Blueprint, Graph);
		const UEdGraphSchema* const Schema = Graph->GetSchema();
		Result.AddSuccessMessage(FString::Printf(TEXT("Created new event graph: %s, with graph_schema: %s"),
			*Graph->GetName(), Schema ? *Schema->GetClass()->GetName() : TEXT("Unknown")));
	}
	FKismetEditorUtilities::BringKismetToFocusAttentionOnObject(Graph);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	bChanged |= Graph != nullptr;
	return Graph != nullptr;
}

bool FModifyRun::IsEngineReady()
{
	if (!GIsSavingPackage && !GIsGarbageCollecting)
	{
		return true;
	}
	const TSharedRef<FJsonObject> Failure = MakeShared<FJsonObject>();
	Failure->SetStringField(TEXT("message"), TEXT("Cannot execute modification during save or garbage collection"));
	Failure->SetStringField(TEXT("type"), TEXT("engine_state_error"));
	Result.AddWarningMessage(FAssetOperationBase::SerializeJson(Failure));
	return false;
}

void FModifyRun::Begin()
{
	FBlueprintNodesCommonOperation::ResetRunState();
	if (Graph)
	{
		Reads = MakeUnique<FTouchedReads>(*Blueprint, *Graph);
		Blueprint->Modify(false);
		Graph->Modify(false);
	}
}

void FModifyRun::SetPurity()
{
	if (!Request.bIsPure)
	{
		return;
	}
	bPuritySet = FBlueprintNodesCommonOperation::SetIsPureOnBlueprintFunctionGraph(Blueprint, Graph, Request, Result);
	bChanged |= bPuritySet;
	NumFailed += bPuritySet ? 0 : 1;
	if (bPuritySet)
	{
		Reads->TouchGraph();
	}
}
