#pragma once

#include <string_view>

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/**
 * Whatever a tool's schema has no place for is read by nobody, so it is told: keys that are not known, values of
 * another JSON type than the one that is read, words that are none of those that are understood. One check for all
 * tools, made against the schema that the agent was shown.
 */
namespace ArgumentCheck
{
/**
 * Adds a warning to the result of the call for each thing that was not read, with its place in the arguments. What the
 * tool has told of by itself is not told again. Nothing is said of a tool without a schema.
 */
void AddWarnings(std::string_view ToolName, const FJsonObject& Arguments, Morvane::FToolResult& Result);
} // namespace ArgumentCheck
