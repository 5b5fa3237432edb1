#pragma once

#include "CoreMinimal.h"

/** Troubles of the subsystem that a test makes happen. */
enum class ESubobjectFault : uint8
{
	None,
	/** There is no subsystem. */
	Missing,
	/** It moves no component. */
	Refusing,
};

namespace SubobjectDataFaults
{
void Set(ESubobjectFault Fault);
} // namespace SubobjectDataFaults
