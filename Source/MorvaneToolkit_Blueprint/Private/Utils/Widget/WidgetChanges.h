#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

class UClass;
class UWidgetBlueprint;

/** What a call has changed so far, and what it does once for all of its operations rather than for each. */
struct FWidgetChanges
{
	/** Names as the tree spells them. */
	TSet<FString> Widgets;
	/** Widgets that became variables or ceased to be. */
	TSet<FString> Variables;
	/** Titles of the event nodes that were made, which is what a read finds them by. */
	TSet<FString> Events;
	/** Widgets that stood in the tree and were taken out; one of that name may stand there again by now. */
	TSet<FString> Removed;
	/** Operations that changed an existing widget. */
	int32 NumModified = 0;
	/** Whether anything at all is different from before. */
	bool bAny = false;

	/** Events that wait until the class is brought up to date, which is done once for many of them. */
	struct FPendingEvents
	{
		FString Widget;
		TSharedPtr<FJsonObject> Events;
	};
	TArray<FPendingEvents> PendingEvents;
	/** Whether events wait; otherwise they are made at once. */
	bool bCollectEvents = false;
};
