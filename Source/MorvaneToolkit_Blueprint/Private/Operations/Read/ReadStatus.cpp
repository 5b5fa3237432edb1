#include "Operations/Read/ReadStatus.h"

#include "Dom/JsonObject.h"
#include "JsonReading.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

namespace ReadStatusImpl
{
/** Null for text that is no object. */
static TSharedPtr<FJsonObject> Parse(const FString& Text)
{
	TSharedPtr<FJsonObject> Document;
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(Text);
	return FJsonSerializer::Deserialize(Reader, Document) ? Document : nullptr;
}

/** Most documents say nothing of the kind, and a large one takes long to parse. */
static bool MayHoldStatus(const FString& Text)
{
	return Text.Contains(TEXT("\"status\""), ESearchCase::CaseSensitive);
}

static bool IsMissing(const TSharedPtr<FJsonValue>& Entry)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	FString Status;
	return Entry && Entry->TryGetObject(Object) && MorvaneJson::TryGetStringField(**Object, TEXT("status"), Status)
		&& (Status.Equals(TEXT("deleted"), ESearchCase::IgnoreCase)
			|| Status.Equals(TEXT("not_found"), ESearchCase::IgnoreCase));
}
} // namespace ReadStatusImpl

bool ReadStatus::IsFirstMissing(const FString& Text, const TCHAR* Section)
{
	using namespace ReadStatusImpl;
	const TSharedPtr<FJsonObject> Document = MayHoldStatus(Text) ? Parse(Text) : nullptr;
	const TArray<TSharedPtr<FJsonValue>>* Entries = nullptr;
	return Document && Document->TryGetArrayField(Section, Entries) && !Entries->IsEmpty() && IsMissing((*Entries)[0]);
}

bool ReadStatus::IsEventMissing(const FString& Text)
{
	using namespace ReadStatusImpl;
	const bool bHasGraphs = Text.Contains(TEXT("\"event_flows\""), ESearchCase::CaseSensitive);
	if (!bHasGraphs || !MayHoldStatus(Text))
	{
		return !bHasGraphs;
	}
	const TSharedPtr<FJsonObject> Document = Parse(Text);
	const TArray<TSharedPtr<FJsonValue>>* Graphs = nullptr;
	if (!Document || !Document->TryGetArrayField(TEXT("graphs"), Graphs))
	{
		return true;
	}
	for (const TSharedPtr<FJsonValue>& Graph : *Graphs)
	{
		const TArray<TSharedPtr<FJsonValue>>* Flows = nullptr;
		const TSharedPtr<FJsonObject>* Object = nullptr;
		// Each graph says that it has not what another one has.
		if (Graph && Graph->TryGetObject(Object) && (*Object)->TryGetArrayField(TEXT("event_flows"), Flows)
			&& !Flows->ContainsByPredicate(&IsMissing))
		{
			return false;
		}
	}
	return true;
}

TArray<FString> ReadStatus::FindMissingWidgets(const FString& Text, const TArray<TSharedPtr<FJsonValue>>& Names)
{
	const TSharedPtr<FJsonObject> Document = ReadStatusImpl::Parse(Text);
	const TSharedPtr<FJsonObject>* Tree = nullptr;
	const TSharedPtr<FJsonObject>* Widgets = nullptr;
	TSet<FString> Shown;
	if (Document && Document->TryGetObjectField(TEXT("widget_tree"), Tree)
		&& (*Tree)->TryGetObjectField(TEXT("widgets"), Widgets))
	{
		for (const auto& Member : (*Widgets)->Values)
		{
			Shown.Add(FString(Member.Key));
		}
	}
	TArray<FString> Missing;
	for (const TSharedPtr<FJsonValue>& Value : Names)
	{
		FString Name;
		if (Value && MorvaneJson::TryGetString(*Value, Name) && !Name.IsEmpty() && !Shown.Contains(Name))
		{
			Missing.AddUnique(Name);
		}
	}
	return Missing;
}
