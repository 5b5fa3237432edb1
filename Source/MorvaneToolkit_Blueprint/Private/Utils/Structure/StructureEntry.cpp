#include "Utils/Structure/StructureEntry.h"

#include "AssetOperationBase.h"
#include "JsonReading.h"
#include "ToolResult.h"
#include "Utils/Request/RecordWords.h"

#include <cmath>

namespace StructureValues
{
/** Longer values are cut in messages. */
constexpr int32 LongestShown = 80;

FString Show(const TSharedPtr<FJsonValue>& Value)
{
	FString Text;
	if (MorvaneJson::TryGetString(*Value, Text))
	{
		Text = TEXT("'") + Text + TEXT("'");
	}
	else if (double Number = 0.0; MorvaneJson::TryGetNumber(*Value, Number))
	{
		Text = NumberText(Number);
	}
	else
	{
		// There is no writer for a value alone.
		const TSharedPtr<FJsonObject> Wrapped = MakeShared<FJsonObject>();
		Wrapped->SetField(TEXT("v"), Value);
		Text = FAssetOperationBase::SerializeJson(Wrapped);
		Text = Text.Mid(5, Text.Len() - 6);
	}
	return Text.Len() > LongestShown ? Text.Left(LongestShown) + TEXT("...") : Text;
}

FString NumberText(double Number)
{
	constexpr double LargestWhole = 9007199254740992.0;
	const bool bWhole = std::abs(Number) <= LargestWhole && std::floor(Number) == Number;
	return bWhole ? LexToString(static_cast<int64>(Number)) : FString::SanitizeFloat(Number);
}

bool ToBool(const TSharedPtr<FJsonValue>& Value, bool& bOutValue)
{
	FString Text;
	double Number = 0.0;
	if (MorvaneJson::TryGetBool(*Value, bOutValue))
	{
		return true;
	}
	if (MorvaneJson::TryGetNumber(*Value, Number))
	{
		bOutValue = Number != 0.0;
		return Number == 0.0 || Number == 1.0;
	}
	if (!MorvaneJson::TryGetString(*Value, Text))
	{
		return false;
	}
	const FString Word = Text.TrimStartAndEnd().ToLower();
	bOutValue = Word == TEXT("true") || Word == TEXT("yes") || Word == TEXT("on") || Word == TEXT("1");
	return bOutValue || Word == TEXT("false") || Word == TEXT("no") || Word == TEXT("off") || Word == TEXT("0");
}

bool ToNumber(const TSharedPtr<FJsonValue>& Value, double& OutNumber)
{
	FString Text;
	if (MorvaneJson::TryGetNumber(*Value, OutNumber))
	{
		return std::isfinite(OutNumber);
	}
	if (!MorvaneJson::TryGetString(*Value, Text))
	{
		return false;
	}
	const FString Trimmed = Text.TrimStartAndEnd();
	return !Trimmed.IsEmpty() && LexTryParseString(OutNumber, *Trimmed) && std::isfinite(OutNumber);
}

FString FindNearest(const FString& Word, const TArray<FString>& Candidates)
{
	FString Nearest;
	int32 Least = FMath::Max(1, Word.Len() / 3) + 1;
	for (const FString& Candidate : Candidates)
	{
		const int32 Distance = FAssetOperationBase::LevenshteinDistance(Word, Candidate);
		if (Distance < Least)
		{
			Least = Distance;
			Nearest = Candidate;
		}
	}
	return Nearest;
}
} // namespace StructureValues

bool FStructureEntry::FindNamed(const TSharedPtr<FJsonValue>& Value, TSharedPtr<FJsonObject>& OutJson, FString& OutName)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (!Value || !Value->TryGetObject(Object) || !Object->IsValid())
	{
		return false;
	}
	OutJson = *Object;
	return MorvaneJson::TryGetStringField(*OutJson, TEXT("name"), OutName);
}

TSharedPtr<FJsonValue> FStructureEntry::Find(const TCHAR* Key) const
{
	const TSharedPtr<FJsonValue> Value = Json.TryGetField(Key);
	return Value && !Value->IsNull() ? Value : nullptr;
}

