#include "Dom/JsonValue.h"

#include "Dom/JsonObject.h"

#include <cmath>
#include <limits>
#include <type_traits>

DEFINE_LOG_CATEGORY_STATIC(LogJson, Log, All);

namespace JsonValuePrivate
{
/** The first double above every value of the type: the type's own maximum need not be a double. */
template <typename IntType>
double PastMax()
{
	return std::ldexp(1.0, std::numeric_limits<IntType>::digits);
}

template <typename IntType>
bool TryRound(const FJsonValue& Value, IntType& OutNumber)
{
	double Number = 0.0;
	if (!Value.TryGetNumber(Number))
	{
		return false;
	}
	const double Rounded = std::round(Number);
	const double Min = static_cast<double>(std::numeric_limits<IntType>::min());
	if (!(Rounded >= Min && Rounded < PastMax<IntType>()))
	{
		return false;
	}
	OutNumber = static_cast<IntType>(Rounded);
	return true;
}

static bool EqualArrays(const TArray<TSharedPtr<FJsonValue>>& Left, const TArray<TSharedPtr<FJsonValue>>& Right)
{
	if (Left.Num() != Right.Num())
	{
		return false;
	}
	for (int32 Index = 0; Index < Left.Num(); ++Index)
	{
		if (!Left[Index] || !Right[Index] || !FJsonValue::CompareEqual(*Left[Index], *Right[Index]))
		{
			return false;
		}
	}
	return true;
}

static bool EqualObjects(const TSharedPtr<FJsonObject>& Left, const TSharedPtr<FJsonObject>& Right)
{
	if (!Left || !Right)
	{
		return !Left && !Right;
	}
	if (Left->Values.Num() != Right->Values.Num())
	{
		return false;
	}
	for (const auto& Pair : Left->Values)
	{
		const TSharedPtr<FJsonValue> Other = Right->TryGetField(Pair.Key);
		if (!Pair.Value || !Other || !FJsonValue::CompareEqual(*Pair.Value, *Other))
		{
			return false;
		}
	}
	return true;
}

static TArray<TSharedPtr<FJsonValue>> DuplicateArray(const TArray<TSharedPtr<FJsonValue>>& Source)
{
	TArray<TSharedPtr<FJsonValue>> Copy;
	Copy.Reserve(Source.Num());
	for (const TSharedPtr<FJsonValue>& Element : Source)
	{
		Copy.Add(FJsonValue::Duplicate(Element));
	}
	return Copy;
}

static void LogWrongType(const FJsonValue& Value, const TCHAR* const Wanted)
{
	static const TCHAR* const Names[] = {
		TEXT("None"), TEXT("Null"), TEXT("String"), TEXT("Number"), TEXT("Boolean"), TEXT("Array"), TEXT("Object")};
	UE_LOG(
		LogJson, Error, TEXT("A JSON value of type %s was read as %s"), Names[static_cast<int32>(Value.Type)], Wanted);
}
} // namespace JsonValuePrivate

bool FJsonValueString::TryGetNumber(double& OutNumber) const
{
	if (!Value.IsNumeric())
	{
		return false;
	}
	OutNumber = FCString::Atod(*Value);
	return true;
}

bool FJsonValueString::TryGetBool(bool& bOutBool) const
{
	bOutBool = Value.ToBool();
	return true;
}

bool FJsonValueNumber::TryGetString(FString& OutString) const
{
	OutString = FString::SanitizeFloat(Value, 0);
	return true;
}

bool FJsonValueBoolean::TryGetString(FString& OutString) const
{
	OutString = Value ? TEXT("true") : TEXT("false");
	return true;
}

double FJsonValue::AsNumber() const
{
	double Number = 0.0;
	if (!TryGetNumber(Number))
	{
		JsonValuePrivate::LogWrongType(*this, TEXT("Number"));
	}
	return Number;
}

FString FJsonValue::AsString() const
{
	FString String;
	if (!TryGetString(String))
	{
		JsonValuePrivate::LogWrongType(*this, TEXT("String"));
	}
	return String;
}

bool FJsonValue::AsBool() const
{
	bool bBool = false;
	if (!TryGetBool(bBool))
	{
		JsonValuePrivate::LogWrongType(*this, TEXT("Boolean"));
	}
	return bBool;
}

const TArray<TSharedPtr<FJsonValue>>& FJsonValue::AsArray() const
{
	static const TArray<TSharedPtr<FJsonValue>> Empty;
	const TArray<TSharedPtr<FJsonValue>>* Array = &Empty;
	if (!TryGetArray(Array))
	{
		JsonValuePrivate::LogWrongType(*this, TEXT("Array"));
	}
	return *Array;
}

const TSharedPtr<FJsonObject>& FJsonValue::AsObject() const
{
	static const TSharedPtr<FJsonObject> Nothing = MakeShared<FJsonObject>();
	const TSharedPtr<FJsonObject>* Object = &Nothing;
	if (!TryGetObject(Object))
	{
		JsonValuePrivate::LogWrongType(*this, TEXT("Object"));
	}
	return *Object;
}

bool FJsonValue::TryGetNumber(int32& OutNumber) const
{
	return JsonValuePrivate::TryRound(*this, OutNumber);
}

bool FJsonValue::TryGetNumber(int64& OutNumber) const
{
	return JsonValuePrivate::TryRound(*this, OutNumber);
}

bool FJsonValue::CompareEqual(const FJsonValue& Left, const FJsonValue& Right)
{
	if (Left.Type != Right.Type)
	{
		return false;
	}
	switch (Left.Type)
	{
	case EJson::None:
	case EJson::Null:
		return true;
	case EJson::String:
		return Left.AsString().Equals(Right.AsString(), ESearchCase::CaseSensitive);
	case EJson::Number:
		return Left.AsNumber() == Right.AsNumber();
	case EJson::Boolean:
		return Left.AsBool() == Right.AsBool();
	case EJson::Array:
		return JsonValuePrivate::EqualArrays(Left.AsArray(), Right.AsArray());
	case EJson::Object:
		return JsonValuePrivate::EqualObjects(Left.AsObject(), Right.AsObject());
	}
	return false;
}

TSharedPtr<FJsonValue> FJsonValue::Duplicate(const TSharedPtr<const FJsonValue>& Source)
{
	if (!Source)
	{
		return nullptr;
	}
	switch (Source->Type)
	{
	case EJson::None:
	case EJson::Null:
		return MakeShared<FJsonValueNull>();
	case EJson::String:
		return MakeShared<FJsonValueString>(Source->AsString());
	case EJson::Number:
		return MakeShared<FJsonValueNumber>(Source->AsNumber());
	case EJson::Boolean:
		return MakeShared<FJsonValueBoolean>(Source->AsBool());
	case EJson::Array:
		return MakeShared<FJsonValueArray>(JsonValuePrivate::DuplicateArray(Source->AsArray()));
	case EJson::Object:
	{
		TSharedPtr<FJsonObject> Copy;
		FJsonObject::Duplicate(Source->AsObject(), Copy);
		return MakeShared<FJsonValueObject>(Copy);
	}
	}
	return nullptr;
}
