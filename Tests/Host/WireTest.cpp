#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Host/FakeToolHost.h"
#include "Host/ServeText.h"
#include "Server/JsonRpc.h"
#include "Server/StdioServer.h"

namespace WireTest
{
struct FCase
{
	const char* Label;
	std::string In;
	/** Whole answers, each on its line; empty for silence. */
	std::string Out;
};

static std::string Error(const std::string& Id, const int Code, const std::string& Message)
{
	const std::string IdMember = Id.empty() ? "" : R"("id":)" + Id + ",";
	return R"({"jsonrpc":"2.0",)" + IdMember + R"("error":{"code":)" + std::to_string(Code) + R"(,"message":")"
		+ Message + "\"}}\n";
}

static std::string Pong(const std::string& Id)
{
	return R"({"jsonrpc":"2.0","id":)" + Id + R"(,"result":{}})" + "\n";
}

static std::string Ping(const std::string& Id)
{
	return R"({"jsonrpc":"2.0","id":)" + Id + R"(,"method":"ping"})" + "\n";
}

static std::string Request(const std::string& Method, const std::string& Params)
{
	return R"({"jsonrpc":"2.0","id":1,"method":")" + Method + R"(","params":)" + Params + "}\n";
}

static std::string Called(const std::string& Id, const std::string& Data)
{
	FToolOutcome Outcome = FFakeToolHost::Success(Data);
	std::string Escaped;
	for (const char Char : Outcome.ResultJson)
	{
		Escaped += Char == '"' || Char == '\\' ? std::string("\\") + Char : std::string(1, Char);
	}
	return R"({"jsonrpc":"2.0","id":)" + Id + R"(,"result":{"content":[{"type":"text","text":")" + Escaped
		+ R"("}],"structuredContent":)" + Outcome.ResultJson + ",\"isError\":false}}\n";
}

constexpr const char* BadId = R"(Invalid request: \"id\" must be a string or an integer)";
constexpr const char* BadVersion = R"(Invalid request: \"jsonrpc\" must be \"2.0\")";
constexpr const char* BadMethod = R"(Invalid request: \"method\" must be a string)";
constexpr const char* BadMessage = "Invalid request: a message must be one JSON object";
constexpr const char* BadParams = R"(Invalid params: \"params\" must be an object)";

