// Places that are no panels' slots: those of areas, of user widgets and of a parent's tree.

#include "Blueprint/UserWidget.h"
#include "UObject/Package.h"
#include "WidgetBlueprintUtils.h"
#include "WidgetEditing.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace WidgetNamedSlotsTest
{
static std::string In(const std::string& Slot)
{
	return R"("named_slot":")" + Slot + "\"";
}

static std::string HierarchyOf(const FJsonObject& Node)
{
	std::string Text = Node.HasField(TEXT("named_slot"))
		? ToStd(Node.GetStringField(TEXT("named_slot"))) + ":" + ToStd(Node.GetStringField(TEXT("name")))
		: ToStd(Node.GetStringField(TEXT("name")));
	const TArray<TSharedPtr<FJsonValue>>* Children = nullptr;
	if (Node.TryGetArrayField(TEXT("children"), Children))
	{
		std::string Inner;
		for (const TSharedPtr<FJsonValue>& Child : *Children)
		{
			Inner += (Inner.empty() ? "" : " ") + HierarchyOf(*Child->AsObject());
		}
		Text += "(" + Inner + ")";
	}
	return Text;
}

/** As reads show it: "Root(Area(Header:Title Body:List(Item)))"; contents of the tree's own slots without a root. */
static std::string Hierarchy(UWidgetBlueprint& Blueprint)
{
	const TSharedPtr<FJsonObject> Read = FWidgetBlueprintUtils::SerializeWidgetHierarchy(&Blueprint);
	const TSharedPtr<FJsonObject>* Root = nullptr;
	if (Read->TryGetObjectField(TEXT("root_widget"), Root))
	{
		return HierarchyOf(**Root);
	}
	const TArray<TSharedPtr<FJsonValue>>* Slots = nullptr;
	std::string Text;
	if (Read->TryGetArrayField(TEXT("named_slots"), Slots))
	{
		for (const TSharedPtr<FJsonValue>& Slot : *Slots)
		{
			Text += (Text.empty() ? "" : " ") + HierarchyOf(*Slot->AsObject());
		}
	}
	return Text;
}

/** A Widget Blueprint with open places of these names. */
static void MakeFrame(const std::string& Path, const std::vector<std::string>& Slots)
{
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":")" + Path
			+ R"(","blueprint_parent_class":{"type":"native","parent_path":"/Script/UMG.UserWidget"}})");
	std::string Operations;
	for (const std::string& Slot : Slots)
	{
		Operations += (Operations.empty() ? "" : ",") + AddWidget(Slot, "NamedSlot", "Frame");
	}
	RunTool(Morvane::ToolInfo::ToolName_UIModifyWidgetBP,
		R"({"path":")" + Path + R"(","widget_tree":{"root_widget":{"name":"Frame","class":"Overlay"},"widgets":[)"
			+ Operations + "]}}");
}
} // namespace WidgetNamedSlotsTest

using namespace WidgetNamedSlotsTest;

