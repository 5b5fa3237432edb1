#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Host/FakeToolHost.h"
#include "Host/Process.h"
#include "Host/ServeText.h"
#include "Standalone/JsonUtf8.h"
#include "Support/ResourceUri.h"
#include "Support/TemporaryFolder.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace ResourcesTest
{
constexpr const char* Meta =
	R"("_meta":{"io.modelcontextprotocol/protocolVersion":"2026-07-28","io.modelcontextprotocol/clientCapabilities":{}})";

static std::string Legacy(const std::string& Method, const std::string& Params = "")
{
	return R"({"jsonrpc":"2.0","id":1,"method":")" + Method + R"(","params":{)" + Params + "}}\n";
}

static std::string Modern(const std::string& Method, const std::string& Params = "")
{
	return Legacy(Method, Params + (Params.empty() ? "" : ",") + Meta);
}

static TSharedPtr<FJsonObject> Parse(const std::string& Text)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	EXPECT_TRUE(JsonUtf8::Parse(Text, Object, Error)) << Text;
	return Object ? Object : TSharedPtr<FJsonObject>(MakeShared<FJsonObject>());
}

static std::string Ask(FFakeToolHost& Tools, const std::string& Message)
{
	const std::vector<std::string> Lines = ServeText(Tools, Message);
	EXPECT_EQ(Lines.size(), 1u) << Message;
	return Lines.empty() ? "{}" : Lines.front();
}

static std::vector<std::string> Texts(const FJsonObject& Object, const TCHAR* List, const TCHAR* Member)
{
	std::vector<std::string> Found;
	for (const TSharedPtr<FJsonValue>& Value : Object.GetArrayField(List))
	{
		Found.push_back(ToUtf8(Member ? Value->AsObject()->GetStringField(Member) : Value->AsString()));
	}
	return Found;
}

/** The document at an address, read by the program in a project. */
static TSharedPtr<FJsonObject> Read(const FTemporaryFolder& Project, const std::string& Uri)
{
	const FProcessResult Served = RunMorvane(
		{"serve", "--project", Project.Path().string()}, Legacy("resources/read", R"("uri":")" + Uri + "\""));
	const TSharedPtr<FJsonObject> Result = Parse(Served.Output)->GetObjectField(TEXT("result"));
	EXPECT_TRUE(Result.IsValid()) << Served.Output;
	return Result ? Parse(ToUtf8(Result->GetArrayField(TEXT("contents"))[0]->AsObject()->GetStringField(TEXT("text"))))
				  : TSharedPtr<FJsonObject>(MakeShared<FJsonObject>());
}

static void MakeDoor(const FTemporaryFolder& Project)
{
	const FProcessResult Made = RunMorvane({"call", "bp_create_asset",
		R"({"path":"/Game/Doors/BP_Door","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})",
		"--project", Project.Path().string()});
	ASSERT_EQ(Made.Status, 0) << Made.Output;
}
} // namespace ResourcesTest

