#include "Utils/Request/RecordWords.h"

#include "JsonReading.h"

namespace RecordWords
{
TOptional<EBPNodeAction> ToNodeAction(const FString& Word)
{
	static constexpr struct
	{
		const TCHAR* Word;
		EBPNodeAction Action;
	} Rows[] = {
		{TEXT("add"), EBPNodeAction::Add},
		{TEXT("modify"), EBPNodeAction::Modify},
		{TEXT("remove"), EBPNodeAction::Remove},
	};
	for (const auto& Row : Rows)
	{
		if (Word.Equals(Row.Word, ESearchCase::IgnoreCase))
		{
			return Row.Action;
		}
	}
	return {};
}

TOptional<EBPConnectionAction> ToConnectionAction(const FString& Word)
{
	if (Word.Equals(TEXT("add"), ESearchCase::IgnoreCase) || Word.Equals(TEXT("create"), ESearchCase::IgnoreCase))
	{
		return EBPConnectionAction::Add;
	}
	if (Word.Equals(TEXT("remove"), ESearchCase::IgnoreCase))
	{
		return EBPConnectionAction::Remove;
	}
	return {};
}

EPinContainerType ToContainerType(const FString& Word)
{
	static constexpr struct
	{
		const TCHAR* Word;
		EPinContainerType Type;
	} Rows[] = {
		{TEXT("array"), EPinContainerType::Array},
		{TEXT("set"), EPinContainerType::Set},
		{TEXT("map"), EPinContainerType::Map},
	};
	for (const auto& Row : Rows)
	{
		if (Word.Equals(Row.Word, ESearchCase::IgnoreCase))
		{
			return Row.Type;
		}
	}
	return EPinContainerType::None;
}

void ReadString(const FJsonObject& Json, const TCHAR* Key, FString& InOutValue)
{
	MorvaneJson::TryGetStringField(Json, Key, InOutValue);
}

void ReadString(const FJsonObject& Json, const TCHAR* Key, const TCHAR* OtherKey, FString& InOutValue)
{
	if (!MorvaneJson::TryGetStringField(Json, Key, InOutValue))
	{
		MorvaneJson::TryGetStringField(Json, OtherKey, InOutValue);
	}
}

bool ReadText(const TSharedPtr<FJsonValue>& Value, FString& OutText)
{
	double Number = 0.0;
	bool bFlag = false;
	if (!Value)
	{
		return false;
	}
	if (MorvaneJson::TryGetString(*Value, OutText))
	{
		return true;
	}
	if (MorvaneJson::TryGetBool(*Value, bFlag))
	{
		OutText = bFlag ? TEXT("true") : TEXT("false");
		return true;
	}
	if (MorvaneJson::TryGetNumber(*Value, Number))
	{
		OutText = FString::SanitizeFloat(Number, 0);
		return true;
	}
	return false;
}

/** A part of a list or an object: texts that hold a sign of that form stand in quotes. */
static FString ToPart(const TSharedPtr<FJsonValue>& Value)
{
	FString Text;
	ReadValue(Value, Text);
	const bool bPlain = !Value || Value->Type != EJson::String
		|| (!Text.IsEmpty() && !Text.Contains(TEXT(",")) && !Text.Contains(TEXT(" ")) && !Text.Contains(TEXT("(")));
	return bPlain ? Text : TEXT("\"") + Text.ReplaceCharWithEscapedChar() + TEXT("\"");
}

bool ReadValue(const TSharedPtr<FJsonValue>& Value, FString& OutText)
{
	const TArray<TSharedPtr<FJsonValue>>* Elements = nullptr;
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (ReadText(Value, OutText))
	{
		return true;
	}
	TArray<FString> Parts;
	if (Value && Value->TryGetArray(Elements))
	{
		for (const TSharedPtr<FJsonValue>& Element : *Elements)
		{
			Parts.Add(ToPart(Element));
		}
	}
	else if (Value && Value->TryGetObject(Object))
	{
		for (const auto& Member : (*Object)->Values)
		{
			Parts.Add(FString(Member.Key) + TEXT("=") + ToPart(Member.Value));
		}
	}
	else
	{
		return false;
	}
	OutText = TEXT("(") + FString::Join(Parts, TEXT(",")) + TEXT(")");
	return true;
}

TMap<FString, FString> ReadStringMap(const FJsonObject& Json, const TCHAR* Key)
{
	TMap<FString, FString> Map;
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (Json.TryGetObjectField(Key, Object))
	{
		for (const auto& Member : (*Object)->Values)
		{
			FString Value;
			if (MorvaneJson::TryGetString(*Member.Value, Value))
			{
				Map.Add(FString(Member.Key), Value);
			}
		}
	}
	return Map;
}

void ReadPosition(const FJsonObject& Json, FBPNodeModification& OutRecord)
{
	const TSharedPtr<FJsonObject>* Position = nullptr;
	if (!Json.TryGetObjectField(TEXT("position"), Position))
	{
		return;
	}
	// Cut toward zero, like every position that becomes whole, and no further than an int32 reaches.
	const auto ToWhole = [](double Coordinate)
	{
		const double Limited = FMath::Clamp(Coordinate, static_cast<double>(MIN_int32), static_cast<double>(MAX_int32));
		return static_cast<int32>(Limited);
	};
	double Coordinate = 0.0;
	if (MorvaneJson::TryGetNumberField(**Position, TEXT("x"), Coordinate))
	{
		OutRecord.PositionX = ToWhole(Coordinate);
	}
	if (MorvaneJson::TryGetNumberField(**Position, TEXT("y"), Coordinate))
	{
		OutRecord.PositionY = ToWhole(Coordinate);
	}
}

FBPPinType ReadPinTypeWords(const FJsonObject& Type)
{
	FBPPinType Record;
	ReadString(Type, TEXT("category"), Record.Category);
	ReadString(Type, TEXT("sub_category"), Record.SubCategory);
	ReadString(Type, TEXT("sub_category_object"), Record.SubCategoryObject);
	ReadString(Type, TEXT("container_type"), TEXT("container"), Record.ContainerType);
	return Record;
}

FBPPinType ReadPinType(const FJsonObject& Type)
{
	FBPPinType Record = ReadPinTypeWords(Type);
	MorvaneJson::TryGetBoolField(Type, TEXT("is_reference"), Record.bIsReference);
	MorvaneJson::TryGetBoolField(Type, TEXT("is_const"), Record.bIsConst);
	MorvaneJson::TryGetBoolField(Type, TEXT("is_weak_pointer"), Record.bIsWeakPointer);
	MorvaneJson::TryGetBoolField(Type, TEXT("is_u_object_wrapper"), Record.bIsUObjectWrapper);

	const TSharedPtr<FJsonObject>* ValueObject = nullptr;
	FString ValueCategory;
	if (Type.TryGetObjectField(TEXT("value_type"), ValueObject))
	{
		// One level is all that a map's value has: it cannot be a container itself.
		Record.ValueType = MakeShared<FBPPinType>(ReadPinTypeWords(**ValueObject));
	}
	else if (MorvaneJson::TryGetStringField(Type, TEXT("value_type"), ValueCategory))
	{
		Record.ValueType = MakeShared<FBPPinType>();
		Record.ValueType->Category = ValueCategory;
	}
	return Record;
}
} // namespace RecordWords
