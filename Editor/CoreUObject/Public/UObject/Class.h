#pragma once

#include "CoreMinimal.h"
#include "UObject/Field.h"
#include "UObject/Object.h"
#include "UObject/Script.h"
#include "UObject/TopLevelAssetPath.h"

class FOutputDevice;
class FProperty;
class FStructProperty;
class FClassDescriber;
class FStructDescriber;
/** The script machine's, which is not here; a type of that name would be ambiguous in the engine. */
struct FFrame;
template <class T>
class TSubclassOf;

/** A reflection object: it has metadata and stands in a list of its struct. */
class UField : public UObject
{
	EDITOR_CLASS(UField, UObject)

public:
	/** Structs and enums made in the editor alone are assets of their own. */
	bool IsAsset() const override { return IsMadeInEditor() && UObject::IsAsset(); }
	bool HasMetaData(FName Key) const { return FindMetaData(Key) != nullptr; }
	const FString* FindMetaData(FName Key) const;
	const FString& GetMetaData(FName Key) const;
	bool GetBoolMetaData(FName Key) const { return GetMetaData(Key).ToBool(); }
	void SetMetaData(FName Key, const FString& Value) { MetaData.Set(Key, Value); }
	void RemoveMetaData(FName Key) { MetaData.Remove(Key); }
	const FMetaDataTable& GetMetaDataTable() const;
	/** The DisplayName metadata, else the name made readable in the engine's way. */
	virtual FText GetDisplayNameText() const;
	virtual FText GetToolTipText(bool bShortTooltip = false) const;
	UClass* GetOwnerClass() const;

	UField* Next = nullptr;

protected:
	/** Reads what is still only data, so that metadata and members are complete. */
	virtual void EnsureMembers() const {}
	virtual bool IsMadeInEditor() const { return false; }

	FMetaDataTable MetaData;
};

/** Gives a struct its members when they are first asked for. The struct calls it once. */
using FMemberFiller = void (*)(UStruct* Struct, uint32 DataIndex);

/** Anything with members: properties (Children Properties) and functions (Children). */
class UStruct : public UField
{
	EDITOR_CLASS(UStruct, UField)

public:
	~UStruct() override;

	UStruct* GetSuperStruct() const { return SuperStruct; }
	virtual void SetSuperStruct(UStruct* NewSuper) { SuperStruct = NewSuper; }
	bool IsChildOf(const UStruct* SomeBase) const
	{
		for (const UStruct* Struct = this; Struct; Struct = Struct->SuperStruct)
		{
			if (Struct == SomeBase)
			{
				return true;
			}
		}
		return false;
	}
	template <class T>
	bool IsChildOf() const
	{
		return IsChildOf(T::StaticClass());
	}

	/** Own properties in order of declaration; inherited ones are the super's. */
	FField* GetChildProperties() const
	{
		EnsureMembers();
		return ChildProperties;
	}
	/** Own functions in order of declaration. */
	UField* GetChildren() const
	{
		EnsureMembers();
		return Children;
	}
	/** Own or inherited; names compare ignoring case. Constant time for each struct of the line. */
	FProperty* FindPropertyByName(FName Name) const;
	/** Own only, and only what is there yet: reads no pending members. */
	FProperty* FindOwnProperty(FName Name) const { return PropertyByName.FindRef(Name); }

	/**
	 * Appends; the struct owns the property from now on. Call Link when all are added. A native struct refuses (and
	 * deletes) a property that was given no location, since its memory belongs to C++.
	 */
	void AddProperty(FProperty* Property);
	void AddFunction(UFunction* Function);
	void RemoveFunction(UFunction* Function);
	/**
	 * Drops all own members, as before a rebuild of a generated class. Until the next Link, objects of the class keep
	 * the values of the dropped properties, but nobody may read the class's properties through them.
	 */
	void DestroyMembers();
	/**
	 * Gives properties that have no C++ member their place in memory. Objects of the class that exist already get the
	 * new layout; values of properties whose name and type are the same as before stay.
	 */
	void Link();

	/** Prefix of the C++ name: 'A' for actors, 'U' for other classes, 'F' for structs. */
	virtual const TCHAR* GetPrefixCPP() const { return TEXT("F"); }
	/** The path name of the struct ("/Script/Engine.Actor"). */
	FTopLevelAssetPath GetStructPathName() const;
	/** Size of the memory for own properties without a C++ member; for a struct that only data knows, that of all of
	 * it. */
	int32 GetExtensionSize() const
	{
		EnsureMembers();
		return ExtensionSize;
	}
	virtual FString GetAuthoredNameForField(const FField* Field) const { return Field ? Field->GetName() : FString(); }