TEST(WidgetNamedSlots, AreFilledReadAndThereAfterALoad)
{
	MakeFrame("/Game/Tests/WBP_Two", {"Left", "Right"});
	MakeFrame("/Game/Tests/WBP_One", {"Only"});
	FWidgetEditing Edit;
	Edit.Tree("VerticalBox",
		AddWidget("Area", "ExpandableArea", "Root") + "," + AddWidget("Title", "TextBlock", "Area", In("Header")) + ","
			+ AddWidget("List", "VerticalBox", "Area", In("body")) + ","
			+ AddWidget("Item", "Button", "List", R"("events":{"OnClicked":true})") + ","
			+ AddWidget("Two", "WBP_Two", "Root") + "," + AddWidget("Text", "TextBlock", "Two", In("Right")) + ","
			+ AddWidget("One", "WBP_One", "Root") + "," + AddWidget("Alone", "Image", "One"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_THAT(Telemetry(*Edit.Result), HasSubstr(R"("widgets_added":9)"));
	const std::string Whole = "Root(Area(Header:Title Body:List(Item)) Two(Right:Text) One(Only:Alone))";
	EXPECT_EQ(Hierarchy(Edit.Get()), Whole);
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Hierarchy(Edit.Get()), Whole) << "read again from the file";
	const TSharedPtr<FJsonObject> Details = FWidgetBlueprintUtils::SerializeWidgetDetails(
		Edit.Find("Title"), &Edit.Get());
	EXPECT_EQ(ToStd(Details->GetStringField(TEXT("host"))), "Area");
	EXPECT_FALSE(Details->HasField(TEXT("parent"))) << "it stands in no panel";

	Edit.Widgets(ModifyWidget("List", R"("slot":{"Padding":{"Left":2}})"));
	EXPECT_THAT(
		Warnings(*Edit.Result), ElementsAre("Widget 'List' stands in no panel, so it has no slot properties to set"));
}

TEST(WidgetNamedSlots, WhatIsInThemMovesAndGoes)
{
	MakeFrame("/Game/Tests/WBP_Two", {"Left", "Right"});
	FWidgetEditing Edit;
	Edit.Tree("VerticalBox",
		AddWidget("Area", "ExpandableArea", "Root") + "," + AddWidget("Title", "TextBlock", "Area", In("Header")) + ","
			+ AddWidget("List", "VerticalBox", "Area", In("Body")) + "," + AddWidget("Two", "WBP_Two", "Root"));
	Edit.Widgets(MoveWidget("Title", "Root", R"("index":0)") + "," + MoveWidget("List", "Two", In("Left")));
	EXPECT_EQ(Hierarchy(Edit.Get()), "Root(Title Area Two(Left:List))");
	Edit.Widgets(MoveWidget("Area", "List") + "," + MoveWidget("Title", "Area", In("Body")));
	EXPECT_EQ(Hierarchy(Edit.Get()), "Root(Two(Left:List(Area(Body:Title))))");
	EXPECT_THAT(Edit.Faults(), IsEmpty());

	Edit.Widgets(MoveWidget("Two", "Area", In("Header")));
	EXPECT_THAT(Errors(*Edit.Result), ElementsAre("Widget 'Two' cannot be moved into 'Area', which is part of it"));
	Edit.Widgets(MoveWidget("Two", "List"));
	EXPECT_THAT(Errors(*Edit.Result), ElementsAre("Widget 'Two' cannot be moved into 'List', which is part of it"));
	Edit.Widgets(RemoveWidget("List"));
	EXPECT_THAT(Telemetry(*Edit.Result), HasSubstr(R"("widgets_removed":3)"));
	EXPECT_EQ(Hierarchy(Edit.Get()), "Root(Two)");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetNamedSlots, OnesThatAreNotThereOrFullAreRefused)
{
	MakeFrame("/Game/Tests/WBP_Two", {"Left", "Right"});
	FWidgetEditing Edit;
	Edit.Tree("VerticalBox",
		AddWidget("Area", "ExpandableArea", "Root") + "," + AddWidget("Title", "TextBlock", "Area", In("Header")) + ","
			+ AddWidget("Two", "WBP_Two", "Root"));
	const std::string Before = Hierarchy(Edit.Get());
	const std::pair<std::string, const char*> Rows[] = {
		{AddWidget("X", "Image", "Area"),
			"Widget 'X' was not placed: 'Area' of class 'ExpandableArea' holds widgets in named slots. Give named_slot, one of: Header, Body"},
		{AddWidget("X", "Image", "Area", In("Foot")),
			"Widget 'X' was not placed: 'Area' of class 'ExpandableArea' has no named slot 'Foot'. It has: Header, Body"},
		{MoveWidget("Two", "Area", In("Header")),
			"Widget 'Two' cannot be placed in the slot 'Header' of 'Area' of class 'ExpandableArea', which holds one widget and has 'Title'. Give it a panel, or remove that one first."},
		{AddWidget("X", "Image", "Two"),
			"Widget 'X' was not placed: 'Two' of class 'WBP_Two_C' holds widgets in named slots. Give named_slot, one of: Left, Right"},
		{AddWidget("X", "Image", "Root", In("Left")),
			"Widget 'X' was not placed: 'Root' of class 'VerticalBox' has no named slot 'Left'. It has: none"},
		{AddWidget("X", "Image", "", In("Left")),
			"Widget 'X' was not placed: name the parent that has the slot 'Left'"},
	};
	for (const auto& [Operation, Words] : Rows)
	{
		Edit.Widgets(Operation);
		EXPECT_THAT(Errors(*Edit.Result), ElementsAre(Words));
		EXPECT_EQ(Hierarchy(Edit.Get()), Before) << Words;
	}
}

TEST(WidgetNamedSlots, AChildBlueprintFillsThoseOfItsParent)
{
	MakeFrame("/Game/Tests/WBP_Two", {"Left", "Right"});
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":"/Game/Tests/WBP_Child","blueprint_parent_class":{"type":"blueprint","parent_path":"/Game/Tests/WBP_Two"}})");
	const auto Widgets = [](const std::string& Operations)
	{
		return RunTool(Morvane::ToolInfo::ToolName_UIModifyWidgetBP,
			R"({"path":"/Game/Tests/WBP_Child","widget_tree":{"widgets":[)" + Operations + "]}}");
	};
	const TSharedPtr<Morvane::FToolResult> Filled = Widgets(
		AddWidget("List", "VerticalBox", "", In("Left")) + "," + AddWidget("Item", "Button", "List"));
	EXPECT_THAT(Errors(*Filled), IsEmpty());
	EXPECT_THAT(Warnings(*Filled), IsEmpty());
	UWidgetBlueprint* Child = LoadObject<UWidgetBlueprint>(nullptr, TEXT("/Game/Tests/WBP_Child.WBP_Child"));
	EXPECT_EQ(Hierarchy(*Child), "Left:List(Item)");
	Child->GetOutermost()->MarkAsGarbage();
	CollectGarbage();
	Child = LoadObject<UWidgetBlueprint>(nullptr, TEXT("/Game/Tests/WBP_Child.WBP_Child"));
	EXPECT_EQ(Hierarchy(*Child), "Left:List(Item)") << "read again from the file";
	EXPECT_THAT(Errors(*Widgets(R"({"action":"reorder","name":"Item",)" + In("Right") + "}," + RemoveWidget("List"))),
		IsEmpty());
	EXPECT_EQ(Hierarchy(*Child), "Right:Item");
}

TEST(WidgetNamedSlots, ContentOfAPlaceThatIsGoneStaysUntilItIsTakenOut)
{
	MakeFrame("/Game/Tests/WBP_Two", {"Left", "Right"});
	FWidgetEditing Edit;
	Edit.Tree(
		"VerticalBox", AddWidget("Two", "WBP_Two", "Root") + "," + AddWidget("Text", "TextBlock", "Two", In("Left")));
	RunTool(Morvane::ToolInfo::ToolName_UIModifyWidgetBP,
		R"({"path":"/Game/Tests/WBP_Two","widget_tree":{"widgets":[)" + RemoveWidget("Left") + "]}}");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Hierarchy(Edit.Get()), "Root(Two(Text))") << "without the name of a slot";
	Edit.Widgets(MoveWidget("Text", "Root"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_EQ(Hierarchy(Edit.Get()), "Root(Two Text)");
	EXPECT_TRUE(CastChecked<UUserWidget>(Edit.Find("Two"))->NamedSlotBindings.IsEmpty());
}
