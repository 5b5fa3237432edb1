#include "Utils/Graph/LocalVariables.h"
#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_FunctionEntry.h"
#include "ToolResults.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace LocalVariablesTest
{
static TArray<FBPLocalVariableModification> Parse(const std::string& Text)
{
	TArray<FBPLocalVariableModification> Records;
	Morvane::FToolResult Result = MakeResult();
	EXPECT_TRUE(FBlueprintLocalVariableUtils::Parse(JsonValue(Text), Records, Result)) << Text;
	EXPECT_THAT(Errors(Result), IsEmpty()) << Text;
	return Records;
}

/** A function with an entry, and the records of a text applied to it. */
struct FApplying
{
	FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.Function(TEXT("Run"));
	Morvane::FToolResult Result = MakeResult();
	FBPLocalVariableOutcome Outcome;

	bool Apply(const std::string& Text)
	{
		return FBlueprintLocalVariableUtils::Apply(Blueprint.Get(), Graph.Get(), Parse(Text), Outcome, Result);
	}

	/** "Name:category:default" of each. */
	std::vector<std::string> Variables() const
	{
		TArray<UK2Node_FunctionEntry*> Entries;
		Graph.Get()->GetNodesOfClass(Entries);
		std::vector<std::string> Texts;
		for (const FBPVariableDescription& Variable : Entries[0]->LocalVariables)
		{
			Texts.push_back(ToStd(Variable.VarName.ToString() + TEXT(":") + Variable.VarType.PinCategory.ToString()
				+ TEXT(":") + Variable.DefaultValue));
		}
		return Texts;
	}
};
} // namespace LocalVariablesTest

using namespace LocalVariablesTest;

TEST(LocalVariableRecord, ComesInTwoShapes)
{
	const FGraphBuilder Editor; // types are looked up among the editor's classes
	for (const char* const Text : {R"({"Speed":{"type":{"category":"int"}},"Name":{"action":"REMOVE"}})",
			 R"([{"name":"Speed","type":{"category":"int"}},{"name":"Name","action":"Remove"}])"})
	{
		const TArray<FBPLocalVariableModification> Records = Parse(Text);
		ASSERT_EQ(Records.Num(), 2) << Text;
		EXPECT_EQ(Records[0].Name, TEXT("Speed"));
		EXPECT_EQ(Records[0].Action, EBPNodeAction::Add);
		EXPECT_EQ(Records[0].Type->PinCategory, UEdGraphSchema_K2::PC_Int);
		EXPECT_EQ(Records[1].Action, EBPNodeAction::Remove);
		EXPECT_FALSE(Records[1].Type || Records[1].DefaultValue);
	}
	EXPECT_EQ(Parse("5").Num(), 0);
	EXPECT_EQ(Parse("{}").Num(), 0);
}

TEST(LocalVariableRecord, DefaultsBecomeText)
{
	struct FCase
	{
		const char* Default;
		const TCHAR* Expected;
	};
	for (const FCase& Case : {FCase{"\"abc\"", TEXT("abc")}, {"true", TEXT("true")}, {"false", TEXT("false")},
			 {"2", TEXT("2.0")}, {"-0.25", TEXT("-0.25")}, {"\"\"", TEXT("")}})
	{
		const TArray<FBPLocalVariableModification> Records = Parse(
			std::string(R"([{"name":"V","action":"modify","default_variable_value":)") + Case.Default + "}]");
		ASSERT_TRUE(Records[0].DefaultValue) << Case.Default;
		EXPECT_EQ(*Records[0].DefaultValue, Case.Expected) << Case.Default;
	}
}

