#include "Spawning/SpawnWaterfall.h"

#include "BlueprintActionMenuItem.h"
#include "BlueprintFunctionNodeSpawner.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "HAL/PlatformTime.h"
#include "Spawning/DeterministicSpawn.h"
#include "Spawning/PostSpawnValidation.h"
#include "Spawning/SpawnAttempt.h"
#include "ToolResult.h"
#include "Utils/Graph/EventNodes.h"
#include "Utils/Report/GraphTelemetry.h"

namespace SpawnWaterfall
{
constexpr float DefaultMinimumConfidence = 0.6f;

/** The class that an action's function belongs to; "null" for an action that calls none. */
static FString GetTargetClassName(const FEdGraphSchemaAction& Action)
{
	if (Action.GetTypeId() == FBlueprintActionMenuItem::StaticGetTypeId())
	{
		const UBlueprintNodeSpawner* const Spawner =
			static_cast<const FBlueprintActionMenuItem&>(Action).GetRawAction();
		const UBlueprintFunctionNodeSpawner* const Call = Cast<UBlueprintFunctionNodeSpawner>(Spawner);
		const UFunction* const Function = Call ? Call->GetFunction() : nullptr;
		const UClass* const Owner = Function ? Function->GetOwnerClass() : nullptr;
		return Owner ? Owner->GetName() : TEXT("null");
	}
	return TEXT("null");
}
} // namespace SpawnWaterfall

UEdGraphNode* FBlueprintSpawnWaterfall::CreateNodeFromRecord(UEdGraph* Graph, const FBPNodeModification& Record,
	UBlueprint* Blueprint, const TSharedPtr<FSharedActionMenu>& SharedCAM, Morvane::FToolResult& Result,
	FSpawnLookups& Lookups, const FBPGraphSession::FNodeByRequestId* CreatedNodes)
{
	if (!Graph || !Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid graph or blueprint"));
		return nullptr;
	}
	const double Start = FPlatformTime::Seconds();
	UEdGraphNode* const Node =
		FSpawnAttempt(*Graph, Record, *Blueprint, SharedCAM, Result, Lookups, CreatedNodes).Run();
	if (Node)
	{
		GraphTelemetry::RecordNodeCreationLatency(Result, Record.NodeGuid, FBlueprintNodeUtils::GetFullTitle(Node),
			(FPlatformTime::Seconds() - Start) * 1000.0);
	}
	return Node;
}

UEdGraphNode* FSpawnAttempt::Run()
{
	const bool bEventRequest = FBlueprintSpawnWaterfall::IsEventRequest(Record);
	GraphTelemetry::RecordSpawnMethod(
		Result, bEventRequest ? TEXT("deterministic_event") : FBlueprintSpawnWaterfall::GetSpawnMethodLabel(Record));

	// Before the events: a variable class means a variable, also with an event name in the metadata.
	if (IsVariableRequest())
	{
		return SpawnVariable();
	}
	if (bEventRequest)
	{
		return SpawnEvent();
	}
	if (IsParentCallRequest())
	{
		return SpawnParentCall();
	}
	UEdGraphNode* const Named = FindStandingNode();
	if (UEdGraphNode* const Told = Named ? Named : SpawnInputEvent())
	{
		return Told;
	}
	// No way from the first to the second: a request that is exact and wrong must not become something similar.
	UEdGraphNode* const Node = FBlueprintSpawnWaterfall::IsDeterministicRequest(Record) ? SpawnDeterministic()
																						: SpawnFromMenu();
	return Node ? FPostSpawnValidation(Graph, Record, Blueprint, Candidates, Position, GetContext(), Result).Run(Node)
				: nullptr;
}

FString FBlueprintSpawnWaterfall::GetSpawnMethodLabel(const FBPNodeModification& Record)
{
	const FString Given = Record.GetMetadata(TEXT("spawn_method"));
	if (!Given.IsEmpty())
	{
		return Given.TrimStartAndEnd();
	}
	if (IsDeterministicRequest(Record))
	{
		return TEXT("deterministic");
	}
	if (!Record.MenuCategory.IsEmpty())
	{
		return TEXT("cam_filtered");
	}
	return Record.ClassName.IsEmpty() ? TEXT("cam_global") : TEXT("cam_global_with_class");
}

