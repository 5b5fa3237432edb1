#include "Utils/Structure/VariableTypes.h"

#include "AssetOperationBase.h"
#include "Components/Widget.h"
#include "EdGraphSchema_K2.h"
#include "JsonReading.h"
#include "UObject/UnrealType.h"
#include "Utils/Structure/StructureEntry.h"
#include "Utils/Structure/VariableDefaults.h"

namespace VariableTypes
{
namespace
{
/** The type under "type", which may be a category word alone. */
bool Convert(const FJsonObject& Json, FEdGraphPinType& OutType)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	FString Word;
	if (MorvaneJson::TryGetStringField(Json, TEXT("type"), Word))
	{
		FJsonObject Short;
		Short.SetStringField(TEXT("category"), Word);
		return FAssetOperationBase::ConvertJsonToEdGraphPinType(Short, OutType);
	}
	return Json.TryGetObjectField(TEXT("type"), Object)
		&& FAssetOperationBase::ConvertJsonToEdGraphPinType(*Object, OutType);
}

/** Keys of sets and maps are looked up by hash, which these have none of. */
bool CanBeKey(const FEdGraphPinType& Type)
{
	return Type.PinCategory != UEdGraphSchema_K2::PC_Boolean && Type.PinCategory != UEdGraphSchema_K2::PC_Text;
}

/** A list of widgets is no widget of the tree, and so a variable like any other. */
bool IsWidget(const FEdGraphPinType& Type)
{
	const UClass* const Class = Cast<UClass>(Type.PinSubCategoryObject.Get());
	return Type.PinCategory == UEdGraphSchema_K2::PC_Object && !Type.IsContainer() && Class
		&& Class->IsChildOf(UWidget::StaticClass());
}
} // namespace

bool IsDelegate(const FEdGraphPinType& Type)
{
	return Type.PinCategory == UEdGraphSchema_K2::PC_Delegate || Type.PinCategory == UEdGraphSchema_K2::PC_MCDelegate;
}

bool Read(UBlueprint& Blueprint, const FString& Name, const FStructureEntry& Entry, FEdGraphPinType& OutType,
	FString& OutFault)
{
	if (!Convert(Entry.Json, OutType) || !VariableDefaults::MakeProperty(Blueprint, FName(*Name), OutType))
	{
		OutFault = FString::Printf(TEXT("Invalid variable type for variable: %s"), *Name);
	}
	else if (IsWidget(OutType))
	{
		OutFault = FString::Printf(TEXT("Variable '%s' is a widget type and must use ui_modify_widget_bp"), *Name);
	}
	else if (IsDelegate(OutType))
	{
		OutFault = FString::Printf(
			TEXT("Invalid variable type for variable: %s (event dispatchers are made with 'delegates')"), *Name);
	}
	else if ((OutType.IsSet() || OutType.IsMap()) && !CanBeKey(OutType))
	{
		OutFault = FString::Printf(
			TEXT(
				"Invalid variable type for variable: %s (the elements of a set and the keys of a map cannot be of this type)"),
			*Name);
	}
	return OutFault.IsEmpty();
}
} // namespace VariableTypes
