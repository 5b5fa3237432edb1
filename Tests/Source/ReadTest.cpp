#include "BlueprintNodeUtils.h"
#include "BlueprintReadOperations.h"
#include "BlueprintReadUtils.h"
#include "EdGraphSchema_K2.h"
#include "EverythingBlueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ModificationReadRegistry.h"
#include "ToolInfo.h"
#include "ToolResults.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace
{
using FOperation = void (*)(const FJsonObject&, Morvane::FToolResult&);
namespace ToolInfo = Morvane::ToolInfo;

/** The text under "content", on several lines so that a difference is easy to see. */
std::string Content(const Morvane::FToolResult& Result)
{
	FString Text;
	if (!Result.GetDatas() || !Result.GetDatas()->TryGetStringField(TEXT("content"), Text))
	{
		return "no content";
	}
	TSharedPtr<FJsonObject> Document;
	FString Error;
	EXPECT_TRUE(JsonUtf8::Parse(ToStd(Text), Document, Error)) << ToStd(Error);
	std::string Pretty;
	JsonUtf8::Write(*Document, Pretty, true);
	return Pretty + "\n";
}

std::string WithPath(const FBlueprintBuilder& Blueprint, const std::string& More = "")
{
	return "{\"path\":\"" + ToStd(Blueprint.Path()) + "\"" + (More.empty() ? "" : "," + More) + "}";
}

Morvane::FToolResult RunRead(FOperation Operation, const std::string& Args)
{
	Morvane::FToolResult Result = MakeResult();
	Operation(*Json(Args), Result);
	return Result;
}

/** Compares with the recorded document; MORVANE_RECORD=1 records it anew, to be read before it is committed. */
void ExpectRecorded(const std::string& Name, const std::string& Text)
{
	const std::string File = std::string(MORVANE_SOURCE_DIR) + "/Tests/Data/Reads/" + Name + ".json";
	if (std::getenv("MORVANE_RECORD"))
	{
		std::ofstream(File) << Text;
		return;
	}
	std::ifstream Stream(File);
	std::stringstream Recorded;
	Recorded << Stream.rdbuf();
	EXPECT_EQ(Text, Recorded.str()) << File;
}

} // namespace

struct FRecordedRead
{
	const char* Name;
	FOperation Operation;
	const char* Args;
};

class RecordedReads : public testing::TestWithParam<FRecordedRead>
{
};

TEST_P(RecordedReads, ShowEverythingTheSameWayAfterSaveAndReload)
{
	EverythingBlueprint::SeedIds();
	FBlueprintBuilder Blueprint;
	EverythingBlueprint::Fill(*Blueprint.Get());
	const FRecordedRead& Case = GetParam();
	const Morvane::FToolResult Before = RunRead(Case.Operation, WithPath(Blueprint, Case.Args));
	EXPECT_THAT(Errors(Before), testing::IsEmpty());
	const std::string Text = Content(Before);
	ExpectRecorded(Case.Name, Text);
	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_EQ(Content(RunRead(Case.Operation, WithPath(Blueprint, Case.Args))), Text);
}

INSTANTIATE_TEST_SUITE_P(Reads, RecordedReads,
	testing::Values(FRecordedRead{"Schema", &FBlueprintReadSchemaOperation::Execute, ""},
		FRecordedRead{"Variable", &FBlueprintVariableReadOperation::Execute, R"("variable_name":"health")"},
		FRecordedRead{"Component", &FBlueprintComponentReadOperation::Execute, R"("component_name":"Lamp")"},
		FRecordedRead{"Function", &FBlueprintFunctionReadOperation::Execute, R"("function_name":"OpenBy")"},
		FRecordedRead{"EventFunction", &FBlueprintFunctionReadOperation::Execute, R"("function_name":"Knock")"},
		FRecordedRead{
			"Interface", &FBlueprintInterfaceReadOperation::Execute, R"("interface_name":"MovieSceneEasingFunction")"},
		FRecordedRead{
			"InterfaceFunction", &FBlueprintFunctionReadOperation::Execute, R"("function_name":"OnEvaluate")"},
		FRecordedRead{"SpecialNodes", &FBlueprintEventReadOperation::Execute,
			R"("graph_name":"Special","event_name":"On Component Hit")"},
		FRecordedRead{"Macro", &FBlueprintMacroReadOperation::Execute, R"("macro_name":"Twice")"},
		FRecordedRead{"Delegate", &FBlueprintDelegateReadOperation::Execute, R"("delegate_name":"OnOpened")"},
		FRecordedRead{"Timeline", &FBlueprintTimelineReadOperation::Execute, R"("timeline_name":"Swing")"},
		FRecordedRead{"Event", &FBlueprintEventReadOperation::Execute, R"("graph_name":"Doors","event_name":"Knock")"}),
	[](const testing::TestParamInfo<FRecordedRead>& Info) { return Info.param.Name; });

