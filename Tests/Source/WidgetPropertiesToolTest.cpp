// The tool that edits widget trees: values of properties and slots, from text, numbers and JSON objects.

#include "UObject/Package.h"
#include "WidgetBlueprintUtils.h"
#include "WidgetEditing.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace WidgetPropertiesToolTests
{
struct FSet
{
	const char* Class;
	/** The members of "properties", or of "slot" for a widget in a panel of the class. */
	const char* Json;
	const char* Property;
	const char* Text;
};
} // namespace WidgetPropertiesToolTests

using namespace WidgetPropertiesToolTests;

TEST(WidgetPropertiesTool, ValuesOfEveryJsonTypeBecomeWhatTheReadsShow)
{
	const FSet Cases[] = {
		{"TextBlock", R"("Text":"Play, \"now\"")", "Text", "Play, \"now\""},
		{"TextBlock", R"("Text":12.5)", "Text", "12.5"},
		{"TextBlock", R"("Text":true)", "Text", "True"},
		{"TextBlock", R"("AutoWrapText":true)", "AutoWrapText", "True"},
		{"TextBlock", R"("RenderOpacity":0.25)", "RenderOpacity", "0.250000"},
		{"TextBlock", R"("RenderOpacity":"0.75")", "RenderOpacity", "0.750000"},
		{"TextBlock", R"("visibility":"hidden")", "Visibility", "Hidden"},
		{"TextBlock", R"("Visibility":"ESlateVisibility::Collapsed")", "Visibility", "Collapsed"},
		{"TextBlock", R"("Visibility":4)", "Visibility", "SelfHitTestInvisible"},
		{"TextBlock", R"("Visibility":"Self Hit Test Invisible")", "Visibility", "SelfHitTestInvisible"},
		{"TextBlock", R"("Justification":"Center")", "Justification", "Center"},
		{"Border", R"("HorizontalAlignment":"center")", "HorizontalAlignment", "HAlign_Center"},
		{"ScrollBox", R"("Orientation":"Horizontal")", "Orientation", "Orient_Horizontal"},
		{"MenuAnchor", R"("Placement":"BelowAnchor")", "Placement", "MenuPlacement_BelowAnchor"},
		{"Throbber", R"("NumberOfPieces":7)", "NumberOfPieces", "7"},
		{"ComboBoxString", R"("SelectedOption":3)", "SelectedOption", "3"},
		{"ComboBoxString", R"j("DefaultOptions":"(\"Easy\",\"Hard\")")j", "DefaultOptions", "(\"Easy\",\"Hard\")"},
		{"TextBlock", R"("ColorAndOpacity":{"R":1,"G":0.5})", "ColorAndOpacity",
			"(SpecifiedColor=(R=1.000000,G=0.500000,B=0.000000,A=1.000000),ColorUseRule=UseColor_Specified)"},
		{"TextBlock", R"("ColorAndOpacity":{"SpecifiedColor":{"B":1},"ColorUseRule":"Foreground"})", "ColorAndOpacity",
			"(SpecifiedColor=(R=1.000000,G=1.000000,B=1.000000,A=1.000000),ColorUseRule=UseColor_Foreground)"},
		{"TextBlock", R"j("ColorAndOpacity":"(R=0,G=1,B=0,A=1)")j", "ColorAndOpacity",
			"(SpecifiedColor=(R=0.000000,G=1.000000,B=0.000000,A=1.000000),ColorUseRule=UseColor_Specified)"},
		{"Image", R"("ColorAndOpacity":{"r":"0.5","A":0.1})", "ColorAndOpacity",
			"(R=0.500000,G=0.000000,B=0.000000,A=0.100000)"},
		{"Border", R"("BrushColor":{"R":0.1,"G":0.2,"B":0.3,"A":0.4})", "BrushColor",
			"(R=0.100000,G=0.200000,B=0.300000,A=0.400000)"},
		{"TextBlock", R"("ShadowColorAndOpacity":{})", "ShadowColorAndOpacity",
			"(R=0.000000,G=0.000000,B=0.000000,A=1.000000)"},
		{"TextBlock", R"("ShadowOffset":{"X":3})", "ShadowOffset", "(X=3.000000,Y=1.000000)"},
		{"Spacer", R"("Size":{"X":8,"Y":"9"})", "Size", "(X=8.000000,Y=9.000000)"},
		{"TextBlock", R"("Margin":{"Left":1,"Top":2,"Right":3,"Bottom":4})", "Margin",
			"(Left=1.000000,Top=2.000000,Right=3.000000,Bottom=4.000000)"},
		{"TextBlock", R"j("Margin":"(Left=5)")j", "Margin",
			"(Left=5.000000,Top=0.000000,Right=0.000000,Bottom=0.000000)"},
		{"Image", R"("RenderTransformPivot":{"Y":0})", "RenderTransformPivot", "(X=0.500000,Y=0.000000)"},
		{"Image", R"("RenderTransform":{"Angle":90,"Scale":{"X":2}})", "RenderTransform",
			"(Translation=(X=0.000000,Y=0.000000),Scale=(X=2.000000,Y=1.000000),Shear=(X=0.000000,Y=0.000000),Angle="
			"90.000000)"},
		{"Image", R"("RenderTransform.Translation":{"X":4},"RenderTransform.Angle":5)", "RenderTransform",
			"(Translation=(X=4.000000,Y=0.000000),Scale=(X=1.000000,Y=1.000000),Shear=(X=0.000000,Y=0.000000),Angle="
			"5.000000)"},
		{"InputKeySelector", R"("SelectedKey":{"Key":{"KeyName":"SpaceBar"},"bShift":true})", "SelectedKey",
			"(Key=SpaceBar,bShift=True,bCtrl=False,bAlt=False,bCmd=False)"},
		{"BackgroundBlur", R"("CornerRadius":{"X":1,"W":4})", "CornerRadius",
			"(X=1.000000,Y=0.000000,Z=0.000000,W=4.000000)"},
		{"ListView", R"("EntryWidgetClass":"BP_Test")", "EntryWidgetClass",
			"/Script/UMG.WidgetBlueprintGeneratedClass'/Game/Tests/BP_Test.BP_Test_C'"},
	};
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel");
	std::vector<std::string> Names;
	for (const FSet& Case : Cases)
	{
		const std::string Name = "W" + std::to_string(Names.size());
		Names.push_back(Name);
		Edit.Widgets(AddWidget(Name, Case.Class, "Root", R"("properties":{)" + std::string(Case.Json) + "}"));
		EXPECT_THAT(Errors(*Edit.Result), IsEmpty()) << Case.Json;
		EXPECT_THAT(Warnings(*Edit.Result), IsEmpty()) << Case.Json;
		EXPECT_EQ(Edit.Value(Name, Case.Property), Case.Text) << Case.Class << " " << Case.Json;
	}
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	for (size_t Index = 0; Index < Names.size(); ++Index)
	{
		EXPECT_EQ(Edit.Value(Names[Index], Cases[Index].Property), Cases[Index].Text)
			<< "loaded: " << Cases[Index].Json;
	}
}

