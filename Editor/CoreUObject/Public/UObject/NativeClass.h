#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

/**
 * How C++ classes, structs and enums describe themselves to reflection. Only sources include this: each class has one
 * DescribeClass of one line per property, beside its other code.
 *
 * Registration is lazy and explicit. StaticClass() makes the class object (cheap: a name and a super); members are
 * described when first asked for. A module lists its classes in one table so that they are found by path before any C++
 * code names them (see RegisterNativeClasses).
 */
namespace NativeClass
{
struct FClassInfo
{
	/** The C++ name, prefix included. */
	const TCHAR* CppName;
	const TCHAR* PackageName;
	UClass* (*Super)();
	int32 Size;
	int32 Alignment;
	FClassConstructor Construct;
	void (*Describe)(FClassDescriber&);
	uint32 ClassFlags;
};

/** Makes the class object. The name in the engine is the C++ name without its first letter. */
UClass* Register(const FClassInfo& Info);
/** Makes the struct object; its name is the C++ name without its first letter. Super is described by itself. */
UScriptStruct* RegisterStruct(const TCHAR* CppName, const TCHAR* PackageName, const FStructOps* Ops,
	void (*Describe)(FStructDescriber&), UScriptStruct* (*Super)() = nullptr);
struct FEnumEntry
{
	const TCHAR* Name;
	int64 Value;
	const TCHAR* DisplayName = nullptr;
};
UEnum* RegisterEnum(
	const TCHAR* Name, const TCHAR* PackageName, UEnum::ECppForm Form, std::initializer_list<FEnumEntry> Entries);

using FClassGetter = UClass* (*)();
/** Makes all of a module's classes known by path. Start-up calls it once for each module, lower ones first. */
void RegisterNativeClasses(std::initializer_list<FClassGetter> Classes);
} // namespace NativeClass

