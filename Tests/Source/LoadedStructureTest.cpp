// Whatever a file says holds what: it is read, told, cut at one place, and every tool goes on.

#include "Blueprint/WidgetTree.h"
#include "BlueprintActionDatabase.h"
#include "BlueprintReadOperations.h"
#include "BlueprintUtils.h"
#include "Components/ExpandableArea.h"
#include "Components/PanelWidget.h"
#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "Dom/JsonObject.h"
#include "EverythingBlueprint.h"
#include "K2Node_Composite.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "NodeTests.h"
#include "Populating.h"
#include "Standalone/PackageText.h"
#include "TestAssets.h"
#include "ToolFace/ResultObject.h"
#include "UObject/Package.h"
#include "Utils/Read/ReadBudget.h"
#include "WidgetBlueprint.h"

#include <algorithm>
#include <regex>

using testing::HasSubstr;
using testing::IsEmpty;

namespace LoadedStructureTest
{
constexpr const char* File = "Content/Tests/BP_Test.uatext";

/** Writes the package anew with another object text, as a merge or another program does. */
static void Rewrite(const FTemporaryFolder& Folder, const std::string& Path, const std::string& Body)
{
	const std::string Old = Folder.Read(Path);
	FPackageText::FHeader Header;
	FString Error;
	ASSERT_TRUE(FPackageText::CheckBytes(Old, TEXT("file"), Header, Error)) << ToStd(Error);
	Folder.Write(Path, FPackageText::MakeBytes(Header, Body));
}

static std::string BodyOf(const FTemporaryFolder& Folder, const std::string& Path)
{
	const std::string Text = Folder.Read(Path);
	return Text.substr(Text.find("\n\n") + 2);
}

static void Unload()
{
	TestAssets::UnloadGame();
	FPackageText::TakeProblems();
}

/** A reference to a part of the asset, and where its path stands in the text. */
struct FReference
{
	std::string Property;
	std::size_t Start;
	std::string Path;
};

/** The first reference of each property that says what holds what, with the one behind it in the same list. */
static std::vector<FReference> FindReferences(const std::string& Body)
{
	static const std::regex Line(
		R"(\n *((?:UbergraphPages|FunctionGraphs|MacroGraphs|DelegateSignatureGraphs|SubGraphs|Nodes|Timelines|)"
		R"(ComponentTemplates|RootNodes|AllNodes|ChildNodes|Slots|Animations|BoundGraph|EditorStateMachineGraph|)"
		R"(Content|HeaderContent|BodyContent|NamedSlotBindings|Parent|Slot|RootWidget|SimpleConstructionScript|WidgetTree|CurveFloat|GeneratedClass|)"
		R"(ImplementedInterfaces)(?:\(\d+\))?)=[^'\n]*'(/Game/Tests/BP_Test\.[^']*)')");
	std::vector<FReference> Found;
	for (std::sregex_iterator It(Body.begin(), Body.end(), Line); It != std::sregex_iterator(); ++It)
	{
		const auto bSame = [&](const FReference& Known) { return Known.Property == It->str(1); };
		if (std::none_of(Found.begin(), Found.end(), bSame))
		{
			Found.push_back({It->str(1), static_cast<std::size_t>(It->position(2)), It->str(2)});
		}
	}
	return Found;
}

/** Nothing, nobody, everything above it, and what stands in other places. */
static std::vector<std::string> WrongTargets(const FReference& Reference, const std::vector<FReference>& All)
{
	std::vector<std::string> Targets = {"", "/Game/Nowhere.Nowhere"};
	for (std::size_t Cut = Reference.Path.find_last_of(".:"); Cut != std::string::npos && Cut > 20;
		 Cut = Reference.Path.find_last_of(".:", Cut - 1))
	{
		Targets.push_back(Reference.Path.substr(0, Cut));
	}
	const std::string Kind = Reference.Property.substr(0, Reference.Property.find('('));
	for (const FReference& Other : All)
	{
		if (Other.Property.substr(0, Other.Property.find('(')) == Kind && Other.Path != Reference.Path)
		{
			Targets.push_back(Other.Path);
			break;
		}
	}
	return Targets;
}

/** Every tool that walks the Blueprint; what they say is their affair here, that they say it counts. */
static void Walk(const std::string& Path)
{
	const std::string Head = R"({"path":")" + Path + "\"";
	RunTool(Morvane::ToolInfo::ToolName_ReadBlueprintSchema, Head + "}");
	RunTool(Morvane::ToolInfo::ToolName_ReadBlueprintEvent,
		Head + R"(,"graph_name":"EventGraph","event_name":"BeginPlay"})");
	RunTool(Morvane::ToolInfo::ToolName_ReadBlueprintWidgetTree, Head + "}");
	RunTool(Morvane::ToolInfo::ToolName_CompileBlueprint, Head + "}");
	FBlueprintActionDatabase::Get().Update();
	RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph, Head + R"(,"functions":[{"name":"Another"}]})");
}

