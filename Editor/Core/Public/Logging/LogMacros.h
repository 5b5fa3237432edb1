#pragma once

#include "Containers/UnrealString.h"
#include "Logging/LogCategory.h"

struct FMsg
{
	/** Writes one line; a Fatal one ends the process. */
	static void Log(const FLogCategoryBase& Category, ELogVerbosity::Type Verbosity, const FString& Text);
};

#define DECLARE_LOG_CATEGORY_EXTERN(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	extern struct FLogCategory##CategoryName : public FLogCategoryBase \
	{ \
		FLogCategory##CategoryName() \
			: FLogCategoryBase(TEXT(#CategoryName), ELogVerbosity::DefaultVerbosity) \
		{ \
		} \
	} CategoryName
#define DEFINE_LOG_CATEGORY(CategoryName) FLogCategory##CategoryName CategoryName
#define DEFINE_LOG_CATEGORY_STATIC(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	static FLogCategoryBase CategoryName(TEXT(#CategoryName), ELogVerbosity::DefaultVerbosity)

/** The arguments are not evaluated when the line is suppressed. */
#define UE_LOG(CategoryName, Verbosity, Format, ...) \
	do \
	{ \
		if (!CategoryName.IsSuppressed(ELogVerbosity::Verbosity)) \
		{ \
			FMsg::Log(CategoryName, ELogVerbosity::Verbosity, FString::Printf(Format __VA_OPT__(, ) __VA_ARGS__)); \
		} \
	} while (false)
#define UE_CLOG(Condition, CategoryName, Verbosity, Format, ...) \
	do \
	{ \
		if (Condition) \
		{ \
			UE_LOG(CategoryName, Verbosity, Format __VA_OPT__(, ) __VA_ARGS__); \
		} \
	} while (false)

DECLARE_LOG_CATEGORY_EXTERN(LogTemp, Log, All);
