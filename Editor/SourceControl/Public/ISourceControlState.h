#pragma once

#include "CoreMinimal.h"

/** How one file stands. */
class ISourceControlState
{
public:
	virtual ~ISourceControlState() = default;

	virtual bool IsConflicted() const = 0;
	virtual bool CanAdd() const = 0;
};

using FSourceControlStateRef = TSharedRef<ISourceControlState>;
using FSourceControlStatePtr = TSharedPtr<ISourceControlState>;
