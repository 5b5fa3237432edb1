#pragma once

#include "BlueprintActionMenuUtils.h"

/** Every kind of target that a menu can be asked for; the engine's enumeration names them one by one. */
inline constexpr uint32 EveryContextTarget = EContextTargetFlags::TARGET_Blueprint
	| EContextTargetFlags::TARGET_SubComponents | EContextTargetFlags::TARGET_NodeTarget
	| EContextTargetFlags::TARGET_PinObject | EContextTargetFlags::TARGET_SiblingPinObjects
	| EContextTargetFlags::TARGET_BlueprintLibraries | EContextTargetFlags::TARGET_NonImportedTypes;
