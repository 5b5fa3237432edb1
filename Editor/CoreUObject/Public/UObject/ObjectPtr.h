#pragma once

#include "CoreMinimal.h"

/** A member's pointer to an object. Layout and behaviour of a raw pointer. */
template <class T>
class TObjectPtr
{
public:
	using ElementType = T;

	TObjectPtr() = default;
	TObjectPtr(std::nullptr_t) {}
	TObjectPtr(T* InObject)
		: Object(InObject)
	{
	}
	template <class U>
	requires std::is_convertible_v<U*, T*> TObjectPtr(const TObjectPtr<U>& Other)
		: Object(Other.Get())
	{
	}

	T* Get() const { return Object; }
	operator T*() const { return Object; }
	T* operator->() const { return Object; }
	T& operator*() const { return *Object; }

private:
	T* Object = nullptr;
};

template <class T>
uint32 GetTypeHash(const TObjectPtr<T>& Pointer)
{
	return GetTypeHash(static_cast<const void*>(Pointer.Get()));
}
