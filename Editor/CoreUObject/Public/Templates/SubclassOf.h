#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

/** A class that is T or below it; anything else reads as null. */
template <class T>
class TSubclassOf
{
public:
	TSubclassOf() = default;
	TSubclassOf(UClass* InClass)
		: Class(InClass)
	{
	}
	TSubclassOf(std::nullptr_t) {}
	UClass* Get() const { return Class && Class->IsChildOf(T::StaticClass()) ? Class : nullptr; }
	operator UClass*() const { return Get(); }
	UClass* operator*() const { return Get(); }
	UClass* operator->() const { return Get(); }
	bool operator==(const TSubclassOf& Other) const { return Class == Other.Class; }

private:
	UClass* Class = nullptr;
};
