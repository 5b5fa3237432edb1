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
/** Adds and modifies; entries that remove are for the second pass. True when a track or a key is another than before.
 */
bool Apply(UTimelineTemplate& Timeline, const FString& TimelineName, const TArray<TSharedPtr<FJsonValue>>& Curves,
	Morvane::FToolResult& Result);
/** The second pass. True when a track went. */
bool RemoveMarked(UTimelineTemplate& Timeline, const FString& TimelineName,
	const TArray<TSharedPtr<FJsonValue>>& Curves, Morvane::FToolResult& Result);
} // namespace TimelineCurves