TEST(WidgetPropertiesTool, StylesFontsAndBrushesAreWrittenMemberByMember)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel",
		AddWidget("Text", "TextBlock", "Root",
			R"("properties":{"Font":{"Size":30.9},"Font.LetterSpacing":12,"Font.OutlineSettings":{"OutlineSize":2}})")
			+ ","
			+ AddWidget("Styled", "TextBlock", "Root",
				R"("properties":{"Font":{"Size":30.5,"TypefaceFontName":"Light","OutlineSettings":{"OutlineColor":{"R":1}}}})")
			+ "," + AddWidget("Picture", "Image", "Root", R"("properties":{"Brush":{}})") + ","
			+ AddWidget("Tinted", "Image", "Root",
				R"("properties":{"Brush":{"TintColor":{"SpecifiedColor":{"R":0.5,"A":0.5}}}})")
			+ ","
			+ AddWidget("Rounded", "Image", "Root",
				R"("properties":{"Brush":{"DrawAs":"RoundedBox","ImageSize":{"X":64,"Y":16},"TintColor":{"G":1},"OutlineSettings":{"CornerRadii":{"X":4},"Width":1}}})")
			+ "," + AddWidget("Plain", "Button", "Root", R"("properties":{"WidgetStyle":{}})") + ","
			+ AddWidget("Ok", "Button", "Root",
				R"("properties":{"WidgetStyle":{"Normal":{"TintColor":{"R":0,"G":0,"B":1,"A":1}},"NormalPadding":{"Left":3}}})"));
	EXPECT_THAT(Errors(*Edit.Result), IsEmpty());
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	const auto Expect = [&Edit](const char* Widget, const char* Property, std::initializer_list<const char*> Parts)
	{
		for (const char* const Part : Parts)
		{
			EXPECT_THAT(Edit.Value(Widget, Property), HasSubstr(Part)) << Widget;
		}
	};
	const auto ExpectAll = [&Expect]
	{
		Expect("Text", "Font", {"Size=30.000000", "LetterSpacing=12", "OutlineSize=2", "TypefaceFontName=\"Bold\""});
		Expect("Styled", "Font", {"Size=30.500000", "TypefaceFontName=\"Light\"", "OutlineColor=(R=1.000000"});
		Expect("Picture", "Brush", {"TintColor=(SpecifiedColor=(R=1.000000,G=1.000000,B=1.000000,A=1.000000)"});
		Expect("Tinted", "Brush", {"TintColor=(SpecifiedColor=(R=0.500000,G=0.000000,B=0.000000,A=0.500000)"});
		Expect("Rounded", "Brush",
			{"DrawAs=RoundedBox", "ImageSize=(X=64.000000,Y=16.000000)", "G=1.000000", "CornerRadii=(X=4.000000"});
		Expect("Ok", "WidgetStyle", {"B=1.000000,A=1.000000", "NormalPadding=(Left=3.000000"});
	};
	ExpectAll();
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	ExpectAll();
}

