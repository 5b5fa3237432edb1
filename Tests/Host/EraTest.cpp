#include <gtest/gtest.h>

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Host/FakeToolHost.h"
#include "Host/ServeText.h"
#include "Server/Dispatcher.h"
#include "Standalone/JsonUtf8.h"

namespace EraTest
{
constexpr const char* Version = "io.modelcontextprotocol/protocolVersion";
constexpr const char* Capabilities = "io.modelcontextprotocol/clientCapabilities";

static std::string Legacy(const std::string& Method, const std::string& Params = "{}")
{
	return R"({"jsonrpc":"2.0","id":1,"method":")" + Method + R"(","params":)" + Params + "}\n";
}

static std::string ModernMeta(
	const std::string& VersionJson = "\"2026-07-28\"", const std::string& CapabilitiesJson = "{}")
{
	std::string Meta = std::string("\"_meta\":{\"") + Version + "\":" + VersionJson;
	return CapabilitiesJson.empty() ? Meta + "}" : Meta + ",\"" + Capabilities + "\":" + CapabilitiesJson + "}";
}

static std::string Modern(const std::string& Method, const std::string& MoreParams = "")
{
	return Legacy(Method, "{" + MoreParams + ModernMeta() + "}");
}

static TSharedPtr<FJsonObject> ParseReply(const std::string& Line)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	EXPECT_TRUE(JsonUtf8::Parse(Line, Object, Error)) << Line;
	return Object ? Object : TSharedPtr<FJsonObject>(MakeShared<FJsonObject>());
}

/** The one answer to one message, as an object; empty when there was none or more. */
static TSharedPtr<FJsonObject> Ask(const std::string& Message)
{
	FFakeToolHost Tools;
	const std::vector<std::string> Lines = ServeText(Tools, Message);
	EXPECT_EQ(Lines.size(), 1u) << Message;
	return ParseReply(Lines.empty() ? "{}" : Lines.front());
}

static TSharedPtr<FJsonObject> AskResult(const std::string& Message)
{
	const TSharedPtr<FJsonObject> Result = Ask(Message)->GetObjectField(TEXT("result"));
	EXPECT_TRUE(Result.IsValid()) << Message;
	return Result ? Result : TSharedPtr<FJsonObject>(MakeShared<FJsonObject>());
}

static int32 AskErrorCode(const std::string& Message)
{
	const TSharedPtr<FJsonObject> Error = Ask(Message)->GetObjectField(TEXT("error"));
	return Error ? Error->GetIntegerField(TEXT("code")) : 0;
}

static std::string Names(const FJsonObject& Object)
{
	std::string Text;
	for (const auto& Pair : Object.Values)
	{
		Text += (Text.empty() ? "" : " ") + ToUtf8(Pair.Key);
	}
	return Text;
}
} // namespace EraTest

TEST(Eras, HandshakeNegotiatesLegacyRevisionsOnly)
{
	const std::pair<const char*, const char*> Cases[] = {
		{"2025-11-25", "2025-11-25"},
		{"2025-06-18", "2025-06-18"},
		{"2025-03-26", "2025-03-26"},
		{"2024-11-05", "2024-11-05"},
		{"2024-10-07", "2025-11-25"},
		{"2026-07-28", "2025-11-25"},
		{"", "2025-11-25"},
		{"2099-01-01", "2025-11-25"},
	};
	for (const auto& [Requested, Answered] : Cases)
	{
		const std::string Params = std::string(R"({"protocolVersion":")") + Requested
			+ R"(","capabilities":{},"clientInfo":{"name":"t","version":"1"}})";
		const TSharedPtr<FJsonObject> Result = EraTest::AskResult(EraTest::Legacy("initialize", Params));
		EXPECT_EQ(ToUtf8(Result->GetStringField(TEXT("protocolVersion"))), Answered) << Requested;
		EXPECT_EQ(EraTest::Names(*Result), "protocolVersion capabilities serverInfo instructions");
		EXPECT_EQ(EraTest::Names(*Result->GetObjectField(TEXT("capabilities"))), "tools resources prompts completions");
		EXPECT_EQ(EraTest::Names(*Result->GetObjectField(TEXT("serverInfo"))), "name title version description");
	}
	EXPECT_EQ(EraTest::AskErrorCode(EraTest::Legacy("initialize")), -32602);
	EXPECT_EQ(EraTest::AskErrorCode(EraTest::Legacy("initialize", R"({"protocolVersion":1})")), -32602);
}

