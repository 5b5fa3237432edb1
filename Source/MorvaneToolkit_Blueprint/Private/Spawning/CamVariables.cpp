#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Spawning/CamSearch.h"
#include "UObject/UnrealType.h"

// What requests may call the variables of the Blueprint and of the function that they are for.

namespace CamVariables
{
static FString GetKind(const FProperty& Property)
{
	struct FKindOfClass
	{
		const TCHAR* Class;
		const TCHAR* Kind;
	};
	static constexpr FKindOfClass Kinds[] = {
		{TEXT("ArrayProperty"), TEXT("array")},
		{TEXT("MapProperty"), TEXT("map")},
		{TEXT("SetProperty"), TEXT("set")},
		{TEXT("StrProperty"), TEXT("string")},
		{TEXT("TextProperty"), TEXT("text")},
		{TEXT("NameProperty"), TEXT("name")},
		{TEXT("BoolProperty"), TEXT("boolean")},
		{TEXT("IntProperty"), TEXT("integer")},
		{TEXT("FloatProperty"), TEXT("float")},
		{TEXT("DoubleProperty"), TEXT("float")},
	};
	if (CastField<FMulticastDelegateProperty>(&Property))
	{
		return TEXT("dispatcher");
	}
	if (const auto* const Object = CastField<FObjectProperty>(&Property))
	{
		return Object->PropertyClass->GetName();
	}
	if (const auto* const Struct = CastField<FStructProperty>(&Property))
	{
		return Struct->Struct->GetName().ToLower();
	}
	for (const FKindOfClass& Row : Kinds)
	{
		if (Property.GetClass()->GetName().Equals(Row.Class, ESearchCase::CaseSensitive))
		{
			return Row.Kind;
		}
	}
	return TEXT("value");
}

static FString GetKindOfContainer(EPinContainerType Container)
{
	switch (Container)
	{
	case EPinContainerType::Array:
		return TEXT("array");
	case EPinContainerType::Map:
		return TEXT("map");
	case EPinContainerType::Set:
		return TEXT("set");
	default:
		return FString();
	}
}

static FString GetKind(const FEdGraphPinType& Type)
{
	const FString OfContainer = GetKindOfContainer(Type.ContainerType);
	if (!OfContainer.IsEmpty())
	{
		return OfContainer;
	}
	const UObject* const Object = Type.PinSubCategoryObject.Get();
	if (Object && Type.PinCategory == UEdGraphSchema_K2::PC_Object)
	{
		return Object->GetName();
	}
	if (Object && Type.PinCategory == UEdGraphSchema_K2::PC_Struct)
	{
		return Object->GetName().ToLower();
	}
	struct FKindOfCategory
	{
		FName Category;
		const TCHAR* Kind;
	};
	for (const FKindOfCategory& Row : {FKindOfCategory{UEdGraphSchema_K2::PC_String, TEXT("string")},
			 FKindOfCategory{UEdGraphSchema_K2::PC_Text, TEXT("text")},
			 FKindOfCategory{UEdGraphSchema_K2::PC_Name, TEXT("name")},
			 FKindOfCategory{UEdGraphSchema_K2::PC_Boolean, TEXT("boolean")},
			 FKindOfCategory{UEdGraphSchema_K2::PC_Int, TEXT("integer")},
			 FKindOfCategory{UEdGraphSchema_K2::PC_Real, TEXT("float")}})
	{
		if (Type.PinCategory == Row.Category)
		{
			return Row.Kind;
		}
	}
	return TEXT("value");
}

/** Null for graphs that are no function's. */
static const UK2Node_FunctionEntry* FindEntry(const FSharedActionMenu& Menu)
{
	UK2Node_FunctionEntry* Entry = nullptr;
	if (Menu.GetBlueprint() && Menu.GetGraph())
	{
		FBlueprintEditorUtils::FindLocalVariable(Menu.GetBlueprint(), Menu.GetGraph(), NAME_None, &Entry);
	}
	return Entry;
}
} // namespace CamVariables

FRequestVariable FCamSearch::FindVariable(const FString& Name)
{
	if (!bLocalsKnown)
	{
		const UK2Node_FunctionEntry* const Entry = CamVariables::FindEntry(Menu);
		for (const FBPVariableDescription& Local : Entry ? Entry->LocalVariables : TArray<FBPVariableDescription>())
		{
			Locals.Add({Local.VarName.ToString(), CamVariables::GetKind(Local.VarType)});
		}
		bLocalsKnown = true;
	}
	// Within its function a local variable hides a member of the same name.
	for (const FRequestVariable& Local : Locals)
	{
		if (FCamMenuIndex::AreSameName(Local.Name, Name))
		{
			return Local;
		}
	}
	const FProperty* const Property = Index.FindVariable(Name);
	return Property ? FRequestVariable{Property->GetName(), CamVariables::GetKind(*Property)} : FRequestVariable();
}