TEST(WidgetPropertiesTool, SlotsOfEveryPanelTakeTheirOwnLayout)
{
	const FSet Cases[] = {
		{"CanvasPanel",
			R"("LayoutData":{"Offsets":{"Left":10,"Top":20,"Right":300,"Bottom":40},"Anchors":{"Minimum":{"X":0.5,"Y":0},"Maximum":{"X":0.5}},"Alignment":{"X":0.5,"Y":0}})",
			"Slot.LayoutData",
			"(Offsets=(Left=10.000000,Top=20.000000,Right=300.000000,Bottom=40.000000),Anchors=(Minimum=(X=0.500000,Y=0."
			"000000),Maximum=(X=0.500000,Y=0.000000)),Alignment=(X=0.500000,Y=0.000000))"},
		{"CanvasPanel", R"j("LayoutData.Anchors":"(Minimum=(X=1,Y=1),Maximum=(X=1,Y=1))")j", "Slot.LayoutData",
			"(Offsets=(Left=0.000000,Top=0.000000,Right=100.000000,Bottom=30.000000),Anchors=(Minimum=(X=1.000000,Y=1."
			"000000),Maximum=(X=1.000000,Y=1.000000)),Alignment=(X=0.000000,Y=0.000000))"},
		{"CanvasPanel", R"("bAutoSize":true)", "Slot.bAutoSize", "True"},
		{"CanvasPanel", R"("ZOrder":-3)", "Slot.ZOrder", "-3"},
		{"VerticalBox", R"("Size":{"SizeRule":"fill","Value":2})", "Slot.Size", "(Value=2.000000,SizeRule=Fill)"},
		{"HorizontalBox", R"("Size":{"Value":2})", "Slot.Size", "(Value=2.000000,SizeRule=Automatic)"},
		{"HorizontalBox", R"("Size":{"SizeRule":"Auto"})", "Slot.Size", "(Value=1.000000,SizeRule=Automatic)"},
		{"HorizontalBox", R"("Size":{"SizeRule":"ESlateSizeRule::Fill"})", "Slot.Size",
			"(Value=1.000000,SizeRule=Fill)"},
		{"ScrollBox", R"("Padding":{"Top":4})", "Slot.Padding",
			"(Left=0.000000,Top=4.000000,Right=0.000000,Bottom=0.000000)"},
		{"Button", R"("Padding":{"Left":9})", "Slot.Padding",
			"(Left=9.000000,Top=2.000000,Right=4.000000,Bottom=2.000000)"},
		{"Border", R"j("padding":"(Left=1,Top=1,Right=1,Bottom=1)")j", "Slot.Padding",
			"(Left=1.000000,Top=1.000000,Right=1.000000,Bottom=1.000000)"},
		{"Overlay", R"("HorizontalAlignment":"Right")", "Slot.HorizontalAlignment", "HAlign_Right"},
		{"Overlay", R"("VerticalAlignment":"bottom")", "Slot.VerticalAlignment", "VAlign_Bottom"},
		{"SizeBox", R"("VerticalAlignment":"VAlign_Top")", "Slot.VerticalAlignment", "VAlign_Top"},
		{"ScaleBox", R"("HorizontalAlignment":"Left")", "Slot.HorizontalAlignment", "HAlign_Left"},
		{"GridPanel", R"("Row":1,"Column":2,"ColumnSpan":3)", "Slot.ColumnSpan", "3"},
		{"GridPanel", R"("Nudge":{"X":5})", "Slot.Nudge", "(X=5.000000,Y=0.000000)"},
		{"UniformGridPanel", R"("Column":4)", "Slot.Column", "4"},
		{"WrapBox", R"("bFillEmptySpace":true)", "Slot.bFillEmptySpace", "True"},
		{"WidgetSwitcher", R"("HorizontalAlignment":"Fill")", "Slot.HorizontalAlignment", "HAlign_Fill"},
		{"SafeZone", R"("bIsTitleSafe":true,"HAlign":"Center")", "Slot.HAlign", "HAlign_Center"},
		{"BackgroundBlur", R"("Padding.Left":6)", "Slot.Padding",
			"(Left=6.000000,Top=0.000000,Right=0.000000,Bottom=0.000000)"},
		{"StackBox", R"("VerticalAlignment":"Center")", "Slot.VerticalAlignment", "VAlign_Center"},
	};
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel");
	for (size_t Index = 0; Index < std::size(Cases); ++Index)
	{
		const std::string Panel = "P" + std::to_string(Index);
		Edit.Widgets(AddWidget(Panel, Cases[Index].Class, "Root") + ","
			+ AddWidget(
				"C" + std::to_string(Index), "TextBlock", Panel, R"("slot":{)" + std::string(Cases[Index].Json) + "}"));
		EXPECT_THAT(Errors(*Edit.Result), IsEmpty()) << Cases[Index].Json;
		EXPECT_THAT(Warnings(*Edit.Result), IsEmpty()) << Cases[Index].Json;
	}
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	for (size_t Index = 0; Index < std::size(Cases); ++Index)
	{
		EXPECT_EQ(Edit.Value("C" + std::to_string(Index), Cases[Index].Property), Cases[Index].Text)
			<< Cases[Index].Class << " " << Cases[Index].Json;
	}
}

