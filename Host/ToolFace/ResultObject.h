#pragma once

#include <string>
#include <string_view>

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}

/** The result object that every call answers, in the command line as over the wire: one line of UTF-8 JSON. */
namespace ResultObject
{
/** Unsaved names the packages that stand changed in memory when the call has ended. */
std::string Write(const Morvane::FToolResult& Result, const TArray<FString>& Unsaved = {});

/** The result of a call that failed before, or outside of, its tool. Error is UTF-8. */
std::string Failure(std::string_view Error);

/** The JSON Schema of the object, for success and failure alike. */
std::string_view Schema();
} // namespace ResultObject
