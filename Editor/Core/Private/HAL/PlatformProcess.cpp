#include "HAL/PlatformProcess.h"

#include <cerrno>
#include <csignal>

bool FPlatformProcess::IsApplicationRunning(uint32 ProcessId)
{
	const pid_t Process = static_cast<pid_t>(ProcessId);
	return Process > 0 && (kill(Process, 0) == 0 || errno == EPERM);
}
