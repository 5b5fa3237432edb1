#pragma once

#include "CoreTypes.h"

/** Where FGuid::NewGuid takes its ids from. Not of the engine: repeatable runs and tests need it. */
struct FGuidGenerator
{
	/** From now on the same seed gives the same sequence. */
	static void Seed(uint64 Seed);
	/** Back to randomness from the operating system. */
	static void UseSystemRandom();
};
