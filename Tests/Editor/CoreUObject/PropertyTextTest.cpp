#include "ReflectedThings.h"

#include "Misc/StringOutputDevice.h"

#include <gtest/gtest.h>
#include <random>

namespace PropertyTexts
{
struct FTextCase
{
	const TCHAR* Property;
	const TCHAR* Text;
	/** What is written back; null for the same. */
	const TCHAR* Written = nullptr;
};

TEST(PropertyText, EveryKindReadsWhatItWrites)
{
	const FTextCase Cases[] = {
		{TEXT("bOpen"), TEXT("True")},
		{TEXT("bOpen"), TEXT("False")},
		{TEXT("bOpen"), TEXT("yes"), TEXT("True")},
		{TEXT("bOpen"), TEXT("0"), TEXT("False")},
		{TEXT("bOpen"), TEXT("\"true\""), TEXT("True")},
		{TEXT("Tiny"), TEXT("-128")},
		{TEXT("Short"), TEXT("-32768")},
		{TEXT("Number"), TEXT("-2147483648")},
		{TEXT("Number"), TEXT(" +42"), TEXT("42")},
		{TEXT("Number"), TEXT("3.75"), TEXT("3")},
		{TEXT("Long"), TEXT("9223372036854775807")},
		{TEXT("Byte"), TEXT("255")},
		{TEXT("UShort"), TEXT("65535")},
		{TEXT("UNumber"), TEXT("4294967295")},
		{TEXT("ULong"), TEXT("18446744073709551615")},
		{TEXT("Ratio"), TEXT("0.660000")},
		{TEXT("Ratio"), TEXT("-.5"), TEXT("-0.500000")},
		{TEXT("Ratio"), TEXT("2.5f"), TEXT("2.500000")},
		{TEXT("Ratio"), TEXT("1e3"), TEXT("1000.000000")},
		{TEXT("Ratio"), TEXT("1e400"), TEXT("340282346638528859811704183484516925440.000000")},
		{TEXT("Distance"), TEXT("-1e400"), nullptr},
		{TEXT("Distance"), TEXT("1e-400"), TEXT("0.000000")},
		{TEXT("Distance"), TEXT("-inf")},
		{TEXT("Distance"), TEXT("3"), TEXT("3.000000")},
		{TEXT("Tag"), TEXT("\"two words\"")},
		{TEXT("Tag"), TEXT("Bare_1"), TEXT("\"Bare_1\"")},
		{TEXT("Tag"), TEXT("\"None\"")},
		{TEXT("Text"), TEXT("\"\"")},
		{TEXT("Text"), TEXT("\"a \\\"quoted\\\" \\\\ back\\n\\r\\t, (x)=')\"")},
		{TEXT("Text"), TEXT("\"\u00e4\u4e2d\"")},
		{TEXT("Shown"), TEXT("NSLOCTEXT(\"ns\", \"key\", \"shown \\\"x\\\"\")")},
		{TEXT("Shown"), TEXT("INVTEXT(\"fixed\")")},
		{TEXT("Mood"), TEXT("Calm")},
		{TEXT("Mood"), TEXT("EThingMood::Angry"), TEXT("Angry")},
		{TEXT("Mood"), TEXT("\"angry\""), TEXT("Angry")},
		{TEXT("Mood"), TEXT("7"), TEXT("Angry")},
		{TEXT("Mood"), TEXT("None")},
		{TEXT("Mood"), TEXT("5")},
		{TEXT("Mode"), TEXT("TMODE_On")},
		{TEXT("Mode"), TEXT("EThingOldMode::TMODE_On"), TEXT("TMODE_On")},
		{TEXT("Vector"), TEXT("(X=1.000000,Y=2.000000,Z=-3.500000)")},
		{TEXT("Colour"), TEXT("(R=0.000000,G=0.660000,B=1.000000,A=1.000000)")},
		{TEXT("Id"), TEXT("55C904AF4B45FE1761FB55A8DB9FB801")},
		{TEXT("Id"), TEXT("{55C904AF-4B45-FE17-61FB-55A8DB9FB801}"), TEXT("55C904AF4B45FE1761FB55A8DB9FB801")},
		{TEXT("PlainPath"), TEXT("\"/Game/A/B.B:Sub.Sub\"")},
		{TEXT("PlainPath"), TEXT("None")},
		{TEXT("Soft"), TEXT("\"/Game/A/B.B\"")},
		{TEXT("Soft"), TEXT("Thing'\"/Game/A/B.B\"'"), TEXT("\"/Game/A/B.B\"")},
		{TEXT("Friend"), TEXT("None")},
		{TEXT("Delegate"), TEXT("(null).None")},
		{TEXT("Event"), TEXT("()")},
		{TEXT("Event"), TEXT("((null).None)"), TEXT("()")},
		{TEXT("Numbers"), TEXT("(1,-2,3)")},
		{TEXT("Numbers"), TEXT("( 1 , 2, )"), TEXT("(1,2)")},
		{TEXT("Numbers"), TEXT("()"), TEXT("")},
		{TEXT("Tags"), TEXT("(\"a\",\"b c\")")},
		{TEXT("Tags"), TEXT("(a,a,b)"), TEXT("(\"a\",\"b\")")},
		{TEXT("Tags"), TEXT("()")},
		{TEXT("Scores"), TEXT("((\"a\", 1),(\"b\", -2))")},
		{TEXT("Scores"), TEXT("((a,1),(a,2))"), TEXT("((\"a\", 2))")},
		{TEXT("Scores"), TEXT("()")},
		{TEXT("Places"), TEXT("((\"here, (or there)\", (X=1.000000,Y=0.000000,Z=0.000000)))")},
		{TEXT("Parts"), TEXT("((Label=\"x\"),(Count=4,Parts=((Count=5))),())")},
		{TEXT("Parts"), TEXT("((\"Label\"=\"x\",Nothing=(1,\"),\")))"), TEXT("((Label=\"x\"))")},
	};
	const FThingPackage Package;
	for (const FTextCase& Case : Cases)
	{
		UThing* const Thing = NewObject<UThing>(Package.Get());
		EXPECT_TRUE(ImportValue(Thing, Case.Property, Case.Text))
			<< FString(Case.Property) << ": " << FString(Case.Text);
		const FString Written = ExportValue(Thing, Case.Property);
		if (FString(Case.Text) != TEXT("-1e400"))
		{
			EXPECT_EQ(AsUtf8(Written), AsUtf8(Case.Written ? Case.Written : Case.Text)) << FString(Case.Property);
		}
		UThing* const Again = NewObject<UThing>(Package.Get());
		EXPECT_TRUE(ImportValue(Again, Case.Property, *Written)) << Written;
		EXPECT_EQ(AsUtf8(ExportValue(Again, Case.Property)), AsUtf8(Written)) << FString(Case.Property);
	}
}

TEST(PropertyText, WithoutDelimitersTextsAreWhole)
{
	const FTextCase Cases[] = {
		{TEXT("Text"), TEXT("a, \"b\") c")},
		{TEXT("Text"), TEXT("")},
		{TEXT("Tag"), TEXT("two words, one")},
		{TEXT("Shown"), TEXT("plain words")},
		{TEXT("Number"), TEXT("12")},
		{TEXT("Soft"), TEXT("/Game/My Folder/A B.A B")},
		{TEXT("PlainPath"), TEXT("/Game/My Folder/A.A")},
		{TEXT("ThingClass"), TEXT("/Script/CoreUObject.Class'/Script/ThingTests.Thing'")},
		{TEXT("Part"), TEXT("(Label=\"q\",Count=1,Place=(X=0.000000,Y=0.000000,Z=0.000000),Parts=,Target=None)")},
	};
	const FThingPackage Package;
	for (const FTextCase& Case : Cases)
	{
		UThing* const Thing = NewObject<UThing>(Package.Get());
		EXPECT_TRUE(ImportValue(Thing, Case.Property, Case.Text, PPF_None)) << FString(Case.Property);
		EXPECT_EQ(AsUtf8(ExportValue(Thing, Case.Property, PPF_None)), AsUtf8(Case.Text)) << FString(Case.Property);
	}
}

TEST(PropertyText, WhatIsNoSuchValueIsRefusedWithAReason)
{
	const FTextCase Cases[] = {
		{TEXT("bOpen"), TEXT("maybe")},
		{TEXT("bOpen"), TEXT("")},
		{TEXT("Number"), TEXT("")},
		{TEXT("Number"), TEXT("abc")},
		{TEXT("Number"), TEXT("-")},
		{TEXT("Number"), TEXT("2147483648")},
		{TEXT("Byte"), TEXT("256")},
		{TEXT("Byte"), TEXT("-1")},
		{TEXT("Long"), TEXT("9999999999999999999")},
		{TEXT("Ratio"), TEXT("one")},
		{TEXT("Ratio"), TEXT(".")},
		{TEXT("Text"), TEXT("bare")},
		{TEXT("Text"), TEXT("\"open")},
		{TEXT("Text"), TEXT("\"open\\\"")},
		{TEXT("Tag"), TEXT("\"open")},
		{TEXT("Tag"), TEXT("")},
		{TEXT("Shown"), TEXT("NSLOCTEXT(\"ns\", \"key\"")},
		{TEXT("Mood"), TEXT("Furious")},
		{TEXT("Mood"), TEXT("")},
		{TEXT("Vector"), TEXT("1,2,3")},
		{TEXT("Vector"), TEXT("(X=1")},
		{TEXT("Vector"), TEXT("(X=1,Y=)")},
		{TEXT("Vector"), TEXT("(X 1)")},
		{TEXT("Vector"), TEXT("(X=1;Y=2)")},
		{TEXT("Part"), TEXT("(Label=x)")},
		{TEXT("Part"), TEXT("(Unknown=(1,2)")},
		{TEXT("Id"), TEXT("55C9")},
		{TEXT("Id"), TEXT("(")},
		{TEXT("Friend"), TEXT("/Game/Nowhere.Nowhere")},
		{TEXT("Friend"), TEXT("Thing'/Game/A.A")},
		{TEXT("Friend"), TEXT("Thing'\"/Game/A.A\"")},
		{TEXT("Friend"), TEXT("\"/Game/A.A")},
		{TEXT("Friend"), TEXT("(x)")},
		{TEXT("ThingClass"), TEXT("/Script/CoreUObject.Object")},
		{TEXT("Listener"), TEXT("/Script/ThingTests.Default__Thing")},
		{TEXT("Delegate"), TEXT("/Game/Nowhere.Nowhere.Run")},
		{TEXT("Event"), TEXT("(a.b")},
		{TEXT("Event"), TEXT("a.b")},
		{TEXT("Numbers"), TEXT("(1,2")},
		{TEXT("Numbers"), TEXT("1,2)")},
		{TEXT("Numbers"), TEXT("(1,,2)")},
		{TEXT("Numbers"), TEXT("(1 2)")},
		{TEXT("Tags"), TEXT("(\"a)")},
		{TEXT("Scores"), TEXT("(a,1)")},
		{TEXT("Scores"), TEXT("((a,1)")},
		{TEXT("Scores"), TEXT("((a))")},
		{TEXT("Scores"), TEXT("((a,1)(b,2))")},
	};
	const FThingPackage Package;
	for (const FTextCase& Case : Cases)
	{
		UThing* const Thing = NewObject<UThing>(Package.Get());
		FStringOutputDevice Error;
		EXPECT_FALSE(ImportValue(Thing, Case.Property, Case.Text, PPF_Delimited, &Error))
			<< FString(Case.Property) << ": " << FString(Case.Text);
		EXPECT_FALSE(Error.IsEmpty()) << FString(Case.Property) << ": " << FString(Case.Text);
	}
}

TEST(PropertyText, ReferencesAreReadInEverySpelling)
{
	const FThingPackage Package;
	UThing* const Target = Package.Make(TEXT("B"), Package.Make(TEXT("A")));
	const FString Path = Target->GetPathName();
	const FString Spellings[] = {
		Path,
		TEXT("Thing'\"") + Path + TEXT("\"'"),
		TEXT("Thing'") + Path + TEXT("'"),
		TEXT("/Script/ThingTests.Thing'\"") + Path + TEXT("\"'"),
		TEXT("\"/Script/ThingTests.Thing'") + Path + TEXT("'\""),
		TEXT("\"") + Path + TEXT("\""),
		TEXT("B"),
		TEXT("A.B"),
		TEXT("\"A:B\""),
	};
	for (const FString& Spelling : Spellings)
	{
		UThing* const Holder = NewObject<UThing>(Target->GetOuter());
		EXPECT_TRUE(ImportValue(Holder, TEXT("Friend"), *Spelling)) << Spelling;
		EXPECT_EQ(Holder->Friend, Target) << Spelling;
		EXPECT_TRUE(ImportValue(Holder, TEXT("Friends"), *(TEXT("(") + Spelling + TEXT(",None)")))) << Spelling;
		EXPECT_EQ(Holder->Friends, (TArray<TObjectPtr<UObject>>{Target, nullptr})) << Spelling;
		EXPECT_TRUE(ImportValue(Holder, TEXT("Weak"), *Spelling)) << Spelling;
		EXPECT_EQ(Holder->Weak.Get(), Target);
		EXPECT_TRUE(ImportValue(Holder, TEXT("Part"), *(TEXT("(Target=") + Spelling + TEXT(",Count=8)")))) << Spelling;
		EXPECT_EQ(Holder->Part.Target, Target);
		EXPECT_EQ(Holder->Part.Count, 8);
	}
	UThing* const Holder = NewObject<UThing>(Package.Get());
	for (const TCHAR* const Spelling : {TEXT("Class'\"/Script/ThingTests.ThingOwner\"'"), TEXT("ThingOwner"),
			 TEXT("\"/Script/CoreUObject.Class'/Script/ThingTests.ThingOwner'\"")})
	{
		EXPECT_TRUE(ImportValue(Holder, TEXT("ThingClass"), Spelling)) << FString(Spelling);
		EXPECT_EQ(Holder->ThingClass.Get(), UThingOwner::StaticClass());
	}
}

TEST(PropertyText, ReferencesAreWrittenWholeOrAsAsked)
{
	const FThingPackage Package;
	UThing* const Holder = Package.Make(TEXT("A"));
	UThing* const Target = Package.Make(TEXT("B"), Holder);
	Holder->Friend = Target;
	const FString Path = Target->GetPathName();
	const FString Prefixed = TEXT("/Script/ThingTests.Thing'") + Path + TEXT("'");
	EXPECT_EQ(ExportValue(Holder, TEXT("Friend")), TEXT("\"") + Prefixed + TEXT("\""));
	EXPECT_EQ(ExportValue(Holder, TEXT("Friend"), PPF_None), Prefixed);
	EXPECT_EQ(ExportValue(Holder, TEXT("Friend"), PPF_SimpleObjectText), Path);
	EXPECT_EQ(ExportValue(Holder, TEXT("Friend"), PPF_ExportsNotFullyQualified), TEXT("/Script/ThingTests.Thing'A:B'"));
	Holder->Listener.SetObject(NewObject<UThingOwner>(Package.Get(), FName(TEXT("Owner"))));
	EXPECT_EQ(ExportValue(Holder, TEXT("Listener"), PPF_None),
		TEXT("/Script/ThingTests.ThingOwner'") + Package.Path(TEXT(".Owner'")));
	EXPECT_TRUE(ImportValue(Holder, TEXT("Listener"), *ExportValue(Holder, TEXT("Listener"))));
	Holder->Delegate.BindUFunction(Target, TEXT("Run"));
	EXPECT_EQ(ExportValue(Holder, TEXT("Delegate")), Path + TEXT(".Run"));
	Holder->Event.InvocationList = {Holder->Delegate};
	EXPECT_TRUE(ImportValue(Holder, TEXT("Event"), *(TEXT("(") + Path + TEXT(".Run,/No/Such.Thing.X,Walk)"))));
	EXPECT_EQ(
		ExportValue(Holder, TEXT("Event")), TEXT("(") + Path + TEXT(".Run,") + Holder->GetPathName() + TEXT(".Walk)"));
}

TEST(PropertyText, ALostReferenceCostsOnlyItself)
{
	const FThingPackage Package;
	UThing* const Thing = Package.Make(TEXT("A"));
	Thing->Part.Target = Thing;
	FStringOutputDevice Error;
	EXPECT_TRUE(ImportValue(
		Thing, TEXT("Part"), TEXT("(Target=\"/Script/X.Y'/Game/No.No'\",Label=\"after\")"), PPF_Delimited, &Error));
	EXPECT_EQ(Thing->Part.Target, nullptr);
	EXPECT_EQ(Thing->Part.Label, TEXT("after"));
	EXPECT_TRUE(Error.Contains(TEXT("unresolved reference to '/Game/No.No'"))) << Error;
}

TEST(PropertyText, ExactNumbersReadBackTheSame)
{
	const FThingPackage Package;
	UThing* const Thing = Package.Make(TEXT("A"));
	for (const double Value : {1.0 / 3.0, 1e-9, -123456.789012345, 5e-324, 1e300, 0.1, 2.0})
	{
		Thing->Distance = Value;
		Thing->Ratio = static_cast<float>(Value);
		const FString Distance = ExportValue(Thing, TEXT("Distance"), PPF_ExactNumbers);
		const FString Ratio = ExportValue(Thing, TEXT("Ratio"), PPF_ExactNumbers);
		const float RatioBefore = Thing->Ratio;
		EXPECT_TRUE(ImportValue(Thing, TEXT("Distance"), *Distance));
		EXPECT_TRUE(ImportValue(Thing, TEXT("Ratio"), *Ratio));
		EXPECT_EQ(Thing->Distance, Value) << Distance;
		EXPECT_EQ(Thing->Ratio, RatioBefore) << Ratio;
	}
	Thing->Distance = 0.1;
	EXPECT_EQ(ExportValue(Thing, TEXT("Distance"), PPF_ExactNumbers), TEXT("0.100000"));
	Thing->Distance = 1.0 / 3.0;
	EXPECT_EQ(ExportValue(Thing, TEXT("Distance")), TEXT("0.333333"));
}

TEST(PropertyText, OnlyWhatDiffersFromTheDefaultIsWritten)
{
	const FThingPackage Package;
	UThing* const Thing = Package.Make(TEXT("A"));
	UThing* const Default = Package.Make(TEXT("B"));
	const FProperty* const Part = UThing::StaticClass()->FindPropertyByName(TEXT("Part"));
	FString Text;
	EXPECT_FALSE(Part->ExportText_InContainer(0, Text, Thing, Default, Thing, PPF_None));
	EXPECT_TRUE(Text.IsEmpty());
	Thing->Part.Place.Y = 2.0;
	EXPECT_TRUE(Part->ExportText_InContainer(0, Text, Thing, Default, Thing, PPF_None));
	EXPECT_EQ(Text, TEXT("(Place=(X=0.000000,Y=2.000000,Z=0.000000))")) << "a vector is one value";
	Text.Reset();
	Thing->Tag = TEXT("case");
	Default->Tag = TEXT("Case");
	EXPECT_TRUE(UThing::StaticClass()
					->FindPropertyByName(TEXT("Tag"))
					->ExportText_InContainer(0, Text, Thing, Default, Thing, PPF_None))
		<< "a change of case would be lost otherwise";
	const FProperty* const Number = UThing::StaticClass()->FindPropertyByName(TEXT("Number"));
	Thing->Number = 0;
	EXPECT_FALSE(Number->ExportText_InContainer(0, Text, Thing, nullptr, Thing, PPF_None)) << "against nothing: zero";
	EXPECT_TRUE(Number->ExportText_InContainer(0, Text, Thing, Thing, Thing, PPF_None)) << "against itself: whole";
}

TEST(PropertyText, NestingWithoutEndIsRefused)
{
	const FThingPackage Package;
	UThing* const Thing = Package.Make(TEXT("A"));
	FString Text;
	for (int32 Depth = 0; Depth < 100000; ++Depth)
	{
		Text += TEXT("((Parts=");
	}
	EXPECT_FALSE(ImportValue(Thing, TEXT("Parts"), *Text));
}

/** Copies into memory of exactly its size, so that a sanitizer sees any step beyond the end. */
static bool ImportExact(UObject* Object, const TCHAR* Property, const FString& Text)
{
	const std::unique_ptr<TCHAR[]> Exact(new TCHAR[static_cast<std::size_t>(Text.Len()) + 1]);
	std::copy_n(*Text, Text.Len() + 1, Exact.get());
	return ImportValue(Object, Property, Exact.get());
}

TEST(PropertyText, CutAndScrambledTextNeverReadsBeyondItsEnd)
{
	const FThingPackage Package;
	UThing* const Thing = Package.Make(TEXT("A"));
	const FTextCase Whole[] = {
		{TEXT("Part"),
			TEXT(
				"(Label=\"a\\\"b\",Count=4,Place=(X=1.0,Y=2.0),Parts=((Count=5),(Label=\"\")),Target=Thing'\"/Game/A.A\"')")},
		{TEXT("Scores"), TEXT("((\"a\", 1),(\"b\", -2))")},
		{TEXT("Friends"), TEXT("(\"/Script/X.Y'/Game/A.A'\",Thing'/Game/B.B',None)")},
		{TEXT("Event"), TEXT("((null).None,/Game/A.A.Run)")},
		{TEXT("Shown"), TEXT("NSLOCTEXT(\"ns\", \"key\", \"text\")")},
		{TEXT("Id"), TEXT("{55C904AF-4B45-FE17-61FB-55A8DB9FB801}")},
		{TEXT("Numbers"), TEXT("(1,2.5,-3)")},
		{TEXT("Distance"), TEXT("-12.5e-3f")},
	};
	std::mt19937 Random(7);
	for (const FTextCase& Case : Whole)
	{
		const FString Text(Case.Text);
		for (int32 Length = 0; Length < Text.Len(); ++Length)
		{
			const bool bRead = ImportExact(Thing, Case.Property, Text.Left(Length));
			const bool bOpens = Text[0] == TEXT('(') || Text[0] == TEXT('{') || Text[0] == TEXT('N');
			EXPECT_FALSE(bRead && bOpens && Length > 0) << FString(Case.Property) << ": " << Text.Left(Length);
		}
		for (int32 Round = 0; Round < 500; ++Round)
		{
			FString Scrambled = Text;
			for (int32 Change = 0; Change < 3; ++Change)
			{
				static const FString Alphabet(TEXT("(),=\"'\\.:/ a1-"));
				const int32 At = static_cast<int32>(Random() % static_cast<uint32>(Scrambled.Len()));
				Scrambled[At] = Alphabet[static_cast<int32>(Random() % static_cast<uint32>(Alphabet.Len()))];
			}
			ImportExact(Thing, Case.Property, Scrambled);
			// Whatever came of it is a value that can be written and read.
			EXPECT_TRUE(ImportExact(Thing, Case.Property, ExportValue(Thing, Case.Property))) << Scrambled;
		}
	}
}

TEST(PropertyText, DataContainersBehaveAsNativeOnes)
{
	const FThingPackage Package;
	UClass* const Class = Package.MakeClass(TEXT("BP_C"), UThing::StaticClass());
	const TCHAR* const Names[] = {TEXT("List"), TEXT("Unique"), TEXT("Lookup")};
	FArrayProperty* const List = static_cast<FArrayProperty*>(AddDataProperty<TArray<FString>>(Class, Names[0]));
	FSetProperty* const Unique = static_cast<FSetProperty*>(AddDataProperty<TSet<FString>>(Class, Names[1]));
	FMapProperty* const Lookup = static_cast<FMapProperty*>(
		AddDataProperty<TMap<FString, FThingPart>>(Class, Names[2]));
	List->Ops = nullptr;
	Unique->Ops = nullptr;
	Lookup->Ops = nullptr;
	Class->Link();
	UThing* const Thing = NewObject<UThing>(Package.Get(), Class);
	const TCHAR* const Texts[] = {TEXT("(\"short\",\"too long for the string itself to hold\",\"\",\"d\",\"e\")"),
		TEXT("(\"a\",\"b\")"), TEXT("((\"a\", (Count=1)),(\"b\", ()))")};
	for (int32 Index = 0; Index < 3; ++Index)
	{
		EXPECT_TRUE(ImportValue(Thing, Names[Index], Texts[Index])) << FString(Texts[Index]);
		EXPECT_EQ(AsUtf8(ExportValue(Thing, Names[Index])), AsUtf8(Texts[Index]));
	}
	UThing* const Copy = DuplicateObject(Thing, Package.Get());
	for (const TCHAR* const Name : Names)
	{
		EXPECT_EQ(ExportValue(Copy, Name), ExportValue(Thing, Name));
		EXPECT_TRUE(Class->FindPropertyByName(FName(Name))->Identical_InContainer(Copy, Thing));
	}
	EXPECT_TRUE(ImportValue(Thing, TEXT("Unique"), TEXT("(\"a\",\"a\",\"b\",\"a\")")));
	EXPECT_EQ(ExportValue(Thing, TEXT("Unique")), TEXT("(\"a\",\"b\")"));
	const FString Key(TEXT("a"));
	const FScriptMapHelper Map(Lookup, Lookup->GetValuePtr(Copy));
	EXPECT_EQ(reinterpret_cast<const FThingPart*>(Map.FindValue(&Key))->Count, 1);
	EXPECT_FALSE(Class->FindPropertyByName(TEXT("Lookup"))->Identical_InContainer(Copy, Class->GetDefaultObject()));
}

TEST(PropertyText, CppTypesAreTheEnginesWords)
{
	struct FCase
	{
		const TCHAR* Property;
		const TCHAR* Type;
	};
	const FCase Cases[] = {
		{TEXT("bOpen"), TEXT("bool")},
		{TEXT("Tiny"), TEXT("int8")},
		{TEXT("Number"), TEXT("int32")},
		{TEXT("ULong"), TEXT("uint64")},
		{TEXT("Byte"), TEXT("uint8")},
		{TEXT("Ratio"), TEXT("float")},
		{TEXT("Distance"), TEXT("double")},
		{TEXT("Tag"), TEXT("FName")},
		{TEXT("Text"), TEXT("FString")},
		{TEXT("Shown"), TEXT("FText")},
		{TEXT("Mood"), TEXT("EThingMood")},
		{TEXT("Mode"), TEXT("TEnumAsByte<EThingOldMode>")},
		{TEXT("Part"), TEXT("FThingPart")},
		{TEXT("Friend"), TEXT("UObject*")},
		{TEXT("AnyClass"), TEXT("UClass*")},
		{TEXT("ThingClass"), TEXT("TSubclassOf<UThing> ")},
		{TEXT("Weak"), TEXT("TWeakObjectPtr<UThing>")},
		{TEXT("Soft"), TEXT("TSoftObjectPtr<UThing>")},
		{TEXT("Listener"), TEXT("TScriptInterface<IThingListener>")},
		{TEXT("Delegate"), TEXT("FScriptDelegate")},
		{TEXT("Event"), TEXT("FMulticastScriptDelegate")},
		{TEXT("Numbers"), TEXT("TArray<int32>")},
		{TEXT("Friends"), TEXT("TArray<UObject*>")},
		{TEXT("Tags"), TEXT("TSet<FName>")},
		{TEXT("Places"), TEXT("TMap<FString,FVector>")},
	};
	const FThingPackage Package;
	for (const FCase& Case : Cases)
	{
		FString Extended;
		const FString Type = UThing::StaticClass()->FindPropertyByName(FName(Case.Property))->GetCPPType(&Extended);
		EXPECT_EQ(Type + Extended, FString(Case.Type)) << FString(Case.Property);
	}
}
} // namespace PropertyTexts
