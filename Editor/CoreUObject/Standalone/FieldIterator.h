#pragma once

#include "Standalone/Property.h"
#include "UObject/Class.h"

enum class EFieldIteratorFlags : uint8
{
	ExcludeSuper,
	IncludeSuper,
	ExcludeDeprecated,
	IncludeDeprecated,
	ExcludeInterfaces,
	IncludeInterfaces,
};
namespace EFieldIterationFlags
{
constexpr uint8 None = 0, IncludeSuper = 1, IncludeDeprecated = 2, IncludeInterfaces = 4, IncludeAll = 7,
				Default = IncludeSuper | IncludeDeprecated;
}

/**
 * Walks the fields of a struct, own ones first, then the super's: properties (TFieldIterator<FProperty>) or functions
 * (TFieldIterator<UFunction>). Interfaces are not walked, whatever the flags say.
 */
template <class T>
class TFieldIterator
{
public:
	explicit TFieldIterator(const UStruct* InStruct, EFieldIteratorFlags SuperFlags = EFieldIteratorFlags::IncludeSuper,
		EFieldIteratorFlags DeprecatedFlags = EFieldIteratorFlags::IncludeDeprecated,
		EFieldIteratorFlags InterfaceFlags = EFieldIteratorFlags::ExcludeInterfaces)
		: Struct(InStruct)
		, bIncludeSuper(SuperFlags == EFieldIteratorFlags::IncludeSuper)
		, bIncludeDeprecated(DeprecatedFlags == EFieldIteratorFlags::IncludeDeprecated)
	{
		Field = Struct ? First(Struct) : nullptr;
		Settle();
	}
	explicit operator bool() const { return Field != nullptr; }
	TFieldIterator& operator++()
	{
		Field = Field->Next;
		Settle();
		return *this;
	}
	T* operator*() const { return static_cast<T*>(Field); }
	T* operator->() const { return static_cast<T*>(Field); }
	const UStruct* GetStruct() const { return Struct; }
	bool operator!=(const TFieldIterator& Other) const { return Field != Other.Field; }

private:
	static constexpr bool bIsProperty = std::is_base_of_v<FField, T>;
	using FLink = std::conditional_t<bIsProperty, FField, UField>;

	static FLink* First(const UStruct* Of);
	static const UStruct* SuperOf(const UStruct* Of);
	bool Fits(FLink* Link) const;
	void Settle()
	{
		while (Struct)
		{
			while (Field && !Fits(Field))
			{
				Field = Field->Next;
			}
			if (Field)
			{
				return;
			}
			Struct = bIncludeSuper ? SuperOf(Struct) : nullptr;
			Field = Struct ? First(Struct) : nullptr;
		}
	}

	const UStruct* Struct;
	FLink* Field = nullptr;
	bool bIncludeSuper;
	bool bIncludeDeprecated;
};

template <class T>
typename TFieldIterator<T>::FLink* TFieldIterator<T>::First(const UStruct* Of)
{
	if constexpr (bIsProperty)
	{
		return Of->GetChildProperties();
	}
	else
	{
		return Of->GetChildren();
	}
}
template <class T>
const UStruct* TFieldIterator<T>::SuperOf(const UStruct* Of)
{
	return Of->GetSuperStruct();
}
template <class T>
bool TFieldIterator<T>::Fits(FLink* Link) const
{
	if constexpr (bIsProperty)
	{
		const bool bHidden = !bIncludeDeprecated && static_cast<FProperty*>(Link)->HasAnyPropertyFlags(CPF_Deprecated);
		return !bHidden && (std::is_same_v<T, FProperty> || Link->IsA(T::StaticClass()));
	}
	else
	{
		return UE::Object::IsObjectA(Link, T::StaticClass());
	}
}

template <class T>
T* FField::GetOwner() const
{
	return Cast<T>(GetOwnerUObject());
}
template <class T>
T* FindFProperty(const UStruct* Owner, FName Name)
{
	return CastField<T>(Owner ? Owner->FindPropertyByName(Name) : nullptr);
}
template <class T>
T* FindFProperty(const UStruct* Owner, const TCHAR* Name)
{
	return FindFProperty<T>(Owner, FName(Name));
}
