#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Utils/Request/GraphRecords.h"

namespace Morvane
{
class FToolResult;
}

/**
 * One entry of a class structure request: what it is about, and its keys read with some forgiveness. What cannot be
 * taken is told in a warning that names key, value and the type wanted, and then counts as not given.
 */
class FStructureEntry
{
public:
	/** Kind and name are for the messages: "component", "Lamp". */
	FStructureEntry(
		const FJsonObject& InJson, const TCHAR* InKind, const FString& InName, Morvane::FToolResult& InResult)
		: Json(InJson)
		, Name(InName)
		, Kind(InKind)
		, Result(InResult)
	{
	}

	/** The object in a list's element with its "name"; false, silently, when there is no such thing. */
	static bool FindNamed(const TSharedPtr<FJsonValue>& Value, TSharedPtr<FJsonObject>& OutJson, FString& OutName);

	/** Unset after a warning when the word is none. */
	TOptional<EBPNodeAction> ReadAction(EBPNodeAction Default) const;
	/** The flag under the key; a word or number that plainly means one is taken. Unset when it is not there. */
	TOptional<bool> ReadBool(const TCHAR* Key) const;
	TOptional<double> ReadNumber(const TCHAR* Key) const;
	TOptional<FString> ReadString(const TCHAR* Key) const;
	/** Null when it is not there. */
	TSharedPtr<FJsonObject> ReadObject(const TCHAR* Key) const;
	const TArray<TSharedPtr<FJsonValue>>* ReadArray(const TCHAR* Key) const;
	bool Has(const TCHAR* Key) const { return Find(Key).IsValid(); }

	/** Names each key of the entry that is none of these, with the one that was probably meant. */
	void WarnOfOtherKeys(std::initializer_list<const TCHAR*> Known) const;
	/** "'abc', given for 'length' of timeline 'Door', is not a number; it was left out" */
	void WarnOfValue(const TCHAR* Key, const TSharedPtr<FJsonValue>& Value, const TCHAR* Wanted) const;

	const FJsonObject& Json;
	const FString Name;

private:
	/** Null where the key is not there; a null stands for that too. */
	TSharedPtr<FJsonValue> Find(const TCHAR* Key) const;

	const TCHAR* Kind;
	Morvane::FToolResult& Result;
};

/** Small readings that entries and values of properties share. */
namespace StructureValues
{
/** A JSON value, which is not null, for a message: 'abc', 5, true, {"x":1}; cut where it is long. */
FString Show(const TSharedPtr<FJsonValue>& Value);
/** A number without digits that say nothing: "5", "0.25". */
FString NumberText(double Number);
/** True, false, the words for them, 1 and 0. */
bool ToBool(const TSharedPtr<FJsonValue>& Value, bool& bOutValue);
/** A finite number, or a text that is one as a whole. */
bool ToNumber(const TSharedPtr<FJsonValue>& Value, double& OutNumber);
/** The candidate that a misspelt word probably means; empty when none is near. */
FString FindNearest(const FString& Word, const TArray<FString>& Candidates);
} // namespace StructureValues
