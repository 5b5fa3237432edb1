#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObject;
class UStruct;
class FField;

/** Metadata of a field: key to text, in order of setting; keys ignore case. Shared by FField, UField and entries. */
class FMetaDataTable
{
public:
	bool Has(FName Key) const { return Values.Contains(Key); }
	const FString* Find(FName Key) const { return Values.Find(Key); }
	void Set(FName Key, const FString& Value) { Values.Add(Key, Value); }
	void Remove(FName Key) { Values.Remove(Key); }
	bool IsEmpty() const { return Values.IsEmpty(); }

private:
	TMap<FName, FString> Values;
};

/** The kind of a field, the thing that CastField tests. One object per C++ field class. */
class FFieldClass
{
public:
	FFieldClass(const TCHAR* InName, const FFieldClass* InSuper)
		: Name(InName)
		, Super(InSuper)
	{
	}
	bool IsChildOf(const FFieldClass* Other) const
	{
		for (const FFieldClass* Class = this; Class; Class = Class->Super)
		{
			if (Class == Other)
			{
				return true;
			}
		}
		return false;
	}
	FString GetName() const { return Name; }
	FName GetFName() const { return FName(Name); }
	const FFieldClass* GetSuperClass() const { return Super; }

private:
	const TCHAR* Name;
	const FFieldClass* Super;
};

#define FIELD_CLASS(TField, TSuper) \
public: \
	using Super = TSuper; \
	static const FFieldClass* StaticClass() \
	{ \
		static const FFieldClass Class(&TEXT(#TField)[1], TSuper::StaticClass()); \
		return &Class; \
	} \
	const FFieldClass* GetClass() const override \
	{ \
		return StaticClass(); \
	}

/** What owns a field: a struct (an object) or another field (the element of an array). */
class FFieldVariant
{
public:
	FFieldVariant() = default;
	FFieldVariant(std::nullptr_t) {}
	FFieldVariant(const FField* InField)
		: Field(const_cast<FField*>(InField))
	{
	}
	FFieldVariant(const UObject* InObject)
		: Object(const_cast<UObject*>(InObject))
	{
	}
	FField* ToField() const { return Field; }
	UObject* ToUObject() const { return Object; }
	bool IsValid() const { return Field || Object; }

private:
	FField* Field = nullptr;
	UObject* Object = nullptr;
};

/** A property or another description that is no object. Owned by its struct. */
class FField
{
public:
	static const FFieldClass* StaticClass()
	{
		static const FFieldClass Class(TEXT("Field"), nullptr);
		return &Class;
	}
	virtual const FFieldClass* GetClass() const { return StaticClass(); }
	virtual ~FField();

	FField(FFieldVariant InOwner, FName InName)
		: Owner(InOwner)
		, NamePrivate(InName)
	{
	}
	FField(const FField&) = delete;
	FField& operator=(const FField&) = delete;

	FName GetFName() const { return NamePrivate; }
	FString GetName() const { return NamePrivate.ToString(); }
	FString GetPathName() const;
	bool IsA(const FFieldClass* Class) const { return GetClass()->IsChildOf(Class); }
	template <class T>
	bool IsA() const
	{
		return IsA(T::StaticClass());
	}

	/** The struct, function or class at the top of the owners. */
	UStruct* GetOwnerStruct() const;
	UClass* GetOwnerClass() const;
	UObject* GetOwnerUObject() const;
	template <class T>
	T* GetOwner() const;
	const FFieldVariant& GetOwnerVariant() const { return Owner; }

	bool HasMetaData(FName Key) const { return MetaData.Has(Key); }
	const FString& GetMetaData(FName Key) const;
	const FString* FindMetaData(FName Key) const { return MetaData.Find(Key); }
	bool GetBoolMetaData(FName Key) const { return GetMetaData(Key).ToBool(); }
	void SetMetaData(FName Key, const FString& Value) { MetaData.Set(Key, Value); }
	void RemoveMetaData(FName Key) { MetaData.Remove(Key); }
	const FMetaDataTable& GetMetaDataTable() const { return MetaData; }
	/** The DisplayName metadata, else the name made readable ("bIsOpen" gives "Is Open"). */
	FText GetDisplayNameText() const;
	FText GetToolTipText(bool bShortTooltip = false) const;

	FField* Next = nullptr;

protected:
	FFieldVariant Owner;
	FName NamePrivate;
	FMetaDataTable MetaData;
};

template <class T>
T* CastField(FField* Field)
{
	return Field && Field->IsA(T::StaticClass()) ? static_cast<T*>(Field) : nullptr;
}
template <class T>
const T* CastField(const FField* Field)
{
	return Field && Field->IsA(T::StaticClass()) ? static_cast<const T*>(Field) : nullptr;
}