TEST(Resources, AddressesAreTakenApart)
{
	struct FRow
	{
		const char* Uri;
		const char* Kind;
		const char* Path;
		const char* Query;
	};
	for (const FRow& Row :
		{FRow{"morvane://menu", "menu", "", ""}, FRow{"morvane://menu?query=a%20b+c", "menu", "", "a b c"},
			FRow{"morvane://menu?query=a&query=b#end", "menu", "", "b"}, FRow{"morvane://menu?query", "menu", "", ""},
			FRow{"morvane://blueprint/Game/A%C3%A4+b?query=x%26y", "blueprint", "/Game/A\xC3\xA4+b", "x&y"},
			FRow{"morvane:///Game", "", "/Game", ""}})
	{
		const std::optional<FResourceUri> Uri = FResourceUri::Parse(Row.Uri);
		ASSERT_TRUE(Uri.has_value()) << Row.Uri;
		EXPECT_EQ(Uri->Kind, Row.Kind) << Row.Uri;
		EXPECT_EQ(Uri->Path, Row.Path) << Row.Uri;
		EXPECT_EQ(Uri->Get("query"), Row.Query) << Row.Uri;
	}
	for (const char* const Foreign :
		{"", "menu", "http://menu", "morvane:menu", "morvane://menu?query=%2", "morvane://a/%zz"})
	{
		EXPECT_FALSE(FResourceUri::Parse(Foreign).has_value()) << Foreign;
	}
	EXPECT_EQ(FResourceUri::Encode("/Game/T\xC3\xBCr 1%"), "/Game/T%C3%BCr%201%25");
	const FResourceUri Numbers = *FResourceUri::Parse("morvane://menu?a=7&b=-1&c=x&d=99999999999");
	EXPECT_EQ(Numbers.GetNumber("a", 3) + Numbers.GetNumber("b", 3) + Numbers.GetNumber("c", 3)
			+ Numbers.GetNumber("d", 3) + Numbers.GetNumber("e", 3),
		7 + 4 * 3);
}