/** Package is "/Script/Module" without TEXT(); Flags are EClassFlags beside CLASS_Native. */
#define IMPLEMENT_EDITOR_CLASS(TClass, Package, Flags) \
	UClass* TClass::StaticClass() \
	{ \
		static UClass* const Class = NativeClass::Register({TEXT(#TClass), TEXT(Package), &Super::StaticClass, \
			static_cast<int32>(sizeof(TClass)), static_cast<int32>(alignof(TClass)), \
			[](void* Memory) -> UObject* { return ::new (Memory) TClass(); }, &TClass::DescribeClass, Flags}); \
		return Class; \
	}

#define IMPLEMENT_EDITOR_STRUCT(TStruct, Package) \
	UScriptStruct* TStruct::StaticStruct() \
	{ \
		static UScriptStruct* const Struct = NativeClass::RegisterStruct( \
			TEXT(#TStruct), TEXT(Package), TStructOps<TStruct>::Get(), &TStruct::DescribeStruct); \
		return Struct; \
	}

/** The memory operations of a C++ struct; a struct with ExportTextItem / ImportTextItem / operator== has them used. */
template <class T>
struct TStructOps
{
	static const FStructOps* Get()
	{
		static const FStructOps Ops = Make();
		return &Ops;
	}

private:
	static FStructOps Make()
	{
		FStructOps Ops;
		Ops.Size = sizeof(T);
		Ops.Alignment = alignof(T);
		Ops.Construct = [](void* Dest) { ::new (Dest) T(); };
		Ops.Destruct = [](void* Dest) { static_cast<T*>(Dest)->~T(); };
		Ops.Copy = [](void* Dest, const void* Src) { *static_cast<T*>(Dest) = *static_cast<const T*>(Src); };
		if constexpr (requires(const T& A, const T& B) {
						  {
							  A == B
							  } -> std::convertible_to<bool>;
					  })
		{
			Ops.Identical = [](const void* A, const void* B)
			{ return *static_cast<const T*>(A) == *static_cast<const T*>(B); };
		}
		if constexpr (requires(
						  const T& A, FString& Out, UObject* Parent) { A.ExportTextItem(Out, A, Parent, 0, Parent); })
		{
			Ops.ExportText = [](FString& Out, const void* Value, const void* Default, UObject* Parent, int32 PortFlags,
								 UObject* Scope)
			{
				static const T Zero{};
				return static_cast<const T*>(Value)->ExportTextItem(
					Out, Default ? *static_cast<const T*>(Default) : Zero, Parent, PortFlags, Scope);
			};
		}
		if constexpr (requires(T & A, const TCHAR*& Buffer, UObject* Parent, FOutputDevice* Error) {
						  A.ImportTextItem(Buffer, 0, Parent, Error);
					  })
		{
			Ops.ImportText =
				[](const TCHAR*& Buffer, void* Value, int32 PortFlags, UObject* Parent, FOutputDevice* Error)
			{ return static_cast<T*>(Value)->ImportTextItem(Buffer, PortFlags, Parent, Error); };
		}
		return Ops;
	}
};

namespace NativeClass
{
template <class T>
struct TIsArray : std::false_type
{
};
template <class T>
struct TIsArray<TArray<T>> : std::true_type
{
	using Element = T;
};
template <class T>
struct TIsSet : std::false_type
{
};
template <class T>
struct TIsSet<TSet<T>> : std::true_type
{
	using Element = T;
};
template <class T>
struct TIsMap : std::false_type
{
};
template <class K, class V>
struct TIsMap<TMap<K, V>> : std::true_type
{
	using Key = K;
	using Value = V;
};
template <class T>
struct TIsObjectPtr : std::is_pointer<T>
{
	using Class = std::remove_const_t<std::remove_pointer_t<T>>;
};
template <class T>
struct TIsObjectPtr<TObjectPtr<T>> : std::true_type
{
	using Class = std::remove_const_t<T>;
};
template <class T>
struct TIsWeakPtr : std::false_type
{
};
template <class T>
struct TIsWeakPtr<TWeakObjectPtr<T>> : std::true_type
{
	using Class = T;
};
template <class T>
struct TIsSubclassOf : std::false_type
{
};
template <class T>
struct TIsSubclassOf<TSubclassOf<T>> : std::true_type
{
	using Class = T;
};
template <class T>
struct TIsSoftPtr : std::false_type
{
};
template <class T>
struct TIsSoftPtr<TSoftObjectPtr<T>> : std::true_type
{
	using Class = T;
};
template <class T>
struct TIsSoftClassPtr : std::false_type
{
};
template <class T>
struct TIsSoftClassPtr<TSoftClassPtr<T>> : std::true_type
{
	using Class = T;
};

/** TEnumAsByte: an enum of the older kind kept in one byte. */
template <class T>
concept CEnumAsByte = requires
{
	typename T::EnumType;
}
&&sizeof(T) == 1;

template <class T>
const FContainerOps* ArrayOps()
{
	static const FContainerOps Ops = []
	{
		FContainerOps Made;
		Made.Size = sizeof(TArray<T>);
		Made.Alignment = alignof(TArray<T>);
		Made.Construct = [](void* C) { ::new (C) TArray<T>(); };
		Made.Destruct = [](void* C) { static_cast<TArray<T>*>(C)->~TArray<T>(); };
		Made.Num = [](const void* C) { return static_cast<int32>(static_cast<const TArray<T>*>(C)->Num()); };
		Made.At = [](void* C, int32 I) -> void* { return &(*static_cast<TArray<T>*>(C))[I]; };
		Made.Resize = [](void* C, int32 N) { static_cast<TArray<T>*>(C)->SetNum(N); };
		Made.Empty = [](void* C) { static_cast<TArray<T>*>(C)->Empty(); };
		return Made;
	}();
	return &Ops;
}

template <class T>
const FContainerOps* SetOps()
{
	static const FContainerOps Ops = []
	{
		FContainerOps Made;
		Made.Size = sizeof(TSet<T>);
		Made.Alignment = alignof(TSet<T>);
		Made.Construct = [](void* C) { ::new (C) TSet<T>(); };
		Made.Destruct = [](void* C) { static_cast<TSet<T>*>(C)->~TSet<T>(); };
		Made.Num = [](const void* C) { return static_cast<int32>(static_cast<const TSet<T>*>(C)->Num()); };
		Made.At = [](void* C, int32 I) -> void*
		{
			auto It = static_cast<TSet<T>*>(C)->begin();
			for (; I > 0; --I)
			{
				++It;
			}
			return const_cast<T*>(&*It);
		};
		Made.ForEach = [](void* C, TFunctionRef<void(void*, void*)> Visit)
		{
			for (const T& Element : *static_cast<TSet<T>*>(C))
			{
				Visit(const_cast<T*>(&Element), nullptr);
			}
		};
		Made.Empty = [](void* C) { static_cast<TSet<T>*>(C)->Empty(); };
		Made.Add = [](void* C, const void* K, const void*)
		{ static_cast<TSet<T>*>(C)->Add(*static_cast<const T*>(K)); };
		return Made;
	}();
	return &Ops;
}

template <class K, class V>
const FContainerOps* MapOps()
{
	static const FContainerOps Ops = []
	{
		using FMap = TMap<K, V>;
		FContainerOps Made;
		Made.Size = sizeof(FMap);
		Made.Alignment = alignof(FMap);
		Made.Construct = [](void* C) { ::new (C) FMap(); };
		Made.Destruct = [](void* C) { static_cast<FMap*>(C)->~FMap(); };
		Made.Num = [](const void* C) { return static_cast<int32>(static_cast<const FMap*>(C)->Num()); };
		Made.At = [](void* C, int32 I) -> void*
		{
			auto It = static_cast<FMap*>(C)->begin();
			for (; I > 0; --I)
			{
				++It;
			}
			return const_cast<K*>(&(*It).Key);
		};
		Made.ValueAt = [](void* C, int32 I) -> void*
		{
			auto It = static_cast<FMap*>(C)->begin();
			for (; I > 0; --I)
			{
				++It;
			}
			return const_cast<V*>(&(*It).Value);
		};
		Made.ForEach = [](void* C, TFunctionRef<void(void*, void*)> Visit)
		{
			for (auto& Pair : *static_cast<FMap*>(C))
			{
				Visit(const_cast<K*>(&Pair.Key), const_cast<V*>(&Pair.Value));
			}
		};
		Made.Empty = [](void* C) { static_cast<FMap*>(C)->Empty(); };
		Made.Add = [](void* C, const void* Key, const void* Value)
		{ static_cast<FMap*>(C)->Add(*static_cast<const K*>(Key), *static_cast<const V*>(Value)); };
		return Made;
	}();
	return &Ops;
}

/** The property of a C++ type. */
template <class T>
FProperty* MakeProperty(FFieldVariant Owner, FName Name)
{
	if constexpr (std::is_same_v<T, bool>)
	{
		return new FBoolProperty(Owner, Name);
	}
	else if constexpr (std::is_enum_v<T>)
	{
		FEnumProperty* const Property = new FEnumProperty(Owner, Name);
		Property->Enum = StaticEnum<T>();
		Property->ByteSize = sizeof(T);
		return Property;
	}
	else if constexpr (CEnumAsByte<T>)
	{
		FByteProperty* const Property = new FByteProperty(Owner, Name);
		Property->Enum = StaticEnum<typename T::EnumType>();
		return Property;
	}
	else if constexpr (std::is_same_v<T, uint8>)
	{
		return new FByteProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, FScriptDelegate>)
	{
		return new FDelegateProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, FMulticastScriptDelegate>)
	{
		return new FMulticastInlineDelegateProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, FScriptInterface>)
	{
		FInterfaceProperty* const Property = new FInterfaceProperty(Owner, Name);
		Property->InterfaceClass = UInterface::StaticClass();
		return Property;
	}
	else if constexpr (std::is_same_v<T, int8>)
	{
		return new FInt8Property(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, int16>)
	{
		return new FInt16Property(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, int32>)
	{
		return new FIntProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, int64>)
	{
		return new FInt64Property(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, uint16>)
	{
		return new FUInt16Property(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, uint32>)
	{
		return new FUInt32Property(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, uint64>)
	{
		return new FUInt64Property(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, float>)
	{
		return new FFloatProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, double>)
	{
		return new FDoubleProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, FName>)
	{
		return new FNameProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, FString>)
	{
		return new FStrProperty(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, FText>)
	{
		return new FTextProperty(Owner, Name);
	}
	else if constexpr (TIsSubclassOf<T>::value)
	{
		FClassProperty* const Property = new FClassProperty(Owner, Name, CPF_UObjectWrapper);
		Property->PropertyClass = UClass::StaticClass();
		Property->MetaClass = TIsSubclassOf<T>::Class::StaticClass();
		return Property;
	}
	else if constexpr (TIsWeakPtr<T>::value)
	{
		FWeakObjectProperty* const Property = new FWeakObjectProperty(Owner, Name);
		Property->PropertyClass = TIsWeakPtr<T>::Class::StaticClass();
		return Property;
	}
	else if constexpr (TIsSoftClassPtr<T>::value)
	{
		FSoftClassProperty* const Property = new FSoftClassProperty(Owner, Name);
		Property->PropertyClass = UClass::StaticClass();
		Property->MetaClass = TIsSoftClassPtr<T>::Class::StaticClass();
		return Property;
	}
	else if constexpr (TIsSoftPtr<T>::value)
	{
		FSoftObjectProperty* const Property = new FSoftObjectProperty(Owner, Name);
		Property->PropertyClass = TIsSoftPtr<T>::Class::StaticClass();
		return Property;
	}
	else if constexpr (TIsObjectPtr<T>::value)
	{
		using FClassType = typename TIsObjectPtr<T>::Class;
		if constexpr (std::is_same_v<FClassType, UClass>)
		{
			FClassProperty* const Property = new FClassProperty(Owner, Name);
			Property->PropertyClass = UClass::StaticClass();
			Property->MetaClass = UObject::StaticClass();
			return Property;
		}
		else
		{
			FObjectProperty* const Property = new FObjectProperty(Owner, Name);
			Property->PropertyClass = FClassType::StaticClass();
			return Property;
		}
	}
	else if constexpr (TIsArray<T>::value)
	{
		using FElement = typename TIsArray<T>::Element;
		FArrayProperty* const Property = new FArrayProperty(Owner, Name);
		Property->Inner = MakeProperty<FElement>(FFieldVariant(Property), Name);
		Property->Ops = ArrayOps<FElement>();
		return Property;
	}
	else if constexpr (TIsSet<T>::value)
	{
		using FElement = typename TIsSet<T>::Element;
		FSetProperty* const Property = new FSetProperty(Owner, Name);
		Property->ElementProp = MakeProperty<FElement>(FFieldVariant(Property), Name);
		Property->Ops = SetOps<FElement>();
		return Property;
	}
	else if constexpr (TIsMap<T>::value)
	{
		FMapProperty* const Property = new FMapProperty(Owner, Name);
		Property->KeyProp = MakeProperty<typename TIsMap<T>::Key>(
			FFieldVariant(Property), FName(Name.ToString() + TEXT("_Key")));
		Property->ValueProp = MakeProperty<typename TIsMap<T>::Value>(FFieldVariant(Property), Name);
		Property->Ops = MapOps<typename TIsMap<T>::Key, typename TIsMap<T>::Value>();
		return Property;
	}
	else
	{
		FStructProperty* const Property = new FStructProperty(Owner, Name);
		Property->Struct = TBaseStructure<T>::Get();
		return Property;
	}
}

/** Offset of a member in a class that need not be standard layout; no object is touched. */
template <class TOwner, class TMember>
int32 MemberOffset(TMember TOwner::*Member)
{
	alignas(TOwner) static char Space[sizeof(TOwner)];
	const TOwner* const Owner = reinterpret_cast<const TOwner*>(Space);
	return static_cast<int32>(reinterpret_cast<const char*>(&(Owner->*Member)) - Space);
}
} // namespace NativeClass

/** What DescribeClass talks to. */
class FClassDescriber
{
public:
	explicit FClassDescriber(UClass* InClass)
		: Class(InClass)
	{
	}

	/** A persistent member. Flags: CPF_Edit for what a designer may set, CPF_Transient for what is never saved. */
	template <class TOwner, class TMember>
	FProperty& Property(const TCHAR* Name, TMember TOwner::*Member, uint64 Flags = CPF_None)
	{
		FProperty* const Made = NativeClass::MakeProperty<TMember>(FFieldVariant(Class), FName(Name));
		Made->SetPropertyFlags(Flags);
		Made->SetLocation(NativeClass::MemberOffset(Member), false);
		Class->AddProperty(Made);
		return *Made;
	}
	FClassDescriber& MetaData(const TCHAR* Key, const TCHAR* Value)
	{
		Class->SetMetaData(FName(Key), Value);
		return *this;
	}
	/** The class implements a C++ interface whose UClass is given. */
	FClassDescriber& Implements(UClass* Interface);
	UClass* GetClass() const { return Class; }

private:
	UClass* Class;
};

/** What DescribeStruct talks to. */
class FStructDescriber
{
public:
	explicit FStructDescriber(UScriptStruct* InStruct)
		: Struct(InStruct)
	{
	}

	template <class TOwner, class TMember>
	FProperty& Property(const TCHAR* Name, TMember TOwner::*Member, uint64 Flags = CPF_None)
	{
		FProperty* const Made = NativeClass::MakeProperty<TMember>(FFieldVariant(Struct), FName(Name));
		Made->SetPropertyFlags(Flags);
		Made->SetLocation(NativeClass::MemberOffset(Member), false);
		Struct->AddProperty(Made);
		return *Made;
	}
	UScriptStruct* GetStruct() const { return Struct; }

private:
	UScriptStruct* Struct;
};
