#include "AssetOperationBase.h"
#include "BlueprintBuilder.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "PinTypeText.h"
#include "Session/EditorModules.h"
#include "ToolResults.h"
#include "UObject/UnrealType.h"

namespace PinTypeJsonTest
{
/** What a pin type object is understood as, written back in full; "refused" for one that is none. */
static std::string Understood(const std::string& Text)
{
	EditorModules::StartTools();
	EditorModules::StartEditor();
	FEdGraphPinType PinType;
	return FAssetOperationBase::ConvertJsonToEdGraphPinType(*Json(Text), PinType)
		? JsonText(FAssetOperationBase::ConvertEdGraphPinTypeToJson(PinType))
		: "refused";
}
} // namespace PinTypeJsonTest

TEST(PinTypeJson, EveryTypeReadsBackAsItIsWritten)
{
	for (const char* const Text : {
			 R"({"category":"exec"})",
			 R"({"category":"bool"})",
			 R"({"category":"byte"})",
			 R"({"category":"byte","sub_category_object":"/Script/Engine.ECollisionChannel"})",
			 R"({"category":"int"})",
			 R"({"category":"int64"})",
			 R"({"category":"real","sub_category":"double"})",
			 R"({"category":"real","sub_category":"float"})",
			 R"({"category":"name"})",
			 R"({"category":"string"})",
			 R"({"category":"text"})",
			 R"({"category":"struct","sub_category_object":"/Script/CoreUObject.Vector"})",
			 R"({"category":"struct","sub_category_object":"/Script/Engine.HitResult"})",
			 R"({"category":"object","sub_category_object":"/Script/Engine.Actor"})",
			 R"({"category":"object","sub_category":"self"})",
			 R"({"category":"class","sub_category_object":"/Script/Engine.Pawn","is_u_object_wrapper":true})",
			 R"({"category":"softobject","sub_category_object":"/Script/Engine.Texture2D"})",
			 R"({"category":"softclass","sub_category_object":"/Script/Engine.Actor"})",
			 R"({"category":"interface","sub_category_object":"/Script/CoreUObject.Interface"})",
			 R"({"category":"delegate"})",
			 R"({"category":"mcdelegate"})",
			 R"({"category":"wildcard"})",
			 R"({"category":"int","container_type":"array"})",
			 R"({"category":"name","container_type":"set"})",
			 R"({"category":"string","container_type":"map","value_type":{"category":"int"}})",
			 R"({"category":"name","container_type":"map","value_type":)"
			 R"({"category":"object","sub_category_object":"/Script/Engine.Actor","is_weak_pointer":true}})",
			 R"({"category":"string","is_reference":true,"is_const":true})",
			 R"({"category":"object","sub_category_object":"/Script/Engine.Actor","is_weak_pointer":true})",
		 })
	{
		EXPECT_EQ(PinTypeJsonTest::Understood(Text), Text);
	}
}