/** A read of several items at once, as after an edit of them. */
static std::string ReadItems(const FBlueprintBuilder& Blueprint, const char* Tool, const std::string& Names)
{
	const std::string Word = std::string(Tool).substr(std::string("read_blueprint_").size());
	Morvane::FToolResult Result = MakeResult();
	const FString Text = FBlueprintReadUtils::ReadBlueprint(
		Json(WithPath(Blueprint, R"("read_tool":")" + std::string(Tool) + R"(",")" + Word + R"(_name":)" + Names)),
		Result);
	EXPECT_THAT(Errors(Result), testing::IsEmpty());
	return Content(Result.SetData(TEXT("content"), Text));
}

TEST(ItemReads, EveryVariableWithItsTypeDefaultAndFlags)
{
	FBlueprintBuilder Blueprint;
	EverythingBlueprint::Fill(*Blueprint.Get());
	std::string Names;
	for (const FBPVariableDescription& Variable : Blueprint->NewVariables)
	{
		Names += (Names.empty() ? "[\"" : ",\"") + ToStd(Variable.VarName.ToString()) + "\"";
	}
	const std::string Text = ReadItems(Blueprint, "read_blueprint_variable", Names + "]");
	ExpectRecorded("Variables", Text);
	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_EQ(ReadItems(Blueprint, "read_blueprint_variable", Names + "]"), Text);
}

TEST(ItemReads, ComponentsHungOnNativeOnesAndOverridesOfFunctions)
{
	EverythingBlueprint::SeedIds();
	FBlueprintBuilder Blueprint(TEXT("/Script/Engine.Character"));
	EverythingBlueprint::FillCharacter(*Blueprint.Get());
	const auto Read = [&Blueprint]
	{
		return ReadItems(Blueprint, "read_blueprint_component",
				   R"(["CollisionCylinder","CharacterMesh0","CharMoveComp","Sword","Spin"])")
			+ ReadItems(Blueprint, "read_blueprint_function", R"(["CanJumpInternal"])");
	};
	const std::string Text = Read();
	ExpectRecorded("Character", Text);
	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_EQ(Read(), Text);
}

TEST(WidgetReads, HierarchyAlwaysAndDetailsOfNamedWidgets)
{
	EverythingBlueprint::SeedIds();
	FBlueprintBuilder Blueprint(TEXT("/Script/UMG.UserWidget"));
	EverythingBlueprint::FillWidgets(*Blueprint.Get());
	const FOperation Read = &FWidgetBlueprintWidgetTreeReadOperation::Execute;
	ExpectRecorded("WidgetHierarchy", Content(RunRead(Read, WithPath(Blueprint))));
	const std::string Details = Content(RunRead(Read, WithPath(Blueprint, R"("widget_name":"Title")")));
	ExpectRecorded("WidgetDetails", Details);
	EXPECT_EQ(Content(RunRead(Read, WithPath(Blueprint, R"("widget_name":["Title"])"))), Details);
}

TEST(WidgetReads, OtherBlueprintsHaveNoTree)
{
	FBlueprintBuilder Blueprint;
	const Morvane::FToolResult Result = RunRead(&FWidgetBlueprintWidgetTreeReadOperation::Execute, WithPath(Blueprint));
	const std::string Path = ToStd(Blueprint.Path());
	EXPECT_THAT(Errors(Result),
		testing::ElementsAre(
			"Blueprint at '" + Path + "' is not a Widget Blueprint", "Failed to read widget_tree at path: " + Path));
	const std::string Schema = Content(RunRead(&FBlueprintReadSchemaOperation::Execute, WithPath(Blueprint)));
	EXPECT_EQ(Schema.find("widget_tree"), std::string::npos);
}

