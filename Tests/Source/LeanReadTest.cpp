// What reads show for an edit to check itself by, and how little of it a lean read and a change's own read take.

#include <functional>
#include <set>

#include "EdGraphSchema_K2.h"
#include "EverythingBlueprint.h"
#include "K2Node_CallFunction.h"
#include "Structuring.h"
#include "WidgetEditing.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace LeanReadTest
{
/** The document that a read tool gives; More stands behind the path. */
static std::string Read(const std::string& Tool, const FString& Path, const std::string& More = "")
{
	const TSharedPtr<Morvane::FToolResult> Result = RunTool(UTF8_TO_TCHAR(("read_blueprint_" + Tool).c_str()),
		R"({"path":")" + ToStd(Path) + "\"" + (More.empty() ? "" : "," + More) + "}");
	EXPECT_THAT(Errors(*Result), IsEmpty());
	return Result->GetDatas() ? ToStd(Result->GetDatas()->GetStringField(TEXT("content"))) : "";
}

static void ForEachObject(const FJsonObject& Object, const std::function<void(const FJsonObject&)>& Visit)
{
	const std::function<void(const FJsonValue&)> Walk = [&](const FJsonValue& Value)
	{
		if (Value.Type == EJson::Object)
		{
			ForEachObject(*Value.AsObject(), Visit);
		}
		else if (Value.Type == EJson::Array)
		{
			for (const TSharedPtr<FJsonValue>& Element : Value.AsArray())
			{
				Walk(*Element);
			}
		}
	};
	Visit(Object);
	for (const auto& Member : Object.Values)
	{
		Walk(*Member.Value);
	}
}

/** The ids of all nodes that the document shows; at the end of a link a node is but named. */
static std::set<std::string> Ids(const std::string& Document)
{
	std::set<std::string> Found;
	ForEachObject(*Json(Document),
		[&](const FJsonObject& Object)
		{
			if (Object.HasField(TEXT("node_guid")) && !Object.HasField(TEXT("pin_name")))
			{
				Found.insert(ToStd(Object.GetStringField(TEXT("node_guid"))));
			}
		});
	return Found;
}

/** A chain of calls behind Begin Play, each with a value, and a branch every tenth node. */
static std::string Chain(int Length)
{
	std::string Nodes = EventNode("n0", "ReceiveBeginPlay");
	std::string Links;
	for (int Index = 1; Index < Length; ++Index)
	{
		const std::string Id = "n" + std::to_string(Index);
		const std::string Number = std::to_string(Index);
		const bool bBranch = Index % 10 == 0;
		Nodes += ","
			+ (bBranch ? R"({"node_guid":")" + Id + R"(","class_name":"K2Node_IfThenElse","menu_title":"Branch"})"
					   : CallNode(Id, "KismetSystemLibrary", "PrintString",
						   R"("pins":[{"name":"InString","value":"step )" + Number + "\"}]"));
		Links += (Links.empty() ? "" : ",") + Link("n" + std::to_string(Index - 1), "then", Id, "execute");
	}
	return R"("nodes":[)" + Nodes + R"(],"connections":[)" + Links + "]";
}

static std::string ContentOf(const Morvane::FToolResult& Result)
{
	return Result.GetModifications().IsEmpty() ? "nothing tracked" : ToStd(Result.GetModifications()[0].Content);
}

constexpr const char* BeginPlay = R"("graph_name":"EventGraph","event_name":"BeginPlay")";
} // namespace LeanReadTest

using namespace LeanReadTest;

