#include "BlueprintBuilder.h"
#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintFunctionCreateOperation.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintMatchingUtils.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Standalone/EditorFaults.h"
#include "ToolResults.h"
#include "Utils/Graph/FunctionGraphs.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace CreateGraphTest
{
/** One saved Blueprint and calls of the tool on it. */
struct FCreating
{
	explicit FCreating(const TCHAR* ParentPath = nullptr)
		: Blueprint(ParentPath)
	{
	}

	FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();

	Morvane::FToolResult& Create(const std::string& Functions)
	{
		Result = MakeResult();
		const std::string Path = ToStd(Blueprint.Path());
		FBlueprintFunctionCreateOperation::Execute(
			*Json(R"({"path":")" + Path + R"(","functions":)" + Functions + "}"), Result);
		return Result;
	}

	UEdGraph* Graph(const TCHAR* Name) const { return FBlueprintMatchingUtils::FindGraphByName(Blueprint.Get(), Name); }

	std::string Data(const TCHAR* Key) const
	{
		return Result.GetDatas() ? ToStd(Result.GetDatas()->GetStringField(Key)) : "";
	}

	/** "tool names" for each tracked read. */
	std::vector<std::string> Tracked() const
	{
		std::vector<std::string> Texts;
		for (const Morvane::FTrackedModification& Modification : Result.GetModifications())
		{
			Texts.push_back(ToStd(Modification.ReadTool) + " " + JsonText(Modification.Parameters));
		}
		return Texts;
	}
};

static std::vector<std::string> PinNames(const UEdGraphNode* Node, EEdGraphPinDirection Direction)
{
	std::vector<std::string> Names;
	for (const UEdGraphPin* const Pin : Node->Pins)
	{
		if (Pin->Direction == Direction && Pin->PinType.PinCategory != UEdGraphSchema_K2::PC_Exec)
		{
			Names.push_back(ToStd(Pin->GetName()));
		}
	}
	return Names;
}
} // namespace CreateGraphTest

using namespace CreateGraphTest;

TEST(CreateGraph, AVoidFunctionHasAnEntryAndNoResult)
{
	FCreating Case;
	Case.Create(R"([{"name":"Heal","parameters":[{"name":"Amount","type":{"category":"int"}}]}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_THAT(Successes(Case.Result),
		ElementsAre("Created new function graph: Heal, with graph_schema: EdGraphSchema_K2",
			"Created or updated 1 function(s) and 0 delegate(s) in '/Game/Tests/BP_Test'"));
	EXPECT_EQ(Case.Data(TEXT("functions_created")), "1");
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(R"(read_blueprint_function {"path":"/Game/Tests/BP_Test","function_name":["Heal"]})"));

	ASSERT_NE(Case.Blueprint.Reload(), nullptr);
	UEdGraph* const Graph = Case.Graph(TEXT("heal"));
	ASSERT_NE(Graph, nullptr) << "it was saved";
	EXPECT_TRUE(FBlueprintGraphUtils::IsFunctionGraph(Case.Blueprint.Get(), Graph));
	ASSERT_NE(FBlueprintGraphUtils::FindFunctionEntry(Graph), nullptr);
	EXPECT_THAT(PinNames(FBlueprintGraphUtils::FindFunctionEntry(Graph), EGPD_Output), ElementsAre("Amount"));
	EXPECT_EQ(FBlueprintGraphUtils::FindFunctionResult(Graph), nullptr);
}

TEST(CreateGraph, TheSameNameWithAReturnTypeGetsAResult)
{
	FCreating Case;
	Case.Create(R"([{"name":"Heal"}])");
	UEdGraph* const Graph = Case.Graph(TEXT("Heal"));
	ASSERT_NE(Graph, nullptr);
	UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(Graph);
	FGraphBuilder::Move(Entry, 120, -40);
	Case.Create(R"([{"name":"HEAL","return_type":{"category":"bool"}}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_EQ(Case.Blueprint->FunctionGraphs
				  .FilterByPredicate([](const UEdGraph* Each) { return Each->GetName() == TEXT("Heal"); })
				  .Num(),
		1);
	UK2Node_FunctionResult* const Returned = FBlueprintGraphUtils::FindFunctionResult(Graph);
	ASSERT_NE(Returned, nullptr);
	EXPECT_EQ(FNodeHandle{Returned}.At(), FIntPoint(520, -40));
	EXPECT_THAT(PinNames(Returned, EGPD_Input), ElementsAre("ReturnValue"));
}

