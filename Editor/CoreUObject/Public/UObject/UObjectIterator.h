#pragma once

#include "CoreMinimal.h"
#include "UObject/UObjectGlobals.h"

/** Walks the objects of a class that are in memory when it is made, in order of creation. */
template <class T>
class TObjectIterator
{
public:
	TObjectIterator() { GetObjectsOfClass(T::StaticClass(), Objects, true); }
	explicit operator bool() const { return Index < Objects.Num(); }
	TObjectIterator& operator++()
	{
		++Index;
		return *this;
	}
	T* operator*() const { return static_cast<T*>(Objects[Index]); }
	T* operator->() const { return static_cast<T*>(Objects[Index]); }

private:
	TArray<UObject*> Objects;
	int32 Index = 0;
};