struct FItemCase
{
	FOperation Operation;
	const char* Word;
	bool bFromBlueprint;
};

TEST(ItemReads, MissingFieldsMissingItemsAndMissingAssets)
{
	FBlueprintBuilder Blueprint;
	const std::string Asset = ToStd(Blueprint.Get()->GetName());
	for (const FItemCase& Case : {FItemCase{&FBlueprintVariableReadOperation::Execute, "variable", false},
			 FItemCase{&FBlueprintComponentReadOperation::Execute, "component", false},
			 FItemCase{&FBlueprintFunctionReadOperation::Execute, "function", true},
			 FItemCase{&FBlueprintInterfaceReadOperation::Execute, "interface", false},
			 FItemCase{&FBlueprintTimelineReadOperation::Execute, "timeline", false},
			 FItemCase{&FBlueprintDelegateReadOperation::Execute, "delegate", false},
			 FItemCase{&FBlueprintMacroReadOperation::Execute, "macro", true}})
	{
		SCOPED_TRACE(Case.Word);
		const std::string Word = Case.Word;
		const std::string Field = Word + "_name";
		EXPECT_THAT(Errors(RunRead(Case.Operation, "{}")), testing::ElementsAre("Missing required field 'path'"));
		EXPECT_THAT(Errors(RunRead(Case.Operation, WithPath(Blueprint, "\"" + Field + "\":3"))),
			testing::ElementsAre("Missing required field '" + Field + "'"));

		const Morvane::FToolResult Missing = RunRead(Case.Operation, WithPath(Blueprint, "\"" + Field + "\":\"Nope\""));
		EXPECT_THAT(Errors(Missing), testing::IsEmpty());
		EXPECT_THAT(
			Warnings(Missing), testing::ElementsAre("'Nope' " + Word + " does not exist in Blueprint: " + Asset));
		EXPECT_THAT(Successes(Missing), testing::IsEmpty());
		EXPECT_NE(Content(Missing).find("\"not_found\""), std::string::npos) << Content(Missing);

		const Morvane::FToolResult Gone = RunRead(
			Case.Operation, "{\"path\":\"/Game/BP_Gone\",\"" + Field + "\":\"Nope\"}");
		const std::string Failed = Case.bFromBlueprint ? "Failed to read " + Word + " 'Nope' from Blueprint: BP_Gone"
													   : "Failed to read " + Word + " 'Nope' at path: /Game/BP_Gone";
		EXPECT_THAT(Errors(Gone),
			testing::ElementsAre("Blueprint does not exist: /Game/BP_Gone",
				"Cannot read Blueprint. The asset may have been deleted.", Failed));
		EXPECT_EQ(Content(Gone), "no content");
	}
}

TEST(EventReads, AMissingEventIsAWarningAndNoSuccess)
{
	FBlueprintBuilder Blueprint;
	const Morvane::FToolResult Result = RunRead(&FBlueprintEventReadOperation::Execute,
		WithPath(Blueprint, R"("graph_name":"EventGraph","event_name":"Nope")"));
	EXPECT_THAT(Warnings(Result),
		testing::ElementsAre(
			"'Nope' event does not exist in graph 'EventGraph' in Blueprint: " + ToStd(Blueprint.Get()->GetName())));
	EXPECT_THAT(Successes(Result), testing::IsEmpty());
	EXPECT_NE(Content(Result).find("\"not_found\""), std::string::npos);
	for (const char* const Field : {"graph_name", "event_name"})
	{
		std::string Args = R"("graph_name":"EventGraph","event_name":"Tick")";
		Args.replace(Args.find(Field), 1, "X");
		EXPECT_THAT(Errors(RunRead(&FBlueprintEventReadOperation::Execute, WithPath(Blueprint, Args))),
			testing::ElementsAre("Missing required field '" + std::string(Field) + "'"));
	}
}