TEST(CreateGraph, AnUnreadableReturnTypeGivesAWarningAndAPlainResult)
{
	FCreating Case;
	Case.Create(R"([{"name":"Heal","return_type":{"category":"nonsense"}}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(
			"Function 'Heal' specified a return_type but the type could not be parsed; proceeding with default result node."));
	UK2Node_FunctionResult* const Returned = FBlueprintGraphUtils::FindFunctionResult(Case.Graph(TEXT("Heal")));
	ASSERT_NE(Returned, nullptr);
	EXPECT_THAT(PinNames(Returned, EGPD_Input), IsEmpty());
}

TEST(CreateGraph, DirectionWords)
{
	FCreating Case;
	Case.Create(R"([{"name":"F","parameters":[
		{"name":"Default","type":{"category":"int"}},
		{"name":"Out","direction":"output","type":{"category":"int"}},
		{"name":"Odd","direction":"sideways","type":{"category":"int"}},
		{"name":"In","direction":"INPUT","type":{"category":"int"}},
		{"name":"Loud","direction":"OUT","type":{"category":"int"}}]}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(
			StartsWith(
				"[Warning] Parameter 'Out' of function 'F' is an input all the same: 'output' does nothing here;"),
			StartsWith(
				"[Warning] Parameter 'Loud' of function 'F' is an input all the same: 'OUT' does nothing here;")));
	const UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(Case.Graph(TEXT("F")));
	ASSERT_NE(Entry, nullptr);
	std::vector<std::string> Asked;
	for (const TSharedPtr<FUserPinInfo>& Pin : Entry->UserDefinedPins)
	{
		Asked.push_back(ToStd(Pin->PinName.ToString()) + (Pin->DesiredPinDirection == EGPD_Input ? " in" : " out"));
	}
	EXPECT_THAT(Asked, ElementsAre("Default out", "Out out", "Odd out", "In in", "Loud out"))
		<< "only the word input passes input";
	EXPECT_THAT(PinNames(Entry, EGPD_Output), ElementsAre("Default", "Out", "Odd", "In", "Loud"))
		<< "an entry has outputs only";
}

TEST(CreateGraph, AParameterWithoutAReadableTypeIsLeftOutAndTold)
{
	FCreating Case;
	Case.Create(R"([{"name":"F","parameters":[{"name":"Word","type":"float"},
		{"name":"Good","type":{"category":"float"}},{"name":"Odd","type":{"category":"nonsense"}}]}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_THAT(
		PinNames(FBlueprintGraphUtils::FindFunctionEntry(Case.Graph(TEXT("F"))), EGPD_Output), ElementsAre("Good"));
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre("Parameter 'Word' of function 'F' has a type that could not be parsed; it was left out.",
			"Parameter 'Odd' of function 'F' has a type that could not be parsed; it was left out."));
}

TEST(CreateGraph, AParameterThatStandsWithAnotherTypeIsTold)
{
	FCreating Case;
	const std::string Int = R"([{"name":"F","parameters":[{"name":"P","type":{"category":"int"}}]}])";
	Case.Create(Int);
	Case.Create(Int);
	EXPECT_THAT(Warnings(Case.Result), IsEmpty()) << "the same once more is there already";
	Case.Create(R"([{"name":"F","parameters":[{"name":"p","type":{"category":"bool"}}]}])");
	EXPECT_THAT(
		Warnings(Case.Result), ElementsAre(StartsWith("Parameter 'p' of 'F' stands already with another type; '")));
}

