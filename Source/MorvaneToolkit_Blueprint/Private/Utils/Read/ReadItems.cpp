#include "Utils/Read/ReadItems.h"

#include "Engine/BlueprintGeneratedClass.h"
#include "JsonReading.h"

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
		if (Value && MorvaneJson::TryGetString(*Value, Name))
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

bool FReadSection::Stands(const TArray<FString>& Names)
{
	bool bStands = !bFull;
	for (const FString& Name : Names)
	{
		// All are asked, so that none of two names for one item is told to be missing.
		bStands |= bFull && Requested.Take(Name);
	}
	return bStands;
}

void FReadSection::SetInherited(FJsonObject& Entry, const UClass* Owner) const
{
	if (Owner && Owner != &Class)
	{
		if (!bLean)
		{
			Entry.SetBoolField(TEXT("inherited"), true);
		}
		Entry.SetStringField(TEXT("inherited_from"), Owner->GetName());
	}
}

TSharedPtr<FJsonObject> FReadSection::AddEntry(const FString& Name)
{
	const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("name"), Name);
	Entries.Add(MakeShared<FJsonValueObject>(Entry));
	return Entry;
}

void ReadSections::ReduceToNames(TArray<TSharedPtr<FJsonValue>>& Entries, const TCHAR* Key)
{
	for (TSharedPtr<FJsonValue>& Entry : Entries)
	{
		const TSharedPtr<FJsonObject>* Object = nullptr;
		if (Entry->TryGetObject(Object) && (*Object)->Values.Num() == 1 && (*Object)->HasField(FString(Key)))
		{
			Entry = (*Object)->TryGetField(FString(Key));
		}
	}
}

void ReadSections::SetUnlessEmpty(FJsonObject& Object, const TCHAR* Key, TArray<TSharedPtr<FJsonValue>>&& Values)
{
	if (!Values.IsEmpty())
	{
		Object.SetArrayField(Key, MoveTemp(Values));
	}
}