struct FKind
{
	const char* Label;
	const TCHAR* Parent;
	void (*Fill)(UBlueprint&);
};

static void FillActor(UBlueprint& Blueprint)
{
	EverythingBlueprint::Fill(Blueprint);
	UEdGraph* const Events = FBlueprintEditorUtils::FindEventGraph(&Blueprint);
	const auto Nothing = [](UK2Node_Composite&) {};
	UEdGraph* const Inner = NodeTests::Make<UK2Node_Composite>(Events, Nothing)->BoundGraph;
	NodeTests::Make<UK2Node_Composite>(Inner, Nothing);
	NodeTests::Make<UK2Node_Composite>(Events, Nothing);
}

static void FillWidgets(UBlueprint& Blueprint)
{
	EverythingBlueprint::FillWidgets(Blueprint);
	UWidgetTree& Tree = *CastChecked<UWidgetBlueprint>(&Blueprint)->WidgetTree;
	UPanelWidget* const Root = CastChecked<UPanelWidget>(Tree.RootWidget.Get());
	UExpandableArea* const Area = Tree.ConstructWidget<UExpandableArea>(UExpandableArea::StaticClass(), TEXT("Area"));
	UPanelWidget* const Body = Tree.ConstructWidget<UPanelWidget>(Root->GetClass(), TEXT("Body"));
	Root->AddChild(Area);
	Area->SetContentForSlot(TEXT("Header"), Tree.ConstructWidget<UWidget>(Root->GetClass(), TEXT("Header")));
	Area->SetContentForSlot(TEXT("Body"), Body);
	Body->AddChild(Tree.ConstructWidget<UWidget>(Root->GetClass(), TEXT("Inner")));
}

const FKind Kinds[] = {
	{"Actor", TEXT("/Script/Engine.Actor"), &FillActor},
	{"Animation", TEXT("/Script/Engine.AnimInstance"),
		[](UBlueprint& Blueprint) { EverythingBlueprint::FillStateMachines(Blueprint, 2); }},
	{"Widget", TEXT("/Script/UMG.UserWidget"), &FillWidgets},
};
} // namespace LoadedStructureTest

using namespace LoadedStructureTest;

class LoadedStructure : public testing::TestWithParam<FKind>
{
};

TEST_P(LoadedStructure, EveryReferenceMayLeadAnywhere)
{
	const FBlueprintBuilder Blueprint(GetParam().Parent);
	GetParam().Fill(*Blueprint.Get());
	ASSERT_TRUE(Blueprint.Save());
	const std::string Body = BodyOf(Blueprint.Folder(), File);
	const std::vector<FReference> References = FindReferences(Body);
	EXPECT_GE(References.size(), 6u);
	for (const FReference& Reference : References)
	{
		for (const std::string& Target : WrongTargets(Reference, References))
		{
			SCOPED_TRACE(Reference.Property + "=" + Target);
			Unload();
			Rewrite(Blueprint.Folder(), File,
				Body.substr(0, Reference.Start) + Target + Body.substr(Reference.Start + Reference.Path.size()));
			Walk("/Game/Tests/BP_Test");
		}
		// Once for each reference, as it takes as long as all the rest: what stands wrong outlives a collection, too.
		CollectGarbage();
	}
	Unload();
}

INSTANTIATE_TEST_SUITE_P(
	Kinds, LoadedStructure, testing::ValuesIn(Kinds), [](const auto& Row) { return std::string(Row.param.Label); });