TEST(CreateGraph, ADispatchersGraphIsNoGraphToEdit)
{
	FCreating Case;
	Case.Create(R"([{"name":"OnHit","is_delegate":true},{"name":"F"}])");
	ASSERT_NE(Case.Blueprint.Reload(), nullptr);
	EXPECT_FALSE(Case.Graph(TEXT("OnHit"))->bEditable);
	EXPECT_TRUE(Case.Graph(TEXT("F"))->bEditable);
}

TEST(CreateGraph, AParentEventBecomesAnEventAndNoFunction)
{
	FCreating Case;
	const int32 NumFunctions = Case.Blueprint->FunctionGraphs.Num();
	Case.Create(R"([{"name":"ReceiveAnyDamage"}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_EQ(Case.Blueprint->FunctionGraphs.Num(), NumFunctions);
	EXPECT_THAT(Successes(Case.Result)[0],
		StartsWith(
			"This graph is implemented as an Event on the parent class and must be an event on this blueprint as well."));
	EXPECT_THAT(Successes(Case.Result)[0],
		HasSubstr("was added as an override to Event ReceiveAnyDamage in parent class Actor."));
	EXPECT_THAT(Case.Tracked(), IsEmpty());
	EXPECT_EQ(Case.Data(TEXT("functions_created")), "0");

	TArray<UK2Node_Event*> Events;
	Case.Blueprint.EventGraph().Get()->GetNodesOfClass(Events);
	const int32 NumEvents = Events.Num();
	Case.Create(R"([{"name":"ReceiveAnyDamage"}])");
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(StartsWith(
			"The graph ReceiveAnyDamage already exists as an event on this blueprint's EventGraph, overriding the parent class: Actor. Instead")));
	Events.Empty();
	Case.Blueprint.EventGraph().Get()->GetNodesOfClass(Events);
	EXPECT_EQ(Events.Num(), NumEvents);
}

TEST(CreateGraph, AParentFunctionWithAResultIsOverriddenWithTheParentsPins)
{
	FCreating Case(TEXT("/Script/Engine.GameModeBase"));
	Case.Create(R"([{"name":"CanSpectate","return_type":{"category":"bool"},"parameters":[
		{"name":"Viewer","type":{"category":"object","sub_category_object":"/Script/Engine.PlayerController"}}]}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_EQ(Successes(Case.Result)[0], "Overriding function: CanSpectate in parent class: GameModeBase");
	UEdGraph* const Graph = Case.Graph(TEXT("CanSpectate"));
	UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(Graph);
	ASSERT_NE(Entry, nullptr);
	EXPECT_FALSE(Entry->bIsEditable) << "not created by a user";
	EXPECT_THAT(PinNames(Entry, EGPD_Output), ElementsAre("Viewer", "ViewTarget"));
	ASSERT_NE(FBlueprintGraphUtils::FindFunctionResult(Graph), nullptr);
	EXPECT_THAT(PinNames(FBlueprintGraphUtils::FindFunctionResult(Graph), EGPD_Input), ElementsAre("ReturnValue"));
	EXPECT_TRUE(Case.Blueprint.Compiles());
}

TEST(CreateGraph, WhatItMakesCompiles)
{
	FCreating Case;
	Case.Create(R"([{"name":"Heal","return_type":{"category":"real","sub_category":"double"},"parameters":[
			{"name":"Amount","type":{"category":"float"}},{"name":"Tags","type":{"category":"name","container":"array"}}]},
		{"name":"OnHit","is_delegate":true},{"name":"ReceiveDestroyed"}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	EXPECT_TRUE(Case.Blueprint.Compiles());
	const UFunction* const Heal = Case.Blueprint->GeneratedClass->FindFunctionByName(TEXT("Heal"));
	ASSERT_NE(Heal, nullptr);
	EXPECT_NE(Heal->GetReturnProperty(), nullptr);
	EXPECT_NE(Heal->FindPropertyByName(TEXT("Tags")), nullptr);
}