TEST(PinTypeJson, UnderstandsTheWordsOfAgents)
{
	const std::pair<const char*, const char*> Cases[] = {
		{R"({"category":"Boolean"})", R"({"category":"bool"})"},
		{R"({"category":" INTEGER "})", R"({"category":"int"})"},
		{R"({"category":"Integer64"})", R"({"category":"int64"})"},
		{R"({"category":"float"})", R"({"category":"real","sub_category":"float"})"},
		{R"({"category":"double"})", R"({"category":"real","sub_category":"double"})"},
		{R"({"category":"float","sub_category":"double"})", R"({"category":"real","sub_category":"double"})"},
		{R"({"category":"real"})", R"({"category":"real","sub_category":"double"})"},
		{R"({"category":"vector"})", R"({"category":"struct","sub_category_object":"/Script/CoreUObject.Vector"})"},
		{R"({"category":"FRotator"})", R"({"category":"struct","sub_category_object":"/Script/CoreUObject.Rotator"})"},
		{R"({"category":"struct","sub_category_object":"Transform"})",
			R"({"category":"struct","sub_category_object":"/Script/CoreUObject.Transform"})"},
		{R"({"category":"struct","sub_category":"Vector"})",
			R"({"category":"struct","sub_category_object":"/Script/CoreUObject.Vector"})"},
		{R"({"category":"object","sub_category_object":"AActor"})",
			R"({"category":"object","sub_category_object":"/Script/Engine.Actor"})"},
		{R"({"category":"object","sub_category":"Pawn"})",
			R"({"category":"object","sub_category_object":"/Script/Engine.Pawn"})"},
		{R"({"category":"object"})", R"({"category":"object","sub_category_object":"/Script/CoreUObject.Object"})"},
		{R"({"category":"Actor"})", R"({"category":"object","sub_category_object":"/Script/Engine.Actor"})"},
		{R"({"category":"soft_object","sub_category_object":"Texture2D"})",
			R"({"category":"softobject","sub_category_object":"/Script/Engine.Texture2D"})"},
		{R"({"category":"enum","sub_category_object":"ECollisionChannel"})",
			R"({"category":"byte","sub_category_object":"/Script/Engine.ECollisionChannel"})"},
		{R"({"sub_category_object":"ECollisionChannel"})",
			R"({"category":"byte","sub_category_object":"/Script/Engine.ECollisionChannel"})"},
		{R"({"category":"int","container":"Array"})", R"({"category":"int","container_type":"array"})"},
		{R"({"category":"int","container_type":"set","container":"array"})",
			R"({"category":"int","container_type":"set"})"},
		{R"({"category":"name","container":"map","value_type":"float"})",
			R"({"category":"name","container_type":"map","value_type":{"category":"real","sub_category":"float"}})"},
		// A map that does not say what it maps to could not exist.
		{R"({"category":"int","container":"map"})",
			R"({"category":"int","container_type":"map","value_type":{"category":"int"}})"},
	};
	for (const auto& [Text, Expected] : Cases)
	{
		EXPECT_EQ(PinTypeJsonTest::Understood(Text), Expected) << Text;
	}
}

TEST(PinTypeText, IsWrittenShortAndUnderstoodAsACategory)
{
	struct FCase
	{
		const char* Json;
		const char* Text;
	};
	const FCase Cases[] = {
		{R"({"category":"bool"})", "bool"},
		{R"({"category":"real","sub_category":"float"})", "float"},
		{R"({"category":"real","sub_category":"double"})", "double"},
		{R"({"category":"byte","sub_category_object":"/Script/Engine.ECollisionChannel"})", "ECollisionChannel"},
		{R"({"category":"struct","sub_category_object":"/Script/CoreUObject.Vector"})", "Vector"},
		{R"({"category":"object","sub_category_object":"/Script/Engine.Actor"})", "Actor"},
		{R"({"category":"object","sub_category_object":"/Script/CoreUObject.Object"})", "Object"},
		{R"({"category":"class","sub_category_object":"/Script/Engine.Pawn"})", "class Pawn"},
		{R"({"category":"softobject","sub_category_object":"/Script/Engine.Texture2D"})", "soft object Texture2D"},
		{R"({"category":"softclass","sub_category_object":"/Script/Engine.Actor"})", "soft class Actor"},
		{R"({"category":"interface","sub_category_object":"/Script/CoreUObject.Interface"})",
			"/Script/CoreUObject.Interface"},
		{R"({"category":"object","sub_category_object":"/Game/Tests/BP_Test.BP_Test_C"})",
			"/Game/Tests/BP_Test.BP_Test_C"},
		{R"({"category":"name","container_type":"array"})", "array of name"},
		{R"({"category":"struct","sub_category_object":"/Script/Engine.HitResult","is_reference":true,"is_const":true})",
			"const ref HitResult"},
		{R"({"category":"int","container_type":"map","value_type":)"
		 R"({"category":"class","sub_category_object":"/Script/Engine.Pawn"}})",
			"map of int to class Pawn"},
	};
	FBlueprintBuilder Blueprint;
	for (const FCase& Case : Cases)
	{
		FEdGraphPinType Type;
		ASSERT_TRUE(FAssetOperationBase::ConvertJsonToEdGraphPinType(*Json(Case.Json), Type)) << Case.Json;
		EXPECT_EQ(ToStd(PinTypeText::Write(Type)), Case.Text);
		EXPECT_EQ(PinTypeJsonTest::Understood(R"({"category":")" + std::string(Case.Text) + "\"}"), Case.Json);
	}
	EXPECT_EQ(PinTypeJsonTest::Understood(R"({"category":"Array of Int","is_reference":true})"),
		R"({"category":"int","container_type":"array","is_reference":true})");
	EXPECT_EQ(PinTypeJsonTest::Understood(R"({"category":"array of array of int"})"), "refused");
}

