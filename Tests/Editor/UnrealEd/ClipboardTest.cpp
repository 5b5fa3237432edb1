#include "EdGraphUtilities.h"

#include "BlueprintBuilder.h"
#include "ClipboardText.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphNode_Placeholder.h"
#include "EdGraphSchema_K2.h"
#include "GraphText.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_VariableGet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/KismetEditorUtilities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ClipboardTests
{
/** The pasted graph reads as being the destination's own, so this one class differs from what the text said. */
std::string WithOwnClass(std::string Text, const std::string& From)
{
	const std::string Own = "/Game/Tests/BP_Test.BP_Test_C";
	for (std::size_t At = Text.find(From); At != std::string::npos; At = Text.find(From, At + Own.size()))
	{
		Text.replace(At, From.size(), Own);
	}
	return Text;
}

UEdGraphPin* FindPin(UEdGraphNode* Node, const TCHAR* Name)
{
	return Node->FindPin(Name);
}

constexpr const char* Samples[] = {"async-call-and-append", "construction-lights", "function-reparent-loop",
	"input-keys-and-structs", "knots-and-print"};

class FSampleGraph : public testing::TestWithParam<const char*>
{
};

/** The graph that the sample belongs to by its kind; for one with an entry a function of which the entry was taken
 * away. */
UEdGraph* MakeGraphFor(const FBlueprintBuilder& Blueprint, const std::string& Text)
{
	if (Text.find("K2Node_FunctionEntry") == std::string::npos)
	{
		return Blueprint.EventGraph().Get();
	}
	UEdGraph* const Graph = Blueprint.Function(TEXT("Sample")).Get();
	while (!Graph->Nodes.IsEmpty())
	{
		Graph->Nodes.Last()->DestroyNode();
	}
	return Graph;
}
} // namespace ClipboardTests

using namespace ClipboardTests;

TEST_P(FSampleGraph, CopiesBackAsItWasPasted)
{
	const FBlueprintBuilder Blueprint;
	const std::string Text = ReadTestData("Graphs/" + std::string(GetParam()) + ".txt");
	const std::string Own = WithOwnClass(
		WithOwnClass(Text, "/Game/StarterContent/Blueprints/Blueprint_WallSconce.Blueprint_WallSconce_C"),
		"/Game/Scripts/EUB_Reparent.EUB_Reparent_C");
	const TArray<UEdGraphNode*> Nodes = Paste(MakeGraphFor(Blueprint, Text), Text);
	const std::string Copied = Copy(Nodes);
	EXPECT_EQ(FindDifference(ReadGraphText(Own), ReadGraphText(Copied)), "");

	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_EQ(FindDifference(ReadGraphText(Copied), ReadGraphText(Copy(Nodes))), "") << "after the compile";
	const FGraphBuilder Second = Blueprint.Function(TEXT("Second"));
	Second.Get()->Nodes.Last()->DestroyNode();
	const TArray<UEdGraphNode*> Again = Paste(Second.Get(), Copied);
	EXPECT_EQ(FindDifference(ReadGraphText(Copied), ReadGraphText(Copy(Again))), "") << "pasted again";
}

INSTANTIATE_TEST_SUITE_P(All, FSampleGraph, testing::ValuesIn(Samples),
	[](const testing::TestParamInfo<const char*>& Sample)
	{
		std::string Name = Sample.param;
		std::replace(Name.begin(), Name.end(), '-', '_');
		return Name;
	});

TEST(Clipboard, StandardMacrosAreThere)
{
	const FBlueprintBuilder Blueprint;
	for (UEdGraphNode* const Node :
		Paste(Blueprint.EventGraph().Get(), ReadTestData("Graphs/function-reparent-loop.txt")))
	{
		if (const UK2Node_MacroInstance* const Macro = Cast<UK2Node_MacroInstance>(Node))
		{
			ASSERT_NE(Macro->GetMacroGraph(), nullptr);
			EXPECT_EQ(Macro->GetMacroGraph()->GetName(), TEXT("ForEachLoop"));
			return;
		}
	}
	FAIL() << "the sample has a macro";
}

