#pragma once

#include "CoreMinimal.h"

class IToolExecutor;

/**
 * A script of calls with what is expected of each, played here by the tests and in the editor by its automation tests.
 *
 * One JSON object a line; blank lines and those that begin with '#' are skipped:
 *
 *     {"tool": "compile_blueprint", "arguments": {...}, "expect": {"success": true, "warnings": [], "data": {...}}}
 *
 * "expect" names what matters of success, errors, warnings, messages and data. Texts may hold '*' and '?', case counts.
 * Of an object only the members that are named are looked at; a text that is expected to be an object is read as JSON.
 */
namespace ToolScript
{
/** Plays every line, whatever became of those before. Answers one text for each difference, with its line. */
TArray<FString> Play(const FString& Script, IToolExecutor& Executor);
} // namespace ToolScript