TEST(Eras, ResultsCarryWhatTheirEraAsksFor)
{
	EXPECT_EQ(EraTest::Names(*EraTest::AskResult(EraTest::Legacy("ping"))), "");
	EXPECT_EQ(EraTest::Names(*EraTest::AskResult(EraTest::Legacy("tools/list"))), "tools");
	EXPECT_EQ(EraTest::Names(*EraTest::AskResult(EraTest::Legacy("tools/call", R"({"name":"echo"})"))),
		"content structuredContent isError");
	EXPECT_EQ(
		EraTest::Names(*EraTest::AskResult(EraTest::Modern("tools/list"))), "resultType tools ttlMs cacheScope _meta");
	EXPECT_EQ(EraTest::Names(*EraTest::AskResult(EraTest::Modern("tools/call", R"("name":"echo",)"))),
		"resultType content structuredContent isError _meta");

	const TSharedPtr<FJsonObject> Discovered = EraTest::AskResult(EraTest::Modern("server/discover"));
	EXPECT_EQ(
		EraTest::Names(*Discovered), "resultType supportedVersions capabilities instructions ttlMs cacheScope _meta");
	EXPECT_EQ(ToUtf8(Discovered->GetStringField(TEXT("resultType"))), "complete");
	TArray<FString> Versions;
	EXPECT_TRUE(Discovered->TryGetStringArrayField(TEXT("supportedVersions"), Versions));
	EXPECT_EQ(ToUtf8(FString::Join(Versions, TEXT(" "))), "2026-07-28 2025-11-25 2025-06-18 2025-03-26 2024-11-05");
	EXPECT_EQ(EraTest::Names(*Discovered->GetObjectField(TEXT("_meta"))), "io.modelcontextprotocol/serverInfo");
}

TEST(Eras, EachEraKnowsItsOwnMethods)
{
	const std::string Name = R"("name":"echo",)";
	struct FCase
	{
		std::string Message;
		int32 Code;
	};
	const FCase Cases[] = {
		{EraTest::Legacy("server/discover"), -32601},
		{EraTest::Legacy("subscriptions/listen"), -32601},
		{EraTest::Modern("ping"), -32601},
		{EraTest::Modern("initialize", R"("protocolVersion":"2025-11-25",)"), -32601},
		{EraTest::Modern("logging/setLevel"), -32601},
		{EraTest::Modern("resources/subscribe"), -32601},
		{EraTest::Legacy("tools/list", R"({"cursor":"x"})"), -32602},
		{EraTest::Legacy("tools/list", R"({"cursor":7})"), -32602},
		{EraTest::Modern("tools/list", R"("cursor":"",)"), -32602},
		{EraTest::Legacy("tools/list", R"({"cursor":null})"), 0},
		{EraTest::Legacy("ping", R"({"_meta":{"progressToken":1}})"), 0},
		{EraTest::Legacy("tools/call", "{" + Name + EraTest::ModernMeta("\"2026-07-28\"", "") + "}"), -32602},
		{EraTest::Legacy("tools/call", "{" + Name + EraTest::ModernMeta("\"2026-07-28\"", "[]") + "}"), -32602},
		{EraTest::Legacy("tools/call", "{" + Name + EraTest::ModernMeta("20260728") + "}"), -32602},
		{EraTest::Legacy("tools/call", "{" + Name + EraTest::ModernMeta("null") + "}"), -32602},
		{EraTest::Legacy("tools/call", "{" + Name + EraTest::ModernMeta("\"2025-11-25\"") + "}"), -32022},
		{EraTest::Legacy("no/such", "{" + EraTest::ModernMeta("\"2027-01-01\"") + "}"), -32022},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(EraTest::AskErrorCode(Case.Message), Case.Code) << Case.Message;
	}
}

