// A server answers for hours. What one call leaves behind in the process may not be seen by the next.

#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Modifying.h"
#include "Spawning/CamMatching.h"
#include "Standalone/EditorFaults.h"
#include "Utils/Read/ReadBudget.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace SecondCallTest
{
/** What the menu answers, best first. */
static std::string Ask(const FSharedActionMenu& Menu, const TCHAR* Title, const TCHAR* ClassName)
{
	FBPNodeModification Record;
	Record.MenuTitle = Title;
	Record.ClassName = ClassName;
	std::string Text;
	for (const FCamCandidate& Candidate : FBlueprintCamMatching::FindCamMatches(Record, Menu))
	{
		Text += ToStd(
			FString::Printf(TEXT("%s [%s] %.3f\n"), *Candidate.MenuTitle, *Candidate.NodeClass, Candidate.Confidence));
	}
	return Text;
}

static const std::string Print = CallNode("p", "KismetSystemLibrary", "PrintString");
} // namespace SecondCallTest

using namespace SecondCallTest;

TEST(SecondCall, AnswersOfTheMenuDependOnMenuAndRequestAlone)
{
	const FBlueprintBuilder Blueprint;
	const auto Build = [&Blueprint]
	{
		Morvane::FToolResult Result = MakeResult();
		return FBlueprintCamMatching::BuildSharedCAM(*Blueprint.EventGraph().Get(), Result);
	};
	const std::pair<const TCHAR*, const TCHAR*> Requests[] = {{TEXT("Delay"), TEXT("")},
		{TEXT("Delay"), TEXT("K2Node_CallFunction")}, {TEXT("Delay"), TEXT("K2Node_Knot")}, {TEXT("delay"), TEXT("")},
		{TEXT("Get Zorp"), TEXT("")}};
	std::vector<std::string> Alone;
	for (const auto& [Title, ClassName] : Requests)
	{
		Alone.push_back(Ask(*Build(), Title, ClassName));
	}
	EXPECT_NE(Alone[0], Alone[2]) << "the case must have answers that differ by the class alone";
	const TSharedPtr<FSharedActionMenu> Menu = Build();
	for (int32 Round = 0; Round < 2; ++Round)
	{
		for (std::size_t Index = 0; Index < std::size(Requests); ++Index)
		{
			EXPECT_EQ(Ask(*Menu, Requests[Index].first, Requests[Index].second), Alone[Index])
				<< ToStd(Requests[Index].first) << " " << ToStd(Requests[Index].second) << " round " << Round;
		}
	}
	Blueprint.AddVariable(TEXT("Zorp"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	EXPECT_THAT(Ask(*Build(), TEXT("Get Zorp"), TEXT("")), StartsWith("Get Zorp [K2Node_VariableGet] 1.000\n"));
	EXPECT_EQ(Ask(*Menu, TEXT("Get Zorp"), TEXT("")), Alone[4]) << "the menu of before still answers as it did";
}

TEST(SecondCall, AFailedSaveFinalisesNothingAndTheNextCallSaves)
{
	FModifying Case;
	const std::string Before = Case.Blueprint.Folder().Read("Content/Tests/BP_Test.uatext");
	{
		const EditorFaults::FFailSaves Fault(TEXT("the disk is full"));
		Case.Nodes(Print);
		EXPECT_THAT(Errors(*Case.Result), ElementsAre(HasSubstr("the disk is full")));
		ASSERT_EQ(Case.Result->GetModifications().Num(), 1);
		EXPECT_FALSE(Case.Result->HasFinalModifications());
		EXPECT_EQ(ToStd(Case.Result->GetModifications()[0].Content), "");
	}
	EXPECT_EQ(Case.Blueprint.Folder().Read("Content/Tests/BP_Test.uatext"), Before);
	Case.Make("\"nodes\":[" + Print + "]");
	EXPECT_TRUE(Case.Result->HasFinalModifications());
	EXPECT_THAT(ToStd(Case.Result->GetModifications()[0].Content), HasSubstr("Print String"));
	const auto CountPrints = [&Case]
	{
		TArray<UK2Node_CallFunction*> Calls;
		Case.Graph()->GetNodesOfClass(Calls);
		return Calls.Num();
	};
	EXPECT_EQ(CountPrints(), 1) << "the node of the failed call was taken back";
	{
		const EditorFaults::FFailSaves Fault(TEXT("the disk is full"));
		Case.ModifyNodes(Case.Pins("p", Value("InString", "Changed")));
		EXPECT_THAT(Errors(*Case.Result), ElementsAre(HasSubstr("the disk is full")));
		EXPECT_FALSE(Case.Result->HasFinalModifications());
	}
	Case.ModifyNodes(Case.Pins("p", Value("Duration", "4")));
	EXPECT_TRUE(Case.Result->HasFinalModifications());
	ASSERT_NE(Case.Blueprint.Reload(), nullptr);
	EXPECT_EQ(ToStd(Case.Node("p")->FindPin(TEXT("InString"))->DefaultValue), "Changed") << "what stood in memory";
	EXPECT_EQ(CountPrints(), 1);
}

TEST(SecondCall, ANodeOfThisCallGoesBeforeAnOlderOneOfItsId)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + Print + "," + EventNode("e", "ReceiveHit") + "]");
	const std::string OldId = Case.Id("p");
	for (const std::string& Id : {OldId, OldId.substr(0, 7)})
	{
		Case.Make("\"nodes\":[" + CallNode(Id, "KismetSystemLibrary", "Delay") + R"(],"connections":[)"
			+ Link(Case.Id("e"), "then", Id, "execute") + "]");
		const UEdGraphPin* const Then = Case.Node("e")->FindPin(TEXT("then"));
		ASSERT_EQ(Then->LinkedTo.Num(), 1);
		EXPECT_EQ(Then->LinkedTo[0]->GetOwningNode(), Case.Node(Id)) << Id;
		EXPECT_TRUE(Case.Node(Id)->FindPin(TEXT("Duration"))) << Id;
	}
}