TEST(Clipboard, PastedNodesGetNewIdsAndKeepTheirLinks)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const std::string Text = ReadTestData("Graphs/knots-and-print.txt");
	const TArray<UEdGraphNode*> First = Paste(Graph, Text);
	const TArray<UEdGraphNode*> Second = Paste(Graph, Text);
	ASSERT_EQ(First.Num(), Second.Num());
	for (int32 Index = 0; Index < First.Num(); ++Index)
	{
		EXPECT_NE(First[Index]->NodeGuid, Second[Index]->NodeGuid);
		EXPECT_NE(First[Index]->GetFName(), Second[Index]->GetFName());
		for (int32 Pin = 0; Pin < First[Index]->Pins.Num(); ++Pin)
		{
			EXPECT_NE(First[Index]->Pins[Pin]->PinId, Second[Index]->Pins[Pin]->PinId);
			for (const UEdGraphPin* const Link : Second[Index]->Pins[Pin]->LinkedTo)
			{
				EXPECT_TRUE(Second.Contains(Link->GetOwningNode()));
				EXPECT_TRUE(Link->LinkedTo.Contains(Second[Index]->Pins[Pin]));
			}
		}
	}
}

TEST(Clipboard, OldEngineTextIsTaken)
{
	const FBlueprintBuilder Blueprint;
	// No "/Script/", quotes round property names, the two-flag array form, float without precision, references in the
	// oldest spelling.
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(),
		"Begin Object Class=BlueprintGraph.K2Node_CallFunction Name=\"K2Node_CallFunction_7\"\r\n"
		"   FunctionReference=(MemberParent=Class'\"/Script/Engine.KismetSystemLibrary\"',MemberName=\"Delay\")\r\n"
		"   \"NodePosX\"=16\r\n"
		"   CustomProperties Pin (PinId=A0B64C3D4F0C3F0B8E3F4B9E0C0A0001,PinName=\"Duration\",PinType.PinCategory=\"float\","
		"PinType.PinSubCategory=\"\",PinType.PinSubCategoryObject=None,PinType.ContainerType=None,PinType.bIsArray=False,"
		"DefaultValue=\"1.5\",AutogeneratedDefaultValue=\"0.2\",LinkedTo=(K2Node_Absent_1 A0B64C3D4F0C3F0B8E3F4B9E0C0A0002,),bHidden=False,)\r\n"
		"End Object\r\n"
		"Begin Object Class=BlueprintGraph.K2Node_CallFunction Name=\"K2Node_CallFunction_8\"\r\n"
		"   FunctionReference=(MemberName=\"Own\",bSelfContext=True)\r\n"
		"   CustomProperties Pin (PinId=A0B64C3D4F0C3F0B8E3F4B9E0C0A0003,PinName=\"List\",PinType.PinCategory=\"object\","
		"PinType.PinSubCategoryObject=Class'\"/Script/Engine.Actor\"',PinType.bIsArray=True,)\r\n"
		"End Object\r\n");
	ASSERT_EQ(Nodes.Num(), 2);
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Nodes[0]);
	ASSERT_NE(Call, nullptr);
	ASSERT_NE(Call->GetTargetFunction(), nullptr);
	EXPECT_EQ(Call->NodePosX, 16);
	const UEdGraphPin* const Duration = Call->FindPin(TEXT("Duration"));
	EXPECT_EQ(Duration->PinType.PinCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_EQ(Duration->PinType.PinSubCategory, UEdGraphSchema_K2::PC_Float);
	EXPECT_EQ(Duration->DefaultValue, TEXT("1.5"));
	EXPECT_TRUE(Duration->LinkedTo.IsEmpty());
	const UEdGraphPin* const List = Nodes[1]->FindPin(TEXT("List"));
	ASSERT_NE(List, nullptr);
	EXPECT_TRUE(List->PinType.IsArray());
	EXPECT_EQ(List->PinType.PinSubCategoryObject.Get(), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")));
}

namespace ClipboardTests
{
constexpr const char* UnknownNode =
	"Begin Object Class=/Script/Weather.K2Node_MakeRain Name=\"K2Node_MakeRain_0\"\n"
	"   Drops=12\n"
	"   Cloud=\"/Script/CoreUObject.Class'/Script/Weather.Cloud'\"\n"
	"   NodePosX=320\n"
	"   NodeComment=\"wet\"\n"
	"   NodeGuid=11111111222222223333333344444444\n"
	"   CustomProperties Pin (PinId=0000000000000000000000000000000A,PinName=\"execute\",PinType.PinCategory=\"exec\","
	"PinType.PinSubCategory=\"\",PinType.PinSubCategoryObject=None,PinType.PinSubCategoryMemberReference=(),PinType.PinValueType=(),"
	"PinType.ContainerType=None,PinType.bIsReference=False,PinType.bIsConst=False,PinType.bIsWeakPointer=False,"
	"PinType.bIsUObjectWrapper=False,PinType.bSerializeAsSinglePrecisionFloat=False,"
	"LinkedTo=(K2Node_CallFunction_0 0000000000000000000000000000000B,),PersistentGuid=00000000000000000000000000000000,"
	"bHidden=False,bNotConnectable=False,bDefaultValueIsReadOnly=False,bDefaultValueIsIgnored=False,bAdvancedView=False,"
	"bOrphanedPin=False,bFrozen=True,)\n"
	"   CustomProperties Pin (PinId=0000000000000000000000000000000C,PinName=\"Cloud\",PinType.PinCategory=\"object\","
	"PinType.PinSubCategory=\"\",PinType.PinSubCategoryObject=\"/Script/CoreUObject.Class'/Script/Weather.Cloud'\","
	"PinType.PinSubCategoryMemberReference=(),PinType.PinValueType=(),PinType.ContainerType=None,PinType.bIsReference=False,"
	"PinType.bIsConst=False,PinType.bIsWeakPointer=False,PinType.bIsUObjectWrapper=False,"
	"PinType.bSerializeAsSinglePrecisionFloat=False,DefaultObject=\"/Game/Sky.Cumulus\",PersistentGuid=00000000000000000000000000000000,"
	"bHidden=False,bNotConnectable=False,bDefaultValueIsReadOnly=False,bDefaultValueIsIgnored=False,bAdvancedView=False,"
	"bOrphanedPin=False,)\n"
	"   CustomProperties UserDefinedPin (PinName=\"Wind\",PinType=(PinCategory=\"float\"),PinDefaultValue=\"2\")\n"
	"   CustomProperties Weather Report\n"
	"End Object\n"
	"Begin Object Class=/Script/BlueprintGraph.K2Node_CallFunction Name=\"K2Node_CallFunction_0\"\n"
	"   FunctionReference=(MemberParent=\"/Script/CoreUObject.Class'/Script/Weather.Sky'\",MemberName=\"Open\")\n"
	"   bShiny=True\n"
	"   CustomProperties Pin (PinId=0000000000000000000000000000000B,PinName=\"then\",Direction=\"EGPD_Output\",PinType.PinCategory=\"exec\","
	"PinType.PinSubCategory=\"\",PinType.PinSubCategoryObject=None,PinType.PinSubCategoryMemberReference=(),PinType.PinValueType=(),"
	"PinType.ContainerType=None,PinType.bIsReference=False,PinType.bIsConst=False,PinType.bIsWeakPointer=False,"
	"PinType.bIsUObjectWrapper=False,PinType.bSerializeAsSinglePrecisionFloat=False,"
	"LinkedTo=(K2Node_MakeRain_0 0000000000000000000000000000000A,),PersistentGuid=00000000000000000000000000000000,"
	"bHidden=False,bNotConnectable=False,bDefaultValueIsReadOnly=False,bDefaultValueIsIgnored=False,bAdvancedView=False,"
	"bOrphanedPin=False,)\n"
	"End Object\n";

const UEdGraphNode_Placeholder* FindPlaceholder(const UEdGraph* Graph)
{
	TArray<UEdGraphNode_Placeholder*> Found;
	Graph->GetNodesOfClass(Found);
	return Found.Num() == 1 ? Found[0] : nullptr;
}
} // namespace ClipboardTests

TEST(Clipboard, UnknownNodesAndPropertiesAreKeptAndWrittenBack)
{
	FBlueprintBuilder Blueprint;
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(), UnknownNode);
	ASSERT_EQ(Nodes.Num(), 2);
	const UEdGraphNode_Placeholder* const Placeholder = Cast<UEdGraphNode_Placeholder>(Nodes[0]);
	ASSERT_NE(Placeholder, nullptr);
	EXPECT_EQ(Placeholder->GetNodeTitle(ENodeTitleType::ListView).ToString(), TEXT("Unknown node: K2Node_MakeRain"));
	EXPECT_EQ(Placeholder->NodePosX, 320);
	EXPECT_EQ(Placeholder->NodeComment, TEXT("wet"));
	const std::string Copied = Copy(Nodes);
	EXPECT_EQ(FindDifference(ReadGraphText(UnknownNode), ReadGraphText(Copied)), "");
	EXPECT_LT(Copied.find("Drops=12"), Copied.find("NodePosX=320")) << "the lines keep their order";
	const char* const Custom =
		"   CustomProperties UserDefinedPin (PinName=\"Wind\",PinType=(PinCategory=\"float\"),PinDefaultValue=\"2\")\n"
		"   CustomProperties Weather Report\nEnd Object\n";
	EXPECT_THAT(Copied, testing::HasSubstr(Custom));

	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	const UEdGraph* const Graph = Blueprint.EventGraph().Get();
	ASSERT_NE(FindPlaceholder(Graph), nullptr);
	TArray<UEdGraphNode*> Loaded;
	for (UEdGraphNode* const Node : Graph->Nodes)
	{
		if (!Node->IsA<UK2Node_Event>())
		{
			Loaded.Add(Node);
		}
	}
	const std::string CopiedLater = Copy(Loaded);
	EXPECT_EQ(FindDifference(ReadGraphText(UnknownNode), ReadGraphText(CopiedLater)), "") << "after saving and loading";
	EXPECT_THAT(CopiedLater, testing::HasSubstr(Custom));
}

