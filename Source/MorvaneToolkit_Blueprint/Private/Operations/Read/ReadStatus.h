#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonValue.h"

namespace ReadStatus
{
/** Whether the first entry of an array at the top of a read document says that the item is not there. */
bool IsFirstMissing(const FString& Text, const TCHAR* Section);
/** Whether a document that was asked for one event shows it in none of its event graphs. */
bool IsEventMissing(const FString& Text);
/** Those of the names under which the document of a widget tree shows no widget, ignoring case. */
TArray<FString> FindMissingWidgets(const FString& Text, const TArray<TSharedPtr<FJsonValue>>& Names);
} // namespace ReadStatus
