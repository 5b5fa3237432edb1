#pragma once

#include "Logging/LogVerbosity.h"

struct FLogCategoryBase
{
	FLogCategoryBase(const TCHAR* InName, ELogVerbosity::Type InDefault)
		: Name(InName)
		, Verbosity(InDefault)
	{
	}
	/** Too detailed for this category or for the log as a whole. */
	bool IsSuppressed(ELogVerbosity::Type InVerbosity) const;
	const TCHAR* GetCategoryName() const { return Name; }

private:
	const TCHAR* Name;
	ELogVerbosity::Type Verbosity;
};