TEST(ReadsForEdits, PinsTellObjectsClassesAndTexts)
{
	FPopulating Run;
	Run.Nodes(CallNode("text", "KismetSystemLibrary", "PrintText", R"("pins":[{"name":"InText","value":"Locked!"}])")
		+ ","
		+ CallNode("class", "GameplayStatics", "GetAllActorsOfClass",
			R"("pins":[{"name":"ActorClass","value":"/Script/Engine.Pawn"}])"));
	const std::string Text = Read("event", Run.Blueprint.Path(), BeginPlay);
	EXPECT_THAT(Text, HasSubstr(R"("name":"InText","value":"Locked!")"));
	EXPECT_THAT(Text, HasSubstr(R"("name":"ActorClass","value":"/Script/Engine.Pawn")"));
	EXPECT_THAT(Text, HasSubstr(R"("name":"self","value":"","direction":"Input")")) << "of a library's function";
}

TEST(ReadsForEdits, FunctionsTellSignatureAccessCategoryAndLocals)
{
	FPopulating Run;
	RunTool(TEXT("bp_create_graph"),
		R"({"path":")" + ToStd(Run.Blueprint.Path())
			+ R"(","functions":[{"name":"Open","parameters":[{"name":"Key","type":{"category":"name"}}],
			"return_type":{"category":"bool"}}]})");
	Run.Populate(R"("local_variables":{"Tries":{"type":{"category":"int"},"default_variable_value":"3"}},"nodes":[)"
			+ CallNode("p", "KismetSystemLibrary", "PrintString") + "]",
		"Open");
	RunTool(TEXT("bp_modify_graph_nodes"),
		R"({"path":")" + ToStd(Run.Blueprint.Path()) + R"(","blueprint_name":")" + ToStd(Run.Blueprint.Path())
			+ R"(","graph_name":"Open","is_pure":true})");
	const std::string Text = Read("function", Run.Blueprint.Path(), R"("function_name":"open")");
	for (const char* const Told :
		{R"("return_type":{"name":"ReturnValue","type":{"category":"bool"}})", R"("is_pure":true)",
			R"("in_params":[{"name":"Key","type":{"category":"name"}}])", R"("access":"public")", R"("category":"")",
			R"("local_variables":[{"name":"Tries","type":{"category":"int"},"default_variable_value":"3"}])"})
	{
		EXPECT_THAT(Text, HasSubstr(Told));
	}
}

TEST(ReadsForEdits, NodesTellWhatTheyAreAbout)
{
	FPopulating Run;
	Run.Nodes(LooseNode("loop", "For Each Loop", R"("class_name":"K2Node_MacroInstance")")
		+ R"(,{"node_guid":"bind","class_name":"K2Node_CreateDelegate","node_metadata":{"binding_function":"Knock"}})"
		+ R"(,{"node_guid":"cast","class_name":"K2Node_DynamicCast","target_class":"Character","target_function":"x"})"
		+ R"(,{"node_guid":"knock","class_name":"K2Node_CustomEvent",
			"node_metadata":{"event_name":"Knock","replicates":"server","reliable":true}},)"
		+ CallNode("off", "KismetSystemLibrary", "PrintString"));
	FPopulating::FindNode<UK2Node_CallFunction>(Run.Blueprint.EventGraph().Get())
		->SetEnabledState(ENodeEnabledState::Disabled);
	const std::string Text = Read("event", Run.Blueprint.Path(), R"("graph_name":"EventGraph","event_name":"Knock")");
	for (const char* const Told : {R"("macro_name":"ForEachLoop")",
			 R"("macro_path":"/Engine/EditorBlueprintResources/StandardMacros.StandardMacros:ForEachLoop")",
			 R"("function_name":"Knock")", R"("target_class":"/Script/Engine.Character")",
			 R"("replicates":"server","reliable":true)", R"("enabled_state":"disabled")"})
	{
		EXPECT_THAT(Text, HasSubstr(Told));
	}
	EXPECT_THAT(Text, Not(HasSubstr("development_only"))) << "which such functions are from the start";
}

