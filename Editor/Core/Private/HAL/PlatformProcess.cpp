#include "HAL/PlatformProcess.h"

#include "Containers/StringConv.h"
#include "HAL/PlatformMisc.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <unistd.h>

uint32 FPlatformProcess::GetCurrentProcessId()
{
	return static_cast<uint32>(getpid());
}

bool FPlatformProcess::IsApplicationRunning(uint32 ProcessId)
{
	const pid_t Process = static_cast<pid_t>(ProcessId);
	return Process > 0 && (kill(Process, 0) == 0 || errno == EPERM);
}

const TCHAR* FPlatformProcess::UserTempDir()
{
	static const FString Directory = []
	{
		const FString Set = FPlatformMisc::GetEnvironmentVariable(TEXT("TMPDIR"));
		return (Set.IsEmpty() ? FString(TEXT("/tmp")) : Set) / TEXT("");
	}();
	return *Directory;
}

FString FPlatformMisc::GetEnvironmentVariable(const TCHAR* Name)
{
	const char* const Value = std::getenv(TCHAR_TO_UTF8(Name));
	return Value ? FString(Value) : FString();
}
