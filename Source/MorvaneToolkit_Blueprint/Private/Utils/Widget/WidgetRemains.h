#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UWidgetBlueprint;

/** What is left of members that are gone. */
namespace WidgetRemains
{
/**
 * Takes away what refers to widgets or animations that are no members any more: their nodes in graphs, property
 * bindings, and places in animations. Names that a member has by now are passed over, except for events that its class
 * has not. A warning tells how many nodes went.
 */
void Remove(UWidgetBlueprint& Blueprint, const TSet<FString>& Names, Morvane::FToolResult& Result);

/** Says which nodes still name those of the widgets that are no variables; nothing when there are none. */
void TellUsers(const UWidgetBlueprint& Blueprint, const TSet<FString>& Names, Morvane::FToolResult& Result);
} // namespace WidgetRemains