TEST(Clipboard, CompileTellsOfAnUnknownNode)
{
	const FBlueprintBuilder Blueprint;
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(), UnknownNode);
	FCompilerResultsLog Log;
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get(), EBlueprintCompileOptions::None, &Log);
	EXPECT_GE(Log.NumErrors, 1);
	EXPECT_THAT(ToStd(Nodes[0]->ErrorMsg), testing::HasSubstr("/Script/Weather.K2Node_MakeRain"));
}

TEST(Clipboard, CommentsKeepTheirBox)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	UEdGraphNode* const Comment = Graph.Comment(-32, 48, 512, 256);
	Comment->NodeComment = TEXT("Two \"words\"\nand a line");
	const std::string Text = Copy({Comment});
	const TArray<UEdGraphNode*> Nodes = Paste(Graph.Get(), Text);
	ASSERT_EQ(Nodes.Num(), 1);
	EXPECT_EQ(Nodes[0]->NodeWidth, 512);
	EXPECT_EQ(Nodes[0]->NodeHeight, 256);
	EXPECT_EQ(Nodes[0]->NodeComment, Comment->NodeComment);
}

TEST(Clipboard, WhatIsNoGraphTextMakesNothing)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const int32 Before = Graph->Nodes.Num();
	for (const char* const Text : {"", "hello", "Begin Object Class=/Script/Engine.Actor Name=\"A\"\nEnd Object\n",
			 "Begin Object Class=/Script/BlueprintGraph.K2Node_Knot Name=\"A\"\n"})
	{
		EXPECT_FALSE(FEdGraphUtilities::CanImportNodesFromText(Graph, FromUtf8(Text))) << Text;
		EXPECT_EQ(Paste(Graph, Text).Num(), 0) << Text;
		EXPECT_EQ(Graph->Nodes.Num(), Before) << Text;
	}
}

