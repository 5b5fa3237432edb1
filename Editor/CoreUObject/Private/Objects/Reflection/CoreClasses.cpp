#include "Objects/ObjectTable.h"
#include "Objects/Reflection/CoreStructs.h"
#include "Objects/Reflection/NativeClassSetup.h"
#include "Standalone/ObjectProviders.h"
#include "UObject/Package.h"

namespace CoreClasses
{
static const TCHAR* const PackageName = TEXT("/Script/CoreUObject");

/**
 * The five classes that the making of any class needs. They are made by hand and in one go: a class object needs the
 * class of classes and a package, which need classes themselves.
 */
struct FFirstClasses
{
	UClass* Object;
	UClass* Field;
	UClass* Struct;
	UClass* Class;
	UClass* Package;

	FFirstClasses();
};

static const FFirstClasses& Get()
{
	static const FFirstClasses Classes;
	return Classes;
}

template <class T>
static UObject* ConstructAt(void* Memory)
{
	return ::new (Memory) T();
}

template <class T>
static T* MakeBare(UObject* Outer, const TCHAR* Name)
{
	constexpr uint32 Flags = RF_Public | RF_MarkAsNative;
	return static_cast<T*>(FObjectTable::Get().Construct(
		sizeof(T), alignof(T), &ConstructAt<T>, {nullptr, Outer, FName(Name), static_cast<EObjectFlags>(Flags)}));
}

template <class T>
static void SetUp(UClass* Class, const TCHAR* CppName, UClass* Super, uint32 Flags)
{
	NativeClass::SetUp(*Class,
		{CppName, PackageName, nullptr, static_cast<int32>(sizeof(T)), static_cast<int32>(alignof(T)), &ConstructAt<T>,
			&T::DescribeClass, Flags},
		Super);
}

FFirstClasses::FFirstClasses()
{
	UPackage* const CorePackage = MakeBare<UPackage>(nullptr, PackageName);
	CorePackage->PackageFlags = PKG_CompiledIn;
	Object = MakeBare<UClass>(CorePackage, TEXT("Object"));
	Field = MakeBare<UClass>(CorePackage, TEXT("Field"));
	Struct = MakeBare<UClass>(CorePackage, TEXT("Struct"));
	Class = MakeBare<UClass>(CorePackage, TEXT("Class"));
	Package = MakeBare<UClass>(CorePackage, TEXT("Package"));
	FObjectTable::Get().SetClass(*CorePackage, Package);
	for (UClass* const Made : {Object, Field, Struct, Class, Package})
	{
		FObjectTable::Get().SetClass(*Made, Class);
	}
	SetUp<UObject>(Object, TEXT("UObject"), nullptr, CLASS_Abstract);
	SetUp<UField>(Field, TEXT("UField"), Object, CLASS_Abstract);
	SetUp<UStruct>(Struct, TEXT("UStruct"), Field, CLASS_None);
	SetUp<UClass>(Class, TEXT("UClass"), Struct, CLASS_None);
	SetUp<UPackage>(Package, TEXT("UPackage"), Object, CLASS_None);
}
} // namespace CoreClasses

UClass* UObject::StaticClass()
{
	return CoreClasses::Get().Object;
}
UClass* UField::StaticClass()
{
	return CoreClasses::Get().Field;
}
UClass* UStruct::StaticClass()
{
	return CoreClasses::Get().Struct;
}
UClass* UClass::StaticClass()
{
	return CoreClasses::Get().Class;
}
UClass* UPackage::StaticClass()
{
	return CoreClasses::Get().Package;
}

IMPLEMENT_EDITOR_CLASS(UScriptStruct, "/Script/CoreUObject", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UUserDefinedStruct, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UFunction, "/Script/CoreUObject", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UDelegateFunction, "/Script/CoreUObject", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UEnum, "/Script/CoreUObject", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UUserDefinedEnum, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UInterface, "/Script/CoreUObject", CLASS_Abstract | CLASS_Interface)

void RegisterCoreUObjectClasses()
{
	NativeClass::RegisterNativeClasses({&UObject::StaticClass, &UField::StaticClass, &UStruct::StaticClass,
		&UClass::StaticClass, &UPackage::StaticClass, &UScriptStruct::StaticClass, &UUserDefinedStruct::StaticClass,
		&UFunction::StaticClass, &UDelegateFunction::StaticClass, &UEnum::StaticClass, &UUserDefinedEnum::StaticClass,
		&UInterface::StaticClass});
	CoreStructs::RegisterAll();
}
