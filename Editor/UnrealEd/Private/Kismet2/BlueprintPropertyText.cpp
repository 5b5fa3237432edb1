// Values of properties as text, with the editor's habit that no text means no value.

#include "Kismet2/BlueprintEditorUtils.h"

#include "UObject/UnrealType.h"

bool FBlueprintEditorUtils::PropertyValueFromString(
	const FProperty* Property, const FString& StrValue, uint8* Container, UObject* OwningObject, int32 PortFlags)
{
	return PropertyValueFromString_Direct(
		Property, StrValue, Property->ContainerPtrToValuePtr<uint8>(Container), OwningObject, PortFlags);
}

bool FBlueprintEditorUtils::PropertyValueFromString_Direct(
	const FProperty* Property, const FString& StrValue, uint8* DirectValue, UObject* OwningObject, int32 PortFlags)
{
	if (StrValue.IsEmpty() && !Property->IsA<FStrProperty>() && !Property->IsA<FTextProperty>())
	{
		Property->ClearValue(DirectValue);
		return true;
	}
	return Property->ImportText_Direct(*StrValue, DirectValue, OwningObject, PortFlags) != nullptr;
}

bool FBlueprintEditorUtils::PropertyValueToString(
	const FProperty* Property, const uint8* Container, FString& OutForm, UObject* OwningObject, int32 PortFlags)
{
	return PropertyValueToString_Direct(
		Property, Property->ContainerPtrToValuePtr<uint8>(Container), OutForm, OwningObject, PortFlags);
}

bool FBlueprintEditorUtils::PropertyValueToString_Direct(
	const FProperty* Property, const uint8* DirectValue, FString& OutForm, UObject* OwningObject, int32 PortFlags)
{
	OutForm.Empty();
	Property->ExportTextItem_Direct(OutForm, DirectValue, nullptr, OwningObject, PortFlags);
	return true;
}