TEST(WidgetPropertiesTool, AKeyThatFailsIsToldAndTheOthersAreSet)
{
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", AddWidget("Text", "TextBlock", "Root"));
	const std::pair<const char*, const char*> Cases[] = {
		{R"("Colour":1)", "Property 'Colour' not found on widget class 'TextBlock'"},
		{R"("Slot":"None")", "Property 'Slot' is read-only in editor"},
		{R"("bIsVariable":false)", "Property 'bIsVariable' is read-only in editor"},
		{R"("TextDelegate":"x")", "Property 'TextDelegate' is read-only in editor"},
		{R"("Text":["a"])", "Unsupported property value type for 'Text'"},
		{R"("Text":null)", "Unsupported property value type for 'Text'"},
		{R"("RenderOpacity":"much")", "Failed to set property 'RenderOpacity'"},
		{R"("RenderOpacity":"0.5x")", "Failed to set property 'RenderOpacity'"},
		{R"("RenderOpacity":true)", "Failed to set property 'RenderOpacity'"},
		{R"("Visibility":"Invisible")", "Failed to set property 'Visibility'"},
		{R"("Visibility":17)", "Failed to set property 'Visibility'"},
		{R"("AutoWrapText":"perhaps")", "Failed to set property 'AutoWrapText'"},
		{R"("RenderOpacity":{"R":1})",
			"Complex property 'RenderOpacity' of type 'float' is not fully supported yet. Try using dot notation like "
			"'RenderOpacity.FieldName' instead."},
		{R"("Font":{"Weight":7})",
			"Complex property 'Font' of type 'FSlateFontInfo' is not fully supported yet. Try using dot notation like "
			"'Font.FieldName' instead."},
		{R"("Font":{"Size":"big"})", "Failed to set property 'Font'"},
		{R"("Font":{"LetterSpacing":3,"Size":[1]})", "Failed to set property 'Font'"},
		{R"("ColorAndOpacity":{"R":"red"})", "Failed to set property 'ColorAndOpacity'"},
		{R"("StrikeBrush":{"TintColor":{"Hue":1}})",
			"Complex property 'StrikeBrush' of type 'FSlateBrush' is not fully supported yet. Try using dot notation like "
			"'StrikeBrush.FieldName' instead."},
		{R"("StrikeBrush":{"ResourceObject":"/Game/Nowhere"})", "Failed to set property 'StrikeBrush'"},
		{R"("Slot.Foo":1)", "Outer property 'Slot' not found or is not a struct"},
		{R"("Nothing.X":1)", "Outer property 'Nothing' not found or is not a struct"},
		{R"("Font.Weight":1)", "Nested property 'Font.Weight' not found or is read-only"},
		{R"("Font.OutlineSettings.OutlineSize":1)",
			"Nested property 'Font.OutlineSettings.OutlineSize' not found or is read-only"},
		{R"("Font.Size":"big")", "Failed to set nested property 'Font.Size'"},
		{R"("Font.Size":[1])", "Unsupported property value type for 'Font.Size'"},
		{R"("Font.OutlineSettings":{"Weight":1})", "Failed to set nested property 'Font.OutlineSettings'"},
	};
	int32 Number = 0;
	for (const auto& [Json, Warning] : Cases)
	{
		const std::string Tip = "tip " + std::to_string(++Number);
		const std::string Font = Edit.Value("Text", "Font");
		Edit.Widgets(
			ModifyWidget("Text", R"("properties":{)" + std::string(Json) + R"(,"ToolTipText":")" + Tip + "\"}"));
		EXPECT_THAT(Errors(*Edit.Result), IsEmpty()) << Json;
		EXPECT_THAT(Warnings(*Edit.Result), ElementsAre(Warning)) << Json;
		EXPECT_EQ(Edit.Value("Text", "ToolTipText"), Tip) << Json;
		EXPECT_EQ(Edit.Value("Text", "Font"), Font) << "nothing of a value that fails: " << Json;
	}
	EXPECT_THAT(Edit.Value("Text", "Visibility"), "Visible");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
}

