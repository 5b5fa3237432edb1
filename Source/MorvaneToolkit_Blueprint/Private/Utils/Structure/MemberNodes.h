#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;
struct FBPInterfaceDescription;

/** The nodes about a member of the Blueprint that goes: they would not compile without it. */
namespace MemberNodes
{
/** Takes the gets, sets and bound events of a component or timeline away, and tells how many and where. */
void Remove(UBlueprint& Blueprint, FName Member, const FString& What, Morvane::FToolResult& Result);
/** Names the nodes that call, bind or listen to a dispatcher. Before it goes, since they are found through it. */
void WarnOfDispatcherNodes(UBlueprint& Blueprint, FName Dispatcher, Morvane::FToolResult& Result);
/** Names the events and filled functions that implement an interface. Before they go with it. */
void WarnOfInterfaceNodes(const UBlueprint& Blueprint, const FBPInterfaceDescription& Interface, const FString& Name,
	Morvane::FToolResult& Result);
/** Names the nodes in other Blueprints in memory that refer to members which are gone from this one. */
void WarnOfNodesElsewhere(const UBlueprint& Blueprint, const TSet<FName>& Gone, Morvane::FToolResult& Result);
} // namespace MemberNodes
