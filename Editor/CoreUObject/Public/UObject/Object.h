#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class FClassDescriber;
class FOutputDevice;
class FFeedbackContext;
struct FPropertyChangedEvent;
struct FObjectInitializer;

/**
 * The base of everything that has a class, a name and an outer.
 *
 * Objects are owned by the process-wide object table; a raw pointer only observes. An object dies with its outer, or when it was marked as
 * garbage and CollectGarbage runs, which happens between tool calls and never inside one.
 *
 * Properties of a native class are C++ members. Properties that only data knows (the catalogue, a compiled Blueprint)
 * live in the object's extension block; FProperty::ContainerPtrToValuePtr finds both.
 */
class UObject
{
public:
	using ThisClass = UObject;

	static UClass* StaticClass();
	static void DescribeClass(FClassDescriber& Class);

	UObject() = default;
	virtual ~UObject();
	UObject(const UObject&) = delete;
	UObject& operator=(const UObject&) = delete;

	FName GetFName() const { return NamePrivate; }
	FString GetName() const { return NamePrivate.ToString(); }
	UObject* GetOuter() const { return OuterPrivate; }
	UClass* GetClass() const { return ClassPrivate; }
	uint32 GetUniqueID() const { return static_cast<uint32>(InternalIndex); }
	int32 GetInternalIndex() const { return InternalIndex; }

	/** "/Game/A/BP_X.BP_X:EventGraph.Node": package, '.', top object, ':' before the first sub-object, '.' after. */
	FString GetPathName(const UObject* StopOuter = nullptr) const;
	void GetPathName(const UObject* StopOuter, FString& OutPath) const;
	/** The class's name, a blank and the path. */
	FString GetFullName(const UObject* StopOuter = nullptr) const;
	/** Names of the outers below the package joined by '.'; with bStartWithOuter the object's own name is left out. */
	FString GetFullGroupName(bool bStartWithOuter) const;

	/** The package at the top, or null for an object that was made without one. */
	UPackage* GetOutermost() const;
	UPackage* GetPackage() const { return GetOutermost(); }
	UObject* GetTypedOuter(const UClass* Target) const;
	template <class T> T* GetTypedOuter() const { return static_cast<T*>(GetTypedOuter(T::StaticClass())); }
	bool IsIn(const UObject* SomeOuter) const;
	bool IsInOuter(const UObject* SomeOuter) const { return IsIn(SomeOuter); }

	bool IsA(const UClass* SomeBase) const;
	template <class T> bool IsA() const { return IsA(T::StaticClass()); }
	/** Whether the class implements the interface class (natively or as a Blueprint). */
	bool ImplementsInterface(const UClass* SomeInterface) const;

	EObjectFlags GetFlags() const { return ObjectFlags; }
	bool HasAnyFlags(EObjectFlags Flags) const { return (ObjectFlags & Flags) != 0; }
	bool HasAllFlags(EObjectFlags Flags) const { return (ObjectFlags & Flags) == Flags; }
	void SetFlags(EObjectFlags Flags) { ObjectFlags = static_cast<EObjectFlags>(ObjectFlags | Flags); }
	void ClearFlags(EObjectFlags Flags) { ObjectFlags = static_cast<EObjectFlags>(ObjectFlags & ~Flags); }
	bool IsTemplate(EObjectFlags TemplateTypes = static_cast<EObjectFlags>(RF_ArchetypeObject | RF_ClassDefaultObject)) const;
	bool IsDefaultSubobject() const { return HasAnyFlags(RF_DefaultSubObject); }

	/**
	 * Gives the object another name, outer or both; null keeps the present one. With a name that another object of that
	 * outer has, nothing changes and the answer is false. REN_Test only asks.
	 */
	virtual bool Rename(const TCHAR* NewName = nullptr, UObject* NewOuter = nullptr, ERenameFlags Flags = REN_None);

	/** Marks the package as to be saved; false for an object without a package or in the transient one. */
	bool MarkPackageDirty() const;
	/** Announces a change: there is no undo here, so this marks the package dirty when asked to. */
	virtual bool Modify(bool bAlwaysMarkDirty = true);
	virtual void PreEditChange(FProperty* PropertyAboutToChange);
	virtual void PostEditChange();
	virtual void PostEditChangeProperty(FPropertyChangedEvent& Event);

