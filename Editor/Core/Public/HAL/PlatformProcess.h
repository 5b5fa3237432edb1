#pragma once

#include "Containers/UnrealString.h"

struct FPlatformProcess
{
	/** A process of this machine that is running, whoever owns it. */
	static bool IsApplicationRunning(uint32 ProcessId);
};
