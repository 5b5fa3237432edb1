#pragma once

#include "Utils/Structure/StructureEntry.h"

/** What the entries of one kind have in common. */
struct FStructureKind
{
	/** For the messages: "component". */
	const TCHAR* Word;
	/** The keys that they take; every other one is named in a warning. */
	std::initializer_list<const TCHAR*> Keys;
	/** Said of an entry of a list that has no name. */
	const TCHAR* Nameless = TEXT("");
	/** What an entry without an action asks for. */
	EBPNodeAction Default = EBPNodeAction::Add;
};

/**
 * The two rounds over the entries of one kind: what is added or modified, in order, and then what is removed. An entry
 * that cannot be understood is told in a warning and left out.
 */
namespace StructureBatch
{
using FAddOrModify = TFunctionRef<void(const FStructureEntry& Entry, bool bAdd)>;
using FRemove = TFunctionRef<void(const FString& Name)>;

/** Entries that name themselves. False when one was left out. */
bool Walk(const TArray<TSharedPtr<FJsonValue>>& Entries, const FStructureKind& Kind, Morvane::FToolResult& Result,
	FAddOrModify AddOrModify, FRemove Remove);
/** Entries by name, of which each has to be an object. False when one was left out. */
bool Walk(const FJsonObject& Entries, const FStructureKind& Kind, Morvane::FToolResult& Result,
	FAddOrModify AddOrModify, FRemove Remove);
} // namespace StructureBatch
