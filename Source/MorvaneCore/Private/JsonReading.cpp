#include "JsonReading.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"

bool MorvaneJson::TryGetString(const FJsonValue& Value, FString& OutString)
{
	return Value.Type == EJson::String && Value.TryGetString(OutString);
}

bool MorvaneJson::TryGetNumber(const FJsonValue& Value, double& OutNumber)
{
	return Value.Type == EJson::Number && Value.TryGetNumber(OutNumber);
}

bool MorvaneJson::TryGetBool(const FJsonValue& Value, bool& bOutBool)
{
	return Value.Type == EJson::Boolean && Value.TryGetBool(bOutBool);
}

const TSharedPtr<FJsonObject>& MorvaneJson::AsObject(const FJsonValue& Value)
{
	static const TSharedPtr<FJsonObject> None;
	const TSharedPtr<FJsonObject>* Object = &None;
	return Value.TryGetObject(Object) ? *Object : None;
}

const TArray<TSharedPtr<FJsonValue>>& MorvaneJson::AsArray(const FJsonValue& Value)
{
	static const TArray<TSharedPtr<FJsonValue>> Empty;
	const TArray<TSharedPtr<FJsonValue>>* Array = &Empty;
	return Value.TryGetArray(Array) ? *Array : Empty;
}

bool MorvaneJson::TryGetStringField(const FJsonObject& Object, const TCHAR* const FieldName, FString& OutString)
{
	const TSharedPtr<FJsonValue> Value = Object.TryGetField(FieldName);
	return Value && TryGetString(*Value, OutString);
}

bool MorvaneJson::TryGetNumberField(const FJsonObject& Object, const TCHAR* const FieldName, double& OutNumber)
{
	const TSharedPtr<FJsonValue> Value = Object.TryGetField(FieldName);
	return Value && TryGetNumber(*Value, OutNumber);
}

bool MorvaneJson::TryGetNumberField(const FJsonObject& Object, const TCHAR* const FieldName, int32& OutNumber)
{
	const TSharedPtr<FJsonValue> Value = Object.TryGetField(FieldName);
	return Value && Value->Type == EJson::Number && Value->TryGetNumber(OutNumber);
}

bool MorvaneJson::TryGetBoolField(const FJsonObject& Object, const TCHAR* const FieldName, bool& bOutBool)
{
	const TSharedPtr<FJsonValue> Value = Object.TryGetField(FieldName);
	return Value && TryGetBool(*Value, bOutBool);
}
