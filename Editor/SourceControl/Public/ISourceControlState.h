#pragma once

#include "CoreMinimal.h"

/** How one file stands. */
class ISourceControlState
{
public:
	virtual ~ISourceControlState() = default;

	virtual const FString& GetFilename() const = 0;
	virtual bool IsSourceControlled() const = 0;
	/** New, and noted for the next submit. */
	virtual bool IsAdded() const = 0;
	virtual bool IsIgnored() const = 0;
	virtual bool IsConflicted() const = 0;
	virtual bool CanCheckout() const = 0;
	virtual bool CanAdd() const = 0;
	virtual bool CanEdit() const = 0;
};

using FSourceControlStateRef = TSharedRef<ISourceControlState>;
using FSourceControlStatePtr = TSharedPtr<ISourceControlState>;