TEST(PinTypeJson, RefusesWhatIsNoType)
{
	for (const char* const Text : {R"({})", R"({"category":""})", R"({"category":3})", R"({"category":"banana"})",
			 R"({"category":"struct"})", R"({"category":"enum"})", R"({"category":"interface"})",
			 R"({"category":"object","sub_category_object":"NoSuchClass"})",
			 R"({"category":"struct","sub_category_object":"Actor"})",
			 R"({"category":"name","container":"map","value_type":"banana"})"})
	{
		EXPECT_EQ(PinTypeJsonTest::Understood(Text), "refused") << Text;
	}
	FEdGraphPinType PinType;
	PinType.PinCategory = UEdGraphSchema_K2::PC_Int;
	EXPECT_FALSE(FAssetOperationBase::ConvertJsonToEdGraphPinType(*Json(R"({"category":"banana"})"), PinType));
	EXPECT_EQ(PinType.PinCategory, UEdGraphSchema_K2::PC_Int) << "a failed reading leaves the output alone";
	EXPECT_FALSE(FAssetOperationBase::ConvertJsonToEdGraphPinType(TSharedPtr<FJsonObject>(), PinType));
}

TEST(PinTypeJson, BlueprintClassIsFoundByNameAndByPath)
{
	FBlueprintBuilder Blueprint;
	const std::string Expected = R"({"category":"object","sub_category_object":"/Game/Tests/BP_Test.BP_Test_C"})";
	for (const char* const Name : {"BP_Test", "bp_test", "BP_Test_C", "/Game/Tests/BP_Test",
			 "/Game/Tests/BP_Test.BP_Test", "/Game/Tests/BP_Test.BP_Test_C", "Blueprint'/Game/Tests/BP_Test.BP_Test'"})
	{
		EXPECT_EQ(
			PinTypeJsonTest::Understood(std::string(R"({"category":"object","sub_category_object":")") + Name + "\"}"),
			Expected)
			<< Name;
	}
}

TEST(PropertyValue, TextGoesInAndComesOutOrChangesNothing)
{
	struct FCase
	{
		const TCHAR* Property;
		const TCHAR* Text;
		const TCHAR* ReadBack;
	};
	FBlueprintBuilder Blueprint;
	UObject* const Actor = Blueprint->GeneratedClass->GetDefaultObject();
	for (const FCase& Case : {FCase{TEXT("bReplicates"), TEXT("true"), TEXT("True")},
			 {TEXT("InitialLifeSpan"), TEXT("2.5"), TEXT("2.500000")},
			 {TEXT("NetPriority"), TEXT("3"), TEXT("3.000000")}})
	{
		const FProperty* const Property = Actor->GetClass()->FindPropertyByName(Case.Property);
		ASSERT_NE(Property, nullptr) << ToStd(Case.Property);
		EXPECT_TRUE(FAssetOperationBase::SetPropertyValueAsString(Actor, Property, Case.Text)) << ToStd(Case.Property);
		EXPECT_EQ(ToStd(FAssetOperationBase::GetPropertyValueAsString(Actor, Property)), ToStd(Case.ReadBack));
		EXPECT_FALSE(FAssetOperationBase::SetPropertyValueAsString(Actor, Property, TEXT("banana")));
		EXPECT_EQ(ToStd(FAssetOperationBase::GetPropertyValueAsString(Actor, Property)), ToStd(Case.ReadBack));
	}
	EXPECT_FALSE(FAssetOperationBase::SetPropertyValueAsString(Actor, nullptr, TEXT("1")));
	EXPECT_TRUE(FAssetOperationBase::GetPropertyValueAsString(nullptr, nullptr).IsEmpty());
}