float FBlueprintSpawnWaterfall::GetMinimumConfidence(const FBPNodeModification& Record)
{
	const FString Text = Record.GetMetadata(TEXT("minimum_confidence"));
	if (!Text.IsEmpty())
	{
		// Text that is no number reads as 0, which accepts any candidate.
		const double Value = FCString::Atod(*Text);
		if (Value >= 0.0 && Value <= 1.0)
		{
			return static_cast<float>(Value);
		}
	}
	return SpawnWaterfall::DefaultMinimumConfidence;
}

bool FBlueprintSpawnWaterfall::IsDeterministicRequest(const FBPNodeModification& Record)
{
	return !Record.TargetClass.IsEmpty() && !Record.TargetFunction.IsEmpty();
}

bool FBlueprintSpawnWaterfall::IsEquivalentNodeClass(
	const FString& Requested, const FString& Spawned, const UEdGraphNode*)
{
	if (Requested.Equals(Spawned, ESearchCase::CaseSensitive))
	{
		return true;
	}
	const bool bOperatorForCall = Requested.Equals(TEXT("K2Node_CallFunction"), ESearchCase::CaseSensitive)
		&& (Spawned.Equals(TEXT("K2Node_PromotableOperator"), ESearchCase::CaseSensitive)
			|| Spawned.Equals(TEXT("K2Node_CommutativeAssociativeBinaryOperator"), ESearchCase::CaseSensitive));
	if (bOperatorForCall)
	{
		return true;
	}
	// Every other pair passes too. Agents guess node classes far more often wrong than titles, and a node that does
	// what its title says serves them better than none.
	return true;
}

FSpawnAttempt::FSpawnAttempt(UEdGraph& InGraph, const FBPNodeModification& InRecord, UBlueprint& InBlueprint,
	const TSharedPtr<FSharedActionMenu>& InMenu, Morvane::FToolResult& InResult, FSpawnLookups& InLookups,
	const FBPGraphSession::FNodeByRequestId* InCreatedNodes)
	: Graph(InGraph)
	, Record(InRecord)
	, Blueprint(InBlueprint)
	, Menu(InMenu)
	, Result(InResult)
	, Lookups(InLookups)
	, CreatedNodes(InCreatedNodes)
	, MinimumConfidence(FBlueprintSpawnWaterfall::GetMinimumConfidence(InRecord))
{
}

bool FBlueprintSpawnWaterfall::IsEventRequest(const FBPNodeModification& Record)
{
	// The key alone makes it an event, whatever its value: an empty name is for the event road to refuse.
	return Record.ClassName.Equals(TEXT("K2Node_Event"), ESearchCase::CaseSensitive)
		|| Record.ClassName.Equals(TEXT("K2Node_CustomEvent"), ESearchCase::IgnoreCase)
		|| Record.FindMetadata(TEXT("event_name"));
}

UEdGraphNode* FSpawnAttempt::SpawnEvent()
{
	UEdGraphNode* Node = nullptr;
	FString Error;
	if (!FBlueprintEventNodeUtils::CreateEventNode(&Blueprint, &Graph, Record, Result, Node, Error))
	{
		if (!Error.IsEmpty())
		{
			// To the telemetry only: the agent has been told already.
			GraphTelemetry::RecordValidationFailure(Result, FString::Printf(TEXT("[Failure] %s"), *Error));
		}
		return nullptr;
	}
	return Node ? Node : Fail(TEXT("[Failure] Deterministic event spawn returned null node"));
}

UEdGraphNode* FSpawnAttempt::SpawnDeterministic()
{
	Position = Graph.GetGoodPlaceForNewNode();
	UEdGraphNode* Node = nullptr;
	if (!FBlueprintDeterministicSpawn::SpawnDeterministicNode(Graph, Record, Result, Lookups, Node))
	{
		return Fail(FString::Printf(
			TEXT("[Failure] Deterministic spawn unavailable for %s::%s (class or function - incorrect or not found)."),
			*Record.TargetClass, *Record.TargetFunction));
	}
	return Node ? Node : Fail(TEXT("[Failure] Deterministic spawn returned null node"));
}