TEST(ReadsForEdits, HeirsTellWhereAMemberComesFromAndNativeComponentsHaveTwoNames)
{
	FStructuring Base(TEXT("/Script/Engine.Character"));
	Base.Variables(R"("Health":{"action":"add","type":{"category":"int"}})");
	Base.Components(R"({"name":"Sword","type":"StaticMeshComponent","attach_to":"Mesh",
		"properties":{"relative_location":{"x":1,"y":2,"z":3},"bHiddenInGame":true}})");
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Heir","blueprint_parent_class":{"type":"blueprint","parent_path":")"
			+ ToStd(Base.Blueprint.Path()) + R"("}})");
	const FString Heir = TEXT("/Game/Tests/BP_Heir");
	const std::string Schema = Read("schema", Heir);
	EXPECT_THAT(Schema, HasSubstr(R"("type":"blueprint","name":"BP_Test","path":"/Game/Tests/BP_Test.BP_Test_C")"));
	EXPECT_THAT(Schema, HasSubstr(R"("config":false,"inherited":true,"inherited_from":"BP_Test_C")"));
	EXPECT_THAT(Schema,
		HasSubstr(R"({"name":"CharacterMesh0","class_name":"SkeletalMeshComponent","variable_name":"Mesh",)"
				  R"("inherited":true,"inherited_from":"Character"})"));
	EXPECT_THAT(Schema,
		HasSubstr(R"({"name":"Arrow","class_name":"ArrowComponent","inherited":true,"inherited_from":"Character"})"));
	EXPECT_THAT(Read("schema", Base.Blueprint.Path()), Not(HasSubstr(R"("inherited_from":"BP_Test_C")")));

	for (const char* const Name : {"Mesh", "mesh", "CharacterMesh0"})
	{
		const std::string One = Read("component", Heir, std::string(R"("component_name":")") + Name + "\"");
		EXPECT_THAT(One, HasSubstr(R"("children":["Sword"])")) << Name;
		EXPECT_THAT(One, Not(HasSubstr("not_found"))) << Name;
	}
	const std::string Sword = Read("component", Heir, R"("component_name":"Sword")");
	EXPECT_THAT(Sword, HasSubstr(R"("relative_location":{"x":1,"y":2,"z":3})"));
	EXPECT_THAT(Sword, HasSubstr(R"("properties":{"bHiddenInGame":"True"})"));
}

TEST(ReadsForEdits, UnknownWidgetsAreTold)
{
	FWidgetEditing Edit;
	Edit.Tree("/Script/UMG.CanvasPanel");
	const TSharedPtr<Morvane::FToolResult> Result = RunTool(TEXT("read_blueprint_widget_tree"),
		R"({"path":")" + ToStd(Edit.Blueprint.Path()) + R"(","widget_name":["Root","Nope"]})");
	EXPECT_THAT(Warnings(*Result), ElementsAre("'Nope' widget does not exist in Widget Blueprint: BP_Test"));
	EXPECT_THAT(Successes(*Result), SizeIs(1));
}

TEST(LeanReads, KeepIdsLinksAndValuesInFortyPerCent)
{
	FPopulating Run;
	Run.Populate(Chain(60));
	const std::string Full = Read("event", Run.Blueprint.Path(), BeginPlay);
	const std::string Lean = Read("event", Run.Blueprint.Path(), std::string(BeginPlay) + R"(,"detail":"Lean")");
	EXPECT_LT(Lean.size() * 10, Full.size() * 4);
	EXPECT_EQ(Ids(Lean), Ids(Full));
	EXPECT_EQ(Read("event", Run.Blueprint.Path(), std::string(BeginPlay) + R"(,"detail":"full")"), Full);
	EXPECT_THAT(Lean, HasSubstr("step 59"));

	std::set<std::string> Types;
	int NumTypes = 0;
	int NumLinks = 0;
	ForEachObject(*Json(Lean),
		[&](const FJsonObject& Object)
		{
			FString Type;
			if (Object.TryGetStringField(TEXT("type"), Type))
			{
				Types.insert(ToStd(Type));
				++NumTypes;
			}
			if (Object.HasField(TEXT("name")) && !Object.HasField(TEXT("event_flows")))
			{
				NumLinks += Object.HasField(TEXT("connections"));
				EXPECT_TRUE(Object.HasField(TEXT("connections")) || Object.HasField(TEXT("value")));
			}
		});
	EXPECT_EQ(NumTypes, static_cast<int>(Types.size())) << "each type once";
	EXPECT_EQ(NumLinks, 59 * 2) << "each link at both ends";
}

