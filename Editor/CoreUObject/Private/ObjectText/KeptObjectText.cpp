#include "ObjectText/ObjectTextWriter.h"
#include "Standalone/ObjectText.h"
#include "UObject/Object.h"
#include "UObject/UnrealType.h"

#include "Misc/FeedbackContext.h"

#include <algorithm>

namespace KeptObjectText
{
struct FEntry
{
	FWeakObjectPtr Owner;
	FKeptObjectText Text;
};

/** Two pointers to objects that are gone are equal as pointers, so the slot's users are told apart by their numbers. */
static bool IsOf(const FEntry& Entry, const FWeakObjectPtr& Owner)
{
	return Entry.Owner.ObjectIndex == Owner.ObjectIndex && Entry.Owner.ObjectSerialNumber == Owner.ObjectSerialNumber;
}

/** By slot in the object table. A slot that is used again has another serial number, which the weak pointer tells. */
static std::unordered_map<int32, FEntry>& Entries()
{
	static std::unordered_map<int32, FEntry> Table;
	return Table;
}

/** Drops what belonged to objects that are gone, each time the table has doubled. */
static void SweepWhenGrown()
{
	static std::size_t NextSweep = 64;
	std::unordered_map<int32, FEntry>& Table = Entries();
	if (Table.size() < NextSweep)
	{
		return;
	}
	std::erase_if(Table, [](const auto& Pair) { return !Pair.second.Owner.Get(true); });
	NextSweep = std::max<std::size_t>(64, Table.size() * 2);
}
} // namespace KeptObjectText

const FKeptObjectText* FKeptObjectText::Find(const UObject* Object)
{
	const auto& Table = KeptObjectText::Entries();
	if (Table.empty())
	{
		return nullptr;
	}
	const auto Found = Table.find(Object->GetInternalIndex());
	return Found != Table.end() && KeptObjectText::IsOf(Found->second, FWeakObjectPtr(Object)) ? &Found->second.Text
																							   : nullptr;
}

FKeptObjectText& FKeptObjectText::FindOrAdd(UObject* Object)
{
	KeptObjectText::SweepWhenGrown();
	KeptObjectText::FEntry& Entry = KeptObjectText::Entries()[Object->GetInternalIndex()];
	const FWeakObjectPtr Owner(Object);
	if (!KeptObjectText::IsOf(Entry, Owner))
	{
		Entry = KeptObjectText::FEntry{Owner, {}};
	}
	return Entry.Text;
}

const FKeptObjectText::FUnread* FKeptObjectText::FindUnread(FName Property, int32 Index) const
{
	for (const FUnread& Value : Unread)
	{
		if (Value.Property == Property && Value.Index == Index)
		{
			return &Value;
		}
	}
	return nullptr;
}

bool FKeptObjectText::HasLeftOut(FName Property) const
{
	return std::any_of(
		LeftOut.begin(), LeftOut.end(), [Property](const FLeftOut& Entry) { return Entry.Property == Property; });
}

void FKeptObjectText::KeepUnread(UObject& Object, const FProperty& Property, FStringView Value)
{
	std::vector<FUnread>& Rows = FindOrAdd(&Object).Unread;
	std::erase_if(Rows, [&Property](const FUnread& Row) { return Row.Property == Property.GetFName(); });
	FUnread& Row = Rows.emplace_back();
	Row.Property = Property.GetFName();
	Row.Value = ToUtf8(FString(Value));
	Property.ExportTextItem_Direct(Row.TextAfter, Property.GetValuePtr(&Object), nullptr, &Object, PPF_Delimited);
}

void FKeptObjectText::KeepRecord(const FObjectTextRecord& Record, UObject* Outer, FFeedbackContext& Warn)
{
	if (Record.ClassPath.empty())
	{
		Warn.Logf(TEXT("line %d: there is no object '%s' that could be filled; it is kept as text"), Record.LineNumber,
			*Record.GetName());
	}
	else
	{
		Warn.Logf(TEXT("line %d: the class '%s' of '%s' is not known; the object is kept as text"), Record.LineNumber,
			*Record.GetClassPath(), *Record.GetName());
	}
	FindOrAdd(Outer).Objects.push_back(TextOf(Record));
}

std::string FKeptObjectText::TextOf(const FObjectTextRecord& Record)
{
	FObjectTextExport Options;
	Options.bFlags = true;
	std::string Text;
	FObjectTextWriter(Options, Text).WriteRecord(Record);
	return Text;
}
