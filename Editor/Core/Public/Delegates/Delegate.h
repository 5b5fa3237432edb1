#pragma once

#include "Containers/Array.h"
#include "Delegates/DelegateHandle.h"
#include "Templates/Function.h"
#include "Templates/SharedPointer.h"

template <typename DelegateSignature>
class TDelegate;
template <typename DelegateSignature>
class TMulticastDelegate;

/**
 * A callback that may be unbound. Bind takes whatever the engine's binders take; the lifetime of a raw or object target
 * is the caller's care, a target bound by shared pointer is skipped once it is gone.
 */
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
	template <typename UserClass, typename MethodType, typename... VarTypes>
	static TDelegate CreateRaw(UserClass* Object, MethodType Method, VarTypes... Vars)
	{
		TDelegate Result;
		Result.BindRaw(Object, Method, Vars...);
		return Result;
	}
	template <typename UserClass, typename MethodType, typename... VarTypes>
	static TDelegate CreateUObject(UserClass* Object, MethodType Method, VarTypes... Vars)
	{
		return CreateRaw(Object, Method, Vars...);
	}
	template <typename UserClass, typename MethodType, typename... VarTypes>
	static TDelegate CreateSP(const TSharedRef<UserClass>& Object, MethodType Method, VarTypes... Vars)
	{
		TDelegate Result;
		Result.BindSP(Object, Method, Vars...);
		return Result;
	}

	template <typename FunctorType, typename... VarTypes>
	void BindLambda(FunctorType&& Functor, VarTypes... Vars)
	{
		IsAlive = nullptr;
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
	template <typename... VarTypes>
	void BindStatic(RetType (*Function)(ParamTypes..., VarTypes...), std::type_identity_t<VarTypes>... Vars)
	{
		BindLambda(Function, Vars...);
	}
	template <typename UserClass, typename MethodType, typename... VarTypes>
	void BindRaw(UserClass* Object, MethodType Method, VarTypes... Vars)
	{
		BindLambda([Object, Method, Vars...](ParamTypes... Params) -> RetType
			{ return (Object->*Method)(Forward<ParamTypes>(Params)..., Vars...); });
	}
	template <typename UserClass, typename MethodType, typename... VarTypes>
	void BindUObject(UserClass* Object, MethodType Method, VarTypes... Vars)
	{
		BindRaw(Object, Method, Vars...);
	}
	template <typename UserClass, typename MethodType, typename... VarTypes>
	void BindSP(const TSharedRef<UserClass>& Object, MethodType Method, VarTypes... Vars)
	{
		BindRaw(&Object.Get(), Method, Vars...);
		IsAlive = [Weak = Object.ToWeakPtr()]() { return Weak.IsValid(); };
	}

	bool IsBound() const { return Callable.IsSet() && (!IsAlive.IsSet() || IsAlive()); }
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
	void Unbind()
	{
		Callable = nullptr;
		IsAlive = nullptr;
		Handle.Reset();
	}
	FDelegateHandle GetHandle() const { return Handle; }

private:
	TFunction<RetType(ParamTypes...)> Callable;
	TFunction<bool()> IsAlive;
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
	template <typename UserClass, typename MethodType, typename... VarTypes>
	FDelegateHandle AddRaw(UserClass* Object, MethodType Method, VarTypes... Vars)
	{
		return Add(FDelegate::CreateRaw(Object, Method, Vars...));
	}
	template <typename UserClass, typename MethodType, typename... VarTypes>
	FDelegateHandle AddUObject(UserClass* Object, MethodType Method, VarTypes... Vars)
	{
		return Add(FDelegate::CreateRaw(Object, Method, Vars...));
	}
	template <typename UserClass, typename MethodType, typename... VarTypes>
	FDelegateHandle AddSP(const TSharedRef<UserClass>& Object, MethodType Method, VarTypes... Vars)
	{
		return Add(FDelegate::CreateSP(Object, Method, Vars...));
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

#define DECLARE_DELEGATE(Name) using Name = TDelegate<void()>;
#define DECLARE_DELEGATE_OneParam(Name, A) using Name = TDelegate<void(A)>;
#define DECLARE_DELEGATE_TwoParams(Name, A, B) using Name = TDelegate<void(A, B)>;
#define DECLARE_DELEGATE_ThreeParams(Name, A, B, C) using Name = TDelegate<void(A, B, C)>;
#define DECLARE_DELEGATE_FourParams(Name, A, B, C, D) using Name = TDelegate<void(A, B, C, D)>;
#define DECLARE_DELEGATE_RetVal(R, Name) using Name = TDelegate<R()>;
#define DECLARE_DELEGATE_RetVal_OneParam(R, Name, A) using Name = TDelegate<R(A)>;
#define DECLARE_DELEGATE_RetVal_TwoParams(R, Name, A, B) using Name = TDelegate<R(A, B)>;
#define DECLARE_DELEGATE_RetVal_ThreeParams(R, Name, A, B, C) using Name = TDelegate<R(A, B, C)>;
#define DECLARE_MULTICAST_DELEGATE(Name) using Name = TMulticastDelegate<void()>;
#define DECLARE_MULTICAST_DELEGATE_OneParam(Name, A) using Name = TMulticastDelegate<void(A)>;
#define DECLARE_MULTICAST_DELEGATE_TwoParams(Name, A, B) using Name = TMulticastDelegate<void(A, B)>;
#define DECLARE_MULTICAST_DELEGATE_ThreeParams(Name, A, B, C) using Name = TMulticastDelegate<void(A, B, C)>;
#define DECLARE_MULTICAST_DELEGATE_FourParams(Name, A, B, C, D) using Name = TMulticastDelegate<void(A, B, C, D)>;
#define DECLARE_EVENT(Owner, Name) using Name = TMulticastDelegate<void()>;
#define DECLARE_EVENT_OneParam(Owner, Name, A) using Name = TMulticastDelegate<void(A)>;
#define DECLARE_EVENT_TwoParams(Owner, Name, A, B) using Name = TMulticastDelegate<void(A, B)>;
