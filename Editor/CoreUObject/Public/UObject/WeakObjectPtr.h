#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectPtr.h"

class UObject;

/** An observer that reads as null once its object is gone or marked as garbage: table slot and serial number. */
struct FWeakObjectPtr
{
	FWeakObjectPtr() = default;
	FWeakObjectPtr(const UObject* Object);

	UObject* Get() const;
	UObject* Get(bool bEvenIfGarbage) const;
	bool IsValid() const { return Get() != nullptr; }
	void Reset() { *this = FWeakObjectPtr(); }
	bool operator==(const FWeakObjectPtr& Other) const;

	int32 ObjectIndex = INDEX_NONE;
	int32 ObjectSerialNumber = 0;
};

inline uint32 GetTypeHash(const FWeakObjectPtr& Pointer)
{
	return static_cast<uint32>(Pointer.ObjectIndex) ^ (static_cast<uint32>(Pointer.ObjectSerialNumber) << 20);
}

template <class T = UObject>
class TWeakObjectPtr : public FWeakObjectPtr
{
public:
	using ElementType = T;

	TWeakObjectPtr() = default;
	TWeakObjectPtr(std::nullptr_t) {}
	template <class U>
	requires std::is_convertible_v<U*, const T*> TWeakObjectPtr(U* Object)
		: FWeakObjectPtr(Object)
	{
	}
	template <class U>
	requires std::is_convertible_v<U*, const T*> TWeakObjectPtr(const TObjectPtr<U>& Object)
		: FWeakObjectPtr(Object.Get())
	{
	}
	template <class U>
	requires std::is_convertible_v<U*, const T*> TWeakObjectPtr(const TWeakObjectPtr<U>& Other)
		: FWeakObjectPtr(Other)
	{
	}

	T* Get() const { return static_cast<T*>(FWeakObjectPtr::Get()); }
	T* Get(bool bEvenIfGarbage) const { return static_cast<T*>(FWeakObjectPtr::Get(bEvenIfGarbage)); }
	T* operator->() const { return Get(); }
	T& operator*() const { return *Get(); }
	explicit operator bool() const { return Get() != nullptr; }
	bool operator==(const TWeakObjectPtr& Other) const { return FWeakObjectPtr::operator==(Other); }
	bool operator==(const T* Other) const { return Get() == Other; }
	bool operator==(std::nullptr_t) const { return Get() == nullptr; }
};

template <class T>
TWeakObjectPtr(T*) -> TWeakObjectPtr<T>;
