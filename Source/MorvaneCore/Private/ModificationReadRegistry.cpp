#include "ModificationReadRegistry.h"

#include "ToolResult.h"

FModificationReadRegistry& FModificationReadRegistry::Get()
{
	static FModificationReadRegistry Registry;
	return Registry;
}

void FModificationReadRegistry::RegisterReadTool(const FString& ToolName, const FString& Category, FReader Reader)
{
	const FEntry Entry{ToolName, Category, MoveTemp(Reader)};
	for (FEntry& Existing : Entries)
	{
		if (Existing.ToolName.Equals(ToolName, ESearchCase::CaseSensitive))
		{
			Existing = Entry;
			return;
		}
	}
	Entries.Add(Entry);
}

void FModificationReadRegistry::UnregisterReadTool(const FString& ToolName)
{
	Entries.RemoveAll(
		[&ToolName](const FEntry& Entry) { return Entry.ToolName.Equals(ToolName, ESearchCase::CaseSensitive); });
}

TArray<FString> FModificationReadRegistry::GetToolNames() const
{
	TArray<FString> Names;
	for (const FEntry& Entry : Entries)
	{
		Names.Add(Entry.ToolName);
	}
	return Names;
}

FString FModificationReadRegistry::Read(
	const FString& ToolName, const TSharedPtr<FJsonObject>& Parameters, Morvane::FToolResult& Result) const
{
	const FEntry* const Entry = Find(ToolName);
	return Entry ? Entry->Reader(Parameters, Result) : FString();
}

const FModificationReadRegistry::FEntry* FModificationReadRegistry::Find(const FString& ToolName) const
{
	return Entries.FindByPredicate(
		[&ToolName](const FEntry& Entry) { return Entry.ToolName.Equals(ToolName, ESearchCase::CaseSensitive); });
}
