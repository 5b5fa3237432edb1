#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <tuple>
#include <type_traits>

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

/** The memory operations of a C++ struct; a struct with ExportTextItem / ImportTextItem /
 * PostImportText / operator== has them used. */
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
		if constexpr (requires(T & A) { A.PostImportText(); })
		{
			Ops.PostImportText = [](void* Value) { static_cast<T*>(Value)->PostImportText(); };
		}
		return Ops;
	}
};

namespace NativeClass
{
/** Whether T is an instance of a class template, and with which first arguments. */
template <class T, template <class...> class TTemplate>
struct TInstanceOf : std::false_type
{
};
template <template <class...> class TTemplate, class... TArguments>
struct TInstanceOf<TTemplate<TArguments...>, TTemplate> : std::true_type
{
	template <std::size_t Index>
	using TArgument = std::remove_const_t<std::tuple_element_t<Index, std::tuple<TArguments...>>>;
};

/** What a raw pointer or a TObjectPtr points to. */
template <class T>
struct TPointee
{
	using Type = std::remove_const_t<std::remove_pointer_t<T>>;
};
template <class T>
struct TPointee<TObjectPtr<T>>
{
	using Type = std::remove_const_t<T>;
};

/** TEnumAsByte: an enum of the older kind kept in one byte. */
template <class T>
concept CEnumAsByte = requires
{
	typename T::EnumType;
}
&&sizeof(T) == 1;

/** Counts from the start, as sets and maps are not indexed. */
template <class TContainer>
auto& NthElement(void* Container, int32 Index)
{
	auto It = static_cast<TContainer*>(Container)->begin();
	for (; Index > 0; --Index)
	{
		++It;
	}
	return *It;
}

/** What every container does alike. */
template <class TContainer>
FContainerOps ContainerOps()
{
	FContainerOps Made;
	Made.Size = sizeof(TContainer);
	Made.Alignment = alignof(TContainer);
	Made.Construct = [](void* Memory) { ::new (Memory) TContainer(); };
	Made.Destruct = [](void* Memory) { static_cast<TContainer*>(Memory)->~TContainer(); };
	Made.Num = [](const void* Memory) { return static_cast<int32>(static_cast<const TContainer*>(Memory)->Num()); };
	Made.Empty = [](void* Memory) { static_cast<TContainer*>(Memory)->Empty(); };
	return Made;
}

template <class T>
const FContainerOps* ArrayOps()
{
	static const FContainerOps Ops = []
	{
		using FArray = TArray<T>;
		FContainerOps Made = ContainerOps<FArray>();
		Made.At = [](void* Memory, int32 Index) -> void* { return &(*static_cast<FArray*>(Memory))[Index]; };
		Made.Resize = [](void* Memory, int32 Num) { static_cast<FArray*>(Memory)->SetNum(Num); };
		return Made;
	}();
	return &Ops;
}

template <class T>
const FContainerOps* SetOps()
{
	static const FContainerOps Ops = []
	{
		using FSet = TSet<T>;
		FContainerOps Made = ContainerOps<FSet>();
		Made.At = [](void* Memory, int32 Index) -> void* { return const_cast<T*>(&NthElement<FSet>(Memory, Index)); };
		Made.ForEach = [](void* Memory, TFunctionRef<void(void*, void*)> Visit)
		{
			for (const T& Element : *static_cast<FSet*>(Memory))
			{
				Visit(const_cast<T*>(&Element), nullptr);
			}
		};
		Made.Add = [](void* Memory, const void* Element, const void*)
		{ static_cast<FSet*>(Memory)->Add(*static_cast<const T*>(Element)); };
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
		FContainerOps Made = ContainerOps<FMap>();
		Made.At = [](void* Memory, int32 Index) -> void*
		{ return const_cast<K*>(&NthElement<FMap>(Memory, Index).Key); };
		Made.ValueAt = [](void* Memory, int32 Index) -> void*
		{ return const_cast<V*>(&NthElement<FMap>(Memory, Index).Value); };
		Made.ForEach = [](void* Memory, TFunctionRef<void(void*, void*)> Visit)
		{
			for (auto& Pair : *static_cast<FMap*>(Memory))
			{
				Visit(const_cast<K*>(&Pair.Key), const_cast<V*>(&Pair.Value));
			}
		};
		Made.Add = [](void* Memory, const void* Key, const void* Value)
		{ static_cast<FMap*>(Memory)->Add(*static_cast<const K*>(Key), *static_cast<const V*>(Value)); };
		return Made;
	}();
	return &Ops;
}

/** The property of a C++ type that needs to know nothing more; void for all other types. */
template <class T>
struct TPlainProperty
{
	using Type = void;
};
#define PLAIN_PROPERTY(TCpp, TProperty) \
	template <> \
	struct TPlainProperty<TCpp> \
	{ \
		using Type = TProperty; \
	};
PLAIN_PROPERTY(bool, FBoolProperty)
PLAIN_PROPERTY(uint8, FByteProperty)
PLAIN_PROPERTY(int8, FInt8Property)
PLAIN_PROPERTY(int16, FInt16Property)
PLAIN_PROPERTY(int32, FIntProperty)
PLAIN_PROPERTY(int64, FInt64Property)
PLAIN_PROPERTY(uint16, FUInt16Property)
PLAIN_PROPERTY(uint32, FUInt32Property)
PLAIN_PROPERTY(uint64, FUInt64Property)
PLAIN_PROPERTY(float, FFloatProperty)
PLAIN_PROPERTY(double, FDoubleProperty)
PLAIN_PROPERTY(FName, FNameProperty)
PLAIN_PROPERTY(FString, FStrProperty)
PLAIN_PROPERTY(FText, FTextProperty)
PLAIN_PROPERTY(FScriptDelegate, FDelegateProperty)
PLAIN_PROPERTY(FMulticastScriptDelegate, FMulticastInlineDelegateProperty)
#undef PLAIN_PROPERTY

template <class TProperty>
TProperty* MakeReference(FFieldVariant Owner, FName Name, UClass* Class)
{
	TProperty* const Property = new TProperty(Owner, Name);
	Property->PropertyClass = Class;
	return Property;
}

template <class TProperty>
TProperty* MakeClassReference(FFieldVariant Owner, FName Name, UClass* MetaClass)
{
	TProperty* const Property = MakeReference<TProperty>(Owner, Name, UClass::StaticClass());
	Property->MetaClass = MetaClass;
	return Property;
}

template <class T>
FProperty* MakeProperty(FFieldVariant Owner, FName Name);

template <class T>
FProperty* MakeEnumProperty(FFieldVariant Owner, FName Name)
{
	if constexpr (CEnumAsByte<T>)
	{
		FByteProperty* const Property = new FByteProperty(Owner, Name);
		Property->Enum = StaticEnum<typename T::EnumType>();
		return Property;
	}
	else
	{
		FEnumProperty* const Property = new FEnumProperty(Owner, Name);
		Property->Enum = StaticEnum<T>();
		Property->ByteSize = sizeof(T);
		return Property;
	}
}

/** The property of a pointer, hard, weak or soft, to an object or to a class. */
template <class T>
FProperty* MakePointerProperty(FFieldVariant Owner, FName Name)
{
	if constexpr (TInstanceOf<T, TSubclassOf>::value)
	{
		using FClassType = typename TInstanceOf<T, TSubclassOf>::template TArgument<0>;
		FClassProperty* const Property = MakeClassReference<FClassProperty>(Owner, Name, FClassType::StaticClass());
		Property->SetPropertyFlags(CPF_UObjectWrapper);
		return Property;
	}
	else if constexpr (TInstanceOf<T, TWeakObjectPtr>::value)
	{
		using FClassType = typename TInstanceOf<T, TWeakObjectPtr>::template TArgument<0>;
		return MakeReference<FWeakObjectProperty>(Owner, Name, FClassType::StaticClass());
	}
	else if constexpr (TInstanceOf<T, TSoftClassPtr>::value)
	{
		using FClassType = typename TInstanceOf<T, TSoftClassPtr>::template TArgument<0>;
		return MakeClassReference<FSoftClassProperty>(Owner, Name, FClassType::StaticClass());
	}
	else if constexpr (TInstanceOf<T, TSoftObjectPtr>::value)
	{
		using FClassType = typename TInstanceOf<T, TSoftObjectPtr>::template TArgument<0>;
		return MakeReference<FSoftObjectProperty>(Owner, Name, FClassType::StaticClass());
	}
	else if constexpr (std::is_same_v<typename TPointee<T>::Type, UClass>)
	{
		return MakeClassReference<FClassProperty>(Owner, Name, UObject::StaticClass());
	}
	else
	{
		return MakeReference<FObjectProperty>(Owner, Name, TPointee<T>::Type::StaticClass());
	}
}

template <class T>
concept CObjectPointer =
	std::is_pointer_v<T> || TInstanceOf<T, TObjectPtr>::value || TInstanceOf<T, TSubclassOf>::value || TInstanceOf<T,
		TWeakObjectPtr>::value || TInstanceOf<T, TSoftClassPtr>::value || TInstanceOf<T, TSoftObjectPtr>::value;

template <class T>
FProperty* MakeArrayProperty(FFieldVariant Owner, FName Name)
{
	using FElement = typename TInstanceOf<T, TArray>::template TArgument<0>;
	FArrayProperty* const Property = new FArrayProperty(Owner, Name);
	Property->Inner = MakeProperty<FElement>(FFieldVariant(Property), Name);
	Property->Ops = ArrayOps<FElement>();
	return Property;
}

template <class T>
FProperty* MakeSetProperty(FFieldVariant Owner, FName Name)
{
	using FElement = typename TInstanceOf<T, TSet>::template TArgument<0>;
	FSetProperty* const Property = new FSetProperty(Owner, Name);
	Property->ElementProp = MakeProperty<FElement>(FFieldVariant(Property), Name);
	Property->Ops = SetOps<FElement>();
	return Property;
}

template <class T>
FProperty* MakeMapProperty(FFieldVariant Owner, FName Name)
{
	using FKey = typename TInstanceOf<T, TMap>::template TArgument<0>;
	using FValue = typename TInstanceOf<T, TMap>::template TArgument<1>;
	FMapProperty* const Property = new FMapProperty(Owner, Name);
	Property->KeyProp = MakeProperty<FKey>(FFieldVariant(Property), FName(Name.ToString() + TEXT("_Key")));
	Property->ValueProp = MakeProperty<FValue>(FFieldVariant(Property), Name);
	Property->Ops = MapOps<FKey, FValue>();
	return Property;
}

/** The property of a C++ type. */
template <class T>
FProperty* MakeProperty(FFieldVariant Owner, FName Name)
{
	if constexpr (!std::is_void_v<typename TPlainProperty<T>::Type>)
	{
		return new typename TPlainProperty<T>::Type(Owner, Name);
	}
	else if constexpr (std::is_enum_v<T> || CEnumAsByte<T>)
	{
		return MakeEnumProperty<T>(Owner, Name);
	}
	else if constexpr (CObjectPointer<T>)
	{
		return MakePointerProperty<T>(Owner, Name);
	}
	else if constexpr (TInstanceOf<T, TArray>::value)
	{
		return MakeArrayProperty<T>(Owner, Name);
	}
	else if constexpr (TInstanceOf<T, TSet>::value)
	{
		return MakeSetProperty<T>(Owner, Name);
	}
	else if constexpr (TInstanceOf<T, TMap>::value)
	{
		return MakeMapProperty<T>(Owner, Name);
	}
	else if constexpr (std::is_same_v<T, FScriptInterface>)
	{
		FInterfaceProperty* const Property = new FInterfaceProperty(Owner, Name);
		Property->InterfaceClass = UInterface::StaticClass();
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

template <class TOwner, class TMember>
FProperty& AddMember(UStruct& Struct, const TCHAR* Name, TMember TOwner::*Member, uint64 Flags)
{
	FProperty* const Made = MakeProperty<TMember>(FFieldVariant(&Struct), FName(Name));
	Made->SetPropertyFlags(Flags);
	Made->SetLocation(MemberOffset(Member), false);
	Struct.AddProperty(Made);
	return *Made;
}

/** The flag whose bit Raise sets in the object at Memory. */
FProperty& AddBitField(
	UStruct& Struct, const TCHAR* Name, const void* Memory, std::size_t Size, TFunctionRef<void()> Raise);
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
		return NativeClass::AddMember(*Class, Name, Member, Flags);
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
		return NativeClass::AddMember(*Struct, Name, Member, Flags);
	}
	/** A flag of one bit, which no pointer reaches: Raise sets it in an object that has it cleared. */
	template <class TOwner>
	FProperty& BitField(const TCHAR* Name, void (*Raise)(TOwner&))
	{
		TOwner Cleared;
		return NativeClass::AddBitField(*Struct, Name, &Cleared, sizeof(TOwner), [&] { Raise(Cleared); });
	}
	UScriptStruct* GetStruct() const { return Struct; }

private:
	UScriptStruct* Struct;
};
