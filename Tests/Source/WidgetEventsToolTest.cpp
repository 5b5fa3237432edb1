// The tool that edits widget trees: event nodes and animations, and what becomes of them when their widget goes.

#include "Animation/WidgetAnimation.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_VariableGet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "MovieScene.h"
#include "UObject/Package.h"
#include "WidgetBlueprintService.h"
#include "WidgetBlueprintUtils.h"
#include "WidgetEditing.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace WidgetEventsToolTests
{
static std::string Events(const std::string& Members)
{
	return R"("events":{)" + Members + "}";
}

/** "OnClicked (Ok) at 400,100" for each bound event of the graph, in order. */
static std::vector<std::string> BoundEvents(const FBlueprintBuilder& Blueprint)
{
	std::vector<std::string> Lines;
	for (const UEdGraphNode* const Node : Blueprint.EventGraph().Get()->Nodes)
	{
		if (const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(Node))
		{
			EXPECT_TRUE(Event->NodeGuid.IsValid());
			EXPECT_FALSE(Event->Pins.IsEmpty());
			Lines.push_back(ToStd(FString::Printf(TEXT("%s (%s) at %d,%d"), *Event->DelegatePropertyName.ToString(),
				*Event->GetComponentPropertyName().ToString(), Event->NodePosX, Event->NodePosY)));
		}
	}
	return Lines;
}

static std::vector<std::string> Animations(FWidgetEditing& Edit)
{
	std::vector<std::string> Names;
	for (const UWidgetAnimation* const Animation : Edit.Get().Animations)
	{
		Names.push_back(ToStd(Animation->GetName()));
	}
	return Names;
}

static std::string Animation(const std::string& Name, const std::string& Action)
{
	return R"({"name":")" + Name + R"(","action":")" + Action + "\"}";
}

static Morvane::FToolResult& Animate(FWidgetEditing& Edit, const std::string& Operations)
{
	return Edit.Call(R"("animations":[)" + Operations + "]");
}
} // namespace WidgetEventsToolTests

using namespace WidgetEventsToolTests;

TEST(WidgetEventsTool, EachWantedDelegateGetsANodeInAColumn)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel",
		AddWidget("Ok", "Button", "Root",
			Events(R"("OnClicked":true,"OnHovered":false,"OnPressed":"true","onreleased":true)"))
			+ "," + AddWidget("Volume", "Slider", "Root", Events(R"("OnValueChanged":true)")));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_THAT(Successes(*Edit.Result), Contains("Created event node 'OnReleased' for widget 'Ok'"));
	EXPECT_THAT(BoundEvents(Edit.Blueprint),
		ElementsAre("OnClicked (Ok) at 400,100", "OnReleased (Ok) at 400,350", "OnValueChanged (Volume) at 400,600"));
	const Morvane::FTrackedModification& Tracked = Edit.Result->GetModifications().Last();
	EXPECT_EQ(ToStd(Tracked.ReadTool), "read_blueprint_event");
	EXPECT_THAT(JsonText(Tracked.Parameters), HasSubstr(R"("graph_name":"EventGraph")"));
	for (const char* const Told : {"On Clicked (Ok)", "On Released (Ok)", "On Value Changed (Volume)"})
	{
		EXPECT_THAT(ToStd(Tracked.Content), HasSubstr(std::string(R"("event_title":")") + Told)) << "read again";
	}
	EXPECT_THAT(ToStd(Tracked.Content), testing::Not(HasSubstr("deleted")));

	Edit.Widgets(ModifyWidget("Ok", Events(R"("OnClicked":true,"OnUnhovered":true)")));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre("Event 'OnClicked' already exists for widget 'Ok' - skipping duplicate creation"));
	EXPECT_THAT(BoundEvents(Edit.Blueprint), Contains("OnUnhovered (Ok) at 400,850"));
	EXPECT_EQ(Edit.Get().Status, BS_UpToDate);
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(BoundEvents(Edit.Blueprint).size(), 4U);
}

