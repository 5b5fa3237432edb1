#pragma once

#include "ISourceControlProvider.h"

/**
 * Keeps no versions, and still respects the read-only flag: teams that check out exclusively have it on every file that
 * nobody has checked out.
 */
class FNoSourceControl final : public ISourceControlProvider
{
public:
	const FName& GetName() const override;
	FText GetStatusText() const override;
	bool IsEnabled() const override { return false; }
	bool IsAvailable() const override { return false; }
	bool UsesCheckout() const override { return false; }
	ECommandResult::Type Execute(const FSourceControlOperationRef& Operation, const TArray<FString>& Files,
		EConcurrency::Type Concurrency) override;
	FSourceControlStatePtr GetState(const FString& Filename, EStateCacheUsage::Type Usage) override;
	using ISourceControlProvider::Execute;
};