TEST(WidgetPropertiesTool, AFailureOnASlotTellsOnceWhatItsClassHas)
{
	FWidgetEditing Edit;
	FWidgetBlueprintUtils::GetProcessedSlotClasses().Empty();
	Edit.Tree("CanvasPanel", AddWidget("List", "VerticalBox", "Root") + "," + AddWidget("Text", "TextBlock", "List"));
	const auto Slot = [&Edit](const std::string& Json)
	{ return Warnings(Edit.Widgets(ModifyWidget("Text", R"("slot":{)" + Json + "}"))); };
	EXPECT_THAT(Slot(R"("ZOrder":1,"Content":"None","Padding":{"Top":3})"),
		ElementsAre("Slot property 'ZOrder' not found on slot class 'VerticalBoxSlot'",
			"Valid properties for slot class 'VerticalBoxSlot' are: Size, Padding, HorizontalAlignment, VerticalAlignment",
			"Slot property 'Content' is read-only in editor"));
	EXPECT_THAT(Edit.Value("Text", "Slot.Padding"), HasSubstr("Top=3.000000"));
	EXPECT_THAT(Slot(R"("HorizontalAlignment":"Middle","Padding":[4])"),
		ElementsAre("Failed to set slot property 'HorizontalAlignment' to 'Middle'",
			"Unsupported property value type for 'Padding'"));
	EXPECT_THAT(Slot(R"("Size":{"SizeRule":"Huge"},"Size.Value":"x","Size.Worth":1,"Sice.Value":1)"),
		ElementsAre("Failed to set slot property 'Size' to '(SizeRule=Huge,Value=1.000000)'",
			"Failed to set nested slot property 'Size.Value'",
			"Nested slot property 'Size.Worth' not found or is read-only",
			"Outer slot property 'Sice' not found or is not a struct"));
	EXPECT_THAT(Slot(R"("Padding":{"Lefft":1})"),
		ElementsAre("Complex slot property 'Padding' of type 'FMargin' may require manual configuration. Try using dot "
					"notation like 'Padding.FieldName' instead."));
	Edit.Widgets(
		AddWidget("Hole", "NamedSlot", "Root") + "," + AddWidget("In", "Image", "Hole", R"("slot":{"Padding":1})"));
	EXPECT_THAT(Warnings(*Edit.Result),
		ElementsAre("Slot property 'Padding' not found on slot class 'PanelSlot'",
			"No modifiable properties found for slot class 'PanelSlot'"));
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Edit.Shape(), "Root(List(Text) Hole(In))");
}