TEST(LeanReads, EveryReadToolTakesThem)
{
	EverythingBlueprint::SeedIds();
	FBlueprintBuilder Blueprint;
	EverythingBlueprint::Fill(*Blueprint.Get());
	struct FCase
	{
		const char* Tool;
		const char* More;
		size_t MostPercent = 40;
	};
	for (const FCase& Case : {FCase{"variable", R"("variable_name":"Health")", 56},
			 {"component", R"("component_name":"Lamp")", 46}, {"function", R"("function_name":"OpenBy")"},
			 {"interface", R"("interface_name":"MovieSceneEasingFunction")"},
			 {"event", R"("graph_name":"Doors","event_name":"Knock")"}, {"timeline", R"("timeline_name":"Swing")", 50},
			 {"delegate", R"("delegate_name":"OnOpened")"}, {"macro", R"("macro_name":"Twice")", 45}, {"schema", ""}})
	{
		const std::string Full = Read(Case.Tool, Blueprint.Path(), Case.More);
		const std::string More = Case.More + std::string(*Case.More ? "," : "");
		const std::string Lean = Read(Case.Tool, Blueprint.Path(), More + R"("detail":"lean")");
		EXPECT_THAT(Lean, HasSubstr(R"("detail":"lean")")) << Case.Tool;
		EXPECT_EQ(Ids(Lean), Ids(Full)) << Case.Tool;
		// What is content and not form stays: a document of little else stays long.
		EXPECT_LE(Lean.size() * 100, Full.size() * Case.MostPercent) << Case.Tool << "\n" << Lean << "\n" << Full;
	}
}

TEST(LeanReads, WidgetsTellWhatSomebodySet)
{
	FWidgetEditing Edit;
	Edit.Tree("/Script/UMG.CanvasPanel",
		R"({"name":"Title","class":"TextBlock","parent":"Root","action":"add","properties":{"Text":"Hi"}})");
	const std::string Text = Read("widget_tree", Edit.Blueprint.Path(), R"("widget_name":"Title","detail":"lean")");
	EXPECT_THAT(Text, HasSubstr(R"("properties":{"Text":)"));
	EXPECT_THAT(Text, Not(HasSubstr("ShadowOffset")));
}

