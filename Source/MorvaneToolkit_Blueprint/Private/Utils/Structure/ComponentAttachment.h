#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;
class USCS_Node;

/** Hangs components of a Blueprint on others: its own, those of a parent Blueprint and those that code makes. */
namespace ComponentAttachment
{
/** A new node gets its place: below its parent where the construction script has that, else as a root. */
void AddNode(UBlueprint& Blueprint, USCS_Node& Node, USCS_Node* Parent);
/** True when the two may hang on each other; both are nodes of one construction script. */
bool CanHang(const USCS_Node& Child, const USCS_Node& Parent);
/**
 * Moves a node that is in the construction script below the component of the name; OwnParent is its node where it has
 * one there. Tells what came of it; true when the node hangs elsewhere now.
 */
bool Attach(UBlueprint& Blueprint, USCS_Node& Node, USCS_Node* OwnParent, const FString& ParentName,
	Morvane::FToolResult& Result);
} // namespace ComponentAttachment
