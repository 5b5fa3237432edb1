#pragma once

#include "CoreMinimal.h"
#include "ISourceControlProvider.h"
#include "Standalone/SubobjectDataFaults.h"

/** Troubles that a test makes happen. Each lasts as long as its object. */
namespace EditorFaults
{
/** Source control refuses one kind of operation ("CheckOut", "MarkForAdd", "Delete") with a reason; the others succeed.
 */
class FRefuseSourceControl final : public ISourceControlProvider
{
public:
	FRefuseSourceControl(FName InOperation, const FString& InReason);
	~FRefuseSourceControl() override;
	FRefuseSourceControl(const FRefuseSourceControl&) = delete;
	FRefuseSourceControl& operator=(const FRefuseSourceControl&) = delete;

	/** Files of the refused operation, in order. */

	const FName& GetName() const override;
	FText GetStatusText() const override { return FText(); }
	bool IsEnabled() const override { return true; }
	bool IsAvailable() const override { return true; }
	bool UsesCheckout() const override { return true; }
	ECommandResult::Type Execute(const FSourceControlOperationRef& Command, const TArray<FString>& Files,
		EConcurrency::Type Concurrency) override;
	FSourceControlStatePtr GetState(const FString&, EStateCacheUsage::Type) override { return nullptr; }

private:
	const FName Operation;
	const FString Reason;
};

struct FRefuseCheckOut
{
	explicit FRefuseCheckOut(const FString& Reason)
		: Provider(TEXT("CheckOut"), Reason)
	{
	}
	FRefuseSourceControl Provider;
};

struct FRefuseMarkForAdd
{
	explicit FRefuseMarkForAdd(const FString& Reason)
		: Provider(TEXT("MarkForAdd"), Reason)
	{
	}
	FRefuseSourceControl Provider;
};

/** Saves of files whose path holds the given text (all when it is empty) fail with the reason. */
class FFailSaves
{
public:
	explicit FFailSaves(const FString& Reason, const FString& PathPart = FString());
	~FFailSaves();
	FFailSaves(const FFailSaves&) = delete;
	FFailSaves& operator=(const FFailSaves&) = delete;
};

/** The editor says that it is writing a package. */
class FSavingNow
{
public:
	FSavingNow();
	~FSavingNow();
	FSavingNow(const FSavingNow&) = delete;
	FSavingNow& operator=(const FSavingNow&) = delete;

private:
	const bool bBefore;
};

/** The editor says that it is freeing objects. */
class FCollectingNow
{
public:
	FCollectingNow();
	~FCollectingNow();
	FCollectingNow(const FCollectingNow&) = delete;
	FCollectingNow& operator=(const FCollectingNow&) = delete;

private:
	const bool bBefore;
};

/** The subsystem of subobjects is not there, or refuses to move any. */
class FNoSubobjectData
{
public:
	explicit FNoSubobjectData(ESubobjectFault Fault) { SubobjectDataFaults::Set(Fault); }
	~FNoSubobjectData() { SubobjectDataFaults::Set(ESubobjectFault::None); }
	FNoSubobjectData(const FNoSubobjectData&) = delete;
	FNoSubobjectData& operator=(const FNoSubobjectData&) = delete;
};
} // namespace EditorFaults