TEST(LocalVariableRecord, LegacyFloatsAreReals)
{
	const FGraphBuilder Editor; // types are looked up among the editor's classes
	struct FCase
	{
		const char* Type;
		const char* Expected;
	};
	for (const FCase& Case :
		{FCase{R"({"category":"float"})", "real/float"}, {R"({"category":"Double"})", "real/double"},
			{R"({"category":"float","sub_category":"double"})", "real/double"},
			{R"({"category":"real","sub_category":"float"})", "real/float"}, {R"({"category":"int"})", "int/None"}})
	{
		FEdGraphPinType Type;
		ASSERT_TRUE(FBlueprintLocalVariableUtils::NormalizeType(*Json(Case.Type), Type)) << Case.Type;
		EXPECT_EQ(ToStd(Type.PinCategory.ToString() + TEXT("/") + Type.PinSubCategory.ToString()), Case.Expected);
	}
	FEdGraphPinType Map;
	ASSERT_TRUE(FBlueprintLocalVariableUtils::NormalizeType(
		*Json(R"({"category":"name","container":"Map","value_type":{"category":"float"}})"), Map));
	EXPECT_EQ(Map.ContainerType, EPinContainerType::Map);
	EXPECT_EQ(Map.PinValueType.TerminalCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_EQ(Map.PinValueType.TerminalSubCategory, UEdGraphSchema_K2::PC_Float);
}

TEST(LocalVariableApply, AddsChangesAndRemovesIgnoringCase)
{
	FApplying Case;
	EXPECT_TRUE(Case.Apply(R"([
		{"name":"Speed","type":{"category":"int"},"default_variable_value":"3"},
		{"name":"Label","type":{"category":"string"}},
		{"name":"Gone","type":{"category":"bool"}},
		{"name":"SPEED","action":"modify","default_variable_value":"4"},
		{"name":"label","action":"modify","type":{"category":"name"}},
		{"name":"gone","action":"remove"},
		{"name":"Both","type":{"category":"int"},"default_variable_value":"1"},
		{"name":"both","action":"modify","type":{"category":"name"},"default_variable_value":"North"}])"));
	EXPECT_THAT(Case.Variables(), ElementsAre("Speed:int:4", "Label:name:", "Both:name:North"));
	EXPECT_THAT(Errors(Case.Result), IsEmpty());
	FBlueprintLocalVariableUtils::WriteTelemetry(Case.Outcome, Case.Result);
	EXPECT_EQ(Telemetry(Case.Result),
		R"({"local_variables_added":4,"local_variables_modified":3,"local_variables_removed":1})");
}

TEST(LocalVariableApply, ABadRecordIsReportedAndTheOthersGoOn)
{
	FApplying Case;
	TArray<FBPLocalVariableModification> Records = Parse(R"([
		{"name":"","action":"remove"},
		{"name":"A","type":{"category":"int"}},{"name":"a","type":{"category":"int"}},
		{"name":"X","action":"modify"},{"name":"X","action":"remove"},{"name":"B","type":{"category":"bool"}}])");
	FBPLocalVariableModification Untyped;
	Untyped.Name = TEXT("C");
	Records.Add(Untyped);
	EXPECT_TRUE(FBlueprintLocalVariableUtils::Apply(
		Case.Blueprint.Get(), Case.Graph.Get(), Records, Case.Outcome, Case.Result));
	const auto Expected = ElementsAre("Local variable name cannot be empty", "Local variable 'a' already exists",
		"Local variable 'X' not found for modification", "Local variable 'X' not found for removal",
		"Local variable 'C' requires a 'type' field for add action");
	EXPECT_THAT(Errors(Case.Result), Expected);
	EXPECT_THAT(ToStdList(Case.Outcome.Failures), Expected);
	EXPECT_THAT(Case.Variables(), ElementsAre("A:int:", "B:bool:"));
	FBlueprintLocalVariableUtils::WriteTelemetry(Case.Outcome, Case.Result);
	EXPECT_EQ(Json(Telemetry(Case.Result))->GetArrayField(TEXT("local_variable_failures")).Num(), 5);
}

TEST(LocalVariableApply, GraphsWithoutAnEntryHaveNone)
{
	FApplying Case;
	Case.Graph = Case.Blueprint.EventGraph();
	EXPECT_TRUE(Case.Apply(R"([{"name":"A","type":{"category":"int"}}])"));
	EXPECT_THAT(Warnings(Case.Result), ElementsAre("Local variables are only supported in function graphs"));
	EXPECT_FALSE(Case.Outcome.HasAny());
	FBlueprintLocalVariableUtils::WriteTelemetry(Case.Outcome, Case.Result);
	EXPECT_EQ(Telemetry(Case.Result), "null");
	EXPECT_FALSE(FBlueprintLocalVariableUtils::Apply(Case.Blueprint.Get(), nullptr, {}, Case.Outcome, Case.Result));
	EXPECT_FALSE(FBlueprintLocalVariableUtils::Apply(nullptr, Case.Graph.Get(), {}, Case.Outcome, Case.Result));
	EXPECT_THAT(Errors(Case.Result),
		ElementsAre("Cannot modify local variables without a valid Blueprint and graph",
			"Cannot modify local variables without a valid Blueprint and graph"));
}
