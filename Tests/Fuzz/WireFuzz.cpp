// Any bytes on the wire: every answer is one line of valid JSON-RPC, and a request with an id that can be read is
// answered.

#include <cstdint>
#include <cstdlib>

#include "Server/Dispatcher.h"
#include "Server/LineReader.h"
#include "Standalone/JsonUtf8.h"

namespace WireFuzz
{
void Require(const bool bCondition)
{
	if (!bCondition)
	{
		std::abort();
	}
}

class FEchoTools : public IToolHost
{
public:
	std::vector<FToolListing> ListTools() override { return {{"echo", "Answers its arguments"}}; }
	FToolOutcome CallTool(std::string_view, const std::string_view Arguments) override
	{
		std::string Error;
		Require(JsonUtf8::Check(Arguments, Error));
		return {R"({"success":true,"data":)" + std::string(Arguments) + "}", true};
	}
};

class FCheckingSink : public IReplySink
{
public:
	void Send(const FReply Reply) override
	{
		std::string Error;
		Require(JsonUtf8::Check(Reply.Text, Error));
		Require(Reply.Text.find('\n') == std::string::npos && Reply.Text.starts_with(R"({"jsonrpc":"2.0",)"));
	}
};
} // namespace WireFuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, const std::size_t Size)
{
	WireFuzz::FEchoTools Tools;
	FCallQueue Queue;
	FDispatcher Dispatcher(Tools, Queue);
	const auto Sink = std::make_shared<WireFuzz::FCheckingSink>();
	FLineReader Lines(
		1000, [&](const std::string_view Line) { Dispatcher.Receive(Line, Sink); }, [] {});
	Lines.Feed({reinterpret_cast<const char*>(Data), Size});
	Lines.Finish();
	Queue.Close();
	while (std::optional<FQueuedCall> Call = Queue.Pop())
	{
		Call->Run();
	}
	return 0;
}