namespace LoadedStructureTest
{
static std::string Replaced(std::string Text, const std::string& From, const std::string& To)
{
	const std::size_t At = Text.find(From);
	EXPECT_NE(At, std::string::npos) << From;
	return At == std::string::npos ? Text : Text.replace(At, From.size(), To);
}

static std::string Problems()
{
	std::string Text;
	for (const FString& Problem : FPackageText::TakeProblems())
	{
		Text += ToStd(Problem) + "\n";
	}
	return Text;
}

static void Create(const std::string& Path, const std::string& ParentType, const std::string& Parent)
{
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":")" + Path + R"(","blueprint_parent_class":{"type":")" + ParentType + R"(","parent_path":")" + Parent
			+ R"("}})");
}
} // namespace LoadedStructureTest

TEST(LoadedStructureRules, TwoAssetsThatAreEachOthersParentAreBothRead)
{
	const FBlueprintBuilder Project;
	const FTemporaryFolder& Folder = Project.Folder();
	Create("/Game/Tests/BP_A", "native", "/Script/Engine.Pawn");
	Create("/Game/Tests/BP_B", "blueprint", "/Game/Tests/BP_A");
	for (const TCHAR* const Path : {TEXT("/Game/Tests/BP_A"), TEXT("/Game/Tests/BP_B")})
	{
		ASSERT_TRUE(FBlueprintUtils::SaveBlueprint(LoadObject<UBlueprint>(nullptr, Path)));
	}
	const std::string FileA = "Content/Tests/BP_A.uatext";
	std::string Text = Folder.Read(FileA);
	const std::string Pawn = "ParentClass=\"/Script/CoreUObject.Class'/Script/Engine.Pawn'\"";
	const std::string B = "/Script/Engine.BlueprintGeneratedClass'/Game/Tests/BP_B.BP_B_C'";
	FPackageText::FHeader Header;
	FString Error;
	ASSERT_TRUE(FPackageText::CheckBytes(Text, TEXT("A"), Header, Error));
	for (FPackageText::FTag& Tag : Header.Tags)
	{
		Tag.Value = Tag.Name == TEXT("ParentClass") ? FString(B.c_str()) : Tag.Value;
	}
	const std::string Body = Replaced(BodyOf(Folder, FileA), Pawn, "ParentClass=\"" + B + "\"");
	Folder.Write(FileA, FPackageText::MakeBytes(Header, Body));
	for (const char* const First : {"/Game/Tests/BP_A", "/Game/Tests/BP_B"})
	{
		Unload();
		EXPECT_TRUE(
			RunTool(Morvane::ToolInfo::ToolName_ReadBlueprintSchema, R"({"path":")" + std::string(First) + "\"}")
				->WasSuccessful());
		EXPECT_THAT(Problems(), HasSubstr("descends from it; its parent is '/Script/Engine.Pawn' now")) << First;
		Walk("/Game/Tests/BP_A");
		Walk("/Game/Tests/BP_B");
		CollectGarbage();
		Rewrite(Folder, FileA, Body);
		Folder.Write(FileA, FPackageText::MakeBytes(Header, Body));
	}
	Unload();
}

TEST(LoadedStructureRules, AnEntryThatWasNotFoundIsKeptBehindTheOthers)
{
	FBlueprintBuilder Blueprint;
	Blueprint.Function(TEXT("Foo"));
	ASSERT_TRUE(Blueprint.Save());
	const std::string Missing = "FunctionGraphs(0)=\"/Script/Nowhere.OddGraph'/Game/Tests/BP_Test.BP_Test:Odd'\"\n";
	std::string Body = BodyOf(Blueprint.Folder(), File);
	const std::size_t At = Body.find("   FunctionGraphs(0)=");
	for (const char* const Row : {"FunctionGraphs(1)=", "FunctionGraphs(0)="})
	{
		Body = Replaced(Body, Row, std::string("FunctionGraphs(") + static_cast<char>(Row[15] + 1) + ")=");
	}
	Rewrite(Blueprint.Folder(), File, Body.substr(0, At) + "   " + Missing + Body.substr(At));
	for (int32 Round = 0; Round < 2; ++Round)
	{
		ASSERT_TRUE(Blueprint.Reload());
		EXPECT_EQ(Blueprint->FunctionGraphs.Num(), 2);
		EXPECT_THAT(Problems(), HasSubstr("BP_Test:Odd"));
		Blueprint->MarkPackageDirty();
		ASSERT_TRUE(Blueprint.Save());
		EXPECT_THAT(BodyOf(Blueprint.Folder(), File), HasSubstr(Replaced(Missing, "(0)", "(2)")));
	}
}

