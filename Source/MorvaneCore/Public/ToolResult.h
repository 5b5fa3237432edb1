#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "ToolCommand.h"
#include "UObject/WeakObjectPtr.h"

namespace Morvane
{
/** A read that shows what a run changed, and what that read answered. */
struct FTrackedModification
{
	FString ReadTool;
	TSharedPtr<FJsonObject> Parameters;
	/** JSON text of the fresh state; empty until the modifications are finalised, or when no reader is known. */
	FString Content;
};

/**
 * The outcome of one invocation: messages, data, and what was changed. An error message makes it a failure; warnings
 * and data are independent of that. Every mutator answers the result itself, so that calls chain. Used by one thread
 * only.
 */
class MORVANECORE_API FToolResult
{
public:
	explicit FToolResult(const FToolCommand& InCommand)
		: Command(InCommand)
	{
	}

	FToolResult& AddErrorMessage(const FString& Message);
	FToolResult& AddWarningMessage(const FString& Message);
	FToolResult& AddSuccessMessage(const FString& Message);

	/** In the order of addition. */
	const TArray<FString>& GetErrorMessages() const { return ErrorMessages; }
	const TArray<FString>& GetWarningMessages() const { return WarningMessages; }
	const TArray<FString>& GetSuccessMessages() const { return SuccessMessages; }
	bool WasSuccessful() const { return ErrorMessages.IsEmpty(); }

	/** Sets a field of the data object, replacing an earlier one. */
	FToolResult& SetData(const FString& Key, const FString& Value);
	FToolResult& SetData(const FString& Key, const TSharedPtr<FJsonObject>& Value);
	/** The data object itself, which callers may change in place; null until the first SetData. */
	const TSharedPtr<FJsonObject>& GetDatas() const { return Datas; }

	/**
	 * Records that the read tool with these parameters shows what this run changed. The object is kept, not copied.
	 * Null parameters are dropped, and so is everything that comes after FinalizeModifications.
	 */
	FToolResult& TrackModification(const FString& ReadTool, const TSharedPtr<FJsonObject>& Parameters);
	/** Records an object for the caller; it may be gone by the time the caller looks. */
	FToolResult& AddModifiedObjects(const TWeakObjectPtr<UObject>& Object);

	/**
	 * Names a node, by its guid, that shows what the run did: where the document that it stands in is too long for an
	 * answer, the nodes that were named are shown alone.
	 */
	FToolResult& AddShownNode(const FString& NodeGuid);

	/**
	 * Closes the list of modifications and reads each of them again through the read registry. A second call does
	 * nothing.
	 *
	 * What is read stands in full up to 64 KB and lean beyond that; past 1 MB a note stands for it, with the calls that
	 * read it.
	 *
	 * The edit is done and stands by now, so a read that fails adds no message here: its reason becomes the entry's
	 * content, as an object with the one key "error".
	 */
	FToolResult& FinalizeModifications();

	/** Forgets what was recorded and closes the list: the changes did not last. */
	FToolResult& DropModifications();
	/** Whether the list is closed, so that what stands in it was saved. */
	bool HasFinalModifications() const { return bModificationsClosed; }

	const TArray<FTrackedModification>& GetModifications() const { return Modifications; }
	const TArray<TWeakObjectPtr<UObject>>& GetModifiedObjects() const { return ModifiedObjects; }
	const FToolCommand& GetCommand() const { return Command; }

private:
	FJsonObject& EnsureDatas();

	FToolCommand Command;
	TArray<FString> ErrorMessages;
	TArray<FString> WarningMessages;
	TArray<FString> SuccessMessages;
	TSharedPtr<FJsonObject> Datas;
	TArray<FTrackedModification> Modifications;
	TSet<FString> ShownNodes;
	TArray<TWeakObjectPtr<UObject>> ModifiedObjects;
	bool bModificationsClosed = false;
};
} // namespace Morvane
