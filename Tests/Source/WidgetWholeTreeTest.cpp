// One call that builds a tree of every class of widget, five levels deep, told, read, saved, compiled and loaded again.

#include "UObject/Package.h"
#include "WidgetEditing.h"

#include <algorithm>

using testing::HasSubstr;
using testing::IsEmpty;

namespace WidgetWholeTreeTests
{
struct FKind
{
	const char* Class;
	/** Members of "properties", of the "slot" of its children, and of "events". */
	const char* Properties;
	const char* ChildSlot = nullptr;
	const char* Events = nullptr;
};

constexpr FKind Panels[] = {
	{"CanvasPanel", R"("RenderOpacity":0.5)",
		R"("LayoutData":{"Anchors":{"Maximum":{"X":1,"Y":1}}},"bAutoSize":true,"ZOrder":2)"},
	{"HorizontalBox", R"("RenderOpacity":0.5)", R"("Size":{"SizeRule":"Fill","Value":2},"VerticalAlignment":"Center")"},
	{"VerticalBox", R"("RenderOpacity":0.5)", R"("Padding":{"Left":4},"HorizontalAlignment":"Center")"},
	{"Overlay", R"("RenderOpacity":0.5)", R"("HorizontalAlignment":"Fill","VerticalAlignment":"Fill")"},
	{"GridPanel", R"j("ColumnFill":"(1.0,2.0)")j", R"("Row":1,"Column":2)"},
	{"UniformGridPanel", R"("SlotPadding":{"Left":1},"MinDesiredSlotWidth":20)", R"("Row":1)"},
	{"WrapBox", R"("InnerSlotPadding":{"X":2},"bExplicitWrapSize":true)", R"("bFillEmptySpace":true)"},
	{"ScrollBox", R"("Orientation":"Horizontal")", R"("Padding":{"Top":1})", R"("OnUserScrolled":true)"},
	{"StackBox", R"("Orientation":"Vertical")", R"("Padding":{"Top":1})"},
	{"WidgetSwitcher", R"("ActiveWidgetIndex":1)", R"("HorizontalAlignment":"Fill")"},
};

constexpr FKind Frames[] = {
	{"SizeBox", R"("bOverride_WidthOverride":true,"WidthOverride":64)", R"("VerticalAlignment":"Top")"},
	{"ScaleBox", R"("Stretch":"UserSpecified","UserSpecifiedScale":2)", R"("HorizontalAlignment":"Left")"},
	{"Border", R"("BrushColor":{"R":1},"Padding":{"Left":2},"HorizontalAlignment":"Center")",
		R"("VerticalAlignment":"Bottom")"},
	{"Button", R"("BackgroundColor":{"G":1},"IsFocusable":false)", R"("Padding":{"Left":9})",
		R"("OnClicked":true,"OnHovered":true)"},
	{"CheckBox", R"("CheckedState":"Checked")", nullptr, R"("OnCheckStateChanged":true)"},
	{"BackgroundBlur", R"("BlurStrength":3)", R"("Padding":{"Left":2})"},
	{"InvalidationBox", R"("bCanCache":false)"},
	{"RetainerBox", R"("Phase":1,"PhaseCount":2)"},
	{"MenuAnchor", R"("Placement":"CenteredBelowAnchor")", nullptr, R"("OnMenuOpenChanged":true)"},
	{"SafeZone", R"("PadLeft":false)", R"("bIsTitleSafe":false)"},
	{"NamedSlot", R"("bExposeOnInstanceOnly":true)"},
};

constexpr FKind Leaves[] = {
	{"Image", R"("Brush":{"ImageSize":{"X":64,"Y":64}},"ColorAndOpacity":{"R":1})"},
	{"TextBlock", R"("Text":"Hello","Font":{"Size":18},"ColorAndOpacity":{"B":1},"ShadowOffset":{"X":2})"},
	{"RichTextBlock", R"("Text":"<b>Hello</>","AutoWrapText":true)"},
	{"EditableText", R"("HintText":"Name","IsPassword":true)", nullptr, R"("OnTextCommitted":true)"},
	{"EditableTextBox", R"("Text":"Ada","Justification":"Right")", nullptr, R"("OnTextChanged":true)"},
	{"MultiLineEditableText", R"("Text":"a\nb","bIsReadOnly":true)", nullptr, R"("OnTextChanged":true)"},
	{"MultiLineEditableTextBox", R"("HintText":"Say","Margin":{"Left":3})", nullptr, R"("OnTextCommitted":true)"},
	{"ProgressBar", R"("Percent":0.5,"BarFillType":"RightToLeft","FillColorAndOpacity":{"R":1})"},
	{"Slider", R"("Value":0.5,"Orientation":"Vertical","StepSize":0.1)", nullptr, R"("OnValueChanged":true)"},
	{"SpinBox", R"("Value":3,"bOverride_MaxValue":true,"MaxValue":9)", nullptr, R"("OnValueCommitted":true)"},
	{"ComboBoxString", R"j("DefaultOptions":"(\"Easy\",\"Hard\")","SelectedOption":"Easy")j", nullptr,
		R"("OnSelectionChanged":true)"},
	{"ListView", R"("SelectionMode":"Multi")", nullptr, R"("BP_OnItemClicked":true)"},
	{"TileView", R"("EntryHeight":32,"TileAlignment":"Fill")", nullptr, R"("BP_OnItemSelectionChanged":true)"},
	{"TreeView", R"("bClearSelectionOnClick":true)", nullptr, R"("BP_OnItemExpansionChanged":true)"},
	{"Spacer", R"("Size":{"X":8,"Y":8})"},
	{"Throbber", R"("NumberOfPieces":5,"bAnimateOpacity":false)"},
	{"CircularThrobber", R"("Radius":8,"Period":2)"},
	{"ExpandableArea", R"("bIsExpanded":true,"HeaderPadding":{"Left":1})", nullptr, R"("OnExpansionChanged":true)"},
	{"WBP_Part", R"("ColorAndOpacity":{"R":1,"A":0.5},"Padding":{"Left":1})", nullptr, R"("OnVisibilityChanged":true)"},
};

static std::string Field(const char* Name, const char* Members)
{
	return Members ? std::string(",\"") + Name + "\":{" + Members + "}" : "";
}

static std::string Add(const std::string& Name, const FKind& Kind, const std::string& Parent, const char* Slot)
{
	return (Parent.empty() ? R"({"name":")" : R"(,{"action":"add","name":")") + Name + R"(","class":")" + Kind.Class
		+ R"(","is_variable":true)" + (Parent.empty() ? "" : R"(,"parent":")" + Parent + "\"")
		+ Field("properties", Kind.Properties) + Field("slot", Slot) + Field("events", Kind.Events) + "}";
}
} // namespace WidgetWholeTreeTests

