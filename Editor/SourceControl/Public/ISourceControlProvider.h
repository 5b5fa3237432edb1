#pragma once

#include "CoreMinimal.h"

#include "ISourceControlOperation.h"
#include "ISourceControlState.h"

namespace ECommandResult
{
enum Type
{
	Failed,
	Succeeded,
	Cancelled
};
}

namespace EConcurrency
{
enum Type
{
	Synchronous,
	Asynchronous
};
}

namespace EStateCacheUsage
{
enum Type
{
	ForceUpdate,
	Use
};
}

/** One way of keeping versions. Operations run at once; what failed stands in the operation's result info, one message
 * a file. */
class ISourceControlProvider
{
public:
	virtual ~ISourceControlProvider() = default;

	virtual const FName& GetName() const = 0;
	virtual FText GetStatusText() const = 0;
	/** False for the provider that keeps no versions. */
	virtual bool IsEnabled() const = 0;
	virtual bool IsAvailable() const = 0;
	virtual bool UsesCheckout() const = 0;

	/** Files are absolute paths. Every file is tried; one failure makes the whole a failure. */
	virtual ECommandResult::Type Execute(const FSourceControlOperationRef& Operation, const TArray<FString>& Files,
		EConcurrency::Type Concurrency = EConcurrency::Synchronous) = 0;
	ECommandResult::Type Execute(const FSourceControlOperationRef& Operation, const FString& File)
	{
		return Execute(Operation, TArray<FString>{File});
	}
	/** Null when the file is not below anything the provider knows. */
	virtual FSourceControlStatePtr GetState(const FString& Filename, EStateCacheUsage::Type Usage) = 0;
};
