#pragma once

#include "Containers/Map.h"
#include "Containers/UnrealString.h"
#include "Dom/JsonValue.h"

/** Member names of JSON objects compare exactly: "Path" and "path" are two members. */
struct FJsonKeyFuncs : TDefaultMapKeyFuncs<FString, TSharedPtr<FJsonValue>, false>
{
	static bool Matches(const FString& Left, const FString& Right)
	{
		return Left.Equals(Right, ESearchCase::CaseSensitive);
	}
	static uint32 GetKeyHash(const FString& Key);
};

/**
 * The members of one JSON object, in the order in which they were first set. Names are case-sensitive.
 *
 * The TryGet functions convert as those of the value do; where that fails, or there is no such member, they answer
 * false and leave their output alone. The Get functions answer an empty value then, after a line in the log. The Set
 * functions take names and values to keep, so what a caller moves in is not copied.
 */
class FJsonObject
{
public:
	/** Iterates in the order of insertion. Setting a member again keeps its place. */
	TMap<FString, TSharedPtr<FJsonValue>, FDefaultSetAllocator, FJsonKeyFuncs> Values;

	/** Null when there is no such member. */
	TSharedPtr<FJsonValue> TryGetField(FStringView FieldName) const;
	template <EJson JsonType>
	TSharedPtr<FJsonValue> TryGetField(FStringView FieldName) const
	{
		const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
		return Field && (JsonType == EJson::None || Field->Type == JsonType) ? Field : nullptr;
	}
	/** As TryGetField, but a missing member reads as a null value. */
	template <EJson JsonType>
	TSharedPtr<FJsonValue> GetField(FStringView FieldName) const
	{
		const TSharedPtr<FJsonValue> Field = TryGetField<JsonType>(FieldName);
		return Field ? Field : MakeNull();
	}

	bool HasField(FStringView FieldName) const { return TryGetField(FieldName).IsValid(); }
	template <EJson JsonType>
	bool HasTypedField(FStringView FieldName) const
	{
		const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
		return Field && Field->Type == JsonType;
	}
	bool HasTypedField(FStringView FieldName, EJson JsonType) const
	{
		const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
		return Field && Field->Type == JsonType;
	}

	/** A null Value is stored as a JSON null. */
	void SetField(FString FieldName, TSharedPtr<FJsonValue> Value);
	void RemoveField(FStringView FieldName);

	double GetNumberField(FStringView FieldName) const;
	/** Cut toward zero. */
	int32 GetIntegerField(FStringView FieldName) const;
	template <typename NumberType>
	requires std::is_arithmetic_v<NumberType>
	bool TryGetNumberField(FStringView FieldName, NumberType& OutNumber) const
	{
		const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
		return Field && Field->TryGetNumber(OutNumber);
	}
	void SetNumberField(FString FieldName, double Number);

	FString GetStringField(FStringView FieldName) const;
	bool TryGetStringField(FStringView FieldName, FString& OutString) const;
	/** False, with OutArray unchanged, unless every element is a string. */
	bool TryGetStringArrayField(FStringView FieldName, TArray<FString>& OutArray) const;
	void SetStringField(FString FieldName, FString StringValue);

	bool GetBoolField(FStringView FieldName) const;
	bool TryGetBoolField(FStringView FieldName, bool& bOutBool) const;
	void SetBoolField(FString FieldName, bool bBool);

	/** The array belongs to the member; empty when there is none. */
	const TArray<TSharedPtr<FJsonValue>>& GetArrayField(FStringView FieldName) const;
	bool TryGetArrayField(FStringView FieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const;
	void SetArrayField(FString FieldName, TArray<TSharedPtr<FJsonValue>> Array);

	/** An object without members when there is none. */
	const TSharedPtr<FJsonObject>& GetObjectField(FStringView FieldName) const;
	/** The pointer is the member's own and lives as long as the member does. */
	bool TryGetObjectField(FStringView FieldName, const TSharedPtr<FJsonObject>*& OutObject) const;
	/** A null JsonObject is written as JSON null. */
	void SetObjectField(FString FieldName, TSharedPtr<FJsonObject> JsonObject);

	/** A deep copy; null for null. */
	static void Duplicate(const TSharedPtr<const FJsonObject>& Source, TSharedPtr<FJsonObject>& OutCopy);

private:
	static TSharedPtr<FJsonValue> MakeNull();
};