TEST(WidgetEventsTool, WhatTheClassHasNotIsToldOnceWithWhatItHas)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel",
		AddWidget("Area", "ExpandableArea", "Root", Events(R"("OnClicked":true)")) + ","
			+ AddWidget("Gap", "Spacer", "Root", Events(R"("OnClicked":true,"OnHovered":true)")) + ","
			+ AddWidget("Other", "ExpandableArea", "Root", Events(R"("OnOpened":true)")));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre("Event 'OnClicked' not found on widget class 'ExpandableArea' for widget 'Area'",
			"Available delegates in widget class 'ExpandableArea':\n  - OnExpansionChanged",
			"Event 'OnClicked' not found on widget class 'Spacer' for widget 'Gap'",
			"No multicast delegate properties found in widget class 'Spacer'",
			"Event 'OnHovered' not found on widget class 'Spacer' for widget 'Gap'",
			"Event 'OnOpened' not found on widget class 'ExpandableArea' for widget 'Other'"));
	EXPECT_TRUE(Edit.Result->WasSuccessful());
	EXPECT_THAT(BoundEvents(Edit.Blueprint), IsEmpty());
}

TEST(WidgetEventsTool, DispatchersOfAProjectsOwnWidgetsAreDelegatesWithTheirFallbacks)
{
	FWidgetEditing Edit;
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":"/Game/Tests/WBP_Key","blueprint_parent_class":{"type":"native","parent_path":"/Script/UMG.UserWidget"}})");
	UBlueprint* const Key = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/WBP_Key.WBP_Key"));
	FEdGraphPinType Dispatcher;
	Dispatcher.PinCategory = UEdGraphSchema_K2::PC_MCDelegate;
	FBlueprintEditorUtils::AddMemberVariable(Key, TEXT("OnButtonBaseClicked"), Dispatcher);
	RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph,
		R"({"path":"/Game/Tests/WBP_Key","functions":[{"name":"OnButtonBaseClicked","is_delegate":true}]})");
	Edit.Tree("CanvasPanel", AddWidget("Key", "WBP_Key", "Root", Events(R"("OnClicked":true)")));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre(
			"Event 'OnClicked' not found on widget class, using fallback 'OnButtonBaseClicked' for widget 'Key'"));
	EXPECT_THAT(BoundEvents(Edit.Blueprint), ElementsAre("OnButtonBaseClicked (Key) at 400,100"));
	Edit.Widgets(ModifyWidget("Key", Events(R"("ONCLICKED":true)")));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre(
			"Event 'ONCLICKED' not found on widget class, using fallback 'OnButtonBaseClicked' for widget 'Key'",
			"Event 'OnButtonBaseClicked' already exists for widget 'Key' - skipping duplicate creation"));
	EXPECT_TRUE(Edit.Blueprint.Compiles());
	FindPackage(nullptr, TEXT("/Game/Tests/WBP_Key"))->MarkAsGarbage();
}

TEST(WidgetEventsTool, AWidgetThatIsNoVariableHasNoEvents)
{
	FWidgetEditing Edit;
	Edit.Tree(
		"CanvasPanel", AddWidget("Ok", "Button", "Root", R"("is_variable":false,)" + Events(R"("OnClicked":true)")));
	EXPECT_THAT(Warnings(*Edit.Result), ElementsAre("Widget component 'Ok' not found in blueprint"));
	EXPECT_THAT(BoundEvents(Edit.Blueprint), IsEmpty());
	Edit.Widgets(ModifyWidget("Ok", R"("is_variable":true,)" + Events(R"("OnClicked":true)")));
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_THAT(BoundEvents(Edit.Blueprint), ElementsAre("OnClicked (Ok) at 400,100"));
	const Morvane::FTrackedModification& Variable = Edit.Result->GetModifications()[1];
	EXPECT_EQ(ToStd(Variable.ReadTool), "read_blueprint_variable");
	EXPECT_THAT(ToStd(Variable.Content), HasSubstr(R"("name":"Ok")"));
	EXPECT_THAT(ToStd(Variable.Content), HasSubstr("/Script/UMG.Button"));
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetEventsTool, TheServicesOwnRefusals)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", AddWidget("Ok", "Button", "Root"));
	UEdGraph* const Graph = Edit.Blueprint.EventGraph().Get();
	Morvane::FToolResult Result = MakeResult();
	using FUtils = FWidgetBlueprintUtils;
	EXPECT_EQ(FUtils::CreateComponentBoundEventNode(nullptr, TEXT("Ok"), TEXT("OnClicked"), 0, 0, Result), nullptr);
	EXPECT_EQ(FUtils::CreateComponentBoundEventNode(NewObject<UEdGraph>(), TEXT("Ok"), TEXT("OnClicked"), 0, 0, Result),
		nullptr);
	EXPECT_EQ(FUtils::CreateComponentBoundEventNode(Graph, TEXT("No"), TEXT("OnClicked"), 0, 0, Result), nullptr);
	EXPECT_EQ(FUtils::CreateComponentBoundEventNode(Graph, TEXT("Ok"), TEXT("OnSung"), 0, 0, Result), nullptr);
	EXPECT_FALSE(FWidgetBlueprintService::CreateWidgetEventNodes(nullptr, TEXT("Ok"), Json("{}"), Result, nullptr));
	EXPECT_FALSE(FWidgetBlueprintService::ModifyAnimations(nullptr, {}, Result));
	EXPECT_FALSE(FUtils::ApplyWidgetProperties(nullptr, Json("{}"), Result));
	EXPECT_FALSE(FUtils::ApplySlotProperties(nullptr, Json("{}"), Result));
	EXPECT_THAT(Errors(Result),
		ElementsAre("Graph is null", "Cannot find Blueprint for graph", "WidgetBlueprint is null",
			"Widget Blueprint is null", "Widget is null", "Slot is null"));
	EXPECT_THAT(Warnings(Result),
		ElementsAre(
			"Widget component 'No' not found in blueprint", "Delegate 'OnSung' not found on component class 'Button'"));

	Edit.Get().UbergraphPages.Empty();
	Edit.Widgets(ModifyWidget("Ok", Events(R"("OnClicked":true)")));
	EXPECT_THAT(Warnings(*Edit.Result), ElementsAre("EventGraph not found in Widget Blueprint"));
}

