#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class FUnresolvedUse;
class FProperty;
class UBlueprint;
struct FBPVariableDescription;

/**
 * Checks what a Blueprint declares beside its graphs, after its class was rebuilt: types and defaults of variables,
 * event dispatchers, replication, components and interfaces.
 */
namespace MemberDeclarations
{
void Check(const UBlueprint& Blueprint, FUnresolvedUse& Unresolved, FCompilerResultsLog& Log);
/** Whether the default text is one of the property's type. An empty text always is. */
bool IsDefaultValid(const FBPVariableDescription& Variable, const FProperty& Property);
} // namespace MemberDeclarations
