// Pins and values by the names and in the forms that people read off the editor.

#include "Utils/Graph/LooseNames.h"
#include "EdGraphSchema_K2.h"
#include "Populating.h"
#include "Utils/Graph/PinConnections.h"

#include <span>

using testing::ElementsAre;
using testing::IsEmpty;

namespace LooseNamesTest
{
static UEdGraphNode* Find(const FPopulating& Run, const std::string& Id)
{
	const std::string Guid = Run.GuidOf(Id);
	for (UEdGraphNode* const Node : Run.Blueprint->UbergraphPages[0]->Nodes)
	{
		if (ToStd(Node->NodeGuid.ToString()) == Guid)
		{
			return Node;
		}
	}
	return nullptr;
}

static std::string NameOf(const UEdGraphPin* Pin)
{
	return Pin ? ToStd(Pin->PinName.ToString()) : "none";
}

struct FLookup
{
	const char* Node;
	EEdGraphPinDirection Direction;
	const char* Asked;
	const char* Found;
};

using FFindPin = UEdGraphPin* (*)(const UEdGraphNode& Node, const FString& Name, EEdGraphPinDirection Direction);

static void ExpectFound(const FPopulating& Run, std::span<const FLookup> Lookups, FFindPin FindPin)
{
	for (const FLookup& Lookup : Lookups)
	{
		const UEdGraphNode* const Node = Find(Run, Lookup.Node);
		ASSERT_NE(Node, nullptr) << Lookup.Node;
		EXPECT_EQ(NameOf(FindPin(*Node, UTF8_TO_TCHAR(Lookup.Asked), Lookup.Direction)), Lookup.Found)
			<< Lookup.Node << "." << Lookup.Asked;
	}
}
} // namespace LooseNamesTest

using namespace LooseNamesTest;

TEST(LooseNames, TheLastWordsOfANameStandForItWhereNoOtherPinEndsSo)
{
	FPopulating Run(TEXT("/Script/Engine.Character"));
	Run.Nodes(CallNode("print", "KismetSystemLibrary", "PrintString") + ","
		+ CallNode("move", "Actor", "K2_SetActorLocation") + "," + CallNode("life", "Actor", "SetLifeSpan") + ","
		+ CallNode("hurt", "GameplayStatics", "ApplyDamage") + ","
		+ CallNode("sum", "KismetMathLibrary", "Add_IntInt"));
	const FLookup Lookups[] = {
		{"life", EGPD_Input, "Lifespan", "InLifespan"},
		{"life", EGPD_Input, "span", "none"},
		{"move", EGPD_Input, "Location", "NewLocation"},
		{"move", EGPD_Input, "Actor New Location", "NewLocation"},
		{"move", EGPD_Output, "Location", "none"},
		{"print", EGPD_Input, "Print Duration", "Duration"},
		{"print", EGPD_Input, "color", "TextColor"},
		{"print", EGPD_Input, "Text", "none"},
		{"hurt", EGPD_Input, "Actor", "DamagedActor"},
		{"hurt", EGPD_Input, "Class", "DamageTypeClass"},
		{"sum", EGPD_Input, "value A", "none"},
		{"sum", EGPD_Input, "execute", "none"},
	};
	ExpectFound(Run, Lookups,
		[](const UEdGraphNode& Node, const FString& Name, EEdGraphPinDirection Direction)
		{ return FBlueprintPinUtils::FindPinWithAliases(&Node, Name, Direction, nullptr); });
}

