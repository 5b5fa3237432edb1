#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;

/** The steps that every tool on an existing Blueprint begins with. */
namespace OperationFrame
{
/**
 * Gets the asset out of source control for a change. Comes after the load and before the first change; false after an
 * error in the result, and then nothing may be touched. The error speaks of a Widget Blueprint where it is one and
 * bWidgetTool is set.
 */
bool CheckOut(const UBlueprint& Blueprint, Morvane::FToolResult& Result, bool bWidgetTool = false);

/** The Blueprint at a path in any spelling, loaded and checked out; null after an error in the result. */
UBlueprint* LoadForEdit(const FString& Path, Morvane::FToolResult& Result);
/** Finishes a Blueprint that has just been made; false with a reason, and then it is dropped again. */
using FFinish = TFunctionRef<bool(UBlueprint& Made, FString& OutReason)>;
/**
 * The Blueprint at a path, checked out, or where there is none a new one below AActor, in memory and dirty, which a
 * message tells: the path may have been misspelt. A run that makes its Blueprint is a clean run for all that. Null
 * after an error in the result.
 */
UBlueprint* LoadOrMake(const FString& Path, Morvane::FToolResult& Result, FFinish Finish);
} // namespace OperationFrame
