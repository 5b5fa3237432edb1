#pragma once

#include "CoreMinimal.h"

#include <string>

namespace Morvane
{
class FToolResult;
}

/**
 * The classes of a project's own C++ and of its plugins, made known as data: what the headers below Source/ and
 * Plugins/ mark for the reflection is written to Config/Catalogue/<Module>.headers.jsonl, as far as text alone tells.
 * A type that another file of that folder states already, by hand or from the editor, is left to that file.
 */
namespace CodeCatalogue
{
/** Replaces the files of an earlier run, and says in the result what was found and what could not be told. */
void Make(const FString& ProjectDirectory, Morvane::FToolResult& Result);

/** A Python script that the editor runs: it writes Config/Catalogue/<Module>.editor.jsonl from the running reflection.
 */
std::string GetEditorScript();
} // namespace CodeCatalogue