TEST(Eras, UnsupportedVersionNamesWhatIsSupported)
{
	const TSharedPtr<FJsonObject> Data = EraTest::Ask(
		EraTest::Legacy("tools/list", "{" + EraTest::ModernMeta("\"1\"") + "}"))
											 ->GetObjectField(TEXT("error"))
											 ->GetObjectField(TEXT("data"));
	ASSERT_TRUE(Data.IsValid());
	EXPECT_EQ(ToUtf8(Data->GetStringField(TEXT("requested"))), "1");
	EXPECT_EQ(Data->GetArrayField(TEXT("supported")).Num(), 5);
}

TEST(Eras, OnePipeServesBothInAnyOrder)
{
	FFakeToolHost Tools;
	const std::string Hello =
		R"({"protocolVersion":"2025-06-18","capabilities":{},"clientInfo":{"name":"t","version":"1"}})";
	const std::vector<std::string> Lines = ServeText(Tools,
		EraTest::Modern("server/discover") + EraTest::Legacy("initialize", Hello) + EraTest::Modern("tools/list")
			+ EraTest::Legacy("tools/list") + EraTest::Legacy("initialize", Hello));
	ASSERT_EQ(Lines.size(), 5u);
	for (const std::string& Line : Lines)
	{
		EXPECT_TRUE(EraTest::ParseReply(Line)->HasTypedField<EJson::Object>(TEXT("result"))) << Line;
	}
}

TEST(Eras, ListeningIsAcknowledgedAndEndsWithTheInput)
{
	FFakeToolHost Tools;
	const std::string Listen = EraTest::Modern("subscriptions/listen", R"("notifications":{"toolsListChanged":true},)");
	EXPECT_EQ(JoinLines(ServeText(Tools, Listen)),
		R"({"jsonrpc":"2.0","method":"notifications/subscriptions/acknowledged","params":{"notifications":{},"_meta":{"io.modelcontextprotocol/subscriptionId":1}}})"
		"\n"
		R"({"jsonrpc":"2.0","id":1,"result":{"resultType":"complete","_meta":{"io.modelcontextprotocol/subscriptionId":1}}})"
		"\n");
	const std::string Cancel = R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":1}})";
	EXPECT_EQ(ServeText(Tools, Listen + Cancel).size(), 1u);
}

TEST(Eras, FailedToolIsAResult)
{
	FFakeToolHost Tools;
	Tools.Add("throw", [](std::string_view) -> FToolOutcome { throw std::runtime_error("out of luck"); });
	const std::string Message = EraTest::Legacy("tools/call", R"({"name":"throw"})");
	const TSharedPtr<FJsonObject> Result =
		EraTest::ParseReply(ServeText(Tools, Message).at(0))->GetObjectField(TEXT("result"));
	ASSERT_TRUE(Result.IsValid());
	EXPECT_TRUE(Result->GetBoolField(TEXT("isError")));
	const TSharedPtr<FJsonObject> Structured = Result->GetObjectField(TEXT("structuredContent"));
	EXPECT_EQ(ToUtf8(Structured->GetArrayField(TEXT("errors"))[0]->AsString()), "Internal fault in throw: out of luck");
	EXPECT_EQ(EraTest::Names(*Structured), "success errors warnings messages data modifications");
}

TEST(Eras, TooLargeResultKeepsTheTruthAndIsCut)
{
	FFakeToolHost Tools;
	Tools.Add("big",
		[](std::string_view)
		{ return FFakeToolHost::Success("{\"x\":\"" + std::string(FDispatcher::MaxResultBytes, 'x') + "\"}"); });
	const std::string Line = ServeText(Tools, EraTest::Legacy("tools/call", R"({"name":"big"})")).at(0);
	EXPECT_LT(Line.size(), 9u << 20);
	const TSharedPtr<FJsonObject> Result = EraTest::ParseReply(Line)->GetObjectField(TEXT("result"));
	EXPECT_FALSE(Result->GetBoolField(TEXT("isError"))) << "what was done is no failure for being long";
	const TSharedPtr<FJsonObject> Structured = Result->GetObjectField(TEXT("structuredContent"));
	EXPECT_TRUE(Structured->GetBoolField(TEXT("success")));
	EXPECT_TRUE(Structured->GetStringField(TEXT("cut")).Contains(TEXT("more than fit into one answer")));
}