static std::vector<FCase> EnvelopeCases()
{
	return {
		{"garbage", "hello\n",
			Error("", -32700,
				"Parse error: Unexpected or missing character, expected a value, a name, a comma or a closing bracket (line 1, character 1)")},
		{"truncated", "{\"jsonrpc\":\"2.0\",\"id\":1\n",
			Error("", -32700, "Parse error: An array or object is not closed (line 1, character 24)")},
		{"two messages on a line", "{} {}\n",
			Error("", -32700, "Parse error: There is text after the value (line 1, character 4)")},
		{"invalid UTF-8", "{\"jsonrpc\":\"2.0\",\"id\":1,\"method\":\"p\xFF\"}\n",
			Error("1", -32700, "Parse error: The text is not valid UTF-8 (line 1, character 36)")},
		{"invalid UTF-8 before the id, and other ids below",
			"{\"params\":{\"id\":4,\"a\":[{\"id\":5}],\"x\":\"\xFF\\\",\\\"id\\\":6\"},\"id\":\"a\",\"method\":\"p\"}\n",
			Error("\"a\"", -32700, "Parse error: The text is not valid UTF-8 (line 1, character 39)")},
		{"invalid UTF-8 in the id", "{\"jsonrpc\":\"2.0\",\"id\":\"\xFF\",\"method\":\"p\"}\n",
			Error("", -32700, "Parse error: The text is not valid UTF-8 (line 1, character 24)")},
		{"blank lines and line ends", "\n  \r\n" + Ping("1") + "\r\n\n", Pong("1")},
		{"carriage return",
			R"({"jsonrpc":"2.0","id":1,"method":"ping"})"
			"\r\n",
			Pong("1")},
		{"no end of line at the end", R"({"jsonrpc":"2.0","id":1,"method":"ping"})", Pong("1")},
		{"batch", "[" + Ping("1").substr(0, Ping("1").size() - 1) + "]\n", Error("", -32600, BadMessage)},
		{"scalar", "42\n", Error("", -32600, BadMessage)},
		{"empty object", "{}\n", Error("", -32600, BadVersion)},
		{"wrong version keeps the id",
			R"({"jsonrpc":"1.0","id":7,"method":"ping"})"
			"\n",
			Error("7", -32600, BadVersion)},
		{"version of another type",
			R"({"jsonrpc":2.0,"id":"a","method":"ping"})"
			"\n",
			Error("\"a\"", -32600, BadVersion)},
		{"no method",
			R"({"jsonrpc":"2.0","id":3})"
			"\n",
			Error("3", -32600, BadMethod)},
		{"method of another type",
			R"({"jsonrpc":"2.0","id":3,"method":1})"
			"\n",
			Error("3", -32600, BadMethod)},
		{"id 0", Ping("0"), Pong("0")},
		{"id -1", Ping("-1"), Pong("-1")},
		{"id 2^60", Ping("1152921504606846976"), Pong("1152921504606846976")},
		{"id of 30 digits", Ping("123456789012345678901234567890"), Pong("123456789012345678901234567890")},
		{"id text", Ping("\"7\""), Pong("\"7\"")},
		{"empty id text", Ping("\"\""), Pong("\"\"")},
		{"id text with escapes", Ping(R"("\u0061\"\ud83d\ude00")"), Pong("\"a\\\"\xF0\x9F\x98\x80\"")},
		{"id fraction", Ping("1.5"), Error("", -32600, BadId)},
		{"id exponent", Ping("1e3"), Error("", -32600, BadId)},
		{"id null", Ping("null"), Error("", -32600, BadId)},
		{"id true", Ping("true"), Error("", -32600, BadId)},
		{"id object", Ping("{}"), Error("", -32600, BadId)},
		{"a response of the client",
			R"({"jsonrpc":"2.0","id":1,"result":{}})"
			"\n"
			R"({"jsonrpc":"2.0","id":1,"error":{"code":1,"message":""}})"
			"\n",
			""},
		{"notifications are never answered",
			R"({"jsonrpc":"2.0","method":"notifications/initialized"})"
			"\n"
			R"({"jsonrpc":"2.0","method":"ping"})"
			"\n"
			R"({"jsonrpc":"2.0","method":"no/such","params":[1]})"
			"\n"
			R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":99}})"
			"\n",
			""},
		{"params array", Request("ping", "[]"), Error("1", -32602, BadParams)},
		{"params text", Request("ping", "\"x\""), Error("1", -32602, BadParams)},
		{"unknown method", Request("no/such", "{}"), Error("1", -32601, "Method not found: no/such")},
		{"undeclared methods",
			Request("resources/subscribe", "{}") + Request("sampling/createMessage", "{}")
				+ Request("logging/setLevel", "{}"),
			Error("1", -32601, "Method not found: resources/subscribe")
				+ Error("1", -32601, "Method not found: sampling/createMessage")
				+ Error("1", -32601, "Method not found: logging/setLevel")},
		{"good messages after bad ones", "]\n" + Ping("5"),
			Error("", -32700,
				"Parse error: Unexpected or missing character, expected a value, a name, a comma or a closing bracket (line 1, character 1)")
				+ Pong("5")},
	};
}

static std::vector<FCase> CallCases()
{
	const std::string Deep = std::string(100'000, '[') + std::string(100'000, ']');
	return {
		{"arguments reach the tool", Request("tools/call", R"({"name":"echo","arguments":{"a":[1,"\u00e9"]}})"),
			Called("1", R"({"a":[1,"\u00e9"]})")},
		{"absent arguments", Request("tools/call", R"({"name":"echo"})"), Called("1", "{}")},
		{"null arguments", Request("tools/call", R"({"name":"echo","arguments":null})"), Called("1", "{}")},
		{"other members are ignored",
			Request("tools/call", R"({"task":{},"name":"echo","arguments":{},"requestState":"x"})"), Called("1", "{}")},
		{"the last of two names counts", Request("tools/call", R"({"name":"nope","name":"echo"})"), Called("1", "{}")},
		{"huge integer", Request("tools/call", R"({"name":"echo","arguments":{"n":12345678901234567890123}})"),
			Called("1", R"({"n":12345678901234567890123})")},
		{"arguments array", Request("tools/call", R"({"name":"echo","arguments":[]})"),
			Error("1", -32602, R"(Invalid params: \"arguments\" must be an object)")},
		{"arguments text", Request("tools/call", R"({"name":"echo","arguments":"{}"})"),
			Error("1", -32602, R"(Invalid params: \"arguments\" must be an object)")},
		{"no name", Request("tools/call", R"({"arguments":{}})"),
			Error("1", -32602, R"(Invalid params: \"name\" must be a string)")},
		{"name of another type", Request("tools/call", R"({"name":1})"),
			Error("1", -32602, R"(Invalid params: \"name\" must be a string)")},
		{"unknown tool", Request("tools/call", R"({"name":"no\"pe"})"), Error("1", -32602, R"(Unknown tool: no\"pe)")},
		{"lone surrogate keeps the id", Request("tools/call", R"({"name":"echo","arguments":{"x":"\ud800"}})"),
			Error("1", -32602,
				"Malformed params: A string holds a bad escape sequence or a lone surrogate (line 1, character 88)")},
		{"deep nest keeps the id", Request("tools/call", R"({"name":"echo","arguments":{"x":)" + Deep + "}}"),
			Error("1", -32602, "Malformed params: Arrays and objects are nested too deep (line 1, character 597)")},
		{"number out of range keeps the id", Request("tools/call", R"({"name":"echo","arguments":{"x":1e999}})"),
			Error("1", -32602, "Malformed params: A number is malformed or out of range (line 1, character 88)")},
		{"broken word in the arguments keeps the id", Request("tools/call", R"({"name":"echo","arguments":{"x":nul}})"),
			Error("1", -32602, "Malformed params: Unknown word, expected a value (line 1, character 88)")},
	};
}
} // namespace WireTest

