#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;

/** The nodes about a member of the Blueprint that goes: they would not compile without it. */
namespace MemberNodes
{
/** Takes the gets, sets and bound events of a component or timeline away, and tells how many and where. */
void Remove(UBlueprint& Blueprint, FName Member, const FString& What, Morvane::FToolResult& Result);
/** Names the nodes that call, bind or listen to a dispatcher. Before it goes, since they are found through it. */
void WarnOfDispatcherNodes(UBlueprint& Blueprint, FName Dispatcher, Morvane::FToolResult& Result);
} // namespace MemberNodes
