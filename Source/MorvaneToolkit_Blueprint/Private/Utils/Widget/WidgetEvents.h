#pragma once

#include "CoreMinimal.h"
#include "Utils/Widget/WidgetChanges.h"

namespace Morvane
{
class FToolResult;
}

namespace WidgetEvents
{
/**
 * Makes the event nodes that are asked for, of any number of widgets with one look at the class and the graph. Adds the
 * titles of those made. A delegate that fails is a warning; false when there is no graph for them.
 */
bool Create(UWidgetBlueprint* Blueprint, const TArray<FWidgetChanges::FPendingEvents>& Requests,
	Morvane::FToolResult& Result, TSet<FString>* OutCreatedEvents);
} // namespace WidgetEvents
