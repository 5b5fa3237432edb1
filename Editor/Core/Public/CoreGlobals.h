#pragma once

#include "CoreTypes.h"
#include "Misc/OutputDevice.h"

extern bool GIsEditor;

inline bool IsInGameThread()
{
	return true;
}
inline bool IsRunningCommandlet()
{
	return false;
}
inline bool IsEngineExitRequested()
{
	return false;
}
