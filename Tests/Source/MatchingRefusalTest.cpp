// What a request is answered with that no node is meant by, and what the Blueprint's own names do for one that is.

#include "Populating.h"

using testing::HasSubstr;
using testing::Not;

namespace MatchingRefusalTest
{
/** A Blueprint with a variable, a flag, a component and a dispatcher, and a function with local variables. */
struct FStage
{
	FStage()
	{
		RunTool(TEXT("modify_blueprint_class_structure"),
			R"({"path":"/Game/Tests/BP_Test","variables":{"Health":{"action":"add","type":{"category":"float"}},
			"bOpened":{"action":"add","type":{"category":"bool"}}},
			"components":[{"name":"Trigger","type":"BoxComponent"}],"delegates":[{"name":"OnOpened"}]})");
		RunTool(TEXT("bp_create_graph"), R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Compute"}]})");
		Run.Populate(
			R"("local_variables":[{"name":"Count","type":{"category":"int"}},{"name":"bFound","type":{"category":"bool"}}],"nodes":[)"
				+ LooseNode("if", "Branch") + "]",
			"Compute");
	}

	/** The title of the node that came out; empty when none did. */
	std::string Ask(const std::string& Request, const std::string& Graph = "EventGraph")
	{
		Run.Nodes(LooseNode("n", Request), Graph);
		const std::string Summary = Run.Data(TEXT("nodes_created")) == "0" ? ""
																		   : Run.Data(TEXT("created_nodes_summary"));
		if (Summary.empty())
		{
			return "";
		}
		const TSharedRef<FJsonObject> Created = Json(Summary);
		const TArray<TSharedPtr<FJsonValue>>& Items = Created->GetArrayField(TEXT("items"));
		return Items.IsEmpty() ? "" : ToStd(Items[0]->AsObject()->GetStringField(TEXT("node_title")));
	}
	std::string Warning() const { return Warnings(*Run.Result).empty() ? "" : Warnings(*Run.Result)[0]; }

	FPopulating Run;
};
} // namespace MatchingRefusalTest

using MatchingRefusalTest::FStage;

TEST(MatchingRefusal, ShowsWhatIsNearAndNothingElse)
{
	const struct
	{
		const char* Request;
		const char* Shown;
		const char* NotShown;
		const char* Hint;
	} Cases[] = {
		{"Get Loot", "", "  1. ", "have no variable or function 'Loot'"},
		{"Set Save", "", "'Get ", "have no variable or function 'Save'"},
		{"Set Health Points", "'Set Health'", "'Set Opened'", "no variable or function 'Health Points'"},
		{"Cast To SG_Missing", "", "'Cast To ", "No class and no Blueprint is named 'SG_Missing'"},
		{"Cast To BP_Tests", "'Cast To BP_Test'", "'Cast To AI", "No class and no Blueprint is named 'BP_Tests'"},
		{"gun.SetHealth(5)", "'Set Health'", "", "Nothing is known here of 'gun'"},
		{"Animator.SetTrigger(\\\"x\\\")", "'Set Trigger'", "", "Nothing is known here of 'Animator'"},
	};
	FStage Stage;
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Stage.Ask(Case.Request), "") << Case.Request;
		EXPECT_THAT(Stage.Warning(), HasSubstr("[Failure] No confident fuzzy match for node '")) << Case.Request;
		EXPECT_THAT(Stage.Warning(), HasSubstr(Case.Shown)) << Case.Request;
		if (*Case.NotShown)
		{
			EXPECT_THAT(Stage.Warning().substr(Stage.Warning().find("Top candidates")), Not(HasSubstr(Case.NotShown)))
				<< Case.Request;
		}
		EXPECT_THAT(Stage.Run.Told(TEXT("match_hints")), HasSubstr(Case.Hint)) << Case.Request;
	}
}

TEST(MatchingRefusal, EachTitleIsShownOnce)
{
	FStage Stage;
	Stage.Ask("Set Cast Shadow Of Everything");
	const std::string Text = Stage.Warning();
	const size_t First = Text.find("'Set Cast Shadow' (class");
	ASSERT_NE(First, std::string::npos) << Text;
	EXPECT_EQ(Text.find("'Set Cast Shadow' (class", First + 1), std::string::npos) << Text;
}

TEST(MatchingOwnNames, AreTakenAsTheyAreWrittenShownAndSpoken)
{
	const struct
	{
		const char* Graph;
		const char* Request;
		const char* Title;
	} Cases[] = {
		{"EventGraph", "Get bOpened", "Get Opened"},
		{"EventGraph", "read the opened flag", "Get Opened"},
		{"EventGraph", "set opened to true", "Set Opened"},
		{"EventGraph", "assign 5 to Health", "Set Health"},
		{"EventGraph", "Trigger component", "Get Trigger"},
		{"EventGraph", "Health component", ""},
		{"EventGraph", "trigger the OnOpened dispatcher", "Call On Opened"},
		{"EventGraph", "subscribe to on opened", "Bind Event to On Opened"},
		{"EventGraph", "unbind all from OnOpened", "Unbind all Events from On Opened"},
		{"EventGraph", "gun.OnOpened", ""},
		{"Compute", "Get Count", "Get Count"},
		{"Compute", "read local variable count", "Get Count"},
		{"Compute", "bFound variable", "Get Found"},
		{"Compute", "set found to true", "Set Found"},
		{"Compute", "Count = 5", "Set Count"},
		{"EventGraph", "read local variable count", ""},
	};
	FStage Stage;
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Stage.Ask(Case.Request, Case.Graph), Case.Title) << Case.Request << Stage.Warning();
	}
}
