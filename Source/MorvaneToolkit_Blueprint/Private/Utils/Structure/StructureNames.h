#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}

/** Names of members for which objects are made. */
namespace StructureNames
{
/** Whether an object can be found under the name; what parts a path cannot be in it. OutReason is a sentence. */
bool IsObjectName(const FString& Name, FString& OutReason);
/** The same; false after an error in the result. */
bool VerifyObjectName(const FString& Name, Morvane::FToolResult& Result);
} // namespace StructureNames
