// What becomes of pasted nodes in a graph that has nodes, rules and a class of its own.

#include "BlueprintBuilder.h"
#include "ClipboardText.h"
#include "EdGraphSchema_K2.h"
#include "Engine/TimelineTemplate.h"
#include "GraphText.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Composite.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_Timeline.h"
#include "K2Node_Tunnel.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/KismetEditorUtilities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ClipboardSettlingTests
{
using namespace ClipboardTests;
using testing::HasSubstr;

/** A pin's line; ids are its number. */
static std::string Pin(int Id, const std::string& Name, const std::string& Category, const std::string& Rest = {})
{
	char Guid[33];
	std::snprintf(Guid, sizeof(Guid), "%032X", Id);
	return "   CustomProperties Pin (PinId=" + std::string(Guid) + ",PinName=\"" + Name + "\"," + Rest
		+ "PinType.PinCategory=\"" + Category + "\",)\n";
}

static std::string Link(const std::string& Node, int Id)
{
	char Guid[33];
	std::snprintf(Guid, sizeof(Guid), "%032X", Id);
	return "LinkedTo=(" + Node + " " + Guid + ",),";
}

static std::string Node(const std::string& Class, const std::string& Name, const std::string& Lines)
{
	return "Begin Object Class=/Script/BlueprintGraph." + Class + " Name=\"" + Name + "\"\n" + Lines + "End Object\n";
}

const std::string Out = "Direction=\"EGPD_Output\",";

const std::string BeginPlay =
	Node("K2Node_Event", "K2Node_Event_7",
		"   EventReference=(MemberParent=\"/Script/CoreUObject.Class'/Script/Engine.Actor'\",MemberName=\"ReceiveBeginPlay\")\n"
		"   bOverrideFunction=True\n   NodePosX=64\n"
			+ Pin(1, "then", "exec", Out + Link("K2Node_IfThenElse_0", 2)))
	+ Node("K2Node_IfThenElse", "K2Node_IfThenElse_0",
		Pin(2, "execute", "exec", Link("K2Node_Event_7", 1)) + Pin(3, "Condition", "bool", "DefaultValue=\"false\","));

static int32 CountEvents(const UEdGraph* Graph, const TCHAR* Name)
{
	TArray<UK2Node_Event*> Events;
	Graph->GetNodesOfClass(Events);
	int32 Count = 0;
	for (const UK2Node_Event* const Event : Events)
	{
		Count += Event->GetFunctionName() == FName(Name);
	}
	return Count;
}
} // namespace ClipboardSettlingTests

using namespace ClipboardSettlingTests;

TEST(ClipboardSettling, AnEventTakesTheGhostsPlace)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	ASSERT_EQ(CountEvents(Graph, TEXT("ReceiveBeginPlay")), 1);
	const TArray<UEdGraphNode*> Nodes = Paste(Graph, BeginPlay);
	ASSERT_EQ(Nodes.Num(), 2);
	EXPECT_EQ(CountEvents(Graph, TEXT("ReceiveBeginPlay")), 1);
	EXPECT_TRUE(Nodes[0]->IsNodeEnabled());
}

