// The tool that edits widget trees: where widgets go, what is refused, what is saved.

#include "EdGraphSchema_K2.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Standalone/EditorFaults.h"
#include "UObject/Package.h"
#include "WidgetBlueprintService.h"
#include "WidgetEditing.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace WidgetTreeToolTests
{
/** Root(List(First Second) Ok(Label)) */
static std::string Menu()
{
	return AddWidget("List", "VerticalBox", "Root") + "," + AddWidget("First", "TextBlock", "List") + ","
		+ AddWidget("Second", "Image", "List") + "," + AddWidget("Ok", "Button", "Root") + ","
		+ AddWidget("Label", "TextBlock", "Ok");
}

/** The widgets' names in the re-read hierarchy and the details that stand beside it. */
static std::string ContentOf(const Morvane::FToolResult& Result, const char* Tool)
{
	for (const Morvane::FTrackedModification& Modification : Result.GetModifications())
	{
		if (ToStd(Modification.ReadTool) == Tool)
		{
			return ToStd(Modification.Content);
		}
	}
	return "not tracked";
}
} // namespace WidgetTreeToolTests

using namespace WidgetTreeToolTests;

TEST(WidgetTreeTool, OneCallBuildsATreeThatIsSavedCompiledAndReadAgain)
{
	FWidgetEditing Edit;
	const Morvane::FToolResult& Result = Edit.Tree("/Script/UMG.CanvasPanel", Menu());
	EXPECT_THAT(Errors(Result), IsEmpty());
	EXPECT_THAT(Warnings(Result), IsEmpty());
	EXPECT_THAT(Successes(Result),
		ElementsAre("Created widget 'Root' of class '/Script/UMG.CanvasPanel'",
			"Created widget 'List' of class 'VerticalBox'", "Created widget 'First' of class 'TextBlock'",
			"Created widget 'Second' of class 'Image'", "Created widget 'Ok' of class 'Button'",
			"Created widget 'Label' of class 'TextBlock'",
			"Successfully modified Widget Blueprint: BP_Test (Widgets: +6 ~0 -0, Animations: +0 -0)"));
	EXPECT_EQ(Telemetry(Result),
		R"({"widgets_added":6,"widgets_modified":0,"widgets_removed":0,"animations_added":0,"animations_removed":0})");
	EXPECT_FALSE(Edit.Get().GetOutermost()->IsDirty());
	EXPECT_EQ(Edit.Get().Status, BS_UpToDate);
	const std::string Read = ContentOf(Result, "read_blueprint_widget_tree");
	EXPECT_THAT(Read, HasSubstr(R"("name":"Label")"));
	EXPECT_THAT(Read, HasSubstr(R"("parent":"Ok")"));
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Edit.Shape(), "Root(List(First Second) Ok(Label))");
}

TEST(WidgetTreeTool, CountsAreDifferencesAndModificationsAreOperations)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", Menu());
	Edit.Widgets(AddWidget("Third", "Border", "List") + "," + AddWidget("Fourth", "Border", "List") + ","
		+ RemoveWidget("First") + "," + ModifyWidget("Ok", R"("is_variable":false)") + ","
		+ ModifyWidget("Label", R"("properties":{"Text":"Go"})"));
	EXPECT_EQ(Telemetry(*Edit.Result),
		R"({"widgets_added":1,"widgets_modified":2,"widgets_removed":0,"animations_added":0,"animations_removed":0})");
	Edit.Widgets(RemoveWidget("Ok"));
	EXPECT_EQ(Successes(*Edit.Result).back(),
		"Successfully modified Widget Blueprint: BP_Test (Widgets: +0 ~0 -2, Animations: +0 -0)");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Edit.Shape(), "Root(List(Second Third Fourth))");
}

TEST(WidgetTreeTool, WithNothingToDoNothingIsSaved)
{
	FWidgetEditing Edit;
	const std::string Before = Edit.File();
	for (const char* const Members : {"", R"("widget_tree":{})", R"("widget_tree":{"widgets":[]})",
			 R"("widget_tree":{"widgets":[{"action":"paint","name":"Root"}]})", R"("widget_tree":7,"animations":{})",
			 R"("widget_tree":{"root_widget":"Root","widgets":{"action":"add"}})", R"("animations":[])"})
	{
		Edit.Call(Members);
		EXPECT_THAT(Errors(*Edit.Result), IsEmpty()) << Members;
		EXPECT_THAT(Warnings(*Edit.Result), ElementsAre("No modifications were made to the Widget Blueprint"))
			<< Members;
		EXPECT_THAT(Successes(*Edit.Result), IsEmpty()) << Members;
		EXPECT_EQ(Telemetry(*Edit.Result), "null") << Members;
	}
	EXPECT_EQ(Edit.File(), Before);
}