TEST(SchemaReads, MissingAssetIsTwoErrors)
{
	FBlueprintBuilder Blueprint;
	EXPECT_THAT(Errors(RunRead(&FBlueprintReadSchemaOperation::Execute, R"({"path":"/Game/BP_Gone"})")),
		testing::ElementsAre("Blueprint does not exist: /Game/BP_Gone",
			"Cannot read schema for non-existent Blueprint. The asset may have been deleted."));
}

TEST(ReadCommand, EmptyNamesEndTheReadAndDeletedItemsSaySo)
{
	FBlueprintBuilder Blueprint;
	const TSharedRef<FJsonObject> Command = Json(
		WithPath(Blueprint, R"("read_tool":"read_blueprint_variable","variable_name":[])"));
	Morvane::FToolResult Result = MakeResult();
	EXPECT_EQ(FBlueprintReadUtils::ReadBlueprint(Command, Result), TEXT("{}"));
	EXPECT_THAT(Errors(Result), testing::ElementsAre("Field 'variable_name' array is empty"));

	Morvane::FToolResult Finalised = MakeResult();
	const FString Text = FBlueprintReadUtils::ReadBlueprint(
		Json(WithPath(Blueprint,
			R"("read_tool":"read_blueprint_variable","variable_name":["Old"],"finalize_modifications":true)")),
		Finalised);
	EXPECT_TRUE(Text.Contains(TEXT("\"deleted\""))) << ToStd(Text);

	Morvane::FToolResult NoTool = MakeResult();
	EXPECT_EQ(FBlueprintReadUtils::ReadBlueprint(Json(WithPath(Blueprint)), NoTool), TEXT("{}"));
	EXPECT_THAT(Errors(NoTool), testing::ElementsAre("Missing required field 'read_tool'"));
}

TEST(ReadGraph, GuardsStandWhereTheGraphWould)
{
	FGraphBuilder Graph;
	TSet<const UEdGraph*> Visited;
	const TSharedPtr<FJsonObject> Command = Json(R"({"read_tool":"read_blueprint_function"})");
	EXPECT_EQ(JsonText(FBlueprintReadUtils::ReadEdGraph(nullptr, Command)), R"({"error":"Invalid graph provided"})");
	EXPECT_EQ(JsonText(FBlueprintReadUtils::ReadEdGraph(Graph.Get(), Json("{}"))),
		R"({"error":"Missing required field 'read_tool'"})");
	EXPECT_EQ(JsonText(FBlueprintReadUtils::ReadEdGraph(Graph.Get(), Command, 11, Visited)),
		R"({"error":"Maximum recursion depth exceeded","recursion_depth":11})");
	EXPECT_EQ(FBlueprintReadUtils::ReadEdGraph(Graph.Get(), Command, 10, Visited)->HasField(TEXT("error")), false);
	EXPECT_TRUE(Visited.IsEmpty()) << "the set guards a path, it is no memory";
	Visited.Add(Graph.Get());
	EXPECT_EQ(JsonText(FBlueprintReadUtils::ReadEdGraph(Graph.Get(), Command, 2, Visited)),
		R"({"error":"Graph already visited","recursion_depth":2})");
	EXPECT_EQ(JsonText(FBlueprintReadUtils::ReadEventGraph(nullptr, Command, false, {})),
		R"({"error":"Invalid graph provided"})");
	EXPECT_EQ(JsonText(FBlueprintReadUtils::ReadEventGraph(Graph.Get(), Json("{}"), false, {})), "{}");
	const TSharedPtr<FJsonObject> Overview = FBlueprintReadUtils::ReadEdGraph(
		Graph.Get(), Json(R"({"read_tool":"read_blueprint_schema"})"));
	TArray<FString> Keys;
	Overview->Values.GetKeys(Keys);
	EXPECT_THAT(ToStdList(Keys), testing::ElementsAre("name", "class", "schema", "hierarchy_depth", "graph_path"));
}

TEST(ReadGraph, StateMachinesReadToTheDepthLimit)
{
	EverythingBlueprint::SeedIds();
	FBlueprintBuilder Blueprint(TEXT("/Script/Engine.AnimInstance"));
	EverythingBlueprint::FillStateMachines(*Blueprint.Get(), 1);
	ExpectRecorded("StateMachine",
		Content(
			RunRead(&FBlueprintFunctionReadOperation::Execute, WithPath(Blueprint, R"("function_name":"AnimGraph")"))));
}