	/** Members come from Filler when they are first asked for; the C++ description of a native struct goes first. */
	void SetMemberFiller(FMemberFiller InFiller, uint32 InDataIndex)
	{
		MemberFiller = InFiller;
		FillerDataIndex = InDataIndex;
		bMembersPending = true;
	}
	bool HasPendingMembers() const { return bMembersPending; }

	void EnsureMembers() const override
	{
		if (bMembersPending)
		{
			FillMembers();
		}
	}

protected:
	friend class FObjectTable;
	friend struct FObjectExtension;

	/** The C++ description of a native class or struct. */
	virtual void DescribeNativeMembers() {}
	virtual bool HasNativeMembers() const { return false; }

	UStruct* SuperStruct = nullptr;
	UField* Children = nullptr;
	UField* LastChild = nullptr;
	FField* ChildProperties = nullptr;
	FField* LastChildProperty = nullptr;
	TMap<FName, FProperty*> PropertyByName;
	int32 ExtensionSize = 0;
	mutable bool bMembersPending = false;
	/** Whether objects were made that hold memory of this class's layout. */
	mutable bool bInstanced = false;

private:
	void FillMembers() const;
	void LinkProperties();

	FMemberFiller MemberFiller = nullptr;
	uint32 FillerDataIndex = 0;
	/** The layout that existing objects still have, between DestroyMembers and Link. */
	TArray<FProperty*> RetiredProperties;
	int32 RetiredSize = 0;
};

/** How a native struct's memory is handled, and a text form of its own where it has one. */
struct FStructOps
{
	int32 Size = 0;
	int32 Alignment = 1;
	void (*Construct)(void* Dest) = nullptr;
	void (*Destruct)(void* Dest) = nullptr;
	void (*Copy)(void* Dest, const void* Src) = nullptr;
	/** Null: members are compared. */
	bool (*Identical)(const void* A, const void* B) = nullptr;
	/** Null: "(Member=Value,...)". */
	bool (*ExportText)(FString& Out, const void* Value, const void* Default, UObject* Parent, int32 PortFlags,
		UObject* ExportRootScope) = nullptr;
	/** Null: as above. Moves Buffer behind what it read; false when it is no such value. */
	bool (*ImportText)(
		const TCHAR*& Buffer, void* Value, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText) = nullptr;
	/** Called when members were read from text, to bring what older versions wrote up to date. Null: nothing to do. */
	void (*PostImportText)(void* Value) = nullptr;
};

enum EStructFlags : uint32
{
	STRUCT_NoFlags = 0,
	STRUCT_Atomic = 1,
};

class UScriptStruct : public UStruct
{
	EDITOR_CLASS(UScriptStruct, UStruct)

public:
	int32 GetStructureSize() const;
	int32 GetMinAlignment() const;
	void InitializeStruct(void* Dest) const;
	void DestroyStruct(void* Dest) const;
	void CopyScriptStruct(void* Dest, const void* Src) const;
	bool CompareScriptStruct(const void* A, const void* B, uint32 PortFlags) const;
	void ExportText(FString& ValueStr, const void* Value, const void* Defaults, UObject* OwnerObject, int32 PortFlags,
		UObject* ExportRootScope) const;
	const TCHAR* ImportText(const TCHAR* Buffer, void* Value, UObject* OwnerObject, int32 PortFlags,
		FOutputDevice* ErrorText, const FString& StructName) const;
	FString GetStructCPPName() const { return FString(GetPrefixCPP()) + GetName(); }
	/** A value with the struct's own defaults; built once. */
	const void* GetDefaultValue() const;
	/** Before members change. */
	void DropDefaultValue();

	~UScriptStruct() override;
	void BeginDestroy() override;
	void SetOps(const FStructOps* InOps) { Ops = InOps; }
	/** Null for a struct that only data knows. */
	const FStructOps* GetOps() const { return Ops; }
	/** Set once by NativeClass registration. */
	void SetNativeDescription(void (*InDescribe)(FStructDescriber&))
	{
		NativeDescribe = InDescribe;
		bMembersPending = true;
	}

	EStructFlags StructFlags = STRUCT_NoFlags;
	/** Text that a member starts with where it is not zero, by member name. From data. */
	TMap<FName, FString> MemberDefaults;

protected:
	void DescribeNativeMembers() override;
	bool HasNativeMembers() const override { return Ops != nullptr; }

private:
	void ConstructMembers(void* Dest, bool bWithDefaults) const;

