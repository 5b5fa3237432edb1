#pragma once

#include "Templates/UnrealTemplate.h"

#include <functional>

template <typename FuncType>
class TFunction;

/** An owned callable; may be empty. */
template <typename Ret, typename... ParamTypes>
class TFunction<Ret(ParamTypes...)>
{
public:
	TFunction() = default;
	TFunction(std::nullptr_t) {}
	template <typename FunctorType>
	requires(!std::is_same_v<std::decay_t<FunctorType>,
				 TFunction> && std::is_invocable_r_v<Ret, std::decay_t<FunctorType>&, ParamTypes...>)
		TFunction(FunctorType&& Functor)
		: Callable(Forward<FunctorType>(Functor))
	{
	}

	Ret operator()(ParamTypes... Params) const
	{
		checkf(Callable, TEXT("An empty TFunction was called"));
		return Callable(Forward<ParamTypes>(Params)...);
	}
	explicit operator bool() const { return static_cast<bool>(Callable); }
	bool IsSet() const { return static_cast<bool>(Callable); }
	void Reset() { Callable = nullptr; }
	friend bool operator==(const TFunction& Function, std::nullptr_t) { return !Function.IsSet(); }

private:
	std::function<Ret(ParamTypes...)> Callable;
};

/** A move-only callable of the engine; here it has the storage of TFunction and so asks for a copyable one. */
template <typename FuncType>
using TUniqueFunction = TFunction<FuncType>;

template <typename FuncType>
class TFunctionRef;

/** A borrowed callable, never empty; must not outlive what it was made of. For parameters only. */
template <typename Ret, typename... ParamTypes>
class TFunctionRef<Ret(ParamTypes...)>
{
public:
	template <typename FunctorType>
	requires(!std::is_same_v<std::decay_t<FunctorType>,
				 TFunctionRef> && std::is_invocable_r_v<Ret, FunctorType&, ParamTypes...>)
		TFunctionRef(FunctorType&& Functor)
	{
		using FTarget = std::remove_reference_t<FunctorType>;
		if constexpr (std::is_function_v<FTarget>)
		{
			Target = reinterpret_cast<void*>(&Functor);
			Thunk = [](void* Erased, ParamTypes... Params) -> Ret
			{ return (*reinterpret_cast<FTarget*>(Erased))(Forward<ParamTypes>(Params)...); };
		}
		else
		{
			Target = const_cast<void*>(static_cast<const void*>(&Functor));
			Thunk = [](void* Erased, ParamTypes... Params) -> Ret
			{ return (*static_cast<FTarget*>(Erased))(Forward<ParamTypes>(Params)...); };
		}
	}

	Ret operator()(ParamTypes... Params) const { return Thunk(Target, Forward<ParamTypes>(Params)...); }

private:
	void* Target = nullptr;
	Ret (*Thunk)(void*, ParamTypes...) = nullptr;
};