TEST(CreateGraph, AFailedSaveIsNoSuccessAndFinalisesNothing)
{
	FCreating Case;
	{
		const EditorFaults::FFailSaves Fault(TEXT("the disk is full"));
		Case.Create(R"([{"name":"Heal"}])");
	}
	EXPECT_FALSE(Errors(Case.Result).empty());
	EXPECT_THAT(Successes(Case.Result), ElementsAre(StartsWith("Created new function graph: Heal")));
	ASSERT_EQ(Case.Result.GetModifications().Num(), 1);
	EXPECT_TRUE(Case.Result.GetModifications()[0].Content.IsEmpty());
	EXPECT_NE(Case.Graph(TEXT("Heal")), nullptr) << "there is no undo";
}

TEST(CreateGraph, SourceControlThatTakesNoFileIsAWarning)
{
	FCreating Case;
	const EditorFaults::FRefuseMarkForAdd Fault(TEXT("no room"));
	Case.Create(R"([{"name":"Heal"}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	ASSERT_EQ(Warnings(Case.Result).size(), 1u);
	EXPECT_THAT(Warnings(Case.Result)[0],
		AllOf(StartsWith("Blueprint modified successfully, but could not add to source control:\n"),
			HasSubstr("no room"), EndsWith("\nPlease manually add the asset in your source control client.")));
	EXPECT_FALSE(Case.Result.GetModifications()[0].Content.IsEmpty()) << "finalised all the same";
}

TEST(CreateGraph, AnEventGraphKeepsItsName)
{
	FCreating Case;
	Case.Create(R"([{"name":"eventgraph","return_type":{"category":"bool"}}])");
	EXPECT_THAT(Errors(Case.Result),
		ElementsAre("Failed to create function graph: eventgraph (an event graph has this name already)"));
	EXPECT_EQ(FBlueprintGraphUtils::FindFunctionEntry(Case.Blueprint.EventGraph().Get()), nullptr);
}

TEST(CreateGraph, NamesThatNoFunctionCanHaveAreRefused)
{
	FCreating Case;
	Case.Blueprint.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	Case.Create(R"([{"name":"OnHit","is_delegate":true}])");
	const std::string Long(200, 'x');
	for (const auto& [Name, Reason] :
		{std::pair<std::string, const char*>("Health", "a variable has this name already"),
			{"onhit", "an event dispatcher has this name already"},
			{"bCanBeDamaged", "a variable of the parent class 'Actor' has this name already"},
			{"a.b", "\"a.b\" cannot be a name: it holds the character '.'"},
			{Long, "Names must have fewer than 100 characters!"}})
	{
		Case.Create(R"([{"name":")" + Name + "\"}]");
		EXPECT_THAT(Errors(Case.Result), ElementsAre("Failed to create function graph: " + Name + " (" + Reason + ")"));
	}
	Case.Create(R"([{"name":"Health","is_delegate":true}])");
}

TEST(CreateGraph, ABatchSentAgainChangesNothing)
{
	FCreating Case;
	const std::string Batch = R"([{"name":"Heal","parameters":[{"name":"Amount","type":{"category":"float"}},
		{"name":"Names","type":{"category":"string","container_type":"array"}}],"return_type":{"category":"bool"}},
		{"name":"OnHit","is_delegate":true,"parameters":[{"name":"Damage","type":{"category":"real"}}]}])";
	Case.Create(Batch);
	Case.Create(Batch);
	EXPECT_THAT(Warnings(Case.Result), IsEmpty());
	ASSERT_NE(Case.Blueprint.Reload(), nullptr);
	Case.Create(Batch);
	UEdGraph* const Graph = Case.Graph(TEXT("Heal"));
	EXPECT_THAT(PinNames(FBlueprintGraphUtils::FindFunctionEntry(Graph), EGPD_Output), ElementsAre("Amount", "Names"));
	EXPECT_THAT(PinNames(FBlueprintGraphUtils::FindFunctionResult(Graph), EGPD_Input), ElementsAre("ReturnValue"));
	EXPECT_THAT(PinNames(FBlueprintGraphUtils::FindFunctionEntry(Case.Graph(TEXT("OnHit"))), EGPD_Output),
		ElementsAre("Damage"));

	Case.Create(R"([{"name":"Heal","parameters":[{"name":"amount","type":{"category":"int"}}]}])");
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(StartsWith("Parameter 'amount' of 'Heal' stands already with another type; '")));
}