TEST(LoadedStructureRules, WhatIsListedOftenIsReadOnce)
{
	FBlueprintBuilder Blueprint;
	UEdGraph* Graph = Blueprint.EventGraph().Get();
	for (int32 Depth = 0; Depth < 9; ++Depth)
	{
		Graph = NodeTests::Make<UK2Node_Composite>(Graph, [](UK2Node_Composite&) {})->BoundGraph;
	}
	ASSERT_TRUE(Blueprint.Save());
	const std::regex Listed(R"(( *)Nodes\((\d+)\)=([^\n]*K2Node_Composite[^\n]*)\n)");
	const std::string Body = std::regex_replace(
		BodyOf(Blueprint.Folder(), File), Listed, "$1Nodes($2)=$3\n$1Nodes(7)=$3\n$1Nodes(8)=$3\n$1Nodes(9)=$3\n");
	Rewrite(Blueprint.Folder(), File, Body);
	ASSERT_TRUE(Blueprint.Reload());
	EXPECT_THAT(Problems(), HasSubstr("stands in another place"));
	const TSharedPtr<Morvane::FToolResult> Result = RunTool(Morvane::ToolInfo::ToolName_ReadBlueprintEvent,
		R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph","event_name":"BeginPlay"})");
	const std::string Answer = ResultObject::Write(*Result);
	EXPECT_THAT(Answer, HasSubstr("bound_graph_depth"));
	EXPECT_LT(Answer.size(), 60000u);
}

TEST(LoadedStructureRules, NoBlueprintMakesAnAnswerWithoutBound)
{
	constexpr int32 NumEvents = 100;
	constexpr int32 NumShared = 100;
	const FBlueprintBuilder Blueprint;
	const FGraphBuilder Graph = Blueprint.EventGraph();
	FGraphBuilder Builder(Graph.Get());
	const FNodeHandle Last = Builder.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	FNodeHandle Next = Last;
	for (int32 Index = 0; Index < NumShared; ++Index)
	{
		const FNodeHandle Before = Builder.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
		FGraphBuilder::Then(Before, Next);
		Next = Before;
	}
	for (int32 Index = 0; Index < NumEvents; ++Index)
	{
		UEdGraphNode* const Event = NodeTests::Make<UK2Node_CustomEvent>(Graph.Get(),
			[&](UK2Node_CustomEvent& Node)
			{ Node.CustomFunctionName = FName(FString::Printf(TEXT("Event%d"), Index)); });
		FGraphBuilder::Then(FNodeHandle{Event}, Next);
	}
	// All but a tenth of what one call may show is spent already, so that a small answer comes to the bound.
	const int32 PartsOfOne = 2 + Last->Pins.Num();
	for (int32 Spent = 0; Spent < FReadBudget::MaxParts / 10 * 9; Spent += PartsOfOne)
	{
		FReadBudget::Take(*Last.Node);
	}
	FJsonObject Args;
	Args.SetStringField(Morvane::ToolInfo::FieldName_Path, TEXT("/Game/Tests/BP_Test"));
	Args.SetStringField(Morvane::ToolInfo::FieldName_GraphName, TEXT("EventGraph"));
	Args.SetStringField(Morvane::ToolInfo::FieldName_EventName, TEXT("Event"));
	Morvane::FToolResult Result = MakeResult();
	FBlueprintEventReadOperation::Execute(Args, Result);
	EXPECT_TRUE(Result.WasSuccessful());
	const std::string Answer = ResultObject::Write(Result);
	EXPECT_GT(Answer.size(), 1u << 20) << "so much is shown";
	EXPECT_LT(Answer.size(), 15u << 20);
	EXPECT_THAT(Answer, HasSubstr("Maximum answer size exceeded"));
}
