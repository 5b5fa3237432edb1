#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

class UBlueprint;
class UBlueprintGeneratedClass;
class UClass;

/** The names that a one-item read asks for, each with how often an item of it was found. Names compare ignoring case.
 */
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

/** One section of the document while it is made: items of one kind of one Blueprint. */
struct FReadSection
{
	UBlueprint& Blueprint;
	UBlueprintGeneratedClass& Class;
	const TSharedPtr<FJsonObject>& Command;
	/** The items are asked for by name and shown in full; otherwise all of them in overview. */
	bool bFull = false;
	/** What is as it is in most items is left out. */
	bool bLean = false;
	FRequestedNames Requested;
	TArray<TSharedPtr<FJsonValue>> Entries;

	/** Whether the item of this name belongs into the section. Call it once for each item: it counts. */
	bool Stands(const FString& Name);
	/** The same for an item that answers to several names. */
	bool Stands(const TArray<FString>& Names);
	/** Marks the entry of an item that a class above this one has; nothing for null and for the Blueprint's own. */
	void SetInherited(FJsonObject& Entry, const UClass* Owner) const;
	/** A new entry that holds its name so far. */
	TSharedPtr<FJsonObject> AddEntry(const FString& Name);
};

/** What fills the sections, one for each kind of item. */
namespace ReadSections
{
void AddInterfaces(FReadSection& Section);
void AddVariables(FReadSection& Section);
void AddComponents(FReadSection& Section);
void AddFunctions(FReadSection& Section);
void AddMacros(FReadSection& Section);
void AddDelegates(FReadSection& Section);
void AddTimelines(FReadSection& Section);

/** Of entries that have nothing but their name under the key, the name. */
void ReduceToNames(TArray<TSharedPtr<FJsonValue>>& Entries, const TCHAR* Key);
/** Sets the array unless it is empty: what has nothing to say is left out. */
void SetUnlessEmpty(FJsonObject& Object, const TCHAR* Key, TArray<TSharedPtr<FJsonValue>>&& Values);
} // namespace ReadSections
