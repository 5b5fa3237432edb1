#pragma once

#include "IToolExecutor.h"

/** The executor of the tool pack: a list in the order of registration. */
class FToolExecutor final : public IToolExecutor
{
public:
	bool RegisterTool(const FString& Name, const TSharedPtr<ITool>& Tool) override;
	void UnregisterTool(const FString& Name) override;
	TArray<FString> GetToolNames() const override;
	TSharedPtr<ITool> FindTool(const FString& Name) const override;
	void ExecuteTool(const Morvane::FToolCommand& Command, const TSharedPtr<Morvane::FToolResult>& Result,
		const FOnToolCompleted& OnCompleted) override;

private:
	struct FEntry
	{
		FString Name;
		TSharedPtr<ITool> Tool;
	};

	TArray<FEntry> Entries;
};
