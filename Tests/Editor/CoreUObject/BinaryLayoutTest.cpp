// Files of each step of the layout, made by the writer in Tests/Support, which shares no code with the reader.

#include "BinaryPackageTest.h"
#include "BinaryTestValues.h"

#include <set>

using testing::AllOf;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace BinaryLayoutTest
{
/** The line of a property, without what stands around it; empty when there is none. */
static std::string ValueOf(const std::string& Body, const std::string& Property)
{
	const std::string Start = "   " + Property + "=";
	const std::size_t At = Body.find("\n" + Start);
	return At == std::string::npos
		? std::string()
		: Body.substr(At + 1 + Start.size(), Body.find('\n', At + 1) - At - 1 - Start.size());
}

/** Layouts on both sides of every step that the reader knows, beside those of real engines. */
static std::vector<std::pair<std::string, FPackageLayout>> AllLayouts()
{
	std::vector<std::pair<std::string, FPackageLayout>> Layouts;
	for (const std::string& Engine : FPackageLayout::AllEngines())
	{
		Layouts.emplace_back(Engine, FPackageLayout::Of(Engine));
	}
	for (const int32_t Ue4 : {505, 506, 507, 508, 509, 510, 511, 513, 514, 515, 516, 517, 518, 519, 520, 521})
	{
		FPackageLayout Layout = FPackageLayout::Of("4.20");
		Layout.Ue4 = Ue4;
		Layouts.emplace_back("ue4 " + std::to_string(Ue4), Layout);
	}
	for (int32_t Ue5 = 1000; Ue5 <= 1018; ++Ue5)
	{
		FPackageLayout Layout = FPackageLayout::Of("5.0");
		Layout.Ue5 = Ue5;
		Layouts.emplace_back("ue5 " + std::to_string(Ue5), Layout);
	}
	const std::pair<const char*, std::vector<int32_t>> Areas[] = {{"Framework", {25, 26, 30, 31}},
		{"Blueprints", {5, 6}}, {"Release", {31, 32}}, {"Editor", {20, 21, 31, 32}}, {"UE5-Release", {11, 12, 35, 36}},
		{"UE5-Main", {0, 57, 58}}, {"Fortnite-Main", {84, 85, 191, 192, 267, 268}}};
	for (const auto& [Area, Steps] : Areas)
	{
		for (const int32_t Step : Steps)
		{
			FPackageLayout Layout = FPackageLayout::Of("5.1");
			Layout.Steps[Area] = Step;
			Layouts.emplace_back(std::string(Area) + " " + std::to_string(Step), Layout);
		}
		FPackageLayout Without = FPackageLayout::Of("5.1");
		Without.Steps.erase(Area);
		Layouts.emplace_back(std::string("no ") + Area, Without);
	}
	return Layouts;
}
} // namespace BinaryLayoutTest

TEST(BinaryLayout, EveryStepGivesTheSameObjects)
{
	using namespace BinaryLayoutTest;
	const FBinaryOutcome Wanted = ReadBinary(SmallBlueprint::Make(FPackageLayout::Of("5.7")).Write().Bytes);
	ASSERT_TRUE(Wanted.bRead) << Wanted.Refusal;
	for (const auto& [Label, Layout] : AllLayouts())
	{
		SCOPED_TRACE(Label);
		const FBinaryOutcome Outcome = ReadBinary(SmallBlueprint::Make(Layout).Write().Bytes);
		EXPECT_TRUE(Outcome.bRead) << Outcome.Refusal;
		EXPECT_THAT(Outcome.Findings.Warnings, IsEmpty());
		EXPECT_EQ(Outcome.Findings.NumNodes, 3);
		EXPECT_EQ(Outcome.Findings.NumNodesWithPins, 3);
		EXPECT_EQ(Outcome.Findings.NumPins, 9);
		EXPECT_EQ(Outcome.Findings.NumLinks, 4);
		EXPECT_EQ(Outcome.Findings.NumTwoSidedLinks, 4);
		EXPECT_TRUE(Outcome.Body == Wanted.Body) << Outcome.Body;
	}
}