TEST(LooseNames, OnePinIsFoundByWhatTheEditorShowsOrItIsFor)
{
	FPopulating Run(TEXT("/Script/Engine.Character"));
	Run.Nodes(CallNode("print", "KismetSystemLibrary", "PrintString") + "," + LooseNode("wait", "Delay") + ","
		+ LooseNode("row", "Sequence") + "," + LooseNode("each", "For Each Loop") + "," + LooseNode("if", "Branch")
		+ "," + CallNode("move", "Actor", "K2_SetActorLocation") + ","
		+ CallNode("sum", "KismetMathLibrary", "Add_IntInt")
		+ R"(,{"node_guid":"cast","class_name":"K2Node_DynamicCast","target_class":"Pawn","target_function":"any"})");
	const FLookup Lookups[] = {
		{"print", EGPD_Input, "In String", "InString"},
		{"print", EGPD_Input, "print to log", "bPrintToLog"},
		{"print", EGPD_Input, "PrintToScreen", "bPrintToScreen"},
		{"print", EGPD_Input, "Text_Color", "TextColor"},
		{"print", EGPD_Input, "exec", "execute"},
		{"print", EGPD_Output, "Exec", "then"},
		{"print", EGPD_Output, "In String", "none"},
		{"print", EGPD_Output, "Completed", "none"},
		{"wait", EGPD_Output, "Completed", "then"},
		{"row", EGPD_Output, "Then 1", "then_1"},
		{"row", EGPD_Output, "exec", "none"},
		{"each", EGPD_Output, "Loop Body", "LoopBody"},
		{"each", EGPD_Output, "Index", "Array Index"},
		{"each", EGPD_Output, "array_element", "Array Element"},
		{"if", EGPD_Input, "value", "Condition"},
		{"move", EGPD_Input, "new location", "NewLocation"},
		{"move", EGPD_Input, "bsweep", "bSweep"},
		{"move", EGPD_Input, "value", "none"},
		{"move", EGPD_Input, "", "none"},
		{"sum", EGPD_Output, "Result", "ReturnValue"},
		{"cast", EGPD_Output, "Cast Failed", "CastFailed"},
		{"cast", EGPD_Output, "As Pawn", "AsPawn"},
		{"cast", EGPD_Output, "result", "AsPawn"},
	};
	ExpectFound(Run, Lookups, &LooseNames::FindPin);
}

TEST(LooseNames, LinksAndValuesOfACallFindTheirPins)
{
	FPopulating Run;
	Run.Populate(R"("nodes":[)" + LooseNode("wait", "Delay", R"("pins":[{"name":"duration","value":3}])") + ","
		+ LooseNode("row", "Sequence") + ","
		+ CallNode("print", "KismetSystemLibrary", "PrintString",
			R"("pins":[{"name":"In String","value":"Hello"},{"name":"Print to Log","value":false}])")
		+ R"(],"connections":[)" + Link("wait", "Completed", "row", "In") + "," + Link("row", "Then 1", "print", "Exec")
		+ "]");
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	EXPECT_EQ(Run.Data(TEXT("connections_created")), "2");
	EXPECT_EQ(Run.Told(TEXT("pin_direction_fallbacks")), "") << "the direction was the one asked for";
	EXPECT_EQ(ToStd(Find(Run, "print")->FindPin(TEXT("InString"))->DefaultValue), "Hello");
	EXPECT_EQ(ToStd(Find(Run, "print")->FindPin(TEXT("bPrintToLog"))->DefaultValue), "false");
	EXPECT_EQ(NameOf(Find(Run, "print")->FindPin(TEXT("execute"))->LinkedTo[0]), "then_1");
}

