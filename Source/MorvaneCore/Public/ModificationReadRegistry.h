#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}

/** The read tools by name, for those who want the fresh state of what a run changed. */
class MORVANECORE_API FModificationReadRegistry
{
public:
	/** Answers the state as JSON text, "{}" when there is none, and reports into the result. May write into the
	 * parameters. */
	using FReader = TFunction<FString(TSharedPtr<FJsonObject>, Morvane::FToolResult&)>;

	static FModificationReadRegistry& Get();

	/** A name that is registered already gets the new category and reader. */
	void RegisterReadTool(const FString& ToolName, const FString& Category, FReader Reader);
	void UnregisterReadTool(const FString& ToolName);

	/** In the order of registration. */
	TArray<FString> GetToolNames() const;
	/** Runs the tool's reader. For a name that is not registered the answer is an empty text, and nothing is reported.
	 */
	FString Read(
		const FString& ToolName, const TSharedPtr<FJsonObject>& Parameters, Morvane::FToolResult& Result) const;

private:
	struct FEntry
	{
		FString ToolName;
		FString Category;
		FReader Reader;
	};

	const FEntry* Find(const FString& ToolName) const;

	TArray<FEntry> Entries;
};