using namespace WidgetWholeTreeTests;

TEST(WidgetWholeTree, EveryClassFiveLevelsDeepFromOneCall)
{
	FWidgetEditing Edit;
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":"/Game/Tests/WBP_Part","blueprint_parent_class":{"type":"native","parent_path":"/Script/UMG.UserWidget"}})");
	// Root, a panel of each kind in it, each with all frames, each frame with a panel that holds a leaf.
	std::string Operations;
	size_t NumEvents = 0;
	size_t NumWidgets = 1;
	const auto Append = [&](const std::string& Name, const FKind& Kind, const std::string& Parent, const char* Slot)
	{
		Operations += Add(Name, Kind, Parent, Slot);
		const std::string Events = Kind.Events ? Kind.Events : "";
		NumEvents += static_cast<size_t>(std::count(Events.begin(), Events.end(), ':'));
		++NumWidgets;
	};
	size_t NumLeaves = 0;
	for (size_t PanelIndex = 0; PanelIndex < std::size(Panels); ++PanelIndex)
	{
		const std::string Panel = "Panel" + std::to_string(PanelIndex);
		Append(Panel, Panels[PanelIndex], "Root", R"("Size":{"SizeRule":"Fill"})");
		for (size_t FrameIndex = PanelIndex % 2; FrameIndex < std::size(Frames); FrameIndex += 2)
		{
			const std::string Frame = Panel + "Frame" + std::to_string(FrameIndex);
			const std::string Inner = Frame + "Inner";
			Append(Frame, Frames[FrameIndex], Panel, Panels[PanelIndex].ChildSlot);
			Append(Inner, Panels[2], Frame, Frames[FrameIndex].ChildSlot);
			Append(Inner + "Leaf", Leaves[NumLeaves++ % std::size(Leaves)], Inner, Panels[2].ChildSlot);
			if (FrameIndex < 4)
			{
				Append(Inner + "More", Leaves[NumLeaves++ % std::size(Leaves)], Inner, Panels[2].ChildSlot);
			}
		}
	}
	EXPECT_GE(NumWidgets, 190U);
	Edit.Call(R"("widget_tree":{"root_widget":{"name":"Root","class":"VerticalBox"},"widgets":[)" + Operations.substr(1)
		+ "]}");
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_THAT(Telemetry(*Edit.Result), HasSubstr("\"widgets_added\":" + std::to_string(NumWidgets)));
	size_t NumMade = 0;
	for (const std::string& Message : Successes(*Edit.Result))
	{
		NumMade += Message.starts_with("Created event node") ? 1 : 0;
	}
	EXPECT_EQ(NumMade, NumEvents);

	const std::string Names = R"(["Panel0Frame0","Panel3Frame3InnerLeaf","Panel9"])";
	const auto Read = [&Names]
	{
		const TSharedPtr<Morvane::FToolResult> Result = RunTool(Morvane::ToolInfo::ToolName_ReadBlueprintWidgetTree,
			R"({"path":"/Game/Tests/BP_Test","widget_name":)" + Names + "}");
		EXPECT_THAT(Errors(*Result), IsEmpty());
		return ToStd(Result->GetDatas()->GetStringField(TEXT("content")));
	};
	const std::string Shape = Edit.Shape();
	const std::string Before = Read();
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Edit.Shape(), Shape);
	EXPECT_EQ(Read(), Before) << "what a fresh load reads";
	FindPackage(nullptr, TEXT("/Game/Tests/WBP_Part"))->MarkAsGarbage();
}
