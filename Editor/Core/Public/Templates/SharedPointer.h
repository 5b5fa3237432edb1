#pragma once

#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <new>

/** Kept for its name only: counts are plain integers, as objects are handed around on one thread. */
enum class ESPMode : uint8
{
	NotThreadSafe = 0,
	ThreadSafe = 1
};

template <typename T, ESPMode Mode = ESPMode::ThreadSafe>
class TSharedPtr;
template <typename T, ESPMode Mode = ESPMode::ThreadSafe>
class TSharedRef;
template <typename T, ESPMode Mode = ESPMode::ThreadSafe>
class TWeakPtr;
template <typename T, ESPMode Mode = ESPMode::ThreadSafe>
class TSharedFromThis;

namespace SharedPointerInternals
{
/** The counts of one object. All strong holders together hold one weak count, so that the block outlives the object. */
class FReferenceController
{
public:
	FReferenceController() = default;
	FReferenceController(const FReferenceController&) = delete;
	FReferenceController& operator=(const FReferenceController&) = delete;
	virtual ~FReferenceController() = default;
	virtual void DestroyObject() = 0;

	void AddStrong() { ++NumStrong; }
	void ReleaseStrong()
	{
		if (--NumStrong == 0)
		{
			DestroyObject();
			ReleaseWeak();
		}
	}
	void AddWeak() { ++NumWeak; }
	void ReleaseWeak()
	{
		if (--NumWeak == 0)
		{
			delete this;
		}
	}
	int32 GetNumStrong() const { return NumStrong; }

private:
	int32 NumStrong = 1;
	int32 NumWeak = 1;
};

template <typename T, typename DeleterType>
class TPointerController final : public FReferenceController
{
public:
	TPointerController(T* InObject, DeleterType&& InDeleter)
		: Object(InObject)
		, Deleter(static_cast<DeleterType&&>(InDeleter))
	{
	}
	void DestroyObject() override { Deleter(Object); }

private:
	T* Object;
	DeleterType Deleter;
};

/** Object and counts in one allocation. */
template <typename T>
class TInPlaceController final : public FReferenceController
{
public:
	template <typename... ArgTypes>
	explicit TInPlaceController(ArgTypes&&... Args)
	{
		new (static_cast<void*>(Storage)) T(Forward<ArgTypes>(Args)...);
	}
	void DestroyObject() override { GetObject()->~T(); }
	T* GetObject() { return std::launder(reinterpret_cast<T*>(Storage)); }

private:
	alignas(T) unsigned char Storage[sizeof(T)];
};

template <typename T>
struct TDefaultDeleter
{
	void operator()(T* Object) const { delete Object; }
};

/** What MakeShareable returns: an object that waits for the pointer that will own it. */
template <typename T>
struct TRawPtrProxy
{
	T* Object;
	FReferenceController* Controller;
};

template <typename T, typename OwnerType, ESPMode Mode>
void EnableSharedFromThis(FReferenceController* Controller, T* Object, const TSharedFromThis<OwnerType, Mode>* Base)
{
	Base->UpdateWeakReference(Controller, const_cast<std::remove_const_t<T>*>(Object));
}
inline void EnableSharedFromThis(...) {}
}

/** Shared ownership; may be null. */
template <typename T, ESPMode Mode>
class TSharedPtr
{
public:
	using ElementType = T;

	TSharedPtr() = default;
	TSharedPtr(std::nullptr_t) {}
	template <typename U>
	requires std::is_convertible_v<U*, T*>
	explicit TSharedPtr(U* InObject)
	{
		if (InObject)
		{
			Adopt(InObject,
				new SharedPointerInternals::TPointerController<U, SharedPointerInternals::TDefaultDeleter<U>>(
					InObject, {}));
		}
	}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TSharedPtr(SharedPointerInternals::TRawPtrProxy<U> Proxy)
	{
		if (Proxy.Object)
		{
			Adopt(Proxy.Object, Proxy.Controller);
		}
	}
	TSharedPtr(const TSharedPtr& Other)
		: TSharedPtr(Other.Object, Other.Controller)
	{
	}
	TSharedPtr(TSharedPtr&& Other) noexcept
		: Object(Exchange(Other.Object, nullptr))
		, Controller(Exchange(Other.Controller, nullptr))
	{
	}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TSharedPtr(const TSharedPtr<U, Mode>& Other)
		: TSharedPtr(Other.Object, Other.Controller)
	{
	}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TSharedPtr(TSharedPtr<U, Mode>&& Other)
		: Object(Exchange(Other.Object, nullptr))
		, Controller(Exchange(Other.Controller, nullptr))
	{
	}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TSharedPtr(const TSharedRef<U, Mode>& Other)
		: TSharedPtr(Other.Pointer)
	{
	}
	/** Shares the ownership of Other and points to a part of it. */
	template <typename U>
	TSharedPtr(const TSharedPtr<U, Mode>& Other, T* InObject)
		: TSharedPtr(InObject, Other.Controller)
	{
	}
	~TSharedPtr()
	{
		if (Controller)
		{
			Controller->ReleaseStrong();
		}
	}
	TSharedPtr& operator=(const TSharedPtr& Other)
	{
		TSharedPtr Copy(Other);
		SwapWith(Copy);
		return *this;
	}
	TSharedPtr& operator=(TSharedPtr&& Other) noexcept
	{
		TSharedPtr Taken(static_cast<TSharedPtr&&>(Other));
		SwapWith(Taken);
		return *this;
	}
	TSharedPtr& operator=(std::nullptr_t)
	{
		Reset();
		return *this;
	}