TEST(Resources, FaultsHaveTheirCodes)
{
	struct FRow
	{
		std::string Method;
		std::string Params;
		int32 Code;
	};
	const std::string Template = R"("ref":{"type":"ref/resource","uri":"morvane://assets{?path,class,query,limit}"})";
	for (const FRow& Row : {FRow{"resources/read", R"("uri":"morvane://nowhere")", -32602},
			 FRow{"resources/read", R"("uri":"morvane://locked")", -32603},
			 FRow{"resources/read", R"("uri":7)", -32602}, FRow{"resources/read", "", -32602},
			 FRow{"resources/list", R"("cursor":"7")", -32602}, FRow{"resources/list", R"("cursor":"200")", -32602},
			 FRow{"resources/templates/list", R"("cursor":"1")", -32602},
			 FRow{"prompts/list", R"("cursor":"1")", -32602}, FRow{"prompts/get", R"("name":"none")", -32602},
			 FRow{"prompts/get", "", -32602}, FRow{"prompts/get", R"("name":"make_actor")", -32602},
			 FRow{"prompts/get", R"("name":"make_actor","arguments":{"asset":"/Game/A","behaviour":""})", -32602},
			 FRow{"completion/complete", "", -32602}, FRow{"completion/complete", Template, -32602},
			 FRow{"completion/complete",
				 R"("ref":{"type":"ref/prompt","name":"none"},"argument":{"name":"a","value":""})", -32602},
			 FRow{"completion/complete",
				 R"("ref":{"type":"ref/resource","uri":"morvane://menu"},"argument":{"name":"a","value":""})", -32602},
			 FRow{"resources/subscribe", R"("uri":"morvane://echo")", -32601}})
	{
		for (const std::string& Message :
			{ResourcesTest::Legacy(Row.Method, Row.Params), ResourcesTest::Modern(Row.Method, Row.Params)})
		{
			FFakeToolHost Tools;
			const TSharedPtr<FJsonObject> Error =
				ResourcesTest::Parse(ResourcesTest::Ask(Tools, Message))->GetObjectField(TEXT("error"));
			ASSERT_TRUE(Error.IsValid()) << Message;
			EXPECT_EQ(Error->GetIntegerField(TEXT("code")), Row.Code) << Message;
		}
	}
	FFakeToolHost Tools;
	EXPECT_THAT(ResourcesTest::Ask(Tools, ResourcesTest::Legacy("resources/read", R"("uri":"morvane://nowhere")")),
		HasSubstr(R"("data":{"uri":"morvane://nowhere"})"));
}

TEST(Resources, EachEraGetsItsMembers)
{
	const std::string Fresh = R"(,"ttlMs":0,"cacheScope":"private")";
	const std::string Lasting = R"(,"ttlMs":3600000,"cacheScope":"public")";
	const std::pair<std::string, std::string> Rows[] = {{"resources/list", Fresh},
		{"resources/templates/list", Lasting}, {"resources/read", Fresh}, {"prompts/list", Lasting}};
	for (const auto& [Method, Cache] : Rows)
	{
		FFakeToolHost Tools;
		const std::string Uri = R"("uri":"morvane://echo")";
		EXPECT_THAT(ResourcesTest::Ask(Tools, ResourcesTest::Modern(Method, Uri)),
			AllOf(HasSubstr(R"("resultType":"complete")"), HasSubstr(Cache)));
		EXPECT_THAT(ResourcesTest::Ask(Tools, ResourcesTest::Legacy(Method, Uri)),
			AllOf(HasSubstr(R"("result":{)"), Not(HasSubstr("ttlMs")), Not(HasSubstr("resultType"))));
	}
	FFakeToolHost Tools;
	EXPECT_EQ(ResourcesTest::Ask(Tools, ResourcesTest::Legacy("resources/read", R"("uri":"morvane://echo")")),
		R"({"jsonrpc":"2.0","id":1,"result":{"contents":[{"uri":"morvane://echo","mimeType":"application/json","text":"{\"echo\":true}"}]}})");
}

TEST(Resources, ALongListComesInPages)
{
	FFakeToolHost Tools;
	for (int Index = 0; Index < 450; ++Index)
	{
		Tools.Resources.push_back({"morvane://blueprint/Game/" + std::to_string(Index), "n", "t", "d"});
	}
	std::vector<std::string> Uris;
	std::string Cursor;
	int NumPages = 0;
	do
	{
		const TSharedPtr<FJsonObject> Page = ResourcesTest::Parse(
			ResourcesTest::Ask(
				Tools, ResourcesTest::Legacy("resources/list", Cursor.empty() ? "" : R"("cursor":")" + Cursor + "\"")))
												 ->GetObjectField(TEXT("result"));
		for (const std::string& Uri : ResourcesTest::Texts(*Page, TEXT("resources"), TEXT("uri")))
		{
			Uris.push_back(Uri);
		}
		FString Next;
		Cursor = Page->TryGetStringField(TEXT("nextCursor"), Next) ? ToUtf8(Next) : "";
		++NumPages;
	} while (!Cursor.empty() && NumPages < 10);
	EXPECT_EQ(NumPages, 3);
	EXPECT_EQ(Uris.size(), 452u);
	EXPECT_EQ(Uris.front(), "morvane://menu");
	EXPECT_EQ(Uris.back(), "morvane://blueprint/Game/449");
}

TEST(Resources, PromptsTakeTheirArguments)
{
	FFakeToolHost Tools;
	const std::string With = ResourcesTest::Ask(Tools,
		ResourcesTest::Legacy("prompts/get",
			R"("name":"make_actor","arguments":{"asset":"/Game/BP_Fan","behaviour":"It {asset} turns.","parent":"Pawn"})"));
	EXPECT_THAT(With,
		AllOf(HasSubstr(R"("role":"user","content":{"type":"text","text":"Make the Blueprint /Game/BP_Fan.)"),
			HasSubstr("It {asset} turns."), HasSubstr("Its parent class is Pawn.")));
	const std::string Without = ResourcesTest::Ask(Tools,
		ResourcesTest::Legacy(
			"prompts/get", R"("name":"make_actor","arguments":{"asset":"/Game/BP_Fan","behaviour":"It turns."})"));
	EXPECT_THAT(Without, Not(HasSubstr("parent class is")));
}

TEST(Resources, EveryPromptIsWholeAndCompletes)
{
	FFakeToolHost Tools;
	const TSharedPtr<FJsonObject> Listed = ResourcesTest::Parse(
		ResourcesTest::Ask(Tools, ResourcesTest::Legacy("prompts/list")))
											   ->GetObjectField(TEXT("result"));
	const TArray<TSharedPtr<FJsonValue>>& All = Listed->GetArrayField(TEXT("prompts"));
	EXPECT_GE(All.Num(), 6);
	for (const TSharedPtr<FJsonValue>& Value : All)
	{
		const TSharedPtr<FJsonObject> Prompt = Value->AsObject();
		const std::string Name = ToUtf8(Prompt->GetStringField(TEXT("name")));
		std::string Arguments;
		for (const std::string& Argument : ResourcesTest::Texts(*Prompt, TEXT("arguments"), TEXT("name")))
		{
			Arguments += (Arguments.empty() ? "\"" : ",\"") + Argument + "\":\"given-" + Argument + '"';
		}
		const std::string Got = ResourcesTest::Ask(
			Tools, ResourcesTest::Legacy("prompts/get", R"("name":")" + Name + R"(","arguments":{)" + Arguments + "}"));
		for (const std::string& Argument : ResourcesTest::Texts(*Prompt, TEXT("arguments"), TEXT("name")))
		{
			EXPECT_THAT(Got, HasSubstr("given-" + Argument)) << Name;
		}
		EXPECT_THAT(Got, Not(HasSubstr("{asset}"))) << Name;
	}
	EXPECT_EQ(ResourcesTest::Ask(Tools,
				  ResourcesTest::Legacy("completion/complete",
					  R"("ref":{"type":"ref/prompt","name":"make_actor"},"argument":{"name":"parent","value":"A"})")),
		R"({"jsonrpc":"2.0","id":1,"result":{"completion":{"values":["one","two"],"total":2,"hasMore":false}}})");
	EXPECT_EQ(
		ResourcesTest::Ask(Tools,
			ResourcesTest::Legacy("completion/complete",
				R"("ref":{"type":"ref/prompt","name":"make_actor"},"argument":{"name":"behaviour","value":"A"})")),
		R"({"jsonrpc":"2.0","id":1,"result":{"completion":{"values":[],"total":0,"hasMore":false}}})");
}

TEST(Resources, TheMenuIsSearchedAndItsRequestsPlaceNodes)
{
	const FTemporaryFolder Project;
	const TSharedPtr<FJsonObject> Found = ResourcesTest::Read(
		Project, "morvane://menu?query=line%20trace%20by%20channel&limit=2");
	ASSERT_GE(Found->GetArrayField(TEXT("actions")).Num(), 1);
	const TSharedPtr<FJsonObject> First = Found->GetArrayField(TEXT("actions"))[0]->AsObject();
	EXPECT_EQ(ToUtf8(First->GetStringField(TEXT("title"))), "Line Trace By Channel");
	const TSharedPtr<FJsonObject> Request = First->GetObjectField(TEXT("request"));
	EXPECT_EQ(ToUtf8(Request->GetStringField(TEXT("target_function"))), "LineTraceSingle");
	const TSharedPtr<FJsonObject> Whole = ResourcesTest::Read(Project, "morvane://menu");
	EXPECT_GT(Whole->GetNumberField(TEXT("total")), 5000);
	EXPECT_GT(Whole->GetObjectField(TEXT("categories"))->GetNumberField(TEXT("Math")), 100);
}

TEST(Resources, ANodeShowsThePinsThatItWouldHave)
{
	const FTemporaryFolder Project;
	const TSharedPtr<FJsonObject> Delay = ResourcesTest::Read(Project, "morvane://node?title=delay");
	const TSharedPtr<FJsonObject> Node = Delay->GetArrayField(TEXT("nodes"))[0]->AsObject();
	EXPECT_THAT(ResourcesTest::Texts(*Node, TEXT("pins"), TEXT("name")), ElementsAre("execute", "then", "Duration"));
	EXPECT_EQ(ToUtf8(Node->GetArrayField(TEXT("pins"))[1]->AsObject()->GetStringField(TEXT("shown"))), "Completed");

	const TSharedPtr<FJsonObject> Exact = ResourcesTest::Read(Project, "morvane://node?function=Actor.K2_DestroyActor");
	EXPECT_EQ(Exact->GetArrayField(TEXT("nodes")).Num(), 1);
	const TSharedPtr<FJsonObject> None = ResourcesTest::Read(Project, "morvane://node?title=Print%20Strin");
	EXPECT_THAT(ResourcesTest::Texts(*None, TEXT("near"), nullptr), Contains("Print String"));
}

TEST(Resources, AssetsAreTheProjectsUnlessTheEngineIsNamed)
{
	const FTemporaryFolder Project;
	ResourcesTest::MakeDoor(Project);
	EXPECT_THAT(ResourcesTest::Texts(*ResourcesTest::Read(Project, "morvane://assets"), TEXT("assets"), TEXT("path")),
		ElementsAre("/Game/Doors/BP_Door"));
	EXPECT_THAT(
		ResourcesTest::Texts(*ResourcesTest::Read(Project, "morvane://assets?path=/Engine&class=StaticMesh&query=cub"),
			TEXT("assets"), TEXT("path")),
		Contains("/Engine/BasicShapes/Cube"));
	EXPECT_EQ(RunMorvane({"assets", "--project", Project.Path().string()}).Output,
		"/Game/Doors/BP_Door\tBlueprint\t/Script/Engine.Actor\n");
}

TEST(Resources, ABlueprintIsReadAndUnknownOnesAreToldFromIt)
{
	const FTemporaryFolder Project;
	ResourcesTest::MakeDoor(Project);
	const TSharedPtr<FJsonObject> Door = ResourcesTest::Read(Project, "morvane://blueprint/Game/Doors/BP_Door");
	EXPECT_EQ(ToUtf8(Door->GetStringField(TEXT("class_path"))), "/Game/Doors/BP_Door.BP_Door_C");
	const FProcessResult Unknown = RunMorvane({"serve", "--project", Project.Path().string()},
		ResourcesTest::Legacy("resources/read", R"("uri":"morvane://blueprint/Game/Doors/BP_None")"));
	EXPECT_THAT(Unknown.Output, HasSubstr(R"("code":-32602)"));
	const TSharedPtr<FJsonObject> Lean = ResourcesTest::Read(
		Project, "morvane://blueprint/Game/Doors/BP_Door?detail=lean");
	EXPECT_EQ(ToUtf8(Lean->GetStringField(TEXT("detail"))), "lean");
}

TEST(Resources, WhatIsWrongWithAnAddressIsSaid)
{
	const std::pair<const char*, const char*> Rows[] = {
		{"morvane://menu?query=%zz", "A percent sign in it is not followed by two hex digits"},
		{"menu", "Addresses begin with morvane://"}, {"morvane://menus", "Nothing has this address"},
		{"morvane://assets?klass=Font", "'klass' is nothing that it takes; those are path,class,query,limit"},
		{"morvane://node?node_class=K2Node_IfThenElse", "A node is asked for by title or function"},
		{"morvane://blueprint/Game/Doors/BP_None", "It cannot be read: Blueprint does not exist"}};
	const FTemporaryFolder Project;
	std::string Asked;
	for (const auto& [Uri, Told] : Rows)
	{
		Asked += ResourcesTest::Legacy("resources/read", "\"uri\":\"" + std::string(Uri) + "\"");
	}
	const std::string Answers = RunMorvane({"serve", "--project", Project.Path().string()}, Asked).Output;
	for (const auto& [Uri, Told] : Rows)
	{
		EXPECT_THAT(Answers, HasSubstr("Resource not found: " + std::string(Uri) + ". " + Told));
	}
}

TEST(Resources, ListingThemTakesNoLock)
{
	const FTemporaryFolder Project;
	const FProcessResult Served = RunMorvane({"serve", "--project", Project.Path().string()},
		ResourcesTest::Legacy("resources/list") + ResourcesTest::Legacy("prompts/list"));
	EXPECT_THAT(Served.Output, HasSubstr("morvane://menu"));
	EXPECT_TRUE(std::filesystem::is_empty(Project.Path()));
}
