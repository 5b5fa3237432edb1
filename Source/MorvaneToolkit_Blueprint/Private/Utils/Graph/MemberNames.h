#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;

/** Who has a name in a Blueprint already. All of its members share one set of names. */
namespace MemberNames
{
/** Why no new member may have the name, as a clause ("a variable has this name already"); empty when one may. */
FString DescribeObstacle(const UBlueprint& Blueprint, const FString& Name);
/** What a graph is to its Blueprint: "an event graph", "a graph inside 'Heal'". */
FString DescribeGraph(const UBlueprint& Blueprint, const UEdGraph& Graph);
/** Why the Blueprint can have no event graph or no dispatchers of its own; empty when it can. */
FString WhyNoEventGraph(const UBlueprint& Blueprint);
FString WhyNoDispatchers(const UBlueprint& Blueprint);
} // namespace MemberNames
