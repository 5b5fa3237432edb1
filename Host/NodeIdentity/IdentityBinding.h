#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

class UEdGraphNode;

/** How an identity's members become a node's properties. */
namespace IdentityBinding
{
/** A member of the identity; empty when it is no text. */
FString Text(const FJsonObject& Identity, const TCHAR* Field);
/** Whether a member is there and true. */
bool IsSet(const FJsonObject& Identity, const TCHAR* Field);

/** Sets the property lines of "props" and "keys", as text import does. A line that does not fit is left out. */
void ApplyPropertyLines(UEdGraphNode& Node, const FJsonObject& Identity);
/** Binds the node to what the other members name, where the property lines left it open. */
void ApplyFields(UEdGraphNode& Node, const FJsonObject& Identity);
/** A list whose pins an identity shows has an element at least; how many, an identity tells by the node's values alone.
 */
void FillShownLists(UEdGraphNode& Node, const FJsonObject& Identity);
/** Takes away the pins of members that an identity does not list, where it lists any. */
void HideUnlisted(UEdGraphNode& Node, const FJsonObject& Identity);
/** A sentence about what the node is bound to and nobody knows; empty when all is there. */
FString FindMissing(const UEdGraphNode& Node, const FJsonObject& Identity);
} // namespace IdentityBinding
