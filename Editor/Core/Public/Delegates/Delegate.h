#pragma once

#include "Containers/Array.h"
#include "Delegates/DelegateHandle.h"
#include "Templates/Function.h"

template <typename DelegateSignature>
class TDelegate;
template <typename DelegateSignature>
class TMulticastDelegate;

/** A callback that may be unbound. What it refers to is the caller's care. */
template <typename RetType, typename... ParamTypes>
class TDelegate<RetType(ParamTypes...)>
{
public:
	template <typename FunctorType, typename... VarTypes>
	static TDelegate CreateLambda(FunctorType&& Functor, VarTypes... Vars)
	{
		TDelegate Result;
		Result.BindLambda(Forward<FunctorType>(Functor), Vars...);
		return Result;
	}
	template <typename... VarTypes>
	static TDelegate CreateStatic(
		RetType (*Function)(ParamTypes..., VarTypes...), std::type_identity_t<VarTypes>... Vars)
	{
		return CreateLambda(Function, Vars...);
	}

	template <typename FunctorType, typename... VarTypes>
	void BindLambda(FunctorType&& Functor, VarTypes... Vars)
	{
		Handle = FDelegateHandle(FDelegateHandle::GenerateNewHandle);
		if constexpr (sizeof...(Vars) == 0)
		{
			Callable = Forward<FunctorType>(Functor);
		}
		else
		{
			Callable = [Target = std::decay_t<FunctorType>(Forward<FunctorType>(Functor)), Vars...](
						   ParamTypes... Params) mutable -> RetType
			{ return Target(Forward<ParamTypes>(Params)..., Vars...); };
		}
	}

	bool IsBound() const { return Callable.IsSet(); }
	RetType Execute(ParamTypes... Params) const
	{
		checkf(IsBound(), TEXT("An unbound delegate was executed"));
		return Callable(Forward<ParamTypes>(Params)...);
	}
	/** Answers whether it was bound. */
	bool ExecuteIfBound(ParamTypes... Params) const
	{
		if (!IsBound())
		{
			return false;
		}
		Callable(Forward<ParamTypes>(Params)...);
		return true;
	}
	FDelegateHandle GetHandle() const { return Handle; }

private:
	TFunction<RetType(ParamTypes...)> Callable;
	FDelegateHandle Handle;
};

/** Calls its listeners in the order they were added. Listeners may be added and removed while it does. */
template <typename... ParamTypes>
class TMulticastDelegate<void(ParamTypes...)>
{
public:
	using FDelegate = TDelegate<void(ParamTypes...)>;

	FDelegateHandle Add(FDelegate Delegate)
	{
		const FDelegateHandle Handle = Delegate.GetHandle();
		if (Handle.IsValid())
		{
			Listeners.Add(MoveTemp(Delegate));
		}
		return Handle;
	}
	template <typename FunctorType, typename... VarTypes>
	FDelegateHandle AddLambda(FunctorType&& Functor, VarTypes... Vars)
	{
		return Add(FDelegate::CreateLambda(Forward<FunctorType>(Functor), Vars...));
	}
	template <typename... VarTypes>
	FDelegateHandle AddStatic(void (*Function)(ParamTypes..., VarTypes...), std::type_identity_t<VarTypes>... Vars)
	{
		return Add(FDelegate::CreateLambda(Function, Vars...));
	}
	bool Remove(FDelegateHandle Handle)
	{
		return Listeners.RemoveAll([Handle](const FDelegate& Listener) { return Listener.GetHandle() == Handle; }) > 0;
	}
	void Clear() { Listeners.Empty(); }
	bool IsBound() const
	{
		return Listeners.ContainsByPredicate([](const FDelegate& Listener) { return Listener.IsBound(); });
	}
	/** A listener added during the call waits for the next one; one that is removed during it is not called any more.
	 */
	void Broadcast(ParamTypes... Params) const
	{
		const TArray<FDelegate> Called(Listeners);
		for (const FDelegate& Listener : Called)
		{
			const FDelegateHandle Handle = Listener.GetHandle();
			if (Listeners.ContainsByPredicate([&](const FDelegate& Current) { return Current.GetHandle() == Handle; }))
			{
				Listener.ExecuteIfBound(Params...);
			}
		}
	}

private:
	TArray<FDelegate> Listeners;
};

using FSimpleDelegate = TDelegate<void()>;
using FSimpleMulticastDelegate = TMulticastDelegate<void()>;
