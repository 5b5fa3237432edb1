#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

/** A pose in local space, as one node of an animation graph hands it to the next. */
struct FPoseLink
{
	EDITOR_STRUCT(FPoseLink)

	bool operator==(const FPoseLink& Other) const = default;

	/** The node that gives the pose, once compiled, and the one that the author linked. */
	int32 LinkID = INDEX_NONE;
	int32 SourceLinkID = INDEX_NONE;
};

/** The same in the space of the component. */
struct FComponentSpacePoseLink
{
	EDITOR_STRUCT(FComponentSpacePoseLink)

	bool operator==(const FComponentSpacePoseLink& Other) const = default;

	int32 LinkID = INDEX_NONE;
	int32 SourceLinkID = INDEX_NONE;
};
