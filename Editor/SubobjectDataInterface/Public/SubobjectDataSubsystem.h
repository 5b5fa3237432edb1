#pragma once

#include "CoreMinimal.h"
#include "SubobjectData.h"
#include "SubobjectDataHandle.h"
#include "UObject/Object.h"

class UBlueprint;

struct FReparentSubobjectParams
{
	FSubobjectDataHandle NewParentHandle;
	/** The Blueprint that is edited; it must be given. */
	UBlueprint* BlueprintContext = nullptr;
};

struct FAddNewSubobjectParams
{
	/** What the new component hangs on. */
	FSubobjectDataHandle ParentHandle;
	UClass* NewClass = nullptr;
	UBlueprint* BlueprintContext = nullptr;
	bool bSkipMarkBlueprintModified = false;
};

/** Edits the components of Blueprints as one tree, whether code, a parent Blueprint or the Blueprint itself made them.
 */
class USubobjectDataSubsystem : public UObject
{
	EDITOR_CLASS(USubobjectDataSubsystem, UObject)

public:
	/** The only one. */
	static USubobjectDataSubsystem* Get();

	/** The actor first, then its components, parents before children. Empty for a Blueprint of no actor. */
	void K2_GatherSubobjectDataForBlueprint(UBlueprint* Context, TArray<FSubobjectDataHandle>& OutArray) const;
	/** The handle of a component template, a construction script's node or the actor default, in the tree of a handle
	 * or, without one, of the Blueprint; invalid when it is not there. */
	FSubobjectDataHandle FindHandleForObject(
		const FSubobjectDataHandle& ContextHandle, const UObject* ObjectToFind, UBlueprint* BPContext = nullptr) const;

	/** Hangs components on another one. False when any of them could not be moved: onto itself or what stands below
	 * it, an inherited one, or one without a place. */
	bool ReparentSubobjects(
		const FReparentSubobjectParams& Params, const TArray<FSubobjectDataHandle>& HandlesToMove) const;
	bool ReparentSubobject(const FReparentSubobjectParams& Params, const FSubobjectDataHandle& ToReparentHandle) const;
	/** The new component's handle; invalid with a reason in FailReason. */
	FSubobjectDataHandle AddNewSubobject(const FAddNewSubobjectParams& Params, FText& FailReason) const;
	/** Children move up to the parent. Nodes about the components go with them. How many were deleted. */
	int32 DeleteSubobjects(const FSubobjectDataHandle& ContextHandle,
		const TArray<FSubobjectDataHandle>& SubobjectsToDelete, UBlueprint* BPContext = nullptr) const;
	bool RenameSubobject(const FSubobjectDataHandle& Handle, const FText& InNewName) const;
	/** Whether a component may have the name; a sentence in OutErrorMessage when not. */
	bool IsValidRename(const FSubobjectDataHandle& Handle, const FText& InNewText, FText& OutErrorMessage) const;
};
