#pragma once

#include "BlueprintActionFilter.h"
#include "BlueprintActionMenuBuilder.h"
#include "CoreMinimal.h"

/** Fills menu builders. */
struct FBlueprintActionMenuUtils
{
	/**
	 * All actions that fit. Not context-sensitive: everything the graph's kind of Blueprint could be offered, whatever
	 * is selected or dragged from. ClassTargetMask: EContextTargetFlags.
	 */
	static void MakeContextMenu(const FBlueprintActionContext& Context, bool bIsContextSensitive,
		uint32 ClassTargetMask, FBlueprintActionMenuBuilder& MenuOut);
};

namespace EContextTargetFlags
{
enum Type : uint32
{
	TARGET_Blueprint = 0x00000001,
	TARGET_SubComponents = 0x00000002,
	TARGET_NodeTarget = 0x00000004,
	TARGET_PinObject = 0x00000008,
	TARGET_SiblingPinObjects = 0x00000010,
	TARGET_BlueprintLibraries = 0x00000020,
	TARGET_NonImportedTypes = 0x00000040,
};
}
