#pragma once

#include "BlueprintActionFilter.h"
#include "CoreMinimal.h"
#include "EdGraph/EdGraphSchema.h"
#include "Menu/PinMatch.h"

struct FBlueprintAction;
struct FBlueprintActionMenuItem;

/** Whom a menu is for: what the filter says, worked out once for all actions. Lives as long as one menu is filled. */
class FActionAudience
{
public:
	explicit FActionAudience(const FBlueprintActionFilter& Filter);

	/** Whether the menu offers the action. */
	bool IsOffered(const FBlueprintAction& Action);
	/** The action's entry, in the words that this audience reads. */
	TSharedPtr<FBlueprintActionMenuItem> GetItem(const FBlueprintAction& Action) const;

private:
	/** Whether the graph and its Blueprint can have the action at all, whatever the author looks at. */
	bool CanHave(const FBlueprintAction& Action);
	/** Whether it has to do with the Blueprint and with each pin dragged from. */
	bool IsRelevant(const FBlueprintAction& Action);
	/** A node class speaks for its nodes as to the graphs that can have them; each is asked once a menu. */
	bool FitsGraph(const UClass& NodeClass);

	const UBlueprint* Blueprint = nullptr;
	const UEdGraph* Graph = nullptr;
	/** The one that Graph is nested in, or Graph itself: whose local variables it sees. */
	const UEdGraph* TopGraph = nullptr;
	EGraphType GraphType = GT_MAX;
	bool bContextSensitive = false;
	bool bInConstructionScript = false;
	bool bHasWorld = true;
	bool bIsOfEditor = false;
	/** The Blueprint's class, those above it and the interfaces of all. */
	TSet<const UClass*> OwnClasses;
	/** Those, and with a pin dragged from, its classes too. */
	TSet<const UClass*> Classes;
	TArray<FPinMatch> Pins;
	TMap<const UClass*, bool> NodeClassFits;
};