	const FStructOps* Ops = nullptr;
	void (*NativeDescribe)(FStructDescriber&) = nullptr;
	mutable uint8* DefaultValue = nullptr;
};

/** A struct made in the editor. What its members are stands in its editor data, which makes them. */
class UUserDefinedStruct : public UScriptStruct
{
	EDITOR_CLASS(UUserDefinedStruct, UScriptStruct)

public:
	/** Has the members made. Whoever lays the struct out as part of another calls it first, see ConditionalPostLoad. */
	void PostLoad() override;

	FGuid Guid;
	/** Null for a struct that is only referred to. */
	TObjectPtr<UObject> EditorData;

protected:
	bool IsMadeInEditor() const override { return true; }
};

/** A function's description. Parameters are its properties, in order, the return last. Nothing is ever executed. */
class UFunction : public UStruct
{
	EDITOR_CLASS(UFunction, UStruct)

public:
	bool HasAnyFunctionFlags(EFunctionFlags Flags) const { return (FunctionFlags & Flags) != 0; }
	bool HasAllFunctionFlags(EFunctionFlags Flags) const { return (FunctionFlags & Flags) == Flags; }
	FProperty* GetReturnProperty() const;
	UFunction* GetSuperFunction() const { return Cast<UFunction>(GetSuperStruct()); }
	/** Whether parameters agree in number, type and direction, the return included. */
	bool IsSignatureCompatibleWith(const UFunction* Other) const;
	bool IsSignatureCompatibleWith(const UFunction* Other, uint64 IgnoreFlags) const;
	static uint64 GetDefaultIgnoredSignatureCompatibilityFlags();

	EFunctionFlags FunctionFlags = FUNC_None;
	int32 NumParms = 0;
};

/** The signature of a delegate. */
class UDelegateFunction : public UFunction
{
	EDITOR_CLASS(UDelegateFunction, UFunction)
};

class UEnum : public UField
{
	EDITOR_CLASS(UEnum, UField)

public:
	enum class ECppForm : uint8
	{
		Regular,
		Namespaced,
		EnumClass,
	};

	int32 NumEnums() const;
	FName GetNameByIndex(int32 Index) const;
	/** Name without "EType::". */
	FString GetNameStringByIndex(int32 Index) const;
	FText GetDisplayNameTextByIndex(int32 Index) const;
	int64 GetValueByIndex(int32 Index) const;
	int32 GetIndexByName(FName Name) const;
	int32 GetIndexByNameString(const FString& Name) const;
	int32 GetIndexByValue(int64 Value) const;
	int64 GetValueByName(FName Name) const;
	int64 GetValueByNameString(const FString& Name) const;
	FString GetNameStringByValue(int64 Value) const;
	FText GetDisplayNameTextByValue(int64 Value) const;
	/** Whether the last entry is the generated "_MAX". */
	bool ContainsExistingMax() const;
	bool HasMetaData(const TCHAR* Key, int32 Index) const;
	using UField::GetMetaData;
	using UField::HasMetaData;
	ECppForm GetCppForm() const { return CppForm; }

	struct FEntry
	{
		FName Name;
		int64 Value = 0;
		FString DisplayName;
		bool bHidden = false;
	};
	/** Replaces all entries. Names as the engine keeps them: "EType::Value" for namespaced and enum class ones. */
	void SetEnums(TArray<FEntry> InEntries, ECppForm InForm);

	FString CppType;

private:
	TArray<FEntry> Entries;
	TMap<FName, int32> IndexByName;
	ECppForm CppForm = ECppForm::Regular;
};

/** An enum made in the editor. Its entries are the names of its display names, in their order. */
class UUserDefinedEnum : public UEnum
{
	EDITOR_CLASS(UUserDefinedEnum, UEnum)

public:
	void PostLoad() override;
	/** Makes the entries anew, with the closing "_MAX", after DisplayNameMap was changed. */
	void RebuildEntries();

	FText EnumDescription;
	/** By name without the enum's ("NewEnumerator0"). */
	TMap<FName, FText> DisplayNameMap;

protected:
	bool IsMadeInEditor() const override { return true; }
};

namespace EIncludeSuperFlag
{
enum Type
{
	ExcludeSuper,
	IncludeSuper,
};
}

/** One interface that a class implements. */
struct FImplementedInterface
{
	UClass* Class = nullptr;
	bool bImplementedByK2 = false;
};

using FClassConstructor = UObject* (*)(void* Memory);

