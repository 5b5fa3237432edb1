#pragma once

#include "Logging/LogVerbosity.h"

/** How much of the log reaches standard error. Not of the engine. */
struct FLogControl
{
	/** Warning at first. */
	static void SetVerbosity(ELogVerbosity::Type Verbosity);
	static ELogVerbosity::Type GetVerbosity();
};