	T* Get() const { return Object; }
	bool IsValid() const { return Object != nullptr; }
	explicit operator bool() const { return Object != nullptr; }
	std::add_lvalue_reference_t<T> operator*() const
	{
		checkSlow(Object != nullptr);
		return *Object;
	}
	T* operator->() const
	{
		checkSlow(Object != nullptr);
		return Object;
	}
	void Reset() { TSharedPtr Old(static_cast<TSharedPtr&&>(*this)); }
	int32 GetSharedReferenceCount() const { return Controller ? Controller->GetNumStrong() : 0; }
	bool IsUnique() const { return GetSharedReferenceCount() == 1; }
	TSharedRef<T, Mode> ToSharedRef() const;
	TWeakPtr<T, Mode> ToWeakPtr() const { return TWeakPtr<T, Mode>(*this); }

	friend bool operator==(const TSharedPtr& Left, std::nullptr_t) { return !Left.Object; }
	template <typename U>
	bool operator==(const TSharedPtr<U, Mode>& Right) const
	{
		return Object == Right.Get();
	}
	template <typename U>
	bool operator==(const TSharedRef<U, Mode>& Right) const
	{
		return Object == &Right.Get();
	}
	friend uint32 GetTypeHash(const TSharedPtr& Pointer) { return PointerHash(Pointer.Object); }

private:
	template <typename U, ESPMode M>
	friend class TSharedPtr;
	template <typename U, ESPMode M>
	friend class TSharedRef;
	template <typename U, ESPMode M>
	friend class TWeakPtr;
	template <typename U, ESPMode M>
	friend class TSharedFromThis;

	TSharedPtr(T* InObject, SharedPointerInternals::FReferenceController* InController)
		: Object(InObject)
		, Controller(InController)
	{
		if (Controller)
		{
			Controller->AddStrong();
		}
	}
	template <typename U>
	void Adopt(U* InObject, SharedPointerInternals::FReferenceController* InController)
	{
		Object = InObject;
		Controller = InController;
		SharedPointerInternals::EnableSharedFromThis(InController, InObject, InObject);
	}
	void SwapWith(TSharedPtr& Other) noexcept
	{
		::Swap(Object, Other.Object);
		::Swap(Controller, Other.Controller);
	}

	T* Object = nullptr;
	SharedPointerInternals::FReferenceController* Controller = nullptr;
};

/** Shared ownership; never null, except after being moved from. */
template <typename T, ESPMode Mode>
class TSharedRef
{
public:
	using ElementType = T;

	template <typename U>
	requires std::is_convertible_v<U*, T*>
	explicit TSharedRef(U* Object)
		: Pointer(Object)
	{
		check(Pointer.IsValid());
	}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TSharedRef(SharedPointerInternals::TRawPtrProxy<U> Proxy)
		: Pointer(Proxy)
	{
		check(Pointer.IsValid());
	}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TSharedRef(const TSharedRef<U, Mode>& Other)
		: Pointer(Other.Pointer)
	{
	}

	T& Get() const { return *Pointer; }
	T& operator*() const { return *Pointer; }
	T* operator->() const { return Pointer.Get(); }
	TSharedPtr<T, Mode> ToSharedPtr() const { return Pointer; }
	TWeakPtr<T, Mode> ToWeakPtr() const { return Pointer.ToWeakPtr(); }
	int32 GetSharedReferenceCount() const { return Pointer.GetSharedReferenceCount(); }
	bool IsUnique() const { return Pointer.IsUnique(); }

	template <typename U>
	bool operator==(const TSharedRef<U, Mode>& Right) const
	{
		return &Get() == &Right.Get();
	}
	friend uint32 GetTypeHash(const TSharedRef& Reference) { return GetTypeHash(Reference.Pointer); }

private:
	template <typename U, ESPMode M>
	friend class TSharedPtr;
	template <typename U, ESPMode M>
	friend class TSharedRef;

	explicit TSharedRef(const TSharedPtr<T, Mode>& InPointer)
		: Pointer(InPointer)
	{
		check(Pointer.IsValid());
	}

	TSharedPtr<T, Mode> Pointer;
};