TEST(ClipboardSettling, AnEventBesideTheSameOneBecomesACustomEvent)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	Paste(Graph, BeginPlay);
	FWarnings Warnings;
	std::string Commented = BeginPlay;
	Commented.insert(Commented.find("   NodePosX=64"), "   NodeComment=\"Why\"\n   bCommentBubbleVisible=True\n");
	const TArray<UEdGraphNode*> Nodes = Paste(Graph, Commented, &Warnings);
	EXPECT_EQ(CountEvents(Graph, TEXT("ReceiveBeginPlay")), 1);
	EXPECT_EQ(CountEvents(Graph, TEXT("ReceiveBeginPlay_Event")), 1);
	EXPECT_THAT(Warnings.Lines,
		testing::ElementsAre(
			"The Blueprint has the event 'ReceiveBeginPlay' already; the pasted one becomes the custom "
			"event 'ReceiveBeginPlay_Event'"));
	ASSERT_EQ(Nodes.Num(), 2);
	const UEdGraphPin* const Execute = Nodes[0]->FindPin(TEXT("execute"));
	ASSERT_NE(Execute, nullptr);
	ASSERT_EQ(Execute->LinkedTo.Num(), 1);
	const UEdGraphNode* const Custom = Execute->LinkedTo[0]->GetOwningNode();
	EXPECT_EQ(Custom, Nodes[1]);
	EXPECT_TRUE(Custom->IsA<UK2Node_CustomEvent>());
	EXPECT_EQ(Custom->NodePosX, 64);
	EXPECT_EQ(ToStd(Custom->NodeComment), "Why");
	EXPECT_TRUE(Custom->bCommentBubbleVisible);
	EXPECT_TRUE(Blueprint.Compiles());
}

TEST(ClipboardSettling, CustomEventsGetNamesOfTheirOwn)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	UK2Node_CustomEvent* const Event = Blueprint.EventGraph().Add<UK2Node_CustomEvent>();
	Event->CustomFunctionName = TEXT("Ring");
	const std::string Text = Copy({Event});
	const TArray<UEdGraphNode*> Nodes = Paste(Graph, Text);
	ASSERT_EQ(Nodes.Num(), 1);
	EXPECT_NE(Cast<UK2Node_CustomEvent>(Nodes[0])->CustomFunctionName, FName(TEXT("Ring")));
	EXPECT_EQ(Event->CustomFunctionName, FName(TEXT("Ring")));
}

TEST(ClipboardSettling, TheFunctionsEntryTakesTheLinksOfAPastedOne)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.Function(TEXT("Target")).Get();
	const UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph);
	const TArray<UEdGraphNode*> Nodes = Paste(Graph, ReadTestData("Graphs/construction-lights.txt"));
	TArray<UK2Node_FunctionEntry*> Entries;
	Graph->GetNodesOfClass(Entries);
	ASSERT_EQ(Entries.Num(), 1);
	EXPECT_EQ(Entries[0], Entry);
	EXPECT_EQ(Entry->NodePosY, -80);
	const UEdGraphPin* const Then = Entry->FindPin(TEXT("then"));
	ASSERT_EQ(Then->LinkedTo.Num(), 1);
	EXPECT_TRUE(Nodes.Contains(Then->LinkedTo[0]->GetOwningNode()));
}

TEST(ClipboardSettling, NodesInTheWrongKindOfGraphAreKeptAndNamed)
{
	const FBlueprintBuilder Blueprint;
	const struct
	{
		UEdGraph* Graph;
		std::string Text;
		const char* Warning;
	} Cases[] = {
		{Blueprint.EventGraph().Get(), Node("K2Node_FunctionEntry", "E", Pin(1, "then", "exec", Out)), "'E' ("},
		{Blueprint.Function(TEXT("F")).Get(), BeginPlay,
			"'K2Node_Event_7' (Event BeginPlay) does not belong in the graph 'F'"},
		{Blueprint.Function(TEXT("G")).Get(),
			Node("K2Node_InputKey", "K", "   InputKey=F\n" + Pin(1, "Pressed", "exec", Out)),
			"'K' (F) does not belong in the graph 'G'"},
	};
	for (const auto& Case : Cases)
	{
		FWarnings Warnings;
		const TArray<UEdGraphNode*> Nodes = Paste(Case.Graph, Case.Text, &Warnings);
		ASSERT_GE(Nodes.Num(), 1) << Case.Warning;
		EXPECT_EQ(Nodes[0]->Pins.Num(), 1) << Case.Warning << ": the pins of the text and no others";
		EXPECT_THAT(
			Warnings.Lines, testing::Contains(testing::AllOf(HasSubstr(Case.Warning), HasSubstr("does not belong"))));
	}
}

