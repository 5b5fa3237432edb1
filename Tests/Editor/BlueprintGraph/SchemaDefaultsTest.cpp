#include "SchemaPins.h"

#include "GraphBuilder.h"
#include "K2Node_CallFunction.h"

#include <gtest/gtest.h>

namespace SchemaDefaults
{
struct FRow
{
	const TCHAR* Type;
	const TCHAR* Value;
	bool bValid;
	/** What the pin holds afterwards; null: the value as given. */
	const TCHAR* Kept;
};

static const FRow Rows[] = {{TEXT("bool"), TEXT("true"), true, nullptr}, {TEXT("bool"), TEXT("False"), true, nullptr},
	{TEXT("bool"), TEXT("maybe"), false, nullptr}, {TEXT("int"), TEXT("42"), true, nullptr},
	{TEXT("int"), TEXT("-7"), true, nullptr}, {TEXT("int"), TEXT("4.5"), false, nullptr},
	{TEXT("int"), TEXT("x"), false, nullptr}, {TEXT("int"), TEXT("3000000000"), false, nullptr},
	{TEXT("int64"), TEXT("3000000000"), true, nullptr}, {TEXT("int64"), TEXT("99999999999999999999"), false, nullptr},
	{TEXT("byte"), TEXT("255"), true, nullptr}, {TEXT("byte"), TEXT("256"), false, nullptr},
	{TEXT("byte"), TEXT("-1"), false, nullptr}, {TEXT("double"), TEXT("1.5"), true, nullptr},
	{TEXT("double"), TEXT("3"), true, nullptr}, {TEXT("float"), TEXT("2.f"), true, nullptr},
	{TEXT("double"), TEXT("1e3"), true, nullptr}, {TEXT("double"), TEXT("abc"), false, nullptr},
	{TEXT("double"), TEXT("1.2.3"), false, nullptr}, {TEXT("double"), TEXT("nan"), false, nullptr},
	{TEXT("string"), TEXT("anything, at all"), true, nullptr}, {TEXT("name"), TEXT("Some Name"), true, nullptr},
	{TEXT("e:ECollisionChannel"), TEXT("ECC_Pawn"), true, nullptr},
	{TEXT("e:ECollisionChannel"), TEXT("ECC_Nothing"), false, nullptr},
	{TEXT("e:ECollisionChannel"), TEXT("ECC_MAX"), false, nullptr},
	{TEXT("e:ESpawnActorCollisionHandlingMethod"), TEXT("ESpawnActorCollisionHandlingMethod::AlwaysSpawn"), true,
		TEXT("AlwaysSpawn")},
	{TEXT("s:Vector"), TEXT("1,2,3"), true, nullptr}, {TEXT("s:Vector"), TEXT("0, 0, 0"), true, nullptr},
	{TEXT("s:Vector"), TEXT("(X=1.000000,Y=2.000000,Z=3.000000)"), true, TEXT("1.000000,2.000000,3.000000")},
	{TEXT("s:Vector"), TEXT("1,2"), false, nullptr}, {TEXT("s:Vector"), TEXT("a,b,c"), false, nullptr},
	{TEXT("s:Rotator"), TEXT("0,90,0"), true, nullptr}, {TEXT("s:Rotator"), TEXT("up"), false, nullptr},
	{TEXT("s:Vector2D"), TEXT("(X=1.0,Y=2.0)"), true, nullptr},
	{TEXT("s:LinearColor"), TEXT("(R=1.000000,G=0.000000,B=0.000000,A=1.000000)"), true, nullptr},
	{TEXT("s:LinearColor"), TEXT("red"), false, nullptr}, {TEXT("s:Transform"), TEXT("()"), true, nullptr},
	{TEXT("s:Transform"), TEXT("1,2,3|0,90,0|1,1,1"), true, nullptr},
	{TEXT("s:Transform"), TEXT("(Translation=(X=1.0,Y=2.0,Z=3.0))"), true, nullptr},
	{TEXT("s:Transform"), TEXT("1,2,3|0,90,0"), false, nullptr}, {TEXT("s:Transform"), TEXT("1,2,3"), false, nullptr},
	{TEXT("o:StaticMesh"), TEXT("None"), true, TEXT("")}, {TEXT("o:StaticMesh"), TEXT(""), true, nullptr},
	{TEXT("o:StaticMesh"), TEXT("/Game/Missing/SM_Missing.SM_Missing"), false, nullptr},
	{TEXT("c:Actor"), TEXT("/Script/Engine.Character"), true, TEXT("")},
	{TEXT("c:Actor"), TEXT("/Script/Engine.ActorComponent"), false, TEXT("")},
	{TEXT("c:Actor"), TEXT("Class'/Script/Engine.Pawn'"), true, TEXT("")},
	{TEXT("c:Actor"), TEXT("NoSuchClass"), false, nullptr},
	{TEXT("so:StaticMesh"), TEXT("/Game/Meshes/SM_Cube.SM_Cube"), true, nullptr},
	{TEXT("so:StaticMesh"), TEXT("/Game/Meshes/SM_Cube"), true, nullptr},
	{TEXT("so:StaticMesh"), TEXT("StaticMesh'/Game/SM_Cube.SM_Cube'"), true, TEXT("/Game/SM_Cube.SM_Cube")},
	{TEXT("so:StaticMesh"), TEXT("a cube"), false, nullptr}, {TEXT("so:StaticMesh"), TEXT("None"), true, nullptr},
	{TEXT("sc:Actor"), TEXT("/Game/BP_Door.BP_Door_C"), true, nullptr},
	{TEXT("sc:Actor"), TEXT("BP_Door"), false, nullptr},
	{TEXT("i:NavAgentInterface"), TEXT("/Script/Engine.Character"), false, TEXT("")},
	{TEXT("wildcard"), TEXT("5"), true, nullptr}, {TEXT("delegate"), TEXT("OnDone"), false, nullptr},
	{TEXT("s:LinearColor"), TEXT("(R=1.0,G=0.5,B=0.25)"), true, nullptr},
	{TEXT("s:LinearColor"), TEXT("(R=1.0,G="), false, nullptr},
	{TEXT("s:Vector2D"), TEXT("(X=1.0,Q=2.0)"), false, nullptr},
	{TEXT("s:GameplayTag"), TEXT("(TagName=\"Door.Open\")"), true, nullptr},
	{TEXT("s:Rotator"), TEXT("(Pitch=1.0,Yaw=2.0,Roll=3.0)"), true, TEXT("1.000000,2.000000,3.000000")},
	{TEXT("int[]"), TEXT("1"), false, nullptr}, {TEXT("int[]"), TEXT(""), true, nullptr},
	{TEXT("delegate"), TEXT("OnThing"), false, nullptr}, {TEXT("exec"), TEXT("x"), false, nullptr}};

TEST(SchemaDefaults, ValuesAreCheckedByType)
{
	for (const FRow& Row : Rows)
	{
		SCOPED_TRACE(ToStd(FString(Row.Type) + TEXT(" = ") + Row.Value));
		const FPinPair Pair(TEXT("int"), Row.Type);
		Pair.Schema->TrySetDefaultValue(*Pair.Input, Row.Value);
		const FString Message = Pair.Schema->IsCurrentPinDefaultValid(Pair.Input);
		EXPECT_EQ(Message.IsEmpty(), Row.bValid) << ToStd(Message);
		EXPECT_TRUE(Pair.Input->DefaultValue.Equals(Row.Kept ? Row.Kept : Row.Value))
			<< ToStd(Pair.Input->DefaultValue);
	}
}

TEST(SchemaDefaults, TextsAndObjectsGoToTheirOwnPlaces)
{
	const FPinPair Text(TEXT("int"), TEXT("text"));
	Text.Schema->TrySetDefaultValue(*Text.Input, TEXT("NSLOCTEXT(\"N\", \"K\", \"Shown\")"));
	EXPECT_EQ(Text.Input->DefaultTextValue.ToString(), FString(TEXT("Shown")));
	EXPECT_TRUE(Text.Input->DefaultValue.IsEmpty());
	const FPinPair Class(TEXT("int"), TEXT("c:Actor"));
	Class.Schema->TrySetDefaultValue(*Class.Input, TEXT("/Script/Engine.Character"));
	ASSERT_TRUE(Class.Input->DefaultObject);
	EXPECT_EQ(Class.Input->DefaultObject->GetName(), FString(TEXT("Character")));
	Class.Schema->TrySetDefaultValue(*Class.Input, TEXT("None"));
	EXPECT_FALSE(Class.Input->DefaultObject);
}

TEST(SchemaDefaults, WhatMustBeWiredSaysSo)
{
	FPinPair Reference(TEXT("s:Vector"), TEXT("s:Vector&"));
	Reference.Input->bDefaultValueIsIgnored = true;
	EXPECT_TRUE(
		Reference.Schema->IsCurrentPinDefaultValid(Reference.Input).Contains(TEXT("must have an input wired into")));
	FPinPair Array(TEXT("int[]"), TEXT("int[]"));
	Array.Schema->TrySetDefaultValue(*Array.Input, TEXT("1,2"));
	EXPECT_TRUE(Array.Schema->IsCurrentPinDefaultValid(Array.Input).Contains(TEXT("must have an input wired into")));
}

struct FStartRow
{
	const TCHAR* Type;
	const TCHAR* Value;
};

TEST(SchemaDefaults, APinStartsWithTheZeroOfItsType)
{
	static const FStartRow Starts[] = {{TEXT("bool"), TEXT("false")}, {TEXT("int"), TEXT("0")},
		{TEXT("int64"), TEXT("0")}, {TEXT("byte"), TEXT("0")}, {TEXT("double"), TEXT("0.0")},
		{TEXT("name"), TEXT("None")}, {TEXT("string"), TEXT("")}, {TEXT("s:Vector"), TEXT("0, 0, 0")},
		{TEXT("s:Rotator"), TEXT("0, 0, 0")}, {TEXT("s:Transform"), TEXT("")}, {TEXT("s:LinearColor"), TEXT("")},
		{TEXT("int[]"), TEXT("")}, {TEXT("o:Actor"), TEXT("")}, {TEXT("e:ECollisionChannel"), TEXT("ECC_WorldStatic")}};
	for (const FStartRow& Row : Starts)
	{
		const FPinPair Pair(TEXT("int"), Row.Type);
		Pair.Schema->SetPinAutogeneratedDefaultValueBasedOnType(Pair.Input);
		EXPECT_TRUE(Pair.Input->DefaultValue.Equals(Row.Value)) << ToStd(Row.Type) << ToStd(Pair.Input->DefaultValue);
		// Which entry of an enum comes first is not remembered.
		const bool bIsEnum = FString(Row.Type).StartsWith(TEXT("e:"));
		EXPECT_TRUE(Pair.Input->AutogeneratedDefaultValue.Equals(bIsEnum ? TEXT("") : Row.Value)) << ToStd(Row.Type);
		EXPECT_TRUE(Pair.Schema->DoesDefaultValueMatchAutogenerated(*Pair.Input)) << ToStd(Row.Type);
	}
}

struct FMatchRow
{
	const TCHAR* Type;
	const TCHAR* A;
	const TCHAR* B;
	bool bSame;
};

TEST(SchemaDefaults, WrittenDifferentlyIsNotChanged)
{
	static const FMatchRow Matches[] = {{TEXT("double"), TEXT("0"), TEXT("0.000000"), true},
		{TEXT("double"), TEXT(""), TEXT("0.0"), true}, {TEXT("double"), TEXT("0.1"), TEXT("0.0"), false},
		{TEXT("bool"), TEXT("True"), TEXT("true"), true}, {TEXT("bool"), TEXT("true"), TEXT("false"), false},
		{TEXT("s:Vector"), TEXT("1,2,3"), TEXT("1.000000, 2.000000, 3.000000"), true},
		{TEXT("s:Vector"), TEXT("1,2,3"), TEXT("1,2,4"), false},
		{TEXT("s:Transform"), TEXT("1,2,3|0,0,0|1,1,1"), TEXT("(Translation=(X=1.0,Y=2.0,Z=3.0))"), true},
		{TEXT("s:Transform"), TEXT("1,2,3|0,90,0|1,1,1"), TEXT("1,2,3|0,0,0|1,1,1"), false},
		{TEXT("string"), TEXT("a"), TEXT("A"), false}, {TEXT("name"), TEXT("Foo"), TEXT("foo"), true},
		{TEXT("int"), TEXT("5"), TEXT("6"), false}};
	for (const FMatchRow& Row : Matches)
	{
		const FPinPair Pair(TEXT("int"), Row.Type);
		Pair.Input->DefaultValue = Row.A;
		EXPECT_EQ(Pair.Schema->DoesDefaultValueMatch(*Pair.Input, Row.B), Row.bSame)
			<< ToStd(Row.Type) << " " << ToStd(Row.A) << " / " << ToStd(Row.B);
	}
}

TEST(SchemaDefaults, ADisplayNameReadsAsPeopleSayIt)
{
	const FPinPair Pair(TEXT("bool"), TEXT("exec"));
	const auto Shown = [&Pair](const TCHAR* Type, const TCHAR* Name, const TCHAR* Friendly)
	{
		Pair.Input->PinType = ReadPinType(Type);
		Pair.Input->PinName = Name;
		Pair.Input->PinFriendlyName = FText::FromString(Friendly);
		return Pair.Schema->GetPinDisplayName(Pair.Input).ToString();
	};
	EXPECT_EQ(Shown(TEXT("exec"), TEXT("execute"), TEXT("")), FString());
	EXPECT_EQ(Shown(TEXT("exec"), TEXT("then"), TEXT("")), FString());
	EXPECT_EQ(Shown(TEXT("exec"), TEXT("then"), TEXT("Completed")), FString(TEXT("Completed")));
	EXPECT_EQ(Shown(TEXT("bool"), TEXT("bIsOpen"), TEXT("")), FString(TEXT("Is Open")));
	EXPECT_EQ(Shown(TEXT("int"), TEXT("MaxHealth"), TEXT("")), FString(TEXT("Max Health")));
	EXPECT_EQ(Shown(TEXT("o:Actor"), TEXT("self"), TEXT("Target")), FString(TEXT("Target")));
}
} // namespace SchemaDefaults