TEST(WidgetPropertiesTool, AlignmentWordsAreMappedForTheirOwnPropertiesAlone)
{
	const auto Map = [](const TCHAR* Property, const TCHAR* Value)
	{ return ToStd(FWidgetBlueprintUtils::MapAlignmentEnumValue(Property, Value)); };
	EXPECT_EQ(Map(TEXT("HorizontalAlignment"), TEXT("Center")), "HAlign_Center");
	EXPECT_EQ(Map(TEXT("VerticalAlignment"), TEXT("Center")), "VAlign_Center");
	EXPECT_EQ(Map(TEXT("Justification"), TEXT("Right")), "ETextJustify::Right");
	EXPECT_EQ(Map(TEXT("HorizontalAlignment"), TEXT("Top")), "Top");
	EXPECT_EQ(Map(TEXT("Visibility"), TEXT("Fill")), "Fill");
	EXPECT_EQ(Map(TEXT("HorizontalAlignment"), TEXT("HAlign_Left")), "HAlign_Left");
}

TEST(WidgetPropertiesTool, MegabytesAreTakenOrRefusedInShortWords)
{
	const std::string Long(1 << 20, 'x');
	FWidgetEditing Edit;
	Edit.Tree("CanvasPanel", AddWidget("Text", "TextBlock", "Root", R"("properties":{"Text":")" + Long + "\"}"));
	EXPECT_THAT(Warnings(*Edit.Result), IsEmpty());
	EXPECT_EQ(Edit.Value("Text", "Text").size(), Long.size());
	std::string Many;
	for (int32 Index = 0; Index < 2000; ++Index)
	{
		Many += R"("P)" + std::to_string(Index) + R"(":1,)";
	}
	Edit.Widgets(ModifyWidget("Text",
		R"("properties":{"Font":{"TypefaceFontName":")" + Long + R"("},"Visibility":")" + Long + R"(",)" + Many + "\""
			+ Long + R"(":1},"slot":{"ZOrder":")" + Long + "\"}"));
	EXPECT_GE(Warnings(*Edit.Result).size(), 2004U);
	for (const std::string& Warning : Warnings(*Edit.Result))
	{
		EXPECT_LT(Warning.size(), 500U);
	}
	Edit.Widgets(AddWidget(Long, "Button", "Root"));
	EXPECT_LT(Errors(*Edit.Result).at(0).size(), 500U);
	Edit.Widgets(AddWidget("A", Long, "Root"));
	EXPECT_LT(Errors(*Edit.Result).at(0).size(), 500U);
	Edit.Widgets(RemoveWidget(Long));
	EXPECT_LT(Errors(*Edit.Result).at(0).size(), 500U);
	EXPECT_EQ(Edit.Shape(), "Root(Text)");
	EXPECT_THAT(Edit.Faults(), IsEmpty());
	EXPECT_EQ(Edit.Value("Text", "Text").size(), Long.size());
}