TEST(SecondCall, CountersAndNotesOfTheCallBeforeAreGone)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + Print + "," + CallNode("d", "KismetSystemLibrary", "Delay") + "]");
	Case.ModifyNodes(Case.Pins("p", Value("Duration", "soon")) + "," + Case.Pins("d", Value("Duration", "late")));
	ASSERT_EQ(Warnings(*Case.Result).size(), 4u);
	EXPECT_THAT(Warnings(*Case.Result)[3], Not(HasSubstr("soon"))) << "the second failure tells of its own node alone";
	Case.ModifyNodes(Case.Pins("p", Value("Duration", "3")));
	EXPECT_EQ(Case.Data(TEXT("nodes_modified")) + Case.Data(TEXT("items_failed")), "10");
	EXPECT_EQ(Case.Closing(), "Modified graph 'EventGraph': 1 node(s) modified");
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
}

TEST(SecondCall, AReadMayShowAsMuchAsTheOneBefore)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + EventNode("e", "ReceiveHit") + "]");
	while (FReadBudget::Take(*Case.Node("e")))
	{
	}
	const auto Read = RunTool(Morvane::ToolInfo::ToolName_ReadBlueprintEvent,
		R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph","event_name":"Event Hit"})");
	EXPECT_THAT(ToStd(Read->GetDatas()->GetStringField(TEXT("content"))), Not(HasSubstr("Maximum answer size")));
	while (FReadBudget::Take(*Case.Node("e")))
	{
	}
	Case.Nodes(Print);
	EXPECT_THAT(ToStd(Case.Result->GetModifications()[0].Content), Not(HasSubstr("Maximum answer size")))
		<< "what an edit reads back begins anew, too";
}

TEST(SecondCall, ARetryTakesBackTheConversionsThatLeadNowhere)
{
	FModifying Case;
	Case.Make("\"nodes\":[" + CallNode("t", "KismetSystemLibrary", "GetGameTimeInSeconds") + ","
		+ CallNode("old", "KismetSystemLibrary", "PrintString") + "]");
	const std::string New = "\"nodes\":[" + Print + R"(],"connections":[)"
		+ Link(Case.Id("t"), "ReturnValue", "p", "InString");
	{
		const EditorFaults::FFailSaves Fault(TEXT("the disk is full"));
		Case.Populate(New + "," + Link(Case.Id("t"), "ReturnValue", Case.Id("old"), "InString") + "]");
	}
	const int32 Num = Case.Graph()->Nodes.Num();
	Case.Make(New + "]");
	EXPECT_EQ(Case.Graph()->Nodes.Num(), Num) << "the call and its conversion stand once";
	EXPECT_EQ(Case.Node("t")->FindPin(TEXT("ReturnValue"))->LinkedTo.Num(), 2);
	EXPECT_EQ(Case.Node("old")->FindPin(TEXT("InString"))->LinkedTo.Num(), 1) << "a link between older nodes stays";
}

TEST(SecondCall, CallersFollowANewDefaultOfAParameter)
{
	FModifying Case;
	RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph,
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Heal","parameters":[{"name":"Amount","type":{"category":"int"}}]}]})");
	Case.Make("\"nodes\":[" + CallNode("a", "BP_Test", "Heal") + ","
		+ CallNode("b", "BP_Test", "Heal", R"("pins":[{"name":"Amount","value":7}])") + "]");
	const UEdGraphNode* const Entry = FBlueprintEditorUtils::GetEntryNode(Case.Graph(TEXT("Heal")));
	Case.Ids["entry"] = ToStd(Entry->NodeGuid.ToString());
	Case.ModifyNodes(Case.Pins("entry", Value("Amount", "5")), "Heal");
	EXPECT_THAT(Warnings(*Case.Result), IsEmpty());
	EXPECT_EQ(ToStd(Case.Node("a")->FindPin(TEXT("Amount"))->DefaultValue), "5");
	EXPECT_EQ(ToStd(Case.Node("b")->FindPin(TEXT("Amount"))->DefaultValue), "7") << "what was typed in stays";
}