TEST(CreateGraph, ADelegateGetsASignatureGraphWithPins)
{
	FCreating Case;
	Case.Create(R"([{"name":"OnHit","is_delegate":true,"parameters":[{"name":"Damage","type":{"category":"real"}}]}])");
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	UEdGraph* const Graph = Case.Graph(TEXT("OnHit"));
	ASSERT_NE(Graph, nullptr);
	EXPECT_TRUE(FBlueprintGraphUtils::IsDelegateSignatureGraph(Case.Blueprint.Get(), Graph));
	const UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(Graph);
	ASSERT_NE(Entry, nullptr);
	EXPECT_TRUE(Entry->bIsEditable);
	EXPECT_EQ(Entry->GetExtraFlags() & 0x0C020000, 0x0C020000);
	EXPECT_THAT(PinNames(Entry, EGPD_Output), ElementsAre("Damage"));
	const UFunction* const Signature = FBlueprintEditorUtils::GetMostUpToDateClass(Case.Blueprint->GeneratedClass)
										   ->FindFunctionByName(TEXT("OnHit__DelegateSignature"));
	ASSERT_NE(Signature, nullptr);
	EXPECT_FALSE(UEdGraphSchema_K2::CanKismetOverrideFunction(Signature)) << "a signature is no event to implement";
	EXPECT_THAT(Case.Tracked(),
		ElementsAre(R"(read_blueprint_delegate {"path":"/Game/Tests/BP_Test","delegate_name":["OnHit"]})"));
	EXPECT_THAT(Successes(Case.Result),
		ElementsAre("Created or updated 0 function(s) and 1 delegate(s) in '/Game/Tests/BP_Test'"));
}

TEST(CreateGraph, ABadEntryStopsTheSaveAndNotTheOthers)
{
	FCreating Case;
	Case.Create(R"([5,{"parameters":[]},{"name":"Good"},{"name":"","is_delegate":true}])");
	EXPECT_THAT(Errors(Case.Result),
		ElementsAre("Function at index 0 is not a valid object", "Invalid function specification for '' (index 1)",
			"Invalid function specification for '' (index 3)"));
	EXPECT_NE(Case.Graph(TEXT("Good")), nullptr);
	EXPECT_EQ(Case.Data(TEXT("functions_created")), "1");
	EXPECT_THAT(Case.Tracked(), IsEmpty());
	ASSERT_NE(Case.Blueprint.Reload(), nullptr);
	EXPECT_EQ(Case.Graph(TEXT("Good")), nullptr) << "nothing was saved";
}

TEST(CreateGraph, ArgumentsAreChecked)
{
	struct FCase
	{
		const char* Arguments;
		const char* Message;
	};
	FBlueprintBuilder Blueprint;
	for (const FCase& Case :
		{FCase{"{}", "Missing required field 'path'"}, {R"({"path":5})", "Missing required field 'path'"},
			{R"({"path":"/Game/X"})", "Missing required 'functions' array with at least one entry"},
			{R"({"path":"/Game/X","functions":[]})", "Missing required 'functions' array with at least one entry"},
			{R"({"path":"/Game/X","functions":{}})", "Missing required 'functions' array with at least one entry"}})
	{
		Morvane::FToolResult Result = MakeResult();
		FBlueprintFunctionCreateOperation::Execute(*Json(Case.Arguments), Result);
		EXPECT_THAT(Errors(Result), ElementsAre(Case.Message)) << Case.Arguments;
		EXPECT_FALSE(Result.GetDatas());
	}
}

