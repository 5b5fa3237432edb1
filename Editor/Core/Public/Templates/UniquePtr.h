#pragma once

#include "Templates/UnrealTemplate.h"

#include <memory>

template <typename T, typename Deleter = std::default_delete<T>>
class TUniquePtr : public std::unique_ptr<T, Deleter>
{
	using Super = std::unique_ptr<T, Deleter>;

public:
	using Super::Super;
	using Super::operator=;
	TUniquePtr() = default;
	TUniquePtr(Super&& Other)
		: Super(static_cast<Super&&>(Other))
	{
	}

	bool IsValid() const { return Super::get() != nullptr; }
	T* Get() const { return Super::get(); }
	T* Release() { return Super::release(); }
	void Reset(T* Object = nullptr) { Super::reset(Object); }
};

template <typename T, typename... ArgTypes>
TUniquePtr<T> MakeUnique(ArgTypes&&... Args)
{
	return TUniquePtr<T>(new T(Forward<ArgTypes>(Args)...));
}
