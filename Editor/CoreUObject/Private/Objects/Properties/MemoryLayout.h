#pragma once

#include "CoreTypes.h"

namespace MemoryLayout
{
/** The first multiple of the alignment at or behind an offset. */
constexpr int32 Align(int32 Offset, int32 Alignment)
{
	return (Offset + Alignment - 1) / Alignment * Alignment;
}
}
