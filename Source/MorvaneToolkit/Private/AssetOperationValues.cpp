#include "AssetOperationBase.h"

#include "Kismet2/BlueprintEditorUtils.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "UObject/UnrealType.h"

FString FAssetOperationBase::GetPropertyValueAsString(const UObject* Container, const FProperty* Property)
{
	FString Text;
	if (Container && Property)
	{
		// Against itself as the default, structs tell all of their members; against none they would leave out zeros.
		const void* const Value = Property->ContainerPtrToValuePtr<void>(Container);
		Property->ExportTextItem_Direct(Text, Value, Value, const_cast<UObject*>(Container), PPF_None);
	}
	return Text;
}

bool FAssetOperationBase::SetPropertyValueAsString(UObject* Container, const FProperty* Property, const FString& Value)
{
	if (!Container || !Property)
	{
		return false;
	}
	FProperty* const Changed = const_cast<FProperty*>(Property);
	const FString Before = GetPropertyValueAsString(Container, Property);
	uint8* const Memory = reinterpret_cast<uint8*>(Container);
	Container->PreEditChange(Changed);
	const bool bSet = FBlueprintEditorUtils::PropertyValueFromString(Property, Value, Memory, Container);
	if (!bSet)
	{
		// A failed import may have written part of the value.
		FBlueprintEditorUtils::PropertyValueFromString(Property, Before, Memory, Container);
	}
	FPropertyChangedEvent Event(Changed);
	Container->PostEditChangeProperty(Event);
	return bSet;
}

FString FAssetOperationBase::SerializeJson(const TSharedPtr<FJsonObject>& Object)
{
	using FPolicy = TCondensedJsonPrintPolicy<TCHAR>;

	FString Text;
	const TSharedRef<FJsonObject> Written = Object.IsValid() ? Object.ToSharedRef() : MakeShared<FJsonObject>();
	FJsonSerializer::Serialize(Written, TJsonWriterFactory<TCHAR, FPolicy>::Create(&Text));
	return Text;
}