TEST(Wire, EveryLineGetsTheAnswerItDeserves)
{
	for (const WireTest::FCase& Case : WireTest::EnvelopeCases())
	{
		FFakeToolHost Tools;
		EXPECT_EQ(JoinLines(ServeText(Tools, Case.In)), Case.Out) << Case.Label;
	}
}

TEST(Wire, CallsAnswerOrRefuse)
{
	for (const WireTest::FCase& Case : WireTest::CallCases())
	{
		FFakeToolHost Tools;
		EXPECT_EQ(JoinLines(ServeText(Tools, Case.In)), Case.Out) << Case.Label;
	}
}

TEST(Wire, OverlongLineIsSkippedAndTheNextOneRead)
{
	const std::string Limit = "Invalid request: a message may be 16777216 bytes long at most";
	const std::string Long = std::string(MaxMessageBytes, 'x') + "{[\\\"";
	const std::vector<WireTest::FCase> Cases = {
		{"id first", R"({"jsonrpc":"2.0","id":1,"method":"ping","params":{"x":")" + Long + "\"}}\n",
			WireTest::Error("1", -32600, Limit)},
		{"id last", R"({"method":"ping","params":{"id":7,"x":")" + Long + R"("},"id":"last"})" + "\n",
			WireTest::Error("\"last\"", -32600, Limit)},
		{"no id", R"({"method":"ping","params":{"id":7,"x":")" + Long + "\"}}\n", WireTest::Error("", -32600, Limit)},
		{"no JSON", Long + "\n", WireTest::Error("", -32600, Limit)},
	};
	for (const WireTest::FCase& Case : Cases)
	{
		FFakeToolHost Tools;
		EXPECT_EQ(JoinLines(ServeText(Tools, Case.In + WireTest::Ping("2"))), Case.Out + WireTest::Pong("2"))
			<< Case.Label;
	}
}

TEST(Wire, AMessageHoldsNoMoreThanSoManyValues)
{
	const auto Ask = [](const size_t NumElements)
	{
		std::string Params = R"({"x":[0)";
		for (size_t Index = 1; Index < NumElements; ++Index)
		{
			Params += ",{}";
		}
		FFakeToolHost Tools;
		return JoinLines(ServeText(Tools, WireTest::Request("ping", Params + "]}")));
	};
	// Around the elements stand the message, its version, id, method and params, and the array.
	constexpr size_t Most = MaxMessageValues - 6;
	EXPECT_EQ(Ask(Most), WireTest::Pong("1"));
	EXPECT_THAT(Ask(Most + 1),
		testing::StartsWith(R"({"jsonrpc":"2.0","id":1,"error":{"code":-32602,"message":)"
							R"("Malformed params: There are too many values)"));
}

TEST(Wire, MegabytesOfArgumentsReachTheTool)
{
	FFakeToolHost Tools;
	size_t Received = 0;
	Tools.Add("measure",
		[&Received](const std::string_view Arguments)
		{
			Received = Arguments.size();
			return FFakeToolHost::Success("{}");
		});
	const std::string Big = R"({"text":")" + std::string(MaxMessageBytes - 1000, 'y') + "\"}";
	EXPECT_EQ(
		JoinLines(ServeText(Tools, WireTest::Request("tools/call", R"({"name":"measure","arguments":)" + Big + "}"))),
		WireTest::Called("1", "{}"));
	EXPECT_EQ(Received, Big.size());
}
