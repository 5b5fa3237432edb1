#pragma once

#include "ISourceControlProvider.h"

struct git_repository;

/** A git work tree. There is nothing to check out; new files go into the index, changed ones are left to whoever
 * commits. */
class FGitSourceControl final : public ISourceControlProvider
{
public:
	/** Null when the folder is in no work tree, or in one that cannot be opened (the log tells). */
	static TUniquePtr<FGitSourceControl> Find(const FString& Directory);
	~FGitSourceControl() override;
	FGitSourceControl(const FGitSourceControl&) = delete;
	FGitSourceControl& operator=(const FGitSourceControl&) = delete;

	const FName& GetName() const override;
	FText GetStatusText() const override;
	bool IsEnabled() const override { return true; }
	bool IsAvailable() const override { return true; }
	bool UsesCheckout() const override { return false; }
	ECommandResult::Type Execute(const FSourceControlOperationRef& Operation, const TArray<FString>& Files,
		EConcurrency::Type Concurrency) override;
	FSourceControlStatePtr GetState(const FString& Filename, EStateCacheUsage::Type Usage) override;
	using ISourceControlProvider::Execute;

private:
	explicit FGitSourceControl(git_repository* InRepository);
	FString CheckOut(const FString& File);
	FString Add(const FString& File);
	FString Remove(const FString& File);
	/** Relative to the work tree; false for a file outside of it. */
	bool RelativePath(const FString& File, std::string& OutPath) const;

	git_repository* Repository;
};
