#pragma once

#include "Templates/UnrealTemplate.h"

template <typename FuncType>
class TScopeExit
{
public:
	explicit TScopeExit(FuncType&& InFunc)
		: Func(static_cast<FuncType&&>(InFunc))
	{
	}
	~TScopeExit() { Func(); }
	TScopeExit(const TScopeExit&) = delete;
	TScopeExit& operator=(const TScopeExit&) = delete;

private:
	FuncType Func;
};

struct FScopeExitMaker
{
	template <typename FuncType>
	TScopeExit<FuncType> operator+(FuncType&& Func)
	{
		return TScopeExit<FuncType>(static_cast<FuncType&&>(Func));
	}
};

#define UE_SCOPE_EXIT_JOIN_INNER(Left, Right) Left##Right
#define UE_SCOPE_EXIT_JOIN(Left, Right) UE_SCOPE_EXIT_JOIN_INNER(Left, Right)

/** ON_SCOPE_EXIT { ... }; runs the block when the enclosing scope ends. */
#define ON_SCOPE_EXIT const auto UE_SCOPE_EXIT_JOIN(ScopeExit_, __LINE__) = FScopeExitMaker() + [&]()