TEST(BinaryLayout, PinsKeepTheirDirection)
{
	const std::string Body = ReadBinary(SmallBlueprint::Make(FPackageLayout::Of("5.7")).Write().Bytes).Body;
	const struct
	{
		const char* Name;
		bool bOutput;
	} Pins[] = {{"then", true}, {"Numbers", true}, {"Names", true}, {"execute", false}, {"InString", false}};
	for (const auto& Pin : Pins)
	{
		const std::size_t At = Body.find("CustomProperties Pin (PinId=");
		ASSERT_NE(At, std::string::npos);
		const std::size_t Name = Body.find(std::string(",PinName=\"") + Pin.Name + "\"", At);
		ASSERT_NE(Name, std::string::npos) << Pin.Name;
		const std::string Line = Body.substr(Name, Body.find('\n', Name) - Name);
		EXPECT_EQ(Line.find(",Direction=\"EGPD_Output\",") != std::string::npos, Pin.bOutput) << Line;
	}
}

TEST(BinaryLayout, ObjectsNodesAndPinsAreSpelledAsObjectText)
{
	const std::string Body = ReadBinary(SmallBlueprint::Make(FPackageLayout::Of("5.7")).Write().Bytes).Body;
	const std::string Lines[] = {
		"Begin Object Class=/Script/Engine.Blueprint Name=\"BP_Small\" Flags=Public|Standalone\n",
		"   Begin Object Class=/Script/Engine.EdGraph Name=\"EventGraph\"\n",
		"      Begin Object Class=/Script/BlueprintGraph.K2Node_CustomEvent Name=\"Event\"\n",
		"   ParentClass=\"/Script/CoreUObject.Class'/Script/Engine.Actor'\"\n",
		"   GeneratedClass=\"/Script/Engine.BlueprintGeneratedClass'/Game/BP_Small.BP_Small_C'\"\n",
		"      Nodes=(\"/Script/BlueprintGraph.K2Node_CustomEvent'/Game/BP_Small.BP_Small:EventGraph.Event'\",",
		"         CustomFunctionName=\"Do_It_2\"\n",
		"         NodeGuid=00000001000000020000000300000010\n",
		"         FunctionReference=(MemberName=\"PrintString\")\n",
		"CustomProperties UserDefinedPin (PinName=\"Numbers\",PinType=(PinCategory=\"int\",",
		",DesiredPinDirection=EGPD_Output,PinDefaultValue=\"7\")\n",
		"PinName=\"InString\",PinToolTip=\"Tip of InString\",PinType.PinCategory=\"string\",",
		"DefaultValue=\"Hello \\\"world\\\"\",",
		"LinkedTo=(Call " + FObjectBytes::GuidText(0x51) + ",),",
		"SubPins=(Call " + FObjectBytes::GuidText(0x55) + ",),",
		"ParentPin=Call " + FObjectBytes::GuidText(0x54) + ",",
		"PinType.ContainerType=Map,",
		"PinType.PinValueType=(TerminalCategory=\"string\",",
		"bHidden=True,bNotConnectable=False,bDefaultValueIsReadOnly=False,bDefaultValueIsIgnored=False,bAdvancedView=True,",
	};
	for (const std::string& Line : Lines)
	{
		EXPECT_THAT(Body, HasSubstr(Line));
	}
}

namespace BinaryLayoutTest
{
using namespace BinaryTestValues;

static const FTypeTree IntType = {"IntProperty", {}};

struct FValueRow
{
	const char* Property;
	const char* Value;
};

static void ExpectValues(const SmallBlueprint::FExtra Write, const std::vector<FValueRow>& Rows)
{
	for (const std::string& Engine : FPackageLayout::AllEngines())
	{
		SCOPED_TRACE(Engine);
		const FPackageLayout Layout = FPackageLayout::Of(Engine);
		const FBinaryOutcome Outcome = ReadBinary(SmallBlueprint::Make(Layout, Write).Write().Bytes);
		ASSERT_TRUE(Outcome.bRead) << Outcome.Refusal;
		EXPECT_THAT(Outcome.Findings.Warnings, IsEmpty());
		for (const FValueRow& Row : Rows)
		{
			EXPECT_EQ(ValueOf(Outcome.Body, Row.Property), Row.Value) << Row.Property;
		}
	}
}
} // namespace BinaryLayoutTest

TEST(BinaryValues, OfPlainKinds)
{
	using namespace BinaryLayoutTest;
	ExpectValues(&WritePlainValues,
		{{"I8", "-8"}, {"I16", "-16"}, {"I32", "-32"}, {"I64", "-64000000000"}, {"U16", "65535"}, {"U32", "4000000000"},
			{"U64", "18000000000000000000"}, {"F32", "0.5"}, {"F64", "-0.25"}, {"Yes", "True"}, {"No", "False"},
			{"Byte", "9"}, {"Kind", "Good"}, {"Enum", "Bad"}, {"Name", "\"Some Name\""}, {"Latin", "\"a\\\"b\u00E9\""},
			{"Wide", "\"\u00E9\u4E2D\U0001F600\uFFFDx\""}, {"Lazy", "00000001000000020000000300000004"},
			{"WithGuid", "1"}, {"Fixed(0)", "10"}, {"Fixed(1)", "11"}, {"\"With Blanks (and more)\"", "5"},
			{"Delegate", "/Game/BP_Small.BP_Small_C.OnIt"},
			{"Delegates", "(/Game/BP_Small.BP_Small_C.OnIt,/Game/BP_Small.BP_Small_C.OnIt)"},
			{"Field", "\"/Game/BP_Small.BP_Small_C:Health\""}});
}