TEST(Clipboard, PinsThatClaimToBeBelowEachOtherAreNot)
{
	const FBlueprintBuilder Blueprint;
	const std::string Own = "Own_0 000000000000000000000000000000";
	const TArray<UEdGraphNode*> Nodes = Paste(Blueprint.EventGraph().Get(),
		"Begin Object Class=/Script/BlueprintGraph.K2Node_CallFunction Name=\"Own_0\"\n"
		"   FunctionReference=(MemberName=\"Gone\",bSelfContext=True)\n"
		"   CustomProperties Pin (PinId=0000000000000000000000000000000A,PinName=\"InputPin\",SubPins=("
			+ Own + "0A," + Own + "0B,),LinkedTo=(" + Own
			+ "0A,),)\n"
			  "   CustomProperties Pin (PinId=0000000000000000000000000000000B,PinName=\"OutputPin\",Direction=\"EGPD_Output\",SubPins=("
			+ Own + "0A,),)\nEnd Object\n");
	ASSERT_EQ(Nodes.Num(), 1);
	const UEdGraphPin* const Input = Nodes[0]->FindPin(TEXT("InputPin"));
	const UEdGraphPin* const Output = Nodes[0]->FindPin(TEXT("OutputPin"));
	EXPECT_EQ(Input->SubPins.Num(), 1);
	EXPECT_EQ(Output->ParentPin, Input);
	EXPECT_EQ(Input->ParentPin, nullptr);
	EXPECT_TRUE(Output->SubPins.IsEmpty());
	EXPECT_TRUE(Input->LinkedTo.IsEmpty());
}
