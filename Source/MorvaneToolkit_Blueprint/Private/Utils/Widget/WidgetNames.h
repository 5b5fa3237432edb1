#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UWidgetBlueprint;

/** Names of widgets and animations, which are names of members of the Blueprint's class. */
namespace WidgetNames
{
/** Whether an object can have the name. False after an error. */
bool CheckSpelling(const FString& Name, Morvane::FToolResult& Result);

/** Whether a member of another kind has the name: a variable, function, graph, component or animation. */
bool IsTakenByMember(const UWidgetBlueprint& Blueprint, FName Name);

/** Whether a widget may take the name as far as other kinds of members are concerned. False after an error. */
bool CheckFree(const UWidgetBlueprint& Blueprint, const FString& Name, Morvane::FToolResult& Result);
} // namespace WidgetNames