TEST(BinaryValues, OfContainers)
{
	using namespace BinaryLayoutTest;
	ExpectValues(&WriteContainers,
		{{"Ints", "(1,2)"}, {"Empty", "()"}, {"Bools", "(True,False)"}, {"Bytes", "(7,7)"}, {"Kinds", "(Good,Bad)"},
			{"Set", "(\"Left\",\"Right\")"}, {"Map", "((\"Left\", 1),(\"Right\", 2))"},
			{"PropertyGuids", "((\"Left\", 11111111111111111111111111111111))"},
			{"Tagged", "(Member=1,Member[2]=2,\"Odd one?\"=2)"},
			{"Structs", "((Member=1,Member[2]=2,\"Odd one?\"=2),(Member=1,Member[2]=2,\"Odd one?\"=2))"},
			{"Points", "((X=1,Y=2),(X=2,Y=1))"}});
}

TEST(BinaryValues, OfStructsWithAFormOfTheirOwn)
{
	using namespace BinaryLayoutTest;
	ExpectValues(&WriteStructs,
		{{"Vector", "(X=1.0,Y=-2.0,Z=3.0)"}, {"Rotator", "(Pitch=10.0,Yaw=20.0,Roll=30.0)"},
			{"Vector2D", "(X=1.0,Y=2.0)"}, {"Vector4", "(X=1.0,Y=2.0,Z=3.0,W=4.0)"},
			{"Quat", "(X=0.0,Y=0.0,Z=0.0,W=1.0)"}, {"Plane", "(X=0.0,Y=0.0,Z=1.0,W=5.0)"},
			{"Matrix",
				"(XPlane=(X=1.0,Y=0.0,Z=0.0,W=0.0),YPlane=(X=0.0,Y=1.0,Z=0.0,W=0.0),ZPlane=(X=0.0,Y=0.0,Z=1.0,W=0.0),"
				"WPlane=(X=0.0,Y=0.0,Z=0.0,W=1.0))"},
			{"TwoVectors", "(v1=(X=1.0,Y=2.0,Z=3.0),v2=(X=4.0,Y=5.0,Z=6.0))"},
			{"Box", "(Min=(X=1.0,Y=2.0,Z=3.0),Max=(X=4.0,Y=5.0,Z=6.0),IsValid=True)"},
			{"Box2D", "(Min=(X=1.0,Y=2.0),Max=(X=3.0,Y=4.0),bIsValid=False)"},
			{"LinearColor", "(R=0.5,G=0.0,B=0.0,A=1.0)"}, {"Vector3f", "(X=1.0,Y=2.0,Z=3.0)"},
			{"Color", "(B=1,G=2,R=3,A=4)"}, {"Guid", "00000001000000020000000300000004"}, {"IntPoint", "(X=3,Y=-4)"},
			{"IntVector", "(X=3,Y=-4,Z=5)"}, {"FrameNumber", "(Value=24000)"}, {"DateTime", "(Ticks=77)"},
			{"RichCurveKey",
				"(InterpMode=RCIM_Cubic,TangentMode=RCTM_User,TangentWeightMode=RCTWM_WeightedNone,Time=1.0,Value=2.0,"
				"ArriveTangent=3.0,ArriveTangentWeight=4.0,LeaveTangent=5.0,LeaveTangentWeight=6.0)"},
			{"MovieSceneFrameRange", "(LowerBound=(Type=Inclusive,Value=-5),UpperBound=(Type=Exclusive,Value=60000))"},
			{"MovieSceneFloatChannel",
				"(PreInfinityExtrap=RCCE_Constant,PostInfinityExtrap=RCCE_Linear,Times=((Value=900)),Values=((Value=0.5,"
				"InterpMode=RCIM_Cubic,TangentMode=RCTM_User,Tangent=(ArriveTangent=1.0,LeaveTangent=2.0,"
				"ArriveTangentWeight=3.0,LeaveTangentWeight=4.0,TangentWeightMode=RCTWM_WeightedArrive))),"
				"DefaultValue=9.0,bHasDefaultValue=True,TickResolution=(Numerator=60000,Denominator=1),bShowCurve=True)"},
			{"MovieSceneDoubleChannel",
				"(PreInfinityExtrap=RCCE_Constant,PostInfinityExtrap=RCCE_Linear,Times=((Value=900)),Values=((Value=0.25,"
				"InterpMode=RCIM_Cubic,TangentMode=RCTM_User,Tangent=(ArriveTangent=1.0,LeaveTangent=2.0,"
				"ArriveTangentWeight=3.0,LeaveTangentWeight=4.0,TangentWeightMode=RCTWM_WeightedArrive))),"
				"DefaultValue=9.0,bHasDefaultValue=True,TickResolution=(Numerator=60000,Denominator=1))"},
			{"GameplayTagContainer", "(GameplayTags=((TagName=\"A.B\"),(TagName=\"C\")))"},
			{"TopLevelAssetPath", "\"/Script/Engine.Actor\""}, {"PerPlatformFloat", "(Default=0.5)"},
			{"TaggedVector", "(X=1.0)"}});
}