TEST(FreshReads, GrowNoLongerThanAnAnswerCanBear)
{
	struct FCase
	{
		const char* Label;
		int Nodes;
		bool bLean;
		bool bNote;
	};
	for (const FCase& Case :
		{FCase{"in full", 20, false, false}, {"lean", 100, true, false}, {"narrowed", 400, true, true}})
	{
		SCOPED_TRACE(Case.Label);
		FPopulating Run;
		Run.Populate(Chain(Case.Nodes));
		const std::string Last = Run.GuidOf("n" + std::to_string(Case.Nodes - 1));
		Run.Populate(R"("nodes":[)" + CallNode("x", "KismetSystemLibrary", "PrintString") + R"(],"connections":[)"
			+ Link(Last, "then", "x", "execute") + "]");
		const std::string Content = ContentOf(*Run.Result);
		const std::string New = Run.GuidOf("x").substr(0, 7);
		EXPECT_LE(Content.size(), 64u * 1024);
		EXPECT_TRUE(Ids(Content).contains(New)) << Content.substr(0, 500);
		EXPECT_EQ(Content.find(R"("detail":"lean","graphs")") != std::string::npos, Case.bLean);
		EXPECT_EQ(Ids(Content).size(), Case.bNote ? 2u : Case.Nodes + 1u);
		if (Case.bNote)
		{
			EXPECT_THAT(Content,
				HasSubstr(R"("calls":[{"tool":"read_blueprint_event","arguments":{"path":"/Game/Tests/BP_Test",)"
						  R"("graph_name":"EventGraph","event_name":"Event BeginPlay","detail":"lean"}}])"));
			EXPECT_THAT(Content, HasSubstr(R"("nodes_left_out":399)"));
			EXPECT_LT(Content.size(), 12'000u);
		}
	}
}

TEST(FreshReads, APastedThousandIsANoteWithTheCall)
{
	FPopulating Run;
	Run.Populate(Chain(1000));
	const std::string Content = ContentOf(*Run.Result);
	EXPECT_LT(Content.size(), 1000u);
	EXPECT_THAT(Content, HasSubstr("too many for this answer"));
	EXPECT_THAT(Content, HasSubstr(R"("event_name":"Event BeginPlay")"));

	// Once the last node is gone, what it was linked to shows that.
	const std::string Last = Run.GuidOf("n999");
	const TSharedPtr<Morvane::FToolResult> Removal = RunTool(TEXT("bp_modify_graph_nodes"),
		R"({"path":")" + ToStd(Run.Blueprint.Path()) + R"(","blueprint_name":"BP_Test","graph_name":"EventGraph",
		"nodes":[{"action":"remove","node_guid":")"
			+ Last + "\"}]}");
	const std::set<std::string> Shown = Ids(ContentOf(*Removal));
	EXPECT_THAT(Shown, ElementsAre(Run.GuidOf("n998").substr(0, 7)));
}

TEST(FreshReads, FloatingNodesAreShownOnceBesideTheEvents)
{
	FPopulating Run;
	Run.Populate(R"("nodes":[)" + EventNode("e", "ReceiveBeginPlay") + "," + CallNode("p", "Actor", "K2_DestroyActor")
		+ R"(],"connections":[)" + Link("e", "then", "p", "execute") + "]");
	const std::string Event = Run.GuidOf("e");
	const std::string Call = Run.GuidOf("p");
	const TSharedPtr<Morvane::FToolResult> Cut = RunTool(TEXT("bp_remove_graph_connections"),
		R"({"path":")" + ToStd(Run.Blueprint.Path()) + R"(","blueprint_name":"BP_Test","graph_name":"EventGraph",
		"connections":[{"action":"remove","source_node_guid":")"
			+ Event + R"(","source_pin_name":"then",
		"target_node_guid":")"
			+ Call + R"(","target_pin_name":"execute"}]})");
	ASSERT_EQ(Cut->GetModifications().Num(), 2);
	EXPECT_THAT(Ids(ContentOf(*Cut)), testing::UnorderedElementsAre(Call.substr(0, 7), Event.substr(0, 7)));
	EXPECT_EQ(ToStd(Cut->GetModifications()[1].Content),
		R"({"path":"/Game/Tests/BP_Test","note":"These nodes stand in the document before this one, beside its events."})");
}

TEST(ReadsForEdits, InterfacesAnswerToTheirAsset)
{
	FStructuring Case;
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BPI_Use","blueprint_parent_class":{"type":"native",
		"parent_path":"/Script/CoreUObject.Interface"}})");
	Case.Interfaces(R"({"name":"/Game/Tests/BPI_Use"})");
	for (const char* const Name :
		{"BPI_Use", "BPI_Use_C", "/Game/Tests/BPI_Use", "/Game/Tests/BPI_Use.BPI_Use_C", "bpi_use"})
	{
		const std::string Text = Read(
			"interface", Case.Blueprint.Path(), std::string(R"("interface_name":")") + Name + "\"");
		EXPECT_THAT(Text, HasSubstr(R"("interfaces":[{"name":"BPI_Use_C")")) << Name;
		EXPECT_THAT(Text, Not(HasSubstr("not_found"))) << Name;
	}
}
