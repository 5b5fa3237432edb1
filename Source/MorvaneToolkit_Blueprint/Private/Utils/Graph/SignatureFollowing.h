#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;
class UK2Node_EditablePinBase;
struct FDeclaredMembers;

namespace Morvane
{
class FToolResult;
}

/** Lets everything that shows a signature follow it. What is lost on the way is told in warnings. */
namespace SignatureFollowing
{
/** The members whose parameters the pins of the node are. */
FDeclaredMembers GetMembersOf(const UBlueprint& Blueprint, const UK2Node_EditablePinBase& Node);
/** Makes the pins of all nodes in memory that stand for the members anew. */
void Refresh(UBlueprint& Blueprint, const FDeclaredMembers& Members, Morvane::FToolResult& Result);
/** The node that shows a collapsed graph follows the ends inside it. */
void RefreshOwner(const UEdGraph& Graph, Morvane::FToolResult& Result);

/**
 * Makes the function of a graph pure or not, and its calls in all Blueprints in memory with it: a call that turns pure
 * lets the flow go past it, one that turns back has to be wired. False after a warning.
 */
bool SetPure(UBlueprint& Blueprint, UEdGraph& Graph, bool bPure, Morvane::FToolResult& Result);
} // namespace SignatureFollowing
