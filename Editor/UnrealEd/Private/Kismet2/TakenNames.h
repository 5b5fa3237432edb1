#pragma once

#include "CoreMinimal.h"

class UBlueprint;

/**
 * The names that a Blueprint has given: all kinds of its members share one space. The answers come from what the
 * Blueprint declares and not from its class, which would have to be rebuilt for them: who makes a thousand members asks
 * a thousand times.
 */
namespace TakenNames
{
/** Whether a member, a graph or any other object of the Blueprint has the name, or a member that it inherits. */
bool IsTaken(const UBlueprint& Blueprint, FName Name);

/** The same for what becomes a variable of the class: own variables, timelines with their tracks, components, widgets,
 * and inherited properties. */
bool IsVariable(const UBlueprint& Blueprint, FName Name);

/** Whether an object of the Blueprint has the name, or a member that it inherits: what costs no walk to know. */
bool IsKnownAtOnce(const UBlueprint& Blueprint, FName Name);

/** Adds the names that the Blueprint itself declares, for who has many questions and changes nothing in between: with
 * IsKnownAtOnce they are all that IsTaken knows. */
void AddDeclared(const UBlueprint& Blueprint, TSet<FName>& Names);

/** The Blueprint's own variable, component or timeline of that name gets another one; what refers to it follows. */
void MoveAside(UBlueprint& Blueprint, FName Name);
} // namespace TakenNames
