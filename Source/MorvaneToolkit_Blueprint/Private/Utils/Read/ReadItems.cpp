#include "Utils/Read/ReadItems.h"

bool FRequestedNames::Read(const FJsonObject& Command, const TCHAR* Field)
{
	const TArray<TSharedPtr<FJsonValue>>* Values = nullptr;
	if (!Command.TryGetArrayField(Field, Values))
	{
		return false;
	}
	for (const TSharedPtr<FJsonValue>& Value : *Values)
	{
		FString Name;
		if (Value && Value->TryGetString(Name))
		{
			Counts.Add(Name, 0);
		}
	}
	return !Counts.IsEmpty();
}

bool FRequestedNames::Take(const FString& Name)
{
	int32* const Count = Counts.Find(Name);
	if (!Count)
	{
		return false;
	}
	++*Count;
	return true;
}

void FRequestedNames::AddMissing(TArray<TSharedPtr<FJsonValue>>& Entries, bool bFinalize) const
{
	for (const auto& Pair : Counts)
	{
		if (Pair.Value > 0)
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetStringField(TEXT("name"), Pair.Key);
		Entry->SetStringField(TEXT("status"), bFinalize ? TEXT("deleted") : TEXT("not_found"));
		Entries.Add(MakeShared<FJsonValueObject>(Entry));
	}
}

bool FReadSection::Stands(const FString& Name)
{
	return !bFull || Requested.Take(Name);
}

TSharedPtr<FJsonObject> FReadSection::AddEntry(const FString& Name)
{
	const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("name"), Name);
	Entries.Add(MakeShared<FJsonValueObject>(Entry));
	return Entry;
}

void ReadSections::SetUnlessEmpty(FJsonObject& Object, const TCHAR* Key, TArray<TSharedPtr<FJsonValue>>&& Values)
{
	if (!Values.IsEmpty())
	{
		Object.SetArrayField(Key, MoveTemp(Values));
	}
}