struct FRefusedOperation
{
	const char* Operation;
	const char* Error;
};

TEST(WidgetTreeTool, WhatCannotBeDoneIsSaidAndLeavesTheTreeWhole)
{
	const FRefusedOperation Cases[] = {
		{R"({"name":"A"})", "Widget operation missing 'action' field"},
		{R"("add")", "Widget operation missing 'action' field"},
		{R"({"action":"add","class":"Button","parent":"Root"})", "Widget name is required"},
		{R"({"action":"add","name":"","class":"Button","parent":"Root"})", "Widget name is required"},
		{R"({"action":"add","name":"A","parent":"Root"})", "Widget class path is required for new widgets"},
		{R"({"action":"add","name":"A","class":"Button","parent":"Nowhere"})", "Parent widget 'Nowhere' not found"},
		{R"({"action":"add","name":"A","class":"Button","parent":"First"})",
			"Parent widget 'First' of class 'TextBlock' is no panel and cannot hold children"},
		{R"({"action":"add","name":"A","class":"Button","parent":"Ok"})",
			"Widget 'A' cannot be placed in 'Ok' of class 'Button', which holds one child and has 'Label'. Give it a panel as its child, "
			"or remove that one first."},
		{R"({"action":"add","name":"A","class":"Chandelier","parent":"Root"})",
			"Widget class 'Chandelier' not found. Use a class path such as '/Script/UMG.Button' or the path of a Widget "
			"Blueprint."},
		{R"({"action":"add","name":"A","class":"/Script/Engine.Actor","parent":"Root"})",
			"Class '/Script/Engine.Actor' is not a widget class"},
		{R"({"action":"add","name":"A","class":"PanelWidget","parent":"Root"})",
			"Widget class '/Script/UMG.PanelWidget' is abstract and cannot be placed"},
		{R"({"action":"add","name":"A","class":"UserWidget","parent":"Root"})",
			"Widget class '/Script/UMG.UserWidget' is abstract and cannot be placed"},
		{R"({"action":"add","name":"first","class":"Button","parent":"Root"})",
			"Widget 'First' already exists, of class 'TextBlock'. Use the action 'modify' to change it, or another name."},
		{R"({"action":"add","name":"Score","class":"Button","parent":"Root"})",
			"Widget 'Score' was not created: 'BP_Test' has a variable, function, graph or animation of that name"},
		{R"({"action":"add","name":"EventGraph","class":"Button","parent":"Root"})",
			"Widget 'EventGraph' was not created: 'BP_Test' has a variable, function, graph or animation of that name"},
		{R"({"action":"add","name":"Visibility","class":"Button","parent":"Root"})",
			"Widget 'Visibility' was not created: 'BP_Test' has a variable, function, graph or animation of that name"},
		{R"({"action":"add","name":"My.Button","class":"Button","parent":"Root"})",
			"'My.Button' is no name for a widget or an animation: use letters, digits and underscores"},
		{R"({"action":"add","name":"3D","class":"Button","parent":"Root"})",
			"Widget '3D' was not created: no widget can have that name"},
		{R"({"action":"modify","properties":{}})", "Widget name is required"},
		{R"({"action":"modify","name":"Gone"})", "Widget 'Gone' not found for modification"},
		{R"({"action":"modify","name":"Ok","parent":"Gone"})", "Parent widget 'Gone' not found"},
		{R"({"action":"reorder","parent":"Root"})", "Reorder operation missing 'name' field"},
		{R"({"action":"reorder","name":"Gone","parent":"Root"})", "Widget 'Gone' not found for reordering"},
		{R"({"action":"reorder","name":"Ok"})", "New parent widget is required for reorder"},
		{R"({"action":"reorder","name":"Ok","parent":"Gone"})", "Parent widget 'Gone' not found"},
		{R"({"action":"reorder","name":"Ok","parent":"Label"})",
			"Parent widget 'Label' of class 'TextBlock' is no panel and cannot hold children"},
		{R"({"action":"reorder","name":"Root","parent":"List"})",
			"Widget 'Root' cannot be moved into 'List', which is part of it"},
		{R"({"action":"reorder","name":"List","parent":"List"})",
			"Widget 'List' cannot be moved into 'List', which is part of it"},
		{R"({"action":"reorder","name":"First","parent":"Ok"})",
			"Widget 'First' cannot be placed in 'Ok' of class 'Button', which holds one child and has 'Label'. Give it a panel as its "
			"child, or remove that one first."},
		{R"({"action":"remove"})", "Remove widget operation missing 'name' field"},
		{R"({"action":"remove","name":"Gone"})", "Widget 'Gone' not found for removal"},
	};
	FWidgetEditing Edit;
	Edit.Blueprint.AddVariable(TEXT("Score"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	Edit.Tree("CanvasPanel", Menu());
	const std::string Before = Edit.File();
	for (const FRefusedOperation& Case : Cases)
	{
		Edit.Widgets(Case.Operation);
		EXPECT_THAT(Errors(*Edit.Result), ElementsAre(Case.Error)) << Case.Operation;
		EXPECT_THAT(Successes(*Edit.Result), IsEmpty()) << Case.Operation;
		EXPECT_EQ(Edit.Shape(), "Root(List(First Second) Ok(Label))") << Case.Operation;
		EXPECT_EQ(Edit.File(), Before) << Case.Operation;
	}
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetTreeTool, AFailureEndsTheCallUnsavedAndTheNextSuccessSavesAll)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", Menu());
	const std::string Before = Edit.File();
	Edit.Widgets(
		AddWidget("Early", "Image", "List") + "," + RemoveWidget("Gone") + "," + AddWidget("Late", "Image", "List"));
	EXPECT_THAT(Errors(*Edit.Result), ElementsAre("Widget 'Gone' not found for removal"));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre(
			"Operation widgets[1] (remove) for 'Gone' failed and ended the call. What earlier operations changed "
			"stands in memory, unsaved; the next successful call on this Blueprint saves it."));
	EXPECT_EQ(Edit.Shape(), "Root(List(First Second Early) Ok(Label))");
	EXPECT_TRUE(Edit.Get().GetOutermost()->IsDirty());
	EXPECT_EQ(Edit.File(), Before) << "loading afresh shows the old tree";
	EXPECT_TRUE(Edit.Result->GetModifications().IsEmpty());

	Edit.Widgets(ModifyWidget("Label", R"("properties":{"Text":"Go"})"));
	EXPECT_TRUE(Edit.Result->WasSuccessful());
	EXPECT_THAT(Edit.File(), HasSubstr("Early"));

	Edit.Call(R"("widget_tree":{"widgets":[)" + AddWidget("Third", "Image", "List")
		+ R"(]},"animations":[{"name":"Fade","action":"modify"}])");
	EXPECT_THAT(Errors(*Edit.Result), ElementsAre("Animation 'Fade' has unsupported action 'modify'"));
	EXPECT_THAT(Edit.File(), testing::Not(HasSubstr("Third")));
}

