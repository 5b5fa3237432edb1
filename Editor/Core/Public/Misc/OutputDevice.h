#pragma once

#include "Logging/LogVerbosity.h"
#include "UObject/NameTypes.h"

/** Receives log lines and the complaints of text importers. */
class FOutputDevice
{
public:
	virtual ~FOutputDevice() = default;
	virtual void Serialize(const TCHAR* Text, ELogVerbosity::Type Verbosity, const FName& Category) = 0;

	void Log(const TCHAR* Text) { Serialize(Text, ELogVerbosity::Log, NAME_None); }
	void Log(const FString& Text) { Log(*Text); }
	void Log(ELogVerbosity::Type Verbosity, const FString& Text) { Serialize(*Text, Verbosity, NAME_None); }
	void Log(const FName& Category, ELogVerbosity::Type Verbosity, const FString& Text)
	{
		Serialize(*Text, Verbosity, Category);
	}
	template <typename... ArgTypes>
	void Logf(const TCHAR* Format, const ArgTypes&... Args)
	{
		Serialize(*FString::Printf(Format, Args...), ELogVerbosity::Log, NAME_None);
	}
	template <typename... ArgTypes>
	void Logf(ELogVerbosity::Type Verbosity, const TCHAR* Format, const ArgTypes&... Args)
	{
		Serialize(*FString::Printf(Format, Args...), Verbosity, NAME_None);
	}
};

class FFeedbackContext : public FOutputDevice
{
};

/** Never null; the log. */
extern FOutputDevice* GLog;
/** Never null; the log, at the level of warnings. */
extern FFeedbackContext* GWarn;
