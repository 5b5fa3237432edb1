#pragma once

#include "CoreMinimal.h"

class FJsonObject;
class UEdGraphNode;
class UEdGraphPin;
class UObject;

/** What a Blueprint refers to and is not there: read like the rest, with its path and a word that it is missing. */
namespace ReadUnresolved
{
/** A type or an object that is missing, or an object of a missing class. False for null. */
bool IsUnresolved(const UObject* Object);
/** "unresolved": true beside what tells the thing's name; nothing for what is there. */
void SetFlag(FJsonObject& Json, const UObject* Object);
/** "unresolved": the paths of what the node and the values of its pins refer to and is missing; nothing when all is
 * there.
 */
void SetPaths(FJsonObject& Json, const UEdGraphNode& Node);
} // namespace ReadUnresolved