TEST(WidgetTreeTool, AReorderIsAChangeAndKeepsTheLayout)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel",
		Menu() + "," + AddWidget("Row", "HorizontalBox", "Root") + "," + AddWidget("Third", "Image", "List"));
	Edit.Widgets(ModifyWidget("Third", R"("slot":{"Padding":{"Left":7},"Size":{"SizeRule":"Fill","Value":3}})"));
	Edit.Widgets(MoveWidget("Third", "List", R"("index":0)"));
	EXPECT_THAT(Successes(*Edit.Result),
		ElementsAre("Reordered widget 'Third'",
			"Successfully modified Widget Blueprint: BP_Test (Widgets: +0 ~0 -0, Animations: +0 -0)"));
	EXPECT_EQ(Edit.Shape(), "Root(List(Third First Second) Ok(Label) Row)");
	const std::string Padding = Edit.Value("Third", "Slot.Padding");
	EXPECT_THAT(Padding, HasSubstr("Left=7.000000"));
	Edit.Widgets(MoveWidget("Third", "Row") + "," + MoveWidget("First", "List", R"("index":99)"));
	EXPECT_EQ(Edit.Shape(), "Root(List(Second First) Ok(Label) Row(Third))");
	EXPECT_EQ(Edit.Value("Third", "Slot.Padding"), Padding) << "what both kinds of slot have";
	EXPECT_THAT(Edit.Value("Third", "Slot.Size"), HasSubstr("Value=3.000000"));
	Edit.Widgets(MoveWidget("Label", "Ok") + "," + MoveWidget("Third", "List", R"("index":1)"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty()) << "the one child of a button stays its child";
	EXPECT_EQ(Edit.Shape(), "Root(List(Second Third First) Ok(Label) Row)");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Edit.Shape(), "Root(List(Second Third First) Ok(Label) Row)");
}