TEST(ReadGraph, NestingBeyondTheLimitIsCutOff)
{
	FBlueprintBuilder Blueprint(TEXT("/Script/Engine.AnimInstance"));
	EverythingBlueprint::FillStateMachines(*Blueprint.Get(), 6);
	const std::string Text = Content(
		RunRead(&FBlueprintFunctionReadOperation::Execute, WithPath(Blueprint, R"("function_name":"AnimGraph")")));
	EXPECT_NE(Text.find("\"Maximum recursion depth exceeded\""), std::string::npos);
	EXPECT_NE(Text.find("\"hierarchy_depth\": 10"), std::string::npos) << "a graph at the limit still reads";
	EXPECT_EQ(Text.find("\"hierarchy_depth\": 11"), std::string::npos);
}

TEST(EventFlows, PureFeedersBelongAndRequestedNamesMatchByContainment)
{
	FBlueprintBuilder Blueprint;
	EverythingBlueprint::Fill(*Blueprint.Get());
	// Shorter than the title, in another case.
	const std::string Text = Content(RunRead(
		&FBlueprintEventReadOperation::Execute, WithPath(Blueprint, R"("graph_name":"Doors","event_name":"kno")")));
	const size_t Floating = Text.find("\"nodes_not_attached_to_an_event\"", Text.find("\"Doors\""));
	ASSERT_NE(Floating, std::string::npos);
	const size_t Getter = Text.find("\"K2Node_VariableGet\"");
	EXPECT_LT(Getter, Floating) << "a value that the branch takes belongs to the event";
	EXPECT_GT(Text.find("\"K2_DestroyActor\""), Floating);
	EXPECT_EQ(Text.find("EdGraphNode_Comment"), std::string::npos);
}

TEST(EventFlows, NamesAreFoundInTitlesAndTitlesInNames)
{
	FBlueprintBuilder Blueprint;
	const struct
	{
		const char* Name;
		const char* Found;
	} Cases[] = {{"Event BeginPlay", "Event BeginPlay"}, {"beginplay", "Event BeginPlay"},
		{"the EVENT BEGINPLAY of the door", "Event BeginPlay"}, {"nodes_not_attached_to_an_event", ""},
		{"NODES_NOT_ATTACHED_TO_AN_EVENT", ""}};
	for (const auto& Case : Cases)
	{
		const Morvane::FToolResult Result = RunRead(&FBlueprintEventReadOperation::Execute,
			WithPath(Blueprint, R"("graph_name":"EventGraph","event_name":")" + std::string(Case.Name) + "\""));
		EXPECT_THAT(Warnings(Result), testing::IsEmpty()) << Case.Name;
		const std::string Text = Content(Result);
		EXPECT_EQ(Text.find("\"status\""), std::string::npos) << Case.Name << Text;
		EXPECT_EQ(Text.find("\"event_title\": \"Event BeginPlay\"") != std::string::npos, *Case.Found != '\0')
			<< Case.Name << Text;
		EXPECT_NE(Text.find("\"event_title\": \"nodes_not_attached_to_an_event\""), std::string::npos) << Case.Name;
	}
}

TEST(ReadNode, ShortIdsAndTargetClass)
{
	FGraphBuilder Graph;
	const FNodeHandle Node = Graph.Bare();
	Node->NodeGuid = FGuid();
	EXPECT_EQ(FBlueprintNodeUtils::GetShortNodeId(Node), TEXT("0000000"));
	FString Class;
	FBlueprintReadUtils::ExtractTitleTargetClass(TEXT("Destroy Actor\ntarget IS Actor"), Class);
	EXPECT_EQ(ToStd(Class), "Actor");
	FBlueprintReadUtils::ExtractTitleTargetClass(TEXT("Branch"), Class);
	EXPECT_EQ(ToStd(Class), "");
	TSet<const UEdGraph*> Visited;
	EXPECT_EQ(FBlueprintReadUtils::ReadNodeInfo(nullptr, nullptr, 0, Visited), nullptr);
	EXPECT_EQ(FBlueprintReadUtils::ReadPinInfo(nullptr), nullptr);
}
