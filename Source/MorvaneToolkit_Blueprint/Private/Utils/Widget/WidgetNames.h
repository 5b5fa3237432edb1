#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UClass;
class UWidgetBlueprint;

/** Names of widgets and animations, which are names of members of the Blueprint's class, and of their classes. */
namespace WidgetNames
{
/** By path or by short name, which means a widget before anything else that bears it: "Image", "UImage". May be null.
 */
UClass* FindClass(const FString& ClassPath);

/** Whether an object can have the name. False after an error. */
bool CheckSpelling(const FString& Name, Morvane::FToolResult& Result);

/** Whether a member of another kind has the name: a variable, function, graph, component or animation. */
bool IsTakenByMember(const UWidgetBlueprint& Blueprint, FName Name);

/** Whether a widget may take the name as far as other kinds of members are concerned. False after an error. */
bool CheckFree(const UWidgetBlueprint& Blueprint, const FString& Name, Morvane::FToolResult& Result);
} // namespace WidgetNames
