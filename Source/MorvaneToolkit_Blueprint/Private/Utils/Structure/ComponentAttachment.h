#pragma once

#include "CoreMinimal.h"
#include "SubobjectDataHandle.h"
#include "UObject/WeakObjectPtr.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;
class USCS_Node;

/**
 * The subsystem's handles of a Blueprint's components, gathered when one is first asked for, and again for a component
 * that is newer or after the class was built anew: to gather for each question would make a batch quadratic.
 */
class FComponentHandles
{
public:
	explicit FComponentHandles(UBlueprint& InBlueprint);
	/** Invalid without the subsystem, and for what is no component of the Blueprint. */
	FSubobjectDataHandle Find(const USCS_Node& Node);
	/** By name: a component of a parent Blueprint or of the class's own code, which may name a member otherwise. */
	FSubobjectDataHandle FindInherited(const FString& Name);

private:
	void Gather();

	UBlueprint& Blueprint;
	/** The class default object, which has the native components, as it was when they were gathered. */
	TWeakObjectPtr<const UObject> Default;
	TMap<const UObject*, FSubobjectDataHandle> ByObject;
	TMap<FName, FSubobjectDataHandle> ByName;
};

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
	FComponentHandles& Handles, Morvane::FToolResult& Result);
} // namespace ComponentAttachment