TEST(WidgetTreeTool, WhatAnActionDoesNotDoIsSaid)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", Menu());
	Edit.Widgets(ModifyWidget("Ok", R"("class":"CheckBox")"));
	EXPECT_THAT(
		Warnings(*Edit.Result), ElementsAre("Widget 'Ok' stays of class 'Button': a modify does not change the class"));
	Edit.Widgets(ModifyWidget("Ok", R"("class":"/Script/UMG.Button")"));
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	Edit.Widgets(AddWidget("Third", "Image", "List", R"("index":0)"));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre("Widget 'Third' was placed last: 'index' is read by the action 'reorder' alone"));
	EXPECT_EQ(Edit.Shape(), "Root(List(First Second Third) Ok(Label))");
}

TEST(WidgetTreeTool, AWidgetWithoutAParentGoesIntoTheRoot)
{
	FWidgetEditing Edit;
	Edit.Widgets(AddWidget("Frame", "Border", "") + "," + AddWidget("Text", "TextBlock", ""));
	EXPECT_THAT(
		Warnings(*Edit.Result), ElementsAre("Widget 'Text' names no parent and was placed in the root 'Frame'"));
	EXPECT_EQ(Edit.Shape(), "Frame(Text)");
	Edit.Widgets(AddWidget("More", "TextBlock", ""));
	EXPECT_THAT(Errors(*Edit.Result),
		ElementsAre(
			"Widget 'More' has no parent, and the root 'Frame' has no room for it: name a panel as its parent"));
	Edit.Widgets(ModifyWidget("Text", R"("parent":"Frame","properties":{"Text":"Hello"})"));
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetTreeTool, ANewRootTakesTheChildrenOrNamesWhatIsLost)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", Menu());
	const auto SetRoot = [&Edit](const std::string& Record) -> Morvane::FToolResult&
	{ return Edit.Call(R"("widget_tree":{"root_widget":)" + Record + "}"); };

	SetRoot(R"({"name":"Page","class":"Overlay"})");
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_EQ(Edit.Shape(), "Page(List(First Second) Ok(Label))");
	EXPECT_EQ(Telemetry(*Edit.Result),
		R"({"widgets_added":0,"widgets_modified":0,"widgets_removed":0,"animations_added":0,"animations_removed":0})");

	SetRoot(R"({"action":"modify","name":"Page","is_variable":false,"properties":{"RenderOpacity":0.5}})");
	EXPECT_EQ(Edit.Value("Page", "RenderOpacity"), "0.500000");
	EXPECT_EQ(Edit.Shape(), "Page(List(First Second) Ok(Label))");

	SetRoot(R"({"name":"page","class":"CanvasPanel"})");
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty()) << "a root of the same name takes the place of the old one";
	EXPECT_EQ(Edit.Shape(), "page(List(First Second) Ok(Label))");
	EXPECT_EQ(Edit.Value("page", "RenderOpacity"), "1.000000");

	SetRoot(R"({"name":"PAGE","class":"Nonsense"})");
	EXPECT_EQ(Errors(*Edit.Result).size(), 1U);
	EXPECT_EQ(Edit.Shape(), "page(List(First Second) Ok(Label))") << "the old root stays, under its name";
	EXPECT_FALSE(Edit.Get().GetOutermost()->IsDirty()) << "nothing was changed, so nothing is to be saved";

	SetRoot(R"({"name":"Frame","class":"SizeBox"})");
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre(
			"The new root 'Frame' of class 'SizeBox' cannot hold all that the old root 'page' held. Lost: Ok, Label"));
	EXPECT_EQ(Edit.Shape(), "Frame(List(First Second))");

	SetRoot(R"({"action":"modify","name":"List"})");
	EXPECT_EQ(Edit.Shape(), "List(First Second)") << "a widget of the tree may become its root";
	SetRoot(R"({"name":"Only","class":"Image"})");
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre(
			"The new root 'Only' of class 'Image' cannot hold all that the old root 'List' held. Lost: First, Second"));
	EXPECT_EQ(Edit.Shape(), "Only");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	Edit.Widgets(RemoveWidget("Only"));
	EXPECT_EQ(Edit.Shape(), "");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetTreeTool, NamesOfRemovedWidgetsAreFree)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", Menu());
	Edit.Widgets(
		RemoveWidget("Ok") + "," + AddWidget("Ok", "CheckBox", "Root") + "," + AddWidget("Label", "TextBlock", "Ok"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_EQ(Edit.Shape(), "Root(List(First Second) Ok(Label))");
	EXPECT_EQ(ToStd(Edit.Find("Ok")->GetClass()->GetName()), "CheckBox");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(ToStd(Edit.Find("Ok")->GetClass()->GetName()), "CheckBox");
}

TEST(WidgetTreeTool, ABlueprintDoesNotHoldItself)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel");
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":"/Game/Tests/WBP_Leaf","blueprint_parent_class":{"type":"native","parent_path":"/Script/UMG.UserWidget"}})");
	Edit.Widgets(AddWidget("Page", "/Game/Tests/WBP_Leaf", "Root"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_EQ(ToStd(Edit.Find("Page")->GetClass()->GetName()), "WBP_Leaf_C");
	const auto AddToPage = [](const std::string& Class)
	{
		return Errors(*RunTool(Morvane::ToolInfo::ToolName_UIModifyWidgetBP,
			R"({"path":"/Game/Tests/WBP_Leaf","widget_tree":{"root_widget":{"name":"Root","class":")" + Class
				+ "\"}}}"));
	};
	EXPECT_THAT(
		AddToPage("WBP_Leaf"), ElementsAre("Widget 'Root' of class 'WBP_Leaf_C' would make 'WBP_Leaf' hold itself"));
	EXPECT_THAT(AddToPage("/Game/Tests/BP_Test.BP_Test_C"),
		ElementsAre("Widget 'Root' of class 'BP_Test_C' would make 'WBP_Leaf' hold itself"));
	Edit.Widgets(AddWidget("Self", "BP_Test", "Root"));
	EXPECT_THAT(
		Errors(*Edit.Result), ElementsAre("Widget 'Self' of class 'BP_Test_C' would make 'BP_Test' hold itself"));
	EXPECT_EQ(Edit.Shape(), "Root(Page)");
	// What a widget's class is read from has to be a file by then.
	RunTool(Morvane::ToolInfo::ToolName_CompileBlueprint, R"({"blueprint_paths":["/Game/Tests/WBP_Leaf"]})");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	FindPackage(nullptr, TEXT("/Game/Tests/WBP_Leaf"))->MarkAsGarbage();
}

