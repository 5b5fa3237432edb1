#include "SchemaPins.h"

#include "GraphBuilder.h"

#include <gtest/gtest.h>

namespace SchemaSplitPins
{
static FString NamesOf(const UEdGraphPin& Pin)
{
	TArray<FString> Names;
	for (const UEdGraphPin* const SubPin : Pin.SubPins)
	{
		Names.Add(SubPin->PinName.ToString() + TEXT("=") + SubPin->DefaultValue);
	}
	return FString::Join(Names, TEXT(" "));
}

struct FRow
{
	const TCHAR* Type;
	const TCHAR* Default;
	const TCHAR* Parts;
	/** After a part was given another value and all were put together. */
	const TCHAR* Part;
	const TCHAR* Value;
	const TCHAR* Together;
};

TEST(SchemaSplitPins, DefaultsGoToThePartsAndBack)
{
	static const FRow Rows[] = {{TEXT("s:Vector"), TEXT("1,2,3"), TEXT("In_X=1.0 In_Y=2.0 In_Z=3.0"), TEXT("In_Y"),
									TEXT("5"), TEXT("1.0,5,3.0")},
		{TEXT("s:Rotator"), TEXT("10,20,30"), TEXT("In_Roll=30.0 In_Pitch=10.0 In_Yaw=20.0"), TEXT("In_Roll"),
			TEXT("7"), TEXT("10.0,20.0,7")},
		{TEXT("s:Vector2D"), TEXT("(X=1.000000,Y=2.000000)"), TEXT("In_X=1.0 In_Y=2.0"), TEXT("In_X"), TEXT("4.0"),
			TEXT("(X=4.0,Y=2.0)")},
		{TEXT("s:LinearColor"), TEXT("(R=1.000000,G=0.500000,B=0.250000,A=1.000000)"),
			TEXT("In_R=1.0 In_G=0.5 In_B=0.25 In_A=1.0"), TEXT("In_G"), TEXT("0.75"),
			TEXT("(R=1.0,G=0.75,B=0.25,A=1.0)")}};
	for (const FRow& Row : Rows)
	{
		SCOPED_TRACE(ToStd(Row.Type));
		const FPinPair Pair(TEXT("int"), Row.Type);
		Pair.Schema->TrySetDefaultValue(*Pair.Input, Row.Default);
		ASSERT_TRUE(Pair.Schema->CanSplitStructPin(*Pair.Input));
		Pair.Schema->SplitPin(Pair.Input);
		EXPECT_TRUE(Pair.Input->bHidden);
		EXPECT_EQ(NamesOf(*Pair.Input), FString(Row.Parts));
		UEdGraphPin* const Part = Pair.InputNode->FindPin(Row.Part);
		ASSERT_NE(Part, nullptr);
		Pair.Schema->TrySetDefaultValue(*Part, Row.Value);
		ASSERT_TRUE(Pair.Schema->CanRecombineStructPin(*Part));
		Pair.Schema->RecombinePin(Part);
		EXPECT_FALSE(Pair.Input->bHidden);
		EXPECT_EQ(Pair.InputNode->Pins.Num(), 1);
		EXPECT_TRUE(Pair.Input->DefaultValue.Equals(Row.Together)) << ToStd(Pair.Input->DefaultValue);
	}
}

TEST(SchemaSplitPins, AnOutputGivesThePartsOfItsBreakFunctionBehindIt)
{
	const FPinPair Pair(TEXT("s:HitResult"), TEXT("s:Vector"));
	Pair.OutputNode->CreatePin(EGPD_Output, ReadPinType(TEXT("int")), TEXT("Last"));
	Pair.Schema->SplitPin(Pair.Output);
	UEdGraphPin* const Location = Pair.OutputNode->FindPin(TEXT("Out_Location"));
	ASSERT_NE(Location, nullptr);
	EXPECT_EQ(Location->ParentPin, Pair.Output);
	EXPECT_EQ(Location->PinFriendlyName.ToString(), FString(TEXT("Out Location")));
	EXPECT_EQ(Pair.OutputNode->Pins[1], Pair.Output->SubPins[0]);
	EXPECT_EQ(Pair.OutputNode->Pins.Last()->PinName, FName(TEXT("Last")));
	EXPECT_EQ(Pair.Schema->CanCreateConnection(Location, Pair.Input).Response, CONNECT_RESPONSE_MAKE);

	// The whole is not linked any more as long as it is in parts.
	const FPinPair Whole(TEXT("s:Vector"), TEXT("s:Vector"));
	Whole.Schema->SplitPin(Whole.Output);
	EXPECT_EQ(Whole.Ask(), CONNECT_RESPONSE_DISALLOW);
	EXPECT_NE(Whole.Words().find("split"), std::string::npos);
}

TEST(SchemaSplitPins, APartOfAPartIsSplitToo)
{
	const FPinPair Pair(TEXT("double"), TEXT("s:Transform"));
	Pair.Schema->SplitPin(Pair.Input);
	EXPECT_EQ(NamesOf(*Pair.Input),
		FString(TEXT("In_Location=0, 0, 0 In_Rotation=0, 0, 0 In_Scale=1.000000,1.000000,1.000000")));
	UEdGraphPin* const Location = Pair.InputNode->FindPin(TEXT("In_Location"));
	ASSERT_NE(Location, nullptr);
	ASSERT_TRUE(Pair.Schema->CanSplitStructPin(*Location));
	Pair.Schema->SplitPin(Location);
	UEdGraphPin* const Z = Pair.InputNode->FindPin(TEXT("In_Location_Z"));
	ASSERT_NE(Z, nullptr);
	EXPECT_EQ(Z->ParentPin, Location);
	EXPECT_EQ(Pair.InputNode->Pins.Find(Z), 4) << "behind the pin that it is a part of";
	ASSERT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, Z));
	Pair.Schema->RecombinePin(Pair.Input);
	EXPECT_EQ(Pair.InputNode->Pins.Num(), 1);
	EXPECT_TRUE(Pair.Output->LinkedTo.IsEmpty());
}

TEST(SchemaSplitPins, RecombiningBreaksTheLinksOfTheParts)
{
	const FPinPair Pair(TEXT("double"), TEXT("s:Vector"));
	Pair.Schema->SplitPin(Pair.Input);
	UEdGraphPin* const X = Pair.InputNode->FindPin(TEXT("In_X"));
	ASSERT_NE(X, nullptr);
	ASSERT_TRUE(Pair.Schema->TryCreateConnection(Pair.Output, X));
	Pair.Schema->RecombinePin(X);
	EXPECT_TRUE(Pair.Output->LinkedTo.IsEmpty());
	EXPECT_TRUE(Pair.Input->SubPins.IsEmpty());
}

TEST(SchemaSplitPins, OnlyUnlinkedSingleStructsSplit)
{
	EXPECT_FALSE(
		FPinPair(TEXT("int"), TEXT("int")).Schema->CanSplitStructPin(*FPinPair(TEXT("int"), TEXT("int")).Input));
	const FPinPair Array(TEXT("int"), TEXT("s:Vector[]"));
	EXPECT_FALSE(Array.Schema->CanSplitStructPin(*Array.Input));
	const FPinPair Linked(TEXT("s:Vector"), TEXT("s:Vector"));
	ASSERT_TRUE(Linked.Schema->TryCreateConnection(Linked.Output, Linked.Input));
	EXPECT_FALSE(Linked.Schema->CanSplitStructPin(*Linked.Input));
}
} // namespace SchemaSplitPins