TEST(ClipboardSettling, PinsAreThoseThatTheNodeHasToday)
{
	const FBlueprintBuilder Blueprint;
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(),
		Node("K2Node_CallFunction", "Print",
			"   FunctionReference=(MemberParent=Class'\"/Script/Engine.KismetSystemLibrary\"',MemberName=\"PrintString\")\n"
				+ Pin(1, "execute", "exec") + Pin(2, "then", "exec", Out)
				+ Pin(3, "InString", "string", "DefaultValue=\"Hi\",AutogeneratedDefaultValue=\"Hello\",bShiny=True,")
				+ Pin(4, "Volume", "int", "DefaultValue=\"7\",AutogeneratedDefaultValue=\"0\",")
				+ Pin(5, "Forgotten", "int", "DefaultValue=\"0\",AutogeneratedDefaultValue=\"0\",")
				+ Pin(6, "Done", "exec", Out + Link("Branch", 7)))
			+ Node("K2Node_IfThenElse", "Branch", Pin(7, "execute", "exec", Link("Print", 6))));
	ASSERT_EQ(Nodes.Num(), 2);
	const UEdGraphNode* const Print = Nodes[0];
	EXPECT_EQ(Print->FindPin(TEXT("InString"))->DefaultValue, TEXT("Hi"));
	EXPECT_THAT(Copy(Nodes), HasSubstr("bShiny=True")) << "an unknown field of a pin stays";
	ASSERT_NE(Print->FindPin(TEXT("Duration")), nullptr) << "the text was written before there was one";
	EXPECT_EQ(Print->FindPin(TEXT("Duration"))->DefaultValue, TEXT("2.000000"));
	EXPECT_EQ(Print->FindPin(TEXT("Forgotten")), nullptr) << "nobody would miss it";
	const UEdGraphPin* const Volume = Print->FindPin(TEXT("Volume"));
	ASSERT_NE(Volume, nullptr);
	EXPECT_TRUE(Volume->bOrphanedPin);
	EXPECT_EQ(Volume->DefaultValue, TEXT("7"));
	const UEdGraphPin* const Done = Print->FindPin(TEXT("Done"));
	ASSERT_NE(Done, nullptr);
	EXPECT_TRUE(Done->bOrphanedPin);
	ASSERT_EQ(Done->LinkedTo.Num(), 1);
	EXPECT_EQ(Done->LinkedTo[0]->GetOwningNode(), Nodes[1]);
	EXPECT_NE(Nodes[1]->FindPin(TEXT("Condition")), nullptr);
}

TEST(ClipboardSettling, CallsOfEventsThatCameWithThemAreKnown)
{
	const FBlueprintBuilder Blueprint;
	FWarnings Warnings;
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(),
		Node("K2Node_CallFunction", "Call",
			"   FunctionReference=(MemberName=\"Ring\",bSelfContext=True)\n" + Pin(1, "execute", "exec"))
			+ Node("K2Node_CustomEvent", "Event",
				"   CustomFunctionName=\"Ring\"\n" + Pin(2, "then", "exec", Out)
					+ "   CustomProperties UserDefinedPin (PinName=\"Loudness\",PinType=(PinCategory=\"int\"),"
					  "DesiredPinDirection=EGPD_Output)\n"));
	ASSERT_EQ(Nodes.Num(), 2);
	EXPECT_THAT(Warnings.Lines, testing::IsEmpty());
	EXPECT_NE(Nodes[0]->FindPin(TEXT("Loudness")), nullptr);
	EXPECT_TRUE(Blueprint.Compiles());
}

