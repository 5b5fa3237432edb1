#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;
class UEdGraph;
struct FBPVariableDescription;

/** The functions that run when a replicated value has arrived: "OnRep_" and the variable's name. */
namespace RepNotifyFunctions
{
FName MakeName(FName VariableName);
/** The function's graph; null when there is none. */
UEdGraph* Find(const UBlueprint& Blueprint, FName FunctionName);

/** Why there can be no function of the name: it is none, or something else has it. Empty when there is one or may be.
 */
FString FindObstacle(const UBlueprint& Blueprint, FName FunctionName);
/** Makes the function unless there is one, be it inherited. True when it was made. */
bool Ensure(UBlueprint& Blueprint, FName FunctionName);
/** Takes the function away if there is one. */
bool Remove(UBlueprint& Blueprint, FName FunctionName);
/** Takes the function of a variable that notifies no more away, unless an author has put something into it: then it
 * stays, with a warning. True when it went. */
bool RemoveUnlessUsed(UBlueprint& Blueprint, FName FunctionName, Morvane::FToolResult& Result);
/** Lets the function hand over values of the type that the variable has now. */
void FollowType(UBlueprint& Blueprint, const FBPVariableDescription& Variable, Morvane::FToolResult& Result);
} // namespace RepNotifyFunctions