TEST(AuthoredValues, EveryFormOfAStructIsTakenOrRefusedWithTheForm)
{
	const struct
	{
		const char* Function;
		const char* Pin;
		const char* Value;
		const char* Held;
	} Cases[] = {
		{"K2_SetActorLocation", "NewLocation", R"("0,90,0")", "0,90,0"},
		{"K2_SetActorLocation", "NewLocation", "\"(X=1,Y=2,Z=3)\"", "1.000000,2.000000,3.000000"},
		{"K2_SetActorLocation", "NewLocation", R"("X=1 Y=2 Z=3")", "1.000000,2.000000,3.000000"},
		{"K2_SetActorLocation", "NewLocation", R"([1,2,3.5])", "1.000000,2.000000,3.500000"},
		{"K2_SetActorLocation", "NewLocation", R"({"x":1,"z":3})", "1.000000,0,3.000000"},
		{"K2_SetActorLocation", "NewLocation", R"("1,2")", ""},
		{"K2_SetActorLocation", "NewLocation", R"({"length":1})", ""},
		{"K2_SetActorRotation", "NewRotation", R"({"Yaw":90})", "0,90.000000,0"},
		{"K2_SetActorRotation", "NewRotation", R"([0,90,0])", "0,90.000000,0"},
	};
	for (const auto& Case : Cases)
	{
		FPopulating Run;
		Run.Nodes(CallNode("n", "Actor", Case.Function,
			std::string(R"("pins":[{"name":")") + Case.Pin + R"(","value":)" + Case.Value + "}]"));
		const UEdGraphPin* const Pin = Find(Run, "n")->FindPin(UTF8_TO_TCHAR(Case.Pin));
		const bool bRefused = std::string(Case.Held).empty();
		EXPECT_EQ(Warnings(*Run.Result).size(), bRefused ? 2U : 0U)
			<< Case.Value << testing::PrintToString(Warnings(*Run.Result));
		if (bRefused)
		{
			EXPECT_THAT(Warnings(*Run.Result).back(), testing::HasSubstr("It is written (X=...,Y=...,Z=...)."))
				<< Case.Value;
			continue;
		}
		EXPECT_EQ(ToStd(Pin->DefaultValue), Case.Held) << Case.Value;
	}
}

TEST(AuthoredValues, ColorsAndEnumEntriesAreTakenAsTheyAreShown)
{
	FPopulating Run;
	Run.Nodes(
		CallNode("print", "KismetSystemLibrary", "PrintString", R"("pins":[{"name":"TextColor","value":[1,0.5,0]}])")
		+ ","
		+ CallNode("attach", "Actor", "K2_AttachToActor",
			R"("pins":[{"name":"LocationRule","value":"Keep World"},{"name":"RotationRule","value":"snap to target"}])"));
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	EXPECT_EQ(ToStd(Find(Run, "print")->FindPin(TEXT("TextColor"))->DefaultValue), "(R=1,G=0.5,B=0,A=1.0)");
	EXPECT_EQ(ToStd(Find(Run, "attach")->FindPin(TEXT("LocationRule"))->DefaultValue), "KeepWorld");
	EXPECT_EQ(ToStd(Find(Run, "attach")->FindPin(TEXT("RotationRule"))->DefaultValue), "SnapToTarget");
}

TEST(AuthoredValues, AreTakenByNodesThatStandAlready)
{
	FPopulating Run;
	Run.Nodes(CallNode("n", "Actor", "K2_SetActorLocation"));
	const std::string Id = Run.GuidOf("n");
	const TSharedPtr<Morvane::FToolResult> Result = RunTool(TEXT("bp_modify_graph_nodes"),
		R"({"path":"/Game/Tests/BP_Test","blueprint_name":"/Game/Tests/BP_Test","graph_name":"EventGraph","nodes":[{"action":"modify","node_guid":")"
			+ Id
			+ R"(","pins":[{"action":"modify","name":"New Location","value":[1,2,3]},{"action":"modify","name":"bSweep","value":true}]}]})");
	EXPECT_THAT(Warnings(*Result), IsEmpty());
	EXPECT_EQ(ToStd(Find(Run, "n")->FindPin(TEXT("NewLocation"))->DefaultValue), "1.000000,2.000000,3.000000");
	EXPECT_EQ(ToStd(Find(Run, "n")->FindPin(TEXT("bSweep"))->DefaultValue), "true");
}

TEST(LooseNames, EventsAndParentCallsTakeTheNamesThatAreShown)
{
	FPopulating Run;
	for (const char* const Name : {"ReceiveTick", "Tick", "Event Tick", "event tick"})
	{
		Run.Nodes(EventNode("e", Name));
		EXPECT_THAT(Errors(*Run.Result), IsEmpty()) << Name;
		EXPECT_EQ(ToStd(Find(Run, "e")->GetNodeTitle(ENodeTitleType::FullTitle).ToString()), "Event Tick") << Name;
	}
	for (const char* const Name :
		{"ReceiveBeginPlay", "BeginPlay", "Event BeginPlay", "Parent: BeginPlay", "Begin Play"})
	{
		Run.Nodes(std::string(R"({"node_guid":"p","class_name":"K2Node_CallParentFunction","target_function":")") + Name
			+ R"("})");
		EXPECT_THAT(Warnings(*Run.Result), IsEmpty()) << Name;
		EXPECT_EQ(Run.Data(TEXT("nodes_created")), "1") << Name;
	}
	Run.Nodes(EventNode("e", "Moonlight"));
	EXPECT_THAT(Errors(*Run.Result), ElementsAre("Event 'Moonlight' not found on class 'Actor'"));
}
