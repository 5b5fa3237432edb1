#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
class UTimelineTemplate;

/** The tracks of a timeline, from the "curves" of its entry. */
namespace TimelineCurves
{
/** Adds and modifies; the names of those to remove are for the second round. True when a track or a key is another than
 * before. */
bool Apply(UTimelineTemplate& Timeline, const FString& TimelineName, const TArray<TSharedPtr<FJsonValue>>& Curves,
	TArray<FString>& OutLeaving, Morvane::FToolResult& Result);
/** The second round. True when a track went. */
bool Remove(UTimelineTemplate& Timeline, const FString& TimelineName, const TArray<FString>& Curves,
	Morvane::FToolResult& Result);
} // namespace TimelineCurves
