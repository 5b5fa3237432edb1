// Actions about types: casts and structs.

#include "Menu/ActionSources.h"

#include "BlueprintNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_DynamicCast.h"
#include "UObject/UnrealType.h"

namespace ActionSources
{
/** A node class of the module with a member that says which type the node is about. */
struct FTypeNode
{
	FTypeNode(const TCHAR* Name, const TCHAR* InMember)
		: Class(FindObject<UClass>(nullptr, FString(TEXT("/Script/BlueprintGraph.")) + Name))
		, Member(InMember)
	{
	}

	UClass* Class;
	const TCHAR* Member;
};

void SetMember(UEdGraphNode& Node, const TCHAR* Member, UObject* Value)
{
	if (const FObjectPropertyBase* const Property = FindFProperty<FObjectPropertyBase>(Node.GetClass(), Member))
	{
		Property->SetObjectPropertyValue_InContainer(&Node, Value);
	}
}

void AddTypeNode(const FTypeNode& Kind, UObject& Type, const FString& Title, const TCHAR* Category, FActionList& Out)
{
	if (!Kind.Class)
	{
		return;
	}
	const TCHAR* const Member = Kind.Member;
	const TWeakObjectPtr<UObject> Held(&Type);
	UBlueprintNodeSpawner* const Spawner = UBlueprintNodeSpawner::Create(
		Kind.Class, nullptr, [Member, Held](UEdGraphNode* Node, bool) { SetMember(*Node, Member, Held.Get()); });
	Spawner->DefaultMenuSignature.MenuName = FText::FromString(Title);
	Spawner->DefaultMenuSignature.Category = FText::FromString(Category);
	Add(Spawner, Out);
}

void AddCasts(UClass& Class, FActionList& Out)
{
	static const FTypeNode ObjectCast(TEXT("K2Node_DynamicCast"), TEXT("TargetType"));
	static const FTypeNode ClassCast(TEXT("K2Node_ClassDynamicCast"), TEXT("TargetType"));
	const bool bUsable = Class.ClassGeneratedBy || Class.HasAnyClassFlags(CLASS_Interface)
		|| UEdGraphSchema_K2::IsAllowableBlueprintVariableType(&Class);
	if (!bUsable || &Class == UObject::StaticClass() || Class.HasAnyClassFlags(CLASS_Deprecated))
	{
		return;
	}
	const FString Name = Class.ClassGeneratedBy ? Class.ClassGeneratedBy->GetName() : Class.GetName();
	AddTypeNode(ObjectCast, Class, TEXT("Cast To ") + Name, TEXT("Utilities|Casting"), Out);
	AddTypeNode(ClassCast, Class, TEXT("Cast To ") + Name + TEXT(" Class"), TEXT("Utilities|Casting"), Out);
}

bool HasShownMember(const UScriptStruct& Struct)
{
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_BlueprintVisible | CPF_Edit))
		{
			return true;
		}
	}
	return false;
}

void AddStruct(UScriptStruct& Struct, FActionList& Out)
{
	static const FTypeNode Make(TEXT("K2Node_MakeStruct"), TEXT("StructType"));
	static const FTypeNode Break(TEXT("K2Node_BreakStruct"), TEXT("StructType"));
	static const FTypeNode SetFields(TEXT("K2Node_SetFieldsInStruct"), TEXT("StructType"));
	const TCHAR* const Category = TEXT("Utilities|Struct");
	if (!UEdGraphSchema_K2::IsAllowableBlueprintVariableType(&Struct) || !HasShownMember(Struct))
	{
		return;
	}
	const FString Name = Struct.GetDisplayNameText().ToString();
	// A struct with functions of its own to make and break it offers those.
	if (!Struct.HasMetaData(FBlueprintMetadata::MD_NativeMakeFunction))
	{
		AddTypeNode(Make, Struct, TEXT("Make ") + Name, Category, Out);
	}
	if (!Struct.HasMetaData(FBlueprintMetadata::MD_NativeBreakFunction))
	{
		AddTypeNode(Break, Struct, TEXT("Break ") + Name, Category, Out);
	}
	AddTypeNode(SetFields, Struct, TEXT("Set members in ") + Name, Category, Out);
}
} // namespace ActionSources
