#include "ToolExecutor.h"

bool FToolExecutor::RegisterTool(const FString& Name, const TSharedPtr<ITool>& Tool)
{
	if (Name.IsEmpty() || !Tool.IsValid() || FindTool(Name).IsValid())
	{
		return false;
	}
	Entries.Add({Name, Tool});
	return true;
}

void FToolExecutor::UnregisterTool(const FString& Name)
{
	Entries.RemoveAll([&Name](const FEntry& Entry) { return Entry.Name.Equals(Name, ESearchCase::CaseSensitive); });
}

TArray<FString> FToolExecutor::GetToolNames() const
{
	TArray<FString> Names;
	for (const FEntry& Entry : Entries)
	{
		Names.Add(Entry.Name);
	}
	return Names;
}

TSharedPtr<ITool> FToolExecutor::FindTool(const FString& Name) const
{
	const FEntry* const Found = Entries.FindByPredicate(
		[&Name](const FEntry& Entry) { return Entry.Name.Equals(Name, ESearchCase::CaseSensitive); });
	return Found ? Found->Tool : nullptr;
}

void FToolExecutor::ExecuteTool(const Morvane::FToolCommand& Command, const TSharedPtr<Morvane::FToolResult>& Result,
	const FOnToolCompleted& OnCompleted)
{
	const TSharedPtr<ITool> Tool = FindTool(Command.GetToolName());
	if (!Tool.IsValid())
	{
		Result->AddErrorMessage(FString::Printf(TEXT("Unknown tool '%s'"), *Command.GetToolName()));
		OnCompleted(Result);
		return;
	}
	Tool->Execute(Command, Result, OnCompleted);
}
