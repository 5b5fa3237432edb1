#include "Standalone/NativeClass.h"

#include "Objects/ObjectTable.h"
#include "Objects/Reflection/NativeClassSetup.h"
#include "UObject/Package.h"

namespace NativeClass
{
/** What native classes take over from their parent. */
constexpr uint32 InheritedFlags = CLASS_Transient | CLASS_NotPlaceable | CLASS_Const | CLASS_DefaultToInstanced
	| CLASS_EditInlineNew | CLASS_Deprecated;

static FName NameWithoutPrefix(const TCHAR* CppName)
{
	return FName(CppName + 1);
}

void SetUp(UClass& Class, const FClassInfo& Info, UClass* Super)
{
	const uint32 FromSuper = Super ? Super->ClassFlags & InheritedFlags : CLASS_None;
	Class.ClassFlags = static_cast<EClassFlags>(Info.ClassFlags | FromSuper | CLASS_Native);
	Class.NativeConstructor = Info.Construct;
	Class.NativeSize = Info.Size;
	Class.NativeAlignment = Info.Alignment;
	Class.NativeDescribe = Info.Describe;
	Class.SetNativePending();
	Class.SetSuperStruct(Super);
}

UClass* Register(const FClassInfo& Info)
{
	UClass* const Super = Info.Super();
	UClass* const Class = NewObject<UClass>(CreatePackage(Info.PackageName), NameWithoutPrefix(Info.CppName),
		static_cast<EObjectFlags>(RF_Public | RF_MarkAsNative));
	checkf(!Class->GetSuperClass(), TEXT("%s was known as data before its module was started"), *Class->GetPathName());
	SetUp(*Class, Info, Super);
	return Class;
}

UScriptStruct* RegisterStruct(const TCHAR* CppName, const TCHAR* PackageName, const FStructOps* Ops,
	void (*Describe)(FStructDescriber&), UScriptStruct* (*Super)())
{
	UScriptStruct* const Parent = Super ? Super() : nullptr;
	UScriptStruct* const Struct = NewObject<UScriptStruct>(
		CreatePackage(PackageName), NameWithoutPrefix(CppName), static_cast<EObjectFlags>(RF_Public | RF_MarkAsNative));
	Struct->SetOps(Ops);
	Struct->SetSuperStruct(Parent);
	Struct->SetNativeDescription(Describe);
	return Struct;
}

UEnum* RegisterEnum(
	const TCHAR* Name, const TCHAR* PackageName, UEnum::ECppForm Form, std::initializer_list<FEnumEntry> Entries)
{
	UEnum* const Enum = NewObject<UEnum>(
		CreatePackage(PackageName), FName(Name), static_cast<EObjectFlags>(RF_Public | RF_MarkAsNative));
	Enum->CppType = Form == UEnum::ECppForm::Namespaced ? FString(Name) + TEXT("::Type") : FString(Name);
	TArray<UEnum::FEntry> Made;
	for (const FEnumEntry& Entry : Entries)
	{
		const bool bScoped = Form != UEnum::ECppForm::Regular;
		const FString FullName = bScoped ? FString(Name) + TEXT("::") + Entry.Name : FString(Entry.Name);
		Made.Add({FName(FullName), Entry.Value, FString(Entry.DisplayName), false});
	}
	Enum->SetEnums(MoveTemp(Made), Form);
	return Enum;
}

void RegisterNativeClasses(std::initializer_list<FClassGetter> Classes)
{
	for (const FClassGetter GetClass : Classes)
	{
		GetClass();
	}
}
} // namespace NativeClass

FClassDescriber& FClassDescriber::Implements(UClass* Interface)
{
	Class->Interfaces.Add({Interface, false});
	return *this;
}

FProperty& NativeClass::AddBitField(UStruct& Struct, const TCHAR* const Name, const void* const Memory,
	const std::size_t Size, const TFunctionRef<void()> Raise)
{
	const uint8* const Bytes = static_cast<const uint8*>(Memory);
	const std::vector<uint8> Before(Bytes, Bytes + Size);
	Raise();
	const auto Changed = std::mismatch(Before.begin(), Before.end(), Bytes);
	check(Changed.first != Before.end());
	FBoolProperty* const Made = new FBoolProperty(FFieldVariant(&Struct), FName(Name));
	Made->SetMask(static_cast<uint8>(*Changed.first ^ *Changed.second));
	Made->SetLocation(static_cast<int32>(Changed.second - Bytes), false);
	Struct.AddProperty(Made);
	return *Made;
}