TEST(CreateGraph, AMissingBlueprintIsMadeWithoutAWord)
{
	FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();
	FBlueprintFunctionCreateOperation::Execute(
		*Json(R"({"path":"/Game/New/BP_Made","functions":[{"name":"F"}]})"), Result);
	EXPECT_THAT(Errors(Result), IsEmpty());
	EXPECT_TRUE(Blueprint.Folder().Exists("Content/New/BP_Made.uatext"));

	Morvane::FToolResult Failed = MakeResult();
	FBlueprintFunctionCreateOperation::Execute(*Json(R"({"path":"../out","functions":[{"name":"F"}]})"), Failed);
	EXPECT_THAT(Errors(Failed),
		ElementsAre(StartsWith("Failed to auto-create blueprint fixture: "), "Blueprint not found: ../out"));
}

TEST(GraphSignature, NeedsABlueprintAGraphAndAnEntry)
{
	FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();
	FGraphBuilder Empty;
	UEdGraph* Graph = nullptr;
	UK2Node_FunctionEntry* Entry = nullptr;
	UK2Node_FunctionResult* Returned = nullptr;
	EXPECT_FALSE(FBlueprintFunctionGraphUtils::ConfigureGraphSignature(Blueprint.Get(), nullptr, {}, Result));
	EXPECT_FALSE(FBlueprintFunctionGraphUtils::ConfigureGraphSignature(Blueprint.Get(), Empty.Get(), {}, Result));
	EXPECT_FALSE(FBlueprintFunctionGraphUtils::EnsureFunctionGraph(
		Blueprint.Get(), TEXT(""), Graph, Entry, Returned, Result, false));
	EXPECT_FALSE(FBlueprintFunctionGraphUtils::EnsureDelegateSignature(nullptr, TEXT("D"), Graph, Result));
	EXPECT_FALSE(
		FBlueprintFunctionGraphUtils::EnsureDelegateSignature(Blueprint.Get(), TEXT("EventGraph"), Graph, Result));
	EXPECT_THAT(Errors(Result),
		ElementsAre("Invalid parameters for ConfigureGraphSignature", "No FunctionEntry node found in function graph",
			"Invalid Blueprint or FunctionName", "Invalid Blueprint or DelegateName",
			"Failed to create delegate signature graph: EventGraph (an event graph has this name already)"));
}

TEST(FunctionUtils, CreateModifyRemoveOneFunction)
{
	FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();
	using FUtils = FBlueprintCreateModifyRemoveUtils;
	EXPECT_FALSE(FUtils::CreateFunction(nullptr, *Json(R"({"name":"F"})"), Result));
	EXPECT_FALSE(FUtils::CreateFunction(Blueprint.Get(), *Json("{}"), Result));
	EXPECT_TRUE(FUtils::CreateFunction(Blueprint.Get(), *Json(R"({"name":"F"})"), Result));
	EXPECT_FALSE(FUtils::CreateFunction(Blueprint.Get(), *Json(R"({"name":"f"})"), Result));
	EXPECT_TRUE(FUtils::ModifyFunction(Blueprint.Get(), *Json(R"({"name":"f"})"), Result));
	EXPECT_FALSE(FUtils::ModifyFunction(Blueprint.Get(), *Json(R"({"name":"g"})"), Result));
	EXPECT_TRUE(FUtils::RemoveFunction(Blueprint.Get(), TEXT("f"), Result));
	EXPECT_FALSE(FUtils::RemoveFunction(Blueprint.Get(), TEXT("f"), Result));
	EXPECT_FALSE(FUtils::RemoveFunction(nullptr, TEXT("f"), Result));
	EXPECT_EQ(FBlueprintMatchingUtils::FindGraphByName(Blueprint.Get(), TEXT("F")), nullptr);
	EXPECT_THAT(Successes(Result), ElementsAre("Created function 'F'", "Removed function 'f'"));
	EXPECT_THAT(Warnings(Result),
		ElementsAre("Function modification not fully implemented. Consider removing and recreating the function."));
	EXPECT_THAT(Errors(Result),
		ElementsAre("Invalid Blueprint", "Missing required field 'name' for function", "Function 'f' already exists",
			"Function 'g' not found", "Function 'f' not found", "Invalid Blueprint"));
}
