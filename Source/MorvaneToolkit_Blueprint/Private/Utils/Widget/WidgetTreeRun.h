#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
struct FWidgetChanges;
class UWidget;
class UWidgetBlueprint;

/** What the service's routines on one tree share. */
namespace WidgetTreeEdit
{
/** A widget of the tree; null when there is none. Ignores case. */
UWidget* FindWidget(const UWidgetBlueprint& Blueprint, const FString& Name);

/** The request's object under a key; null where there is none. */
TSharedPtr<FJsonObject> GetObject(const FJsonObject& Json, const TCHAR* Key);

bool IsAction(const FString& Action, const TCHAR* Word);

/** Runs the root's record and the operations of a request, until one fails: false after an error. */
bool RunRequest(
	UWidgetBlueprint& Blueprint, const FJsonObject& Request, Morvane::FToolResult& Result, FWidgetChanges& Changes);
} // namespace WidgetTreeEdit