template <typename T, ESPMode Mode>
TSharedRef<T, Mode> TSharedPtr<T, Mode>::ToSharedRef() const
{
	return TSharedRef<T, Mode>(*this);
}

/** Sees a shared object without keeping it. */
template <typename T, ESPMode Mode>
class TWeakPtr
{
public:
	TWeakPtr() = default;
	TWeakPtr(std::nullptr_t) {}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TWeakPtr(const TSharedPtr<U, Mode>& Shared)
		: TWeakPtr(Shared.Object, Shared.Controller)
	{
	}
	template <typename U>
	requires std::is_convertible_v<U*, T*> TWeakPtr(const TSharedRef<U, Mode>& Shared)
		: TWeakPtr(Shared.ToSharedPtr())
	{
	}
	TWeakPtr(const TWeakPtr& Other)
		: TWeakPtr(Other.Object, Other.Controller)
	{
	}
	TWeakPtr(TWeakPtr&& Other) noexcept
		: Object(Exchange(Other.Object, nullptr))
		, Controller(Exchange(Other.Controller, nullptr))
	{
	}
	~TWeakPtr() { Reset(); }
	TWeakPtr& operator=(TWeakPtr Other) noexcept
	{
		::Swap(Object, Other.Object);
		::Swap(Controller, Other.Controller);
		return *this;
	}

	bool IsValid() const { return Controller && Controller->GetNumStrong() > 0; }
	TSharedPtr<T, Mode> Pin() const
	{
		return IsValid() ? TSharedPtr<T, Mode>(Object, Controller) : TSharedPtr<T, Mode>();
	}
	void Reset()
	{
		if (Controller)
		{
			Exchange(Controller, nullptr)->ReleaseWeak();
		}
		Object = nullptr;
	}
	friend bool operator==(const TWeakPtr& Left, const TWeakPtr& Right) { return Left.Pin() == Right.Pin(); }
	friend uint32 GetTypeHash(const TWeakPtr& Pointer) { return PointerHash(Pointer.Object); }

private:
	template <typename U, ESPMode M>
	friend class TSharedFromThis;

	TWeakPtr(T* InObject, SharedPointerInternals::FReferenceController* InController)
		: Object(InObject)
		, Controller(InController)
	{
		if (Controller)
		{
			Controller->AddWeak();
		}
	}

	T* Object = nullptr;
	SharedPointerInternals::FReferenceController* Controller = nullptr;
};

/** Lets an object that is owned by shared pointers hand out more of them. */
template <typename T, ESPMode Mode>
class TSharedFromThis
{
public:
	/** check fails unless a shared pointer owns this. */
	TSharedRef<T, Mode> AsShared() { return Weak.Pin().ToSharedRef(); }
	TSharedRef<const T, Mode> AsShared() const { return Weak.Pin().ToSharedRef(); }

	/** Called by the first owner. */
	template <typename U>
	void UpdateWeakReference(SharedPointerInternals::FReferenceController* Controller, U* Object) const
	{
		if (!Weak.IsValid())
		{
			Weak = TWeakPtr<T, Mode>(Object, Controller);
		}
	}

protected:
	TSharedFromThis() = default;
	TSharedFromThis(const TSharedFromThis&) {}
	TSharedFromThis& operator=(const TSharedFromThis&) { return *this; }
	~TSharedFromThis() = default;

private:
	mutable TWeakPtr<T, Mode> Weak;
};

template <typename T, ESPMode Mode = ESPMode::ThreadSafe, typename... ArgTypes>
TSharedRef<T, Mode> MakeShared(ArgTypes&&... Args)
{
	auto* const Controller = new SharedPointerInternals::TInPlaceController<T>(Forward<ArgTypes>(Args)...);
	return SharedPointerInternals::TRawPtrProxy<T>{Controller->GetObject(), Controller};
}

/** For `TSharedPtr<Base> Pointer = MakeShareable(new Derived)`. */
template <typename T>
SharedPointerInternals::TRawPtrProxy<T> MakeShareable(T* Object)
{
	using namespace SharedPointerInternals;
	return {Object, Object ? new TPointerController<T, TDefaultDeleter<T>>(Object, {}) : nullptr};
}
template <typename T, typename DeleterType>
SharedPointerInternals::TRawPtrProxy<T> MakeShareable(T* Object, DeleterType&& Deleter)
{
	using namespace SharedPointerInternals;
	using FDeleter = std::decay_t<DeleterType>;
	return {Object,
		Object ? new TPointerController<T, FDeleter>(Object, FDeleter(Forward<DeleterType>(Deleter))) : nullptr};
}

template <typename To, typename From, ESPMode Mode>
TSharedPtr<To, Mode> StaticCastSharedPtr(const TSharedPtr<From, Mode>& Pointer)
{
	return TSharedPtr<To, Mode>(Pointer, static_cast<To*>(Pointer.Get()));
}
