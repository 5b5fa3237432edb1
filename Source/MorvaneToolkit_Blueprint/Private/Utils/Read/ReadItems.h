#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

/** The names that a one-item read asks for, each with how often an item of it was found. Names compare ignoring case. */
class FRequestedNames
{
public:
	/** False when the command's field is no array or holds no names. */
	bool Read(const FJsonObject& Command, const TCHAR* Field);
	/** Whether the item stands: it was asked for. Counts it. */
	bool Take(const FString& Name);
	/** An entry for each name that no item had: "deleted" after a modification, else "not_found". */
	void AddMissing(TArray<TSharedPtr<FJsonValue>>& Entries, bool bFinalize) const;

private:
	TMap<FString, int32> Counts;
};