TOptional<EBPNodeAction> FStructureEntry::ReadAction(EBPNodeAction Default) const
{
	const TSharedPtr<FJsonValue> Value = Find(TEXT("action"));
	if (!Value)
	{
		return Default;
	}
	FString Word;
	MorvaneJson::TryGetString(*Value, Word);
	const TOptional<EBPNodeAction> Action = RecordWords::ToNodeAction(Word.TrimStartAndEnd());
	if (!Action)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Unknown action %s of %s '%s'; use add, modify or remove"),
			*StructureValues::Show(Value), Kind, *Name));
	}
	return Action;
}

TOptional<bool> FStructureEntry::ReadBool(const TCHAR* Key) const
{
	const TSharedPtr<FJsonValue> Value = Find(Key);
	bool bValue = false;
	if (Value && StructureValues::ToBool(Value, bValue))
	{
		return bValue;
	}
	if (Value)
	{
		WarnOfValue(Key, Value, TEXT("true or false"));
	}
	return TOptional<bool>();
}

TOptional<double> FStructureEntry::ReadNumber(const TCHAR* Key) const
{
	const TSharedPtr<FJsonValue> Value = Find(Key);
	double Number = 0.0;
	if (Value && StructureValues::ToNumber(Value, Number))
	{
		return Number;
	}
	if (Value)
	{
		WarnOfValue(Key, Value, TEXT("a number"));
	}
	return TOptional<double>();
}

TOptional<FString> FStructureEntry::ReadString(const TCHAR* Key) const
{
	const TSharedPtr<FJsonValue> Value = Find(Key);
	FString Text;
	double Number = 0.0;
	if (Value && MorvaneJson::TryGetString(*Value, Text))
	{
		return Text;
	}
	if (Value && MorvaneJson::TryGetNumber(*Value, Number))
	{
		return StructureValues::NumberText(Number);
	}
	if (Value)
	{
		WarnOfValue(Key, Value, TEXT("a string"));
	}
	return TOptional<FString>();
}

TSharedPtr<FJsonObject> FStructureEntry::ReadObject(const TCHAR* Key) const
{
	const TSharedPtr<FJsonValue> Value = Find(Key);
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (Value && Value->TryGetObject(Object) && Object->IsValid())
	{
		return *Object;
	}
	if (Value)
	{
		WarnOfValue(Key, Value, TEXT("an object"));
	}
	return nullptr;
}

const TArray<TSharedPtr<FJsonValue>>* FStructureEntry::ReadArray(const TCHAR* Key) const
{
	const TSharedPtr<FJsonValue> Value = Find(Key);
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	if (Value && !static_cast<const FJsonValue&>(*Value).TryGetArray(Array))
	{
		WarnOfValue(Key, Value, TEXT("an array"));
	}
	return Array;
}

void FStructureEntry::WarnOfOtherKeys(std::initializer_list<const TCHAR*> Known) const
{
	TArray<FString> Words;
	for (const TCHAR* const Word : Known)
	{
		Words.Add(Word);
	}
	for (const auto& Member : Json.Values)
	{
		const FString Key(Member.Key);
		if (Words.ContainsByPredicate(
				[&Key](const FString& Word) { return Word.Equals(Key, ESearchCase::CaseSensitive); }))
		{
			continue;
		}
		const FString Nearest = StructureValues::FindNearest(Key, Words);
		Result.AddWarningMessage(Nearest.IsEmpty()
				? FString::Printf(TEXT("Unknown key '%s' of %s '%s' was ignored; the keys are %s"), *Key, Kind, *Name,
					*FString::Join(Words, TEXT(", ")))
				: FString::Printf(
					TEXT("Unknown key '%s' of %s '%s' was ignored; did you mean '%s'?"), *Key, Kind, *Name, *Nearest));
	}
}

void FStructureEntry::WarnOfValue(const TCHAR* Key, const TSharedPtr<FJsonValue>& Value, const TCHAR* Wanted) const
{
	Result.AddWarningMessage(FString::Printf(TEXT("%s, given for '%s' of %s '%s', is not %s; it was left out"),
		*StructureValues::Show(Value), Key, Kind, *Name, Wanted));
}