TEST(WidgetEventsTool, WhatReferredToARemovedWidgetGoesWithIt)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel",
		AddWidget("Box", "VerticalBox", "Root") + "," + AddWidget("Ok", "Button", "Box", Events(R"("OnClicked":true)"))
			+ "," + AddWidget("Title", "TextBlock", "Root") + ","
			+ AddWidget("No", "Button", "Root", Events(R"("OnClicked":true)")));
	Edit.Blueprint.AddVariable(TEXT("Tip"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Text));
	for (const TCHAR* const Name : {TEXT("Ok"), TEXT("Title")})
	{
		FDelegateEditorBinding Binding;
		Binding.ObjectName = Name;
		Binding.PropertyName = TEXT("ToolTipText");
		Binding.SourceProperty = TEXT("Tip");
		Edit.Get().Bindings.Add(Binding);
	}
	Animate(Edit, Animation("Fade", "add"));
	Edit.Get().Animations[0]->AnimationBindings.SetNum(2);
	Edit.Get().Animations[0]->AnimationBindings[0].WidgetName = TEXT("Ok");
	Edit.Get().Animations[0]->AnimationBindings[1].WidgetName = TEXT("No");
	const std::string Get =
		R"({"node_guid":"get","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"Ok"}})";
	RunTool(Morvane::ToolInfo::ToolName_BPPopulateGraph,
		R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph","nodes":[)" + Get + "]}");
	ASSERT_NE(FPopulating::FindNode<UK2Node_VariableGet>(Edit.Blueprint.EventGraph().Get()), nullptr);

	Edit.Widgets(RemoveWidget("Box"));
	EXPECT_THAT(
		Warnings(*Edit.Result), ElementsAre("Removed 2 graph node(s) that stood for what was removed: Box, Ok"));
	EXPECT_THAT(BoundEvents(Edit.Blueprint), ElementsAre("OnClicked (No) at 400,350"));
	EXPECT_EQ(FPopulating::FindNode<UK2Node_VariableGet>(Edit.Blueprint.EventGraph().Get()), nullptr);
	ASSERT_EQ(Edit.Get().Bindings.Num(), 1);
	EXPECT_EQ(ToStd(Edit.Get().Bindings[0].ObjectName), "Title");
	ASSERT_EQ(Edit.Get().Animations[0]->AnimationBindings.Num(), 1);
	EXPECT_EQ(Edit.Get().Animations[0]->AnimationBindings[0].WidgetName, FName(TEXT("No")));
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetEventsTool, NodesOfAWidgetThatCeasesToBeAVariableAreNamed)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel",
		AddWidget("Ok", "Button", "Root", Events(R"("OnClicked":true)")) + "," + AddWidget("No", "Button", "Root"));
	Edit.Widgets(ModifyWidget("Ok", R"("is_variable":false)") + "," + ModifyWidget("No", R"("is_variable":false)"));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre(testing::StartsWith(
			"Widgets that these nodes name are no variables any more, so they do nothing: On Clicked (Ok) (")));
	EXPECT_EQ(BoundEvents(Edit.Blueprint).size(), 1U) << "they come to life again with the variable";
	Edit.Widgets(ModifyWidget("Ok", R"("is_variable":true)"));
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetEventsTool, AWidgetThatIsReplacedUnderItsNameKeepsWhatStillFits)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", AddWidget("Ok", "Button", "Root", Events(R"("OnClicked":true,"OnHovered":true)")));
	Edit.Widgets(RemoveWidget("Ok") + "," + AddWidget("Ok", "Button", "Root"));
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_EQ(BoundEvents(Edit.Blueprint).size(), 2U);
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	Edit.Widgets(
		RemoveWidget("Ok") + "," + AddWidget("Ok", "CheckBox", "Root", Events(R"("OnCheckStateChanged":true)")));
	EXPECT_THAT(BoundEvents(Edit.Blueprint), ElementsAre("OnCheckStateChanged (Ok) at 400,600"));
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	// An event asked for in the same call is that of the widget of then.
	Edit.Widgets(AddWidget("New", "Button", "Root", Events(R"("OnClicked":true)")) + "," + RemoveWidget("New") + ","
		+ AddWidget("New", "CheckBox", "Root"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Edit.Result), testing::Not(testing::Contains(HasSubstr("not found on widget class"))));
	EXPECT_THAT(BoundEvents(Edit.Blueprint), ElementsAre("OnCheckStateChanged (Ok) at 400,600"));
	Edit.Widgets(AddWidget("Box", "VerticalBox", "Root") + "," + ModifyWidget("New", R"("parent":"Box")"));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre("Widget 'New' stays where it is: to move it into 'Box', use the action 'reorder'"));
}