TEST(ClipboardSettling, WhatRefersToMissingThingsKeepsItsText)
{
	const std::string Struct = "PinType.PinSubCategoryObject=\"/Script/Engine.UserDefinedStruct'/Game/Gone.Gone'\",";
	const struct
	{
		const char* Label;
		std::string Text;
		std::vector<const char*> Kept;
		/** The compile points at the node with these words; null where it need not. */
		const char* Error;
	} Cases[] = {
		{"own function",
			Node("K2Node_CallFunction", "N",
				"   FunctionReference=(MemberName=\"Gone\",bSelfContext=True)\n" + Pin(1, "execute", "exec")
					+ Pin(2, "Label", "text", "DefaultTextValue=LOCTABLE(\"/Game/T.T\", \"Hello\"),")
					+ Pin(3, "Where", "struct", Struct)),
			{"DefaultTextValue=LOCTABLE(\"/Game/T.T\", \"Hello\")", "/Game/Gone.Gone'\""}, "Gone"},
		{"own variable",
			Node("K2Node_VariableGet", "N",
				"   VariableReference=(MemberName=\"Gone\",bSelfContext=True)\n"
					+ Pin(1, "Gone", "struct", Out + Struct)),
			{"/Game/Gone.Gone'\""}, "Gone"},
		{"struct",
			Node("K2Node_MakeStruct", "N",
				"   StructType=\"/Script/Engine.UserDefinedStruct'/Game/Gone.Gone'\"\n"
					+ Pin(1, "Gone", "struct", Out + Struct) + Pin(2, "Speed_3_0123", "real", "DefaultValue=\"4.5\",")),
			{"StructType=\"/Script/Engine.UserDefinedStruct'/Game/Gone.Gone'\"", "DefaultValue=\"4.5\"",
				"PinName=\"Speed_3_0123\""},
			"struct"},
		{"parameter of an event",
			Node("K2Node_CustomEvent", "N",
				"   CustomFunctionName=\"Ring\"\n" + Pin(1, "Where", "struct", Out + Struct)
					+ "   CustomProperties UserDefinedPin (PinName=\"Where\",PinType=(PinCategory=\"struct\","
					  "PinSubCategoryObject=\"/Script/Engine.UserDefinedStruct'/Game/Gone.Gone'\"),"
					  "DesiredPinDirection=EGPD_Output)\n"),
			{"CustomProperties UserDefinedPin (PinName=\"Where\",PinType=(PinCategory=\"struct\","
			 "PinSubCategoryObject=\"/Script/Engine.UserDefinedStruct'/Game/Gone.Gone'\"),DesiredPinDirection=EGPD_Output)"},
			nullptr},
		{"macro",
			Node("K2Node_MacroInstance", "N",
				"   MacroGraphReference=(MacroGraph=\"/Script/Engine.EdGraph'/Game/M.M:Gone'\",GraphBlueprint=None,"
				"GraphGuid=00000000000000000000000000000009)\n"
					+ Pin(1, "exec", "exec") + Pin(2, "Depth", "int", "DefaultValue=\"3\",")),
			{"MacroGraph=\"/Script/Engine.EdGraph'/Game/M.M:Gone'\"", "PinName=\"Depth\"", "DefaultValue=\"3\""},
			"acro"},
	};
	for (const auto& Case : Cases)
	{
		FBlueprintBuilder Blueprint;
		FWarnings Warnings;
		const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(), Case.Text, &Warnings);
		ASSERT_EQ(Nodes.Num(), 1) << Case.Label;
		EXPECT_THAT(Warnings.Lines, testing::Contains(testing::AllOf(HasSubstr("'N' ("), HasSubstr("not known here"))))
			<< Case.Label;
		const std::string Copied = Copy(Nodes);
		for (const char* const Kept : Case.Kept)
		{
			EXPECT_THAT(Copied, HasSubstr(Kept)) << Case.Label;
		}
		FCompilerResultsLog Log;
		FKismetEditorUtilities::CompileBlueprint(Blueprint.Get(), EBlueprintCompileOptions::None, &Log);
		if (Case.Error)
		{
			EXPECT_THAT(ToStd(Nodes[0]->ErrorMsg), HasSubstr(Case.Error)) << Case.Label;
		}
		ASSERT_TRUE(Blueprint.Save()) << Case.Label;
		ASSERT_NE(Blueprint.Reload(), nullptr) << Case.Label;
		UEdGraphNode* const Loaded = Blueprint.EventGraph().Get()->Nodes.Last();
		for (const char* const Kept : Case.Kept)
		{
			EXPECT_THAT(Copy({Loaded}), HasSubstr(Kept)) << Case.Label << " after saving and loading";
		}
	}
}

