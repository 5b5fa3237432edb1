#pragma once

#include "BlueprintActionMenuBuilder.h"
#include "CoreMinimal.h"
#include "KeywordSimilarity.h"
#include "UObject/WeakObjectPtr.h"
#include "Utils/Request/GraphRecords.h"

class UBlueprint;
class UEdGraph;

namespace Morvane
{
class FToolResult;
}

/** An action of the menu as it fits one request. */
struct FCamCandidate
{
	TSharedPtr<FEdGraphSchemaAction> Action;
	FString MenuTitle;
	FString MenuCategory;
	/** Of the node that the action makes; may be empty. */
	FString NodeClass;
	FKeywordSimilarity CommonKeywords;
	/** From 0 to 1. */
	float Confidence = 0.0f;
};

/** The action menu of one run, built once and asked by all of its requests. */
class FSharedActionMenu : public FBlueprintActionMenuBuilder
{
public:
	/** Empty. */
	FSharedActionMenu();
	/** What the graph's menu offers. */
	explicit FSharedActionMenu(UEdGraph& Graph);

	/** Tells this menu from any other of the process, gone ones included. */
	uint64 GetSerial() const { return Serial; }
	/** Reading an entry changes nothing, whether or not the list's own function says so. */
	TSharedPtr<FEdGraphSchemaAction> GetActionAt(int32 Index) const
	{
		return const_cast<FSharedActionMenu*>(this)->GetSchemaAction(Index);
	}
	/** Null when the graph has none or is gone. */
	UBlueprint* GetBlueprint() const;
	UEdGraph* GetGraph() const { return Graph.Get(); }
	/** The menu of the event graph, built when first asked for; null in an event graph and where there is none. */
	const FSharedActionMenu* GetEventMenu() const;
	/** Whether it is asked beside another menu of the same run. */
	bool IsBeside() const { return bBeside; }

private:
	uint64 Serial;
	TWeakObjectPtr<UEdGraph> Graph;
	bool bBeside = false;
	mutable TSharedPtr<FSharedActionMenu> EventMenu;
};

/** Finds the actions that a request means in the menu that an author would see. Never spawns. */
class FBlueprintCamMatching
{
public:
	/** Never null. Writes the menu's telemetry. */
	static TSharedPtr<FSharedActionMenu> BuildSharedCAM(UEdGraph& Graph, Morvane::FToolResult& Result);

	/**
	 * The best actions, best first, never more than are ever shown. Each titled action counts, however badly it fits,
	 * so there is none only for an empty menu. Confidence is no part of the order: whether the first is good enough is
	 * the caller's question.
	 */
	static TArray<FCamCandidate> FindCamMatches(const FBPNodeModification& Record, const FSharedActionMenu& Menu);

	/** Adds what was on offer to the telemetry's "candidate_matches". The context names the request. */
	static void RecordCandidateMatches(
		const TArray<FCamCandidate>& Candidates, Morvane::FToolResult& Result, const FString& Context);

	/**
	 * Why a request that found nothing good enough never will here, though the node exists: a variable of another
	 * class, a node that this kind of graph does not take. Empty when there is no such reason.
	 */
	static FString ExplainRefusal(const FBPNodeModification& Record, const FSharedActionMenu& Menu);

	/** What the author of such a request may not know; empty when there is nothing to say. */
	static FString HintRefusal(const FBPNodeModification& Record, const FSharedActionMenu& Menu);

	/** How many of the candidates messages and telemetry show: those that fit by chance alone are left out. */
	static int32 CountShown(const TArray<FCamCandidate>& Candidates);

	static constexpr int32 MaxShown = 20;
	static constexpr float LeastShown = 0.15f;
};
