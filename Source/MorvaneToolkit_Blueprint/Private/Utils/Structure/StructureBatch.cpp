#include "Utils/Structure/StructureBatch.h"

#include "ToolResult.h"

namespace StructureBatch
{
namespace
{
class FRounds
{
public:
	FRounds(const FStructureKind& InKind, Morvane::FToolResult& InResult)
		: Kind(InKind)
		, Result(InResult)
	{
	}

	/** The first round does an entry, or keeps its name for the second. */
	void Take(const FString& Name, const FJsonObject& Json, FAddOrModify AddOrModify)
	{
		const FStructureEntry Entry(Json, Kind.Word, Name, Result);
		Entry.WarnOfOtherKeys(Kind.Keys);
		const TOptional<EBPNodeAction> Action = Entry.ReadAction(Kind.Default);
		bAllTaken &= Action.IsSet();
		if (Action == EBPNodeAction::Remove)
		{
			Leaving.Add(Name);
		}
		else if (Action)
		{
			AddOrModify(Entry, *Action == EBPNodeAction::Add);
		}
	}

	void LeaveOut(const FString& Reason)
	{
		Result.AddWarningMessage(Reason);
		bAllTaken = false;
	}

	bool Finish(FRemove Remove)
	{
		UE_LOG(LogTemp, Verbose, TEXT("Starting second pass: removal operations"));
		for (const FString& Name : Leaving)
		{
			Remove(Name);
		}
		return bAllTaken;
	}

private:
	const FStructureKind& Kind;
	Morvane::FToolResult& Result;
	TArray<FString> Leaving;
	bool bAllTaken = true;
};
} // namespace

bool Walk(const TArray<TSharedPtr<FJsonValue>>& Entries, const FStructureKind& Kind, Morvane::FToolResult& Result,
	FAddOrModify AddOrModify, FRemove Remove)
{
	FRounds Rounds(Kind, Result);
	for (const TSharedPtr<FJsonValue>& Value : Entries)
	{
		TSharedPtr<FJsonObject> Json;
		FString Name;
		if (FStructureEntry::FindNamed(Value, Json, Name))
		{
			Rounds.Take(Name, *Json, AddOrModify);
		}
		else
		{
			Rounds.LeaveOut(Kind.Nameless);
		}
	}
	return Rounds.Finish(Remove);
}

bool Walk(const FJsonObject& Entries, const FStructureKind& Kind, Morvane::FToolResult& Result,
	FAddOrModify AddOrModify, FRemove Remove)
{
	FRounds Rounds(Kind, Result);
	for (const auto& Member : Entries.Values)
	{
		const FString Name(Member.Key);
		const TSharedPtr<FJsonObject>* Json = nullptr;
		if (Member.Value && Member.Value->TryGetObject(Json) && Json->IsValid())
		{
			Rounds.Take(Name, **Json, AddOrModify);
		}
		else
		{
			Rounds.LeaveOut(FString::Printf(TEXT("Invalid JSON format for %s: %s"), Kind.Word, *Name));
		}
	}
	return Rounds.Finish(Remove);
}
} // namespace StructureBatch
