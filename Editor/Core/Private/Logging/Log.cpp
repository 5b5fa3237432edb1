#include "Containers/StringConv.h"
#include "CoreGlobals.h"
#include "Logging/LogMacros.h"
#include "Misc/OutputDeviceRedirector.h"

// clang-format off
#include "Standalone/PreThirdParty.h"
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>
#include "Standalone/PostThirdParty.h"
// clang-format on

DEFINE_LOG_CATEGORY(LogTemp);

namespace Logging
{
/** How much of the log reaches standard error. */
constexpr ELogVerbosity::Type ShownVerbosity = ELogVerbosity::Warning;

/** Standard output belongs to results, so the log goes to standard error. */
static spdlog::logger& GetLogger()
{
	static const std::shared_ptr<spdlog::logger> Logger = []
	{
		auto Created = std::make_shared<spdlog::logger>("editor", std::make_shared<spdlog::sinks::stderr_sink_mt>());
		Created->set_level(spdlog::level::trace);
		Created->set_pattern("%v");
		return Created;
	}();
	return *Logger;
}

static spdlog::level::level_enum ToLevel(ELogVerbosity::Type Verbosity)
{
	switch (Verbosity)
	{
	case ELogVerbosity::NoLogging:
		return spdlog::level::off;
	case ELogVerbosity::Fatal:
		return spdlog::level::critical;
	case ELogVerbosity::Error:
		return spdlog::level::err;
	case ELogVerbosity::Warning:
		return spdlog::level::warn;
	case ELogVerbosity::Display:
	case ELogVerbosity::Log:
		return spdlog::level::info;
	case ELogVerbosity::Verbose:
		return spdlog::level::debug;
	case ELogVerbosity::VeryVerbose:
		return spdlog::level::trace;
	}
	return spdlog::level::info;
}

static const char* GetLabel(ELogVerbosity::Type Verbosity)
{
	switch (Verbosity)
	{
	case ELogVerbosity::Fatal:
		return "Fatal: ";
	case ELogVerbosity::Error:
		return "Error: ";
	case ELogVerbosity::Warning:
		return "Warning: ";
	default:
		return "";
	}
}

static void Write(FStringView Category, ELogVerbosity::Type Verbosity, FStringView Text)
{
	std::string Line = ToUtf8(Category);
	Line += Line.empty() ? "" : ": ";
	Line += GetLabel(Verbosity);
	Line += ToUtf8(Text);
	GetLogger().log(ToLevel(Verbosity), spdlog::string_view_t(Line));
}

template <typename BaseType>
class TLogDevice final : public BaseType
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type Verbosity, const FName& Category) override
	{
		FOutputDeviceRedirector::Get()->Serialize(Text, Verbosity, Category);
		if (Verbosity <= ShownVerbosity)
		{
			Write(Category.IsNone() ? FStringView() : Category.GetView(), Verbosity, Text);
		}
	}
};

static FOutputDevice& GetLogDevice()
{
	static TLogDevice<FOutputDevice> Device;
	return Device;
}

static FFeedbackContext& GetWarnDevice()
{
	static TLogDevice<FFeedbackContext> Device;
	return Device;
}
}

FOutputDevice* GLog = &Logging::GetLogDevice();
FFeedbackContext* GWarn = &Logging::GetWarnDevice();
bool GIsEditor = true;

bool FLogCategoryBase::IsSuppressed(ELogVerbosity::Type InVerbosity) const
{
	const bool bListenedTo = InVerbosity <= ELogVerbosity::Warning
		&& FOutputDeviceRedirector::Get()->HasOutputDevices();
	return InVerbosity > Verbosity || (InVerbosity > Logging::ShownVerbosity && !bListenedTo);
}

void FMsg::Log(const FLogCategoryBase& Category, ELogVerbosity::Type Verbosity, const FString& Text)
{
	FOutputDeviceRedirector::Get()->Serialize(*Text, Verbosity, FName(Category.GetCategoryName()));
	if (Verbosity <= Logging::ShownVerbosity)
	{
		Logging::Write(Category.GetCategoryName(), Verbosity, Text);
	}
	if (Verbosity == ELogVerbosity::Fatal)
	{
		std::abort();
	}
}

FOutputDeviceRedirector* FOutputDeviceRedirector::Get()
{
	static FOutputDeviceRedirector Redirector;
	return &Redirector;
}

void FOutputDeviceRedirector::Serialize(const TCHAR* Text, ELogVerbosity::Type Verbosity, const FName& Category) const
{
	for (FOutputDevice* const Device : OutputDevices)
	{
		Device->Serialize(Text, Verbosity, Category);
	}
}