UEdGraphNode* FSpawnAttempt::SpawnFromMenu()
{
	if (!Menu)
	{
		Result.AddErrorMessage(TEXT("SharedCAM is null - internal error"));
		return nullptr;
	}
	Candidates = FBlueprintCamMatching::FindCamMatches(Record, *Menu);
	if (Candidates.IsEmpty())
	{
		Fail(FString::Printf(
			TEXT(
				"[Failure] Fuzzy matching found 0 matching candidates for node '%s'. Consider deterministic spawning if possible or refining the fuzzy request."),
			*Record.MenuTitle));
		FBlueprintCamMatching::RecordCandidateMatches(Candidates, Result, GetContext());
		return nullptr;
	}
	const FCamCandidate& Best = Candidates[0];
	if (Best.Confidence < MinimumConfidence)
	{
		const FString Reason = FBlueprintCamMatching::ExplainRefusal(Record, *Menu);
		if (!Reason.IsEmpty())
		{
			Fail(Reason);
			FBlueprintCamMatching::RecordCandidateMatches(Candidates, Result, GetContext());
			return nullptr;
		}
		Fail(FString::Printf(
			TEXT(
				"[Failure] No confident fuzzy match for node '%s' (best: '%s', confidence: %.2f, threshold: %.2f). Suggestions are provided (not mandatory); consider deterministic spawning if possible or refining the fuzzy request.\nTop candidates:\n%s"),
			*Record.MenuTitle, *Best.MenuTitle, Best.Confidence, MinimumConfidence, *DescribeTopCandidates()));
		GraphTelemetry::RecordMatchHint(Result, GetContext(), FBlueprintCamMatching::HintRefusal(Record, *Menu));
		FBlueprintCamMatching::RecordCandidateMatches(Candidates, Result, GetContext());
		return nullptr;
	}
	return PerformBestAction();
}

UEdGraphNode* FSpawnAttempt::PerformBestAction()
{
	const FCamCandidate& Best = Candidates[0];
	Position = Graph.GetGoodPlaceForNewNode();
	if (!Best.Action)
	{
		return Fail(TEXT("[Failure] Matched CAM action is invalid \u2013 cannot spawn node"));
	}
	const int32 NumBefore = Graph.Nodes.Num();
	UEdGraphNode* const Node = Best.Action->PerformAction(&Graph, nullptr, FVector2f(Position), true);
	if (Node)
	{
		// A node that stood already is the only one of its kind.
		return Graph.Nodes.Num() > NumBefore ? ChooseNamesake(Node) : Node;
	}
	return Fail(FString::Printf(
		TEXT(
			"[Failure] PerformAction returned null when spawning node.\n  Requested Node: '%s' (class: %s)\n  Matched Action: '%s' (class: %s)\n  Menu Category: '%s'\n  Confidence: %.2f\n  Target Class: '%s'\n  Position: (%.0f, %.0f)\n  Graph: '%s'\n  Possible causes:\n    - The node type is incompatible with this graph type\n    - The action requires additional context that wasn't provided\n    - The node spawner encountered an internal error\n    - Consider using deterministic spawning with target_class/target_function if applicable"),
		*Record.MenuTitle, *Record.ClassName, *Best.MenuTitle, *Best.NodeClass, *Best.MenuCategory, Best.Confidence,
		*SpawnWaterfall::GetTargetClassName(*Best.Action), Position.X, Position.Y, *Graph.GetName()));
}

FString FSpawnAttempt::DescribeTopCandidates() const
{
	TArray<FString> Lines;
	for (int32 Index = 0; Index < FBlueprintCamMatching::CountShown(Candidates); ++Index)
	{
		const FCamCandidate& Candidate = Candidates[Index];
		Lines.Add(FString::Printf(TEXT("  %d. '%s' (class: %s, confidence: %.2f)"), Index + 1, *Candidate.MenuTitle,
			*Candidate.NodeClass, Candidate.Confidence));
	}
	return FString::Join(Lines, TEXT("\n"));
}

FVector2D FSpawnAttempt::GetRequestedPosition() const
{
	if (Record.PositionX && Record.PositionY)
	{
		return FVector2D(*Record.PositionX, *Record.PositionY);
	}
	return Graph.GetGoodPlaceForNewNode();
}

FString FSpawnAttempt::GetContext() const
{
	return Record.NodeGuid.IsEmpty() ? Record.MenuTitle : Record.NodeGuid;
}

UEdGraphNode* FSpawnAttempt::Fail(const FString& Text)
{
	SpawnReport::Report(Result, Text);
	return nullptr;
}

void SpawnReport::Report(Morvane::FToolResult& Result, const FString& Text)
{
	GraphTelemetry::RecordValidationFailure(Result, Text);
	Result.AddWarningMessage(Text);
}