class UClass : public UStruct
{
	EDITOR_CLASS(UClass, UStruct)

public:
	UClass* GetSuperClass() const { return static_cast<UClass*>(SuperStruct); }
	bool HasAnyClassFlags(EClassFlags Flags) const { return (ClassFlags & Flags) != 0; }
	const TCHAR* GetPrefixCPP() const override;
	/** Objects of the class follow; one whose C++ part would have to change becomes an object of the old parent. */
	void SetSuperStruct(UStruct* NewSuper) override;

	/** Own, then interfaces' and inherited ones when asked; names compare ignoring case. */
	UFunction* FindFunctionByName(
		FName Name, EIncludeSuperFlag::Type IncludeSuper = EIncludeSuperFlag::IncludeSuper) const;
	bool ImplementsInterface(const UClass* SomeInterface) const;

	/** The class default object, made on first use unless bCreateIfNeeded is false. */
	virtual UObject* GetDefaultObject(bool bCreateIfNeeded = true) const;
	template <class T>
	T* GetDefaultObject() const
	{
		return static_cast<T*>(GetDefaultObject());
	}
	UObject* GetDefaultSubobjectByName(FName Name) const;
	/**
	 * Replaces the default object, as a rebuild of a generated class does; the old one becomes garbage. The new one
	 * takes over what the old one had set itself, that is every value that differs from the parent's.
	 */
	void ResetDefaultObject();

	/** The nearest native class: what instances are in C++. */
	const UClass* GetNativeClass() const;
	bool IsNative() const { return NativeConstructor != nullptr; }
	/** The Blueprint asset that the class is generated from, or null (UObject* to keep this below the engine module).
	 */
	UObject* ClassGeneratedBy = nullptr;

	/** The class that answers for a redirected or skeleton class; itself for most. */
	virtual UClass* GetAuthoritativeClass() { return this; }
	const UClass* GetAuthoritativeClass() const { return const_cast<UClass*>(this)->GetAuthoritativeClass(); }
	UClass* ClassWithin = nullptr;
	FName ClassConfigName;
	EClassFlags ClassFlags = CLASS_None;
	TArray<FImplementedInterface> Interfaces;

	/** Set once by NativeClass registration. */
	FClassConstructor NativeConstructor = nullptr;
	int32 NativeSize = 0;
	int32 NativeAlignment = 16;
	void (*NativeDescribe)(FClassDescriber&) = nullptr;

	/** Called by UStruct when functions come or go. */
	void AddFunctionToMap(UFunction* Function);
	void RemoveFunctionFromMap(UFunction* Function);

	/** Members come from NativeDescribe when they are first asked for. Called once by NativeClass registration. */
	void SetNativePending() { bMembersPending = true; }

	/** Whether objects of the class start with values that the C++ constructor does not give them. */
	bool HasDataDefaults() const { return bHasDataDefaults; }

protected:
	void DescribeNativeMembers() override;
	bool HasNativeMembers() const override { return IsNative(); }

private:
	friend class UStruct;
	friend class FObjectTable;

	void CreateDefaultObject();
	void StashDefaults();

	TMap<FName, UFunction*> FunctionByName;
	mutable UObject* ClassDefaultObject = nullptr;
	/** Values of a default object that could not stay one when the parent changed, as text. */
	TMap<FName, FString> StashedDefaults;
	bool bHasDataDefaults = false;
};

/** The root of interface classes. */
class UInterface : public UObject
{
	EDITOR_CLASS(UInterface, UObject)
};

template <class T>
T* GetMutableDefault()
{
	return static_cast<T*>(T::StaticClass()->GetDefaultObject());
}
template <class T>
T* GetMutableDefault(UClass* Class)
{
	return static_cast<T*>(Class->GetDefaultObject());
}
template <class T>
const T* GetDefault()
{
	return static_cast<const T*>(T::StaticClass()->GetDefaultObject());
}
template <class T>
const T* GetDefault(const UClass* Class)
{
	return static_cast<const T*>(Class->GetDefaultObject());
}

/** The reflection object of a C++ struct or enum that is not ours to declare a member in. Specialised in the module
 * that describes it. */
template <class T>
struct TBaseStructure
{
	static UScriptStruct* Get() { return T::StaticStruct(); }
};
template <class T>
UEnum* StaticEnum();

template <>
struct TBaseStructure<FVector>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FVector2D>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FVector4>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FRotator>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FQuat>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FTransform>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FLinearColor>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FColor>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FGuid>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<FIntPoint>
{
	static UScriptStruct* Get();
};
template <>
struct TBaseStructure<struct FSoftObjectPath>
{
	static UScriptStruct* Get();
};