TEST(WidgetTreeTool, OnlyWidgetBlueprintsThatMayBeChangedAreChanged)
{
	{
		FWidgetEditing Edit;
		const std::string Before = Edit.File();
		{
			const EditorFaults::FRefuseCheckOut Refusal(TEXT("locked by Ada"));
			Edit.Tree("CanvasPanel");
		}
		EXPECT_THAT(Errors(*Edit.Result),
			ElementsAre("Cannot modify Widget Blueprint - source control checkout failed:\nlocked by Ada"));
		EXPECT_EQ(Edit.Shape(), "");
		EXPECT_EQ(Edit.File(), Before);
		Edit.Get().WidgetTree = nullptr;
		EXPECT_THAT(Errors(Edit.Tree("CanvasPanel")), ElementsAre("Widget Blueprint does not have a valid WidgetTree"));
		Morvane::FToolResult Result = MakeResult();
		FWidgetBlueprintService::ReorderWidget(nullptr, TEXT("A"), nullptr, 0, Result);
		EXPECT_THAT(Errors(Result), ElementsAre("Widget Blueprint or Widget Tree is null"));
	}
	const FBlueprintBuilder Actor;
	const auto Run = [](const char* Arguments)
	{ return Errors(*RunTool(Morvane::ToolInfo::ToolName_UIModifyWidgetBP, Arguments)); };
	EXPECT_THAT(Run("{}"), ElementsAre("Missing required field 'path'"));
	EXPECT_THAT(Run(R"({"path":"/Game/Nowhere"})"), ElementsAre("Failed to find or load blueprint: /Game/Nowhere"));
	EXPECT_THAT(
		Run(R"({"path":"BP_Test"})"), ElementsAre("Blueprint at '/Game/Tests/BP_Test' is not a Widget Blueprint"));
}
