#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UBlueprint;

/**
 * Checks that each member of a Blueprint has a name of its own: variables, components, widgets, timelines, functions,
 * macros and events share one space of names, and what they declare stands beside what the parent class declares.
 */
namespace MemberNames
{
void Check(const UBlueprint& Blueprint, FCompilerResultsLog& Log);
} // namespace MemberNames
