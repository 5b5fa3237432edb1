#pragma once

#include "CoreMinimal.h"

class UObject;
class UClass;
template <class T>
class TObjectPtr;
template <class T>
class TWeakObjectPtr;

namespace UE::Object
{
/** Whether the object's class is the given one or below it; false for null. */
bool IsObjectA(const UObject* Object, const UClass* Class);
} // namespace UE::Object

/** A C++ interface class (IFoo) names its UClass through UClassType; everything else is an object class. */
template <class T>
concept CInterfaceType = requires
{
	typename T::UClassType;
};

/** The object as a To, or null when it is null or of another class. */
template <class To, class From>
requires(!CInterfaceType<To>) To* Cast(From* Object)
{
	if constexpr (CInterfaceType<std::remove_const_t<From>>)
	{
		return dynamic_cast<To*>(Object);
	}
	else
	{
		UObject* const Base = const_cast<UObject*>(static_cast<const UObject*>(Object));
		return UE::Object::IsObjectA(Base, std::remove_const_t<To>::StaticClass()) ? static_cast<To*>(Base) : nullptr;
	}
}

template <class To, class From>
requires(!CInterfaceType<To>) const To* Cast(const From* Object)
{
	return Cast<To>(const_cast<From*>(Object));
}

template <class To, class From>
requires(CInterfaceType<To>) To* Cast(From* Object)
{
	return Object ? dynamic_cast<To*>(const_cast<std::remove_const_t<From>*>(Object)) : nullptr;
}

template <class To, class From>
To* Cast(const TObjectPtr<From>& Object)
{
	return Cast<To>(Object.Get());
}

template <class To, class From>
To* Cast(const TWeakObjectPtr<From>& Object)
{
	return Cast<To>(Object.Get());
}

/** As Cast, but only for exactly the class To. */
template <class To, class From>
To* ExactCast(From* Object)
{
	return Object && Object->GetClass() == To::StaticClass() ? static_cast<To*>(Object) : nullptr;
}

/** As Cast, for an object that must be a To; anything else ends the program. */
template <class To, class From>
To* CastChecked(From* Object)
{
	To* const Result = Cast<To>(Object);
	check(Result != nullptr);
	return Result;
}

template <class To, class From>
const To* CastChecked(const From* Object)
{
	return CastChecked<To>(const_cast<From*>(Object));
}

template <class To, class From>
To* CastChecked(const TObjectPtr<From>& Object)
{
	return CastChecked<To>(Object.Get());
}