TEST(ClipboardSettling, SplitPinsStaySplit)
{
	const FBlueprintBuilder Blueprint;
	const FNodeHandle Call = Blueprint.EventGraph().Call(TEXT("/Script/Engine.KismetMathLibrary"), TEXT("VSize"));
	GetDefault<UEdGraphSchema_K2>()->SplitPin(Call.Input(TEXT("A")));
	Call.Input(TEXT("A_Y"))->DefaultValue = TEXT("2.5");
	std::string Text = Copy({Call});
	EXPECT_THAT(Text,
		HasSubstr(
			"PinFriendlyName=LOCGEN_FORMAT_NAMED(NSLOCTEXT(\"KismetSchema\", \"SplitPinFriendlyNameFormat\", "
			"\"{PinDisplayName} {ProtoPinDisplayName}\"), \"PinDisplayName\", \"A\", \"ProtoPinDisplayName\", \"Y\")"));
	// A parent that does not list its sub pins has them all the same.
	const std::size_t SubPins = Text.find("SubPins=(");
	ASSERT_NE(SubPins, std::string::npos);
	Text.erase(SubPins, Text.find("),", SubPins) + 2 - SubPins);
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(), Text);
	ASSERT_EQ(Nodes.Num(), 1);
	const UEdGraphPin* const A = Nodes[0]->FindPin(TEXT("A"));
	ASSERT_EQ(A->SubPins.Num(), 3);
	EXPECT_TRUE(A->bHidden);
	EXPECT_EQ(A->SubPins[1]->PinName, FName(TEXT("A_Y")));
	EXPECT_EQ(A->SubPins[1]->DefaultValue, TEXT("2.5"));
	EXPECT_EQ(A->SubPins[1]->ParentPin, A);
}

TEST(ClipboardSettling, TimelinesGetATemplateWithTheTracksOfTheirPins)
{
	const FBlueprintBuilder Blueprint;
	const std::string Vector =
		"PinType.PinSubCategoryObject=\"/Script/CoreUObject.ScriptStruct'/Script/CoreUObject.Vector'\",";
	const std::string Text = Node("K2Node_Timeline", "K2Node_Timeline_0",
		"   TimelineName=\"Fade\"\n   TimelineGuid=11111111222222223333333344444444\n" + Pin(1, "Play", "exec")
			+ Pin(2, "Update", "exec", Out) + Pin(3, "Finished", "exec", Out)
			+ Pin(4, "Direction", "byte",
				Out + "PinType.PinSubCategoryObject=\"/Script/CoreUObject.Enum'/Script/Engine.ETimelineDirection'\",")
			+ Pin(5, "Alpha", "real", Out + "PinType.PinSubCategory=\"float\",")
			+ Pin(6, "Where", "struct", Out + Vector) + Pin(7, "Ding", "exec", Out));
	TSet<FName> Names;
	for (int32 Round = 0; Round < 2; ++Round)
	{
		const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(), Text);
		ASSERT_EQ(Nodes.Num(), 1);
		const UK2Node_Timeline* const Timeline = Cast<UK2Node_Timeline>(Nodes[0]);
		ASSERT_NE(Timeline, nullptr);
		Names.Add(Timeline->TimelineName);
		const UTimelineTemplate* const Template = Timeline->GetTimelineTemplate();
		ASSERT_NE(Template, nullptr) << Round;
		EXPECT_EQ(Template->TimelineGuid, Timeline->TimelineGuid);
		EXPECT_NE(Template->FindFloatTrackIndex(TEXT("Alpha")), INDEX_NONE);
		EXPECT_NE(Template->FindVectorTrackIndex(TEXT("Where")), INDEX_NONE);
		EXPECT_NE(Template->FindEventTrackIndex(TEXT("Ding")), INDEX_NONE);
		for (const TCHAR* const Track : {TEXT("Alpha"), TEXT("Where"), TEXT("Ding")})
		{
			ASSERT_NE(Timeline->FindPin(Track), nullptr) << ToStd(Track);
			EXPECT_FALSE(Timeline->FindPin(Track)->bOrphanedPin) << ToStd(Track);
		}
	}
	EXPECT_EQ(Names.Num(), 2) << "each pasted timeline is one of its own";
	EXPECT_EQ(Blueprint->Timelines.Num(), 2);
	EXPECT_TRUE(Blueprint.Compiles());
}

