#include "Dom/JsonObject.h"

#include <functional>

uint32 FJsonKeyFuncs::GetKeyHash(const FString& Key)
{
	return static_cast<uint32>(std::hash<std::wstring>()(Key.ToStdWString()));
}

namespace JsonObjectPrivate
{
using FValues = decltype(FJsonObject::Values);

/** Objects of one member are rare; most documents are made of many objects of a few. */
static FValues& MakeRoom(FValues& Values)
{
	if (Values.IsEmpty())
	{
		Values.Reserve(4);
	}
	return Values;
}
} // namespace JsonObjectPrivate

TSharedPtr<FJsonValue> FJsonObject::MakeNull()
{
	return MakeShared<FJsonValueNull>();
}

TSharedPtr<FJsonValue> FJsonObject::TryGetField(const FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(FString(FieldName));
	return Field ? *Field : nullptr;
}

void FJsonObject::SetField(FString FieldName, TSharedPtr<FJsonValue> Value)
{
	JsonObjectPrivate::MakeRoom(Values).Add(MoveTemp(FieldName), Value ? MoveTemp(Value) : MakeNull());
}

void FJsonObject::RemoveField(const FStringView FieldName)
{
	Values.Remove(FString(FieldName));
}

double FJsonObject::GetNumberField(const FStringView FieldName) const
{
	return GetField<EJson::None>(FieldName)->AsNumber();
}

int32 FJsonObject::GetIntegerField(const FStringView FieldName) const
{
	return static_cast<int32>(GetNumberField(FieldName));
}

void FJsonObject::SetNumberField(FString FieldName, const double Number)
{
	JsonObjectPrivate::MakeRoom(Values).Add(MoveTemp(FieldName), MakeShared<FJsonValueNumber>(Number));
}

FString FJsonObject::GetStringField(const FStringView FieldName) const
{
	return GetField<EJson::None>(FieldName)->AsString();
}

bool FJsonObject::TryGetStringField(const FStringView FieldName, FString& OutString) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field && Field->TryGetString(OutString);
}

bool FJsonObject::TryGetStringArrayField(const FStringView FieldName, TArray<FString>& OutArray) const
{
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	if (!TryGetArrayField(FieldName, Array))
	{
		return false;
	}
	TArray<FString> Strings;
	Strings.Reserve(Array->Num());
	for (const TSharedPtr<FJsonValue>& Element : *Array)
	{
		FString String;
		if (!Element->TryGetString(String))
		{
			return false;
		}
		Strings.Add(MoveTemp(String));
	}
	OutArray = MoveTemp(Strings);
	return true;
}

void FJsonObject::SetStringField(FString FieldName, FString StringValue)
{
	JsonObjectPrivate::MakeRoom(Values).Add(MoveTemp(FieldName), MakeShared<FJsonValueString>(MoveTemp(StringValue)));
}

bool FJsonObject::GetBoolField(const FStringView FieldName) const
{
	return GetField<EJson::None>(FieldName)->AsBool();
}

bool FJsonObject::TryGetBoolField(const FStringView FieldName, bool& bOutBool) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field && Field->TryGetBool(bOutBool);
}

void FJsonObject::SetBoolField(FString FieldName, const bool bBool)
{
	JsonObjectPrivate::MakeRoom(Values).Add(MoveTemp(FieldName), MakeShared<FJsonValueBoolean>(bBool));
}

const TArray<TSharedPtr<FJsonValue>>& FJsonObject::GetArrayField(const FStringView FieldName) const
{
	return GetField<EJson::Array>(FieldName)->AsArray();
}

bool FJsonObject::TryGetArrayField(const FStringView FieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field && Field->TryGetArray(OutArray);
}

void FJsonObject::SetArrayField(FString FieldName, TArray<TSharedPtr<FJsonValue>> Array)
{
	JsonObjectPrivate::MakeRoom(Values).Add(MoveTemp(FieldName), MakeShared<FJsonValueArray>(MoveTemp(Array)));
}

const TSharedPtr<FJsonObject>& FJsonObject::GetObjectField(const FStringView FieldName) const
{
	return GetField<EJson::Object>(FieldName)->AsObject();
}

bool FJsonObject::TryGetObjectField(const FStringView FieldName, const TSharedPtr<FJsonObject>*& OutObject) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field && Field->TryGetObject(OutObject);
}

void FJsonObject::SetObjectField(FString FieldName, TSharedPtr<FJsonObject> JsonObject)
{
	JsonObjectPrivate::MakeRoom(Values).Add(MoveTemp(FieldName), MakeShared<FJsonValueObject>(MoveTemp(JsonObject)));
}

void FJsonObject::Duplicate(const TSharedPtr<const FJsonObject>& Source, TSharedPtr<FJsonObject>& OutCopy)
{
	if (!Source)
	{
		OutCopy = nullptr;
		return;
	}
	OutCopy = MakeShared<FJsonObject>();
	for (const auto& Pair : Source->Values)
	{
		OutCopy->SetField(Pair.Key, FJsonValue::Duplicate(Pair.Value));
	}
}
