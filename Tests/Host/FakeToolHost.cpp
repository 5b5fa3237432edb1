#include "Host/FakeToolHost.h"

#include <chrono>

#include "ToolFace/ResultObject.h"

FFakeToolHost::FFakeToolHost()
{
	Add("echo", [](const std::string_view Arguments) { return Success(Arguments); });
}

void FFakeToolHost::Add(const std::string& Name, FBody Body)
{
	Listed.push_back({Name, "What " + Name + " does"});
	Bodies[Name] = std::move(Body);
}

FToolOutcome FFakeToolHost::CallTool(const std::string_view Name, const std::string_view ArgumentsJson)
{
	Calls.emplace_back(Name);
	const auto Body = Bodies.find(Name);
	return Body != Bodies.end() ? Body->second(ArgumentsJson)
								: FToolOutcome{ResultObject::Failure("no such tool"), false};
}

FResourceOutcome FFakeToolHost::ReadResource(const std::string_view Uri)
{
	if (Uri == "morvane://locked")
	{
		return {{}, FResourceOutcome::EFault::Unavailable, "It is locked"};
	}
	return Uri == "morvane://echo" ? FResourceOutcome{R"({"echo":true})", FResourceOutcome::EFault::None, {}}
								   : FResourceOutcome{{}, FResourceOutcome::EFault::Unknown, "Nothing is there"};
}

FCompletions FFakeToolHost::Complete(const ENameKind Kind, std::string_view)
{
	return Kind == ENameKind::None ? FCompletions() : FCompletions{{"one", "two"}, 2};
}

FToolOutcome FFakeToolHost::Success(const std::string_view DataJson)
{
	std::string Json = R"({"success":true,"errors":[],"warnings":[],"messages":[],"data":)";
	return {Json.append(DataJson).append(R"(,"modifications":[]})"), true};
}

void FGate::Open()
{
	const std::lock_guard Lock(Mutex);
	bOpen = true;
	Changed.notify_all();
}

bool FGate::Wait()
{
	std::unique_lock Lock(Mutex);
	return Changed.wait_for(Lock, std::chrono::seconds(10), [this] { return bOpen; });
}