	/** After construction and copying of the class defaults. */
	virtual void PostInitProperties() {}
	/** After the whole package has been read. */
	virtual void PostLoad() {}
	/** After the object was made by import of clipboard text. */
	virtual void PostEditImport() {}
	virtual void PostDuplicate(bool bDuplicateForPIE) {}
	virtual void PreSave() {}
	virtual void BeginDestroy() {}
	virtual bool IsAsset() const;
	virtual bool IsEditorOnly() const { return false; }

	/** Object text beyond properties: each line after "CustomProperties ". */
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) {}
	/** One line's text after "CustomProperties ". */
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) {}

	/** Marks for the next collection; the object leaves the name table at once, so that its name is free. */
	void MarkAsGarbage();
	bool IsGarbage() const { return HasAnyFlags(RF_Garbage); }

	/** The object whose values this one starts from: the template of a default sub-object, else the class default. */
	UObject* GetArchetype() const;

	UObject* CreateDefaultSubobject(FName SubobjectFName, const UClass* ReturnType, const UClass* ClassToCreate, bool bIsRequired, bool bIsTransient);
	template <class T> T* CreateDefaultSubobject(FName SubobjectName, bool bTransient = false)
	{
		return static_cast<T*>(CreateDefaultSubobject(SubobjectName, T::StaticClass(), T::StaticClass(), true, bTransient));
	}

	/** Memory of the properties that have no C++ member; null when the class has none. See UStruct::GetExtensionSize. */
	uint8* GetExtensionData() const { return ExtensionData; }

	/** First and next of the objects whose outer this is, in order of creation. */
	UObject* GetFirstInner() const { return FirstInner; }
	UObject* GetNextInner() const { return NextInner; }

private:
	friend class FObjectTable;

	UClass* ClassPrivate = nullptr;
	UObject* OuterPrivate = nullptr;
	FName NamePrivate;
	EObjectFlags ObjectFlags = RF_NoFlags;
	int32 InternalIndex = INDEX_NONE;
	uint8* ExtensionData = nullptr;
	UObject* FirstInner = nullptr;
	UObject* LastInner = nullptr;
	UObject* NextInner = nullptr;
	UObject* PrevInner = nullptr;
};

/** Stub of the engine's construction argument: native constructors may take it and pass it on. */
struct FObjectInitializer
{
	static const FObjectInitializer& Get();
};

using EPropertyChangeType = uint32;
struct FPropertyChangedEvent
{
	explicit FPropertyChangedEvent(FProperty* InProperty, EPropertyChangeType InType = 0)
		: Property(InProperty), MemberProperty(InProperty), ChangeType(InType)
	{
	}
	FName GetPropertyName() const;

	FProperty* Property;
	FProperty* MemberProperty;
	EPropertyChangeType ChangeType;
};

/** Declares what every native class has. The class also writes IMPLEMENT_EDITOR_CLASS and DescribeClass in its source. */
#define EDITOR_CLASS(TClass, TSuper)                                                                                   \
public:                                                                                                                \
	using Super = TSuper;                                                                                              \
	using ThisClass = TClass;                                                                                          \
	static UClass* StaticClass();                                                                                      \
	static void DescribeClass(FClassDescriber& Class);                                                                 \
                                                                                                                       \
private:

/** Declares what every native struct that reflection knows has; see UObject/NativeClass.h. */
#define EDITOR_STRUCT(TStruct)                                                                                         \
public:                                                                                                                \
	static UScriptStruct* StaticStruct();                                                                              \
	static void DescribeStruct(class FStructDescriber& Struct);

/** Whether the object exists and was not marked as garbage. */
inline bool IsValid(const UObject* Test)
{
	return Test != nullptr && !Test->IsGarbage();
}

#include "Templates/Casts.h"
#include "UObject/ObjectPtr.h"
#include "UObject/WeakObjectPtr.h"
#include "UObject/UObjectGlobals.h"
