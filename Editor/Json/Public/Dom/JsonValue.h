#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"
#include "Serialization/JsonTypes.h"
#include "Templates/SharedPointer.h"

class FJsonObject;

/**
 * One JSON value of any kind.
 *
 * The TryGet functions turn texts, numbers and flags into one another as the engine's do: a number has a text and is a
 * flag when it is not 0, a flag is "true" or 1, a text is a number when it is numeric and always a flag. Whoever means
 * one type asks Type first. A failing TryGet leaves its output as it was. The As functions answer an empty value where
 * nothing fits, after a line in the log.
 */
class FJsonValue
{
public:
	FJsonValue(const FJsonValue&) = delete;
	FJsonValue& operator=(const FJsonValue&) = delete;
	virtual ~FJsonValue() = default;

	double AsNumber() const;
	FString AsString() const;
	bool AsBool() const;
	const TArray<TSharedPtr<FJsonValue>>& AsArray() const;
	/** An object without members when this is not one. */
	const TSharedPtr<FJsonObject>& AsObject() const;

	virtual bool TryGetNumber(double& OutNumber) const { return false; }
	/** Integers round halves away from zero; a number outside the type's range fails. */
	bool TryGetNumber(int32& OutNumber) const;
	bool TryGetNumber(int64& OutNumber) const;
	virtual bool TryGetString(FString& OutString) const { return false; }
	virtual bool TryGetBool(bool& bOutBool) const { return false; }
	/** The array belongs to the value. */
	virtual bool TryGetArray(const TArray<TSharedPtr<FJsonValue>>*& OutArray) const { return false; }
	/** The same for a value that may be changed in place. */
	virtual bool TryGetArray(TArray<TSharedPtr<FJsonValue>>*& OutArray) { return false; }
	virtual bool TryGetObject(const TSharedPtr<FJsonObject>*& OutObject) const { return false; }

	bool IsNull() const { return Type == EJson::Null || Type == EJson::None; }

	/** Same type and same content. Members of objects compare by name, whatever their order; strings respect case. */
	static bool CompareEqual(const FJsonValue& Left, const FJsonValue& Right);

	/** A copy that shares nothing with its source. Null for null. */
	static TSharedPtr<FJsonValue> Duplicate(const TSharedPtr<const FJsonValue>& Source);

	const EJson Type;

protected:
	explicit FJsonValue(EJson InType)
		: Type(InType)
	{
	}
};

class FJsonValueString : public FJsonValue
{
public:
	explicit FJsonValueString(const FString& InString)
		: FJsonValue(EJson::String)
		, Value(InString)
	{
	}
	explicit FJsonValueString(FString&& InString)
		: FJsonValue(EJson::String)
		, Value(MoveTemp(InString))
	{
	}

	using FJsonValue::TryGetNumber;
	bool TryGetNumber(double& OutNumber) const override;
	bool TryGetString(FString& OutString) const override
	{
		OutString = Value;
		return true;
	}
	/** Always true: a word that means no flag means false. */
	bool TryGetBool(bool& bOutBool) const override;

	const FString& GetValue() const { return Value; }

protected:
	FString Value;
};

class FJsonValueNumber : public FJsonValue
{
public:
	explicit FJsonValueNumber(double InNumber)
		: FJsonValue(EJson::Number)
		, Value(InNumber)
	{
	}

	using FJsonValue::TryGetNumber;
	bool TryGetNumber(double& OutNumber) const override
	{
		OutNumber = Value;
		return true;
	}
	bool TryGetString(FString& OutString) const override;
	bool TryGetBool(bool& bOutBool) const override
	{
		bOutBool = Value != 0.0;
		return true;
	}

protected:
	double Value;
};

class FJsonValueBoolean : public FJsonValue
{
public:
	explicit FJsonValueBoolean(bool bInBool)
		: FJsonValue(EJson::Boolean)
		, Value(bInBool)
	{
	}

	using FJsonValue::TryGetNumber;
	bool TryGetNumber(double& OutNumber) const override
	{
		OutNumber = Value ? 1.0 : 0.0;
		return true;
	}
	bool TryGetString(FString& OutString) const override;
	bool TryGetBool(bool& bOutBool) const override
	{
		bOutBool = Value;
		return true;
	}

protected:
	bool Value;
};

class FJsonValueArray : public FJsonValue
{
public:
	explicit FJsonValueArray(const TArray<TSharedPtr<FJsonValue>>& InArray)
		: FJsonValue(EJson::Array)
		, Value(InArray)
	{
	}
	explicit FJsonValueArray(TArray<TSharedPtr<FJsonValue>>&& InArray)
		: FJsonValue(EJson::Array)
		, Value(MoveTemp(InArray))
	{
	}

	bool TryGetArray(const TArray<TSharedPtr<FJsonValue>>*& OutArray) const override
	{
		OutArray = &Value;
		return true;
	}
	bool TryGetArray(TArray<TSharedPtr<FJsonValue>>*& OutArray) override
	{
		OutArray = &Value;
		return true;
	}

protected:
	TArray<TSharedPtr<FJsonValue>> Value;
};

class FJsonValueObject : public FJsonValue
{
public:
	/** A null object is written as JSON null. */
	explicit FJsonValueObject(TSharedPtr<FJsonObject> InObject)
		: FJsonValue(EJson::Object)
		, Value(MoveTemp(InObject))
	{
	}

	bool TryGetObject(const TSharedPtr<FJsonObject>*& OutObject) const override
	{
		OutObject = &Value;
		return true;
	}

protected:
	TSharedPtr<FJsonObject> Value;
};

class FJsonValueNull : public FJsonValue
{
public:
	FJsonValueNull()
		: FJsonValue(EJson::Null)
	{
	}
};