TEST(WidgetAnimationsTool, NewOnesAreEmptyAndLastFiveSecondsUnderNamesOfTheirOwn)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", AddWidget("Ok", "Button", "Root"));
	Animate(Edit,
		Animation("Fade", "add") + "," + Animation("fade", "ADD") + "," + Animation("Fade", "add") + ","
			+ Animation("Ok", "add"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_THAT(Animations(Edit), ElementsAre("Fade", "fade_1", "Fade_2", "Ok_1"));
	EXPECT_THAT(Successes(*Edit.Result),
		ElementsAre("Created animation 'Fade'", "Created animation 'fade_1'", "Created animation 'Fade_2'",
			"Created animation 'Ok_1'",
			"Successfully modified Widget Blueprint: BP_Test (Widgets: +0 ~0 -0, Animations: +4 -0)"));
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	for (const UWidgetAnimation* const Each : Edit.Get().Animations)
	{
		EXPECT_FLOAT_EQ(Each->GetStartTime(), 0.0f);
		EXPECT_FLOAT_EQ(Each->GetEndTime(), 5.0f);
		EXPECT_EQ(ToStd(Each->GetDisplayLabel()), ToStd(Each->GetName()));
	}
	Animate(Edit, Animation("FADE", "remove") + "," + Animation("Fade", "add") + "," + Animation("fade_1", "Remove"));
	EXPECT_THAT(Animations(Edit), ElementsAre("Fade_2", "Ok_1", "Fade"));
	EXPECT_EQ(Telemetry(*Edit.Result),
		R"({"widgets_added":0,"widgets_modified":0,"widgets_removed":0,"animations_added":0,"animations_removed":1})");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_THAT(Animations(Edit), ElementsAre("Fade_2", "Ok_1", "Fade"));
}

TEST(WidgetAnimationsTool, AMistakeIsAnErrorAndEndsTheCall)
{
	const std::pair<std::string, const char*> Cases[] = {
		{R"({"action":"add"})", "Animation name is required"},
		{R"("Fade")", "Animation name is required"},
		{R"({"name":"Fade"})", "Animation 'Fade' does not have an 'action' field"},
		{Animation("Gone", "remove"), "Animation 'Gone' not found for removal"},
		{Animation("Fade", "play"), "Animation 'Fade' has unsupported action 'play'"},
		{Animation("Fade in", "add"),
			"'Fade in' is no name for a widget or an animation: use letters, digits and underscores"},
	};
	FWidgetEditing Edit;
	const std::string Before = Edit.File();
	for (const auto& [Operation, Error] : Cases)
	{
		Animate(Edit, Operation + "," + Animation("Late", "add"));
		EXPECT_THAT(Errors(*Edit.Result), ElementsAre(Error)) << Operation;
		EXPECT_THAT(Animations(Edit), IsEmpty()) << Operation;
		EXPECT_EQ(Edit.File(), Before) << Operation;
	}
}
