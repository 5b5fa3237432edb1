#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonValue.h"
#include "Utils/Request/GraphRecords.h"

/**
 * What a record leaves open and its request says in another place: the name of an event in the title, the owner of a
 * variable in a wire. Said once, it counts wherever it is asked for. Nothing that a record says itself is changed.
 */
namespace RequestCompletion
{
/** Connections are the request's own, null for none. */
void Complete(TArray<FBPNodeModification>& Nodes, const TArray<TSharedPtr<FJsonValue>>* Connections);
} // namespace RequestCompletion