TEST(BinaryValues, OfTextsByTheirHistory)
{
	using namespace BinaryLayoutTest;
	ExpectValues(&WriteTexts,
		{{"Base", "NSLOCTEXT(\"Space\", \"Key\", \"Open \\\"it\\\"\")"}, {"NoText", "INVTEXT(\"\")"},
			{"Named", "INVTEXT(\"{What} and {Unknown} {What}\")"}, {"Ordered", "INVTEXT(\"-5, 0.5, 0.25\")"},
			{"Data", "INVTEXT(\"7 of 8\")"}, {"Currency", "INVTEXT(\"12\")"},
			{"Upper", "NSLOCTEXT(\"\", \"K\", \"upper\")"}, {"Table", "LOCTABLE(\"/Game/ST.ST\", \"Row\")"}});
}

TEST(BinaryValues, OfSoftPathsInPlaceAndInTheTable)
{
	using namespace BinaryLayoutTest;
	ExpectValues(&WriteSoftPaths,
		{{"Soft", "\"/Game/Doors/BP_Door.BP_Door_C:Part\""}, {"SoftPath", "\"/Game/Doors/BP_Door.BP_Door_C:Part\""}});
	FPackageLayout EarlySeven = FPackageLayout::Of("5.0");
	EarlySeven.Ue5 = 1007;
	const FBinaryOutcome Outcome = ReadBinary(SmallBlueprint::Make(EarlySeven, &WriteSoftPaths).Write().Bytes);
	EXPECT_EQ(ValueOf(Outcome.Body, "Soft"), "\"/Game/Doors/BP_Door.BP_Door_C:Part\"") << Outcome.Refusal;
}

TEST(BinaryValues, WhatIsNotUnderstoodCostsThatValueAlone)
{
	using namespace BinaryLayoutTest;
	const auto Write = [](FTestPackage& Package, FObjectBytes& Out)
	{
		Out.Tag("Strange", {"NovelProperty", {}}, "12345");
		Out.Tag("Short", IntType, "12");
		Out.Tag("Long", IntType, "12345");
		Out.Tag("Endless", {"ArrayProperty", {IntType}}, Number<int32_t>(0x7FFFFFFF));
		Out.Tag("NoName", {"NameProperty", {}}, Number<int32_t>(9999) + Number<int32_t>(0));
		FByteWriter Unending;
		Unending.Int(4);
		Unending.Raw("abcd");
		Out.Tag("NoZero", {"StrProperty", {}}, Unending.Bytes);
		Out.Tag("After", IntType, Number<int32_t>(42));
	};
	for (const std::string Engine : {"4.27", "5.7"})
	{
		SCOPED_TRACE(Engine);
		const FBinaryOutcome Outcome = ReadBinary(
			SmallBlueprint::Make(FPackageLayout::Of(Engine), Write).Write().Bytes);
		EXPECT_EQ(ValueOf(Outcome.Body, "After"), "42");
		EXPECT_THAT(Outcome.Findings.Warnings, IsEmpty());
		EXPECT_EQ(Outcome.Findings.LeftOut.size(), 6u);
		EXPECT_THAT(Outcome.Findings.LeftOut,
			Each(testing::Field(&FBinaryPackageFindings::FLeftOut::Object, "/Game/BP_Small.BP_Small")));
		EXPECT_EQ(Outcome.Findings.NumTwoSidedLinks, 4);
	}
}
