#pragma once

#include "HAL/Platform.h"

/**
 * Three tiers. check: a fault of this program, the process ends. verify: the same, for an expression with side effects.
 * ensure: odd but handled, told once per place on standard error; answers the condition.
 */
struct FDebug
{
	[[noreturn]] static void CheckFailed(
		const char* Expression, const char* File, int Line, const TCHAR* Format = nullptr, ...);
	/** Prints the report unless bAlreadyTold, which it sets. Always answers false. */
	static bool EnsureFailed(
		bool& bAlreadyTold, const char* Expression, const char* File, int Line, const TCHAR* Format = nullptr, ...);
};

#define check(Expression) \
	do \
	{ \
		if (!(Expression)) [[unlikely]] \
		{ \
			FDebug::CheckFailed(#Expression, __FILE__, __LINE__); \
		} \
	} while (false)

#define checkf(Expression, ...) \
	do \
	{ \
		if (!(Expression)) [[unlikely]] \
		{ \
			FDebug::CheckFailed(#Expression, __FILE__, __LINE__, __VA_ARGS__); \
		} \
	} while (false)

#define verify(Expression) check(Expression)
#ifdef NDEBUG
#define checkSlow(Expression) \
	do \
	{ \
	} while (false)
#else
#define checkSlow(Expression) check(Expression)
#endif

#define ensure(Expression) \
	((Expression) || \
		[]() \
		{ \
			static bool bAlreadyTold = false; \
			return FDebug::EnsureFailed(bAlreadyTold, #Expression, __FILE__, __LINE__); \
		}())

#define ensureMsgf(Expression, ...) \
	((Expression) || \
		[&]() \
		{ \
			static bool bAlreadyTold = false; \
			return FDebug::EnsureFailed(bAlreadyTold, #Expression, __FILE__, __LINE__, __VA_ARGS__); \
		}())