TEST(ClipboardSettling, CollapsedGraphsComeWithTheirNode)
{
	FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	UK2Node_Composite* const Composite = Blueprint.EventGraph().Add<UK2Node_Composite>();
	UK2Node_Tunnel* const Entry = Composite->GetEntryNode();
	ASSERT_NE(Entry, nullptr);
	Entry->CreateUserDefinedPin(TEXT("Go"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Exec), EGPD_Output);
	FGraphBuilder Inner(Composite->BoundGraph);
	UK2Node_IfThenElse* const Branch = Inner.Add<UK2Node_IfThenElse>();
	FGraphBuilder::Link(Entry->FindPin(TEXT("Go")), Branch->FindPin(TEXT("execute")));
	Composite->ReconstructNode();
	ASSERT_NE(Composite->FindPin(TEXT("Go")), nullptr);

	const std::string Text = Copy({Composite});
	const TArray<UEdGraphNode*> Nodes = Paste(Graph, Text);
	ASSERT_EQ(Nodes.Num(), 1);
	const UK2Node_Composite* const Pasted = Cast<UK2Node_Composite>(Nodes[0]);
	ASSERT_NE(Pasted, nullptr);
	EXPECT_NE(Pasted->FindPin(TEXT("Go")), nullptr);
	UEdGraph* const PastedInner = Pasted->BoundGraph;
	ASSERT_NE(PastedInner, nullptr);
	EXPECT_NE(PastedInner, Composite->BoundGraph.Get());
	EXPECT_NE(PastedInner->GetFName(), Composite->BoundGraph->GetFName());
	EXPECT_NE(PastedInner->GraphGuid, Composite->BoundGraph->GraphGuid);
	EXPECT_TRUE(Graph->SubGraphs.Contains(PastedInner));
	EXPECT_EQ(PastedInner->Nodes.Num(), 3);
	ASSERT_NE(Pasted->GetEntryNode(), nullptr);
	EXPECT_EQ(Pasted->GetEntryNode()->GetGraph(), PastedInner);
	const UEdGraphPin* const Go = Pasted->GetEntryNode()->FindPin(TEXT("Go"));
	ASSERT_NE(Go, nullptr);
	ASSERT_EQ(Go->LinkedTo.Num(), 1);
	EXPECT_EQ(Go->LinkedTo[0]->GetOwningNode()->GetGraph(), PastedInner);
	EXPECT_NE(Go->LinkedTo[0]->GetOwningNode()->NodeGuid, Branch->NodeGuid);
	EXPECT_EQ(FindDifference(ReadGraphText(Text), ReadGraphText(Copy(Nodes))).find("pin"), std::string::npos);
	EXPECT_TRUE(Blueprint.Compiles());
	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_EQ(Blueprint.EventGraph().Get()->SubGraphs.Num(), 2);
}
