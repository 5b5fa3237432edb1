#include "Operations/Read/ReadStatus.h"

#include "Dom/JsonObject.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

bool ReadStatus::IsFirstMissing(const FString& Text, const TCHAR* Section)
{
	// Most documents say nothing of the kind, and a large one takes long to parse.
	if (!Text.Contains(TEXT("\"status\""), ESearchCase::CaseSensitive))
	{
		return false;
	}
	TSharedPtr<FJsonObject> Document;
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(Text);
	const TArray<TSharedPtr<FJsonValue>>* Entries = nullptr;
	if (!FJsonSerializer::Deserialize(Reader, Document) || !Document || !Document->TryGetArrayField(Section, Entries))
	{
		return false;
	}
	const TSharedPtr<FJsonObject>* First = nullptr;
	FString Status;
	return !Entries->IsEmpty() && (*Entries)[0]->TryGetObject(First)
		&& (*First)->TryGetStringField(TEXT("status"), Status)
		&& (Status.Equals(TEXT("deleted"), ESearchCase::IgnoreCase)
			|| Status.Equals(TEXT("not_found"), ESearchCase::IgnoreCase));
}
