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
 * Objects are owned by the process-wide object table; a raw pointer only observes. An object dies with its outer, or
 * when it was marked as garbage and CollectGarbage runs, which happens between tool calls and never inside one.
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

	/** Takes its class, outer and name from the construction that is under way, so that constructors can use them. */
	UObject();
	virtual ~UObject();
	UObject(const UObject&) = delete;
	UObject& operator=(const UObject&) = delete;

	FName GetFName() const { return NamePrivate; }
	FString GetName() const { return NamePrivate.ToString(); }
	UObject* GetOuter() const { return OuterPrivate; }
	UClass* GetClass() const { return ClassPrivate; }
	int32 GetInternalIndex() const { return InternalIndex; }

	/** "/Game/A/BP_X.BP_X:EventGraph.Node": package, '.', top object, ':' before the first sub-object, '.' after. */
	FString GetPathName(const UObject* StopOuter = nullptr) const;
	void GetPathName(const UObject* StopOuter, FString& OutPath) const;
	/** The path below the package ("BP_X:EventGraph.Node"); with bStartWithOuter that of the outer. */
	FString GetFullGroupName(bool bStartWithOuter) const;

	/** The package at the top, or null for an object that was made without one. */
	UPackage* GetOutermost() const;
	UPackage* GetPackage() const { return GetOutermost(); }
	UObject* GetTypedOuter(const UClass* Target) const;
	template <class T>
	T* GetTypedOuter() const
	{
		return static_cast<T*>(GetTypedOuter(T::StaticClass()));
	}
	bool IsIn(const UObject* SomeOuter) const;

	bool IsA(const UClass* SomeBase) const;
	template <class T>
	bool IsA() const
	{
		return IsA(T::StaticClass());
	}
	/** Whether the class implements the interface class (natively or as a Blueprint). */
	bool ImplementsInterface(const UClass* SomeInterface) const;

	EObjectFlags GetFlags() const { return ObjectFlags; }
	bool HasAnyFlags(EObjectFlags Flags) const { return (ObjectFlags & Flags) != 0; }
	bool HasAllFlags(EObjectFlags Flags) const { return (ObjectFlags & Flags) == Flags; }
	void SetFlags(EObjectFlags Flags) { ObjectFlags = static_cast<EObjectFlags>(ObjectFlags | Flags); }
	void ClearFlags(EObjectFlags Flags) { ObjectFlags = static_cast<EObjectFlags>(ObjectFlags & ~Flags); }
	bool IsTemplate(
		EObjectFlags TemplateTypes = static_cast<EObjectFlags>(RF_ArchetypeObject | RF_ClassDefaultObject)) const;

	/**
	 * Gives the object another name, outer or both; null keeps the present one. With a name that another object of that
	 * outer has, nothing changes and the answer is false; a kept name that clashes below a new outer is made unique.
	 * REN_Test only asks.
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
	/** PostLoad, unless it ran already or the object was not read from a package. For objects that need another one
	 * ready. */
	void ConditionalPostLoad()
	{
		if (HasAnyFlags(RF_NeedPostLoad))
		{
			ClearFlags(RF_NeedPostLoad);
			PostLoad();
		}
	}
	/** After the object was made by import of clipboard text. */
	virtual void PostEditImport() {}
	virtual void PostDuplicate(bool bDuplicateForPIE) {}
	virtual void PreSave() {}
	virtual void BeginDestroy() {}
	virtual bool IsAsset() const;
	virtual bool IsEditorOnly() const { return false; }

	/** Object text beyond properties: each line after "CustomProperties ". */
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) {}
	/** One line's text after "CustomProperties ". What no class takes is kept and written back (see FKeptObjectText).
	 */
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn);

	/**
	 * Takes over what properties do not hold from the object this one was duplicated from; all objects of the tree
	 * exist and have their properties. The base carries custom properties over as text.
	 */
	virtual void DuplicateCustomData(const UObject* Source);

	/**
	 * Marks the object and all below it for the next collection. They leave the name table and their outer's list at
	 * once, so that the name is free.
	 */
	void MarkAsGarbage();
	bool IsGarbage() const { return HasAnyFlags(RF_Garbage); }

	/** The object whose values this one starts from: the template of a default sub-object, else the class default. */
	UObject* GetArchetype() const;

	UObject* CreateDefaultSubobject(FName SubobjectFName, const UClass* ReturnType, const UClass* ClassToCreate,
		bool bIsRequired, bool bIsTransient);
	template <class T>
	T* CreateDefaultSubobject(FName SubobjectName, bool bTransient = false)
	{
		return static_cast<T*>(
			CreateDefaultSubobject(SubobjectName, T::StaticClass(), T::StaticClass(), true, bTransient));
	}

	/** Memory of the class's own properties that have no C++ member; null when the object has none of that class. */
	uint8* FindExtension(const UStruct* OwnerClass) const;

	/** First and next of the objects whose outer this is, in order of creation. */
	UObject* GetFirstInner() const { return FirstInner; }
	UObject* GetNextInner() const { return NextInner; }

private:
	friend class FObjectTable;
	friend struct FObjectExtension;

	UClass* ClassPrivate = nullptr;
	UObject* OuterPrivate = nullptr;
	FName NamePrivate;
	EObjectFlags ObjectFlags = RF_NoFlags;
	int32 InternalIndex = INDEX_NONE;
	struct FObjectExtension* Extension = nullptr;
	UObject* FirstInner = nullptr;
	UObject* LastInner = nullptr;
	UObject* NextInner = nullptr;
	UObject* PrevInner = nullptr;
	UObject* NextInPathBucket = nullptr;
	UObject* NextInNameBucket = nullptr;
	UObject* NextOfClass = nullptr;
	UObject* PrevOfClass = nullptr;
	uint64 CreationOrder = 0;
};

/** Stub of the engine's construction argument: native constructors may take it and pass it on. */
struct FObjectInitializer
{
};

using EPropertyChangeType = uint32;
struct FPropertyChangedEvent
{
	explicit FPropertyChangedEvent(FProperty* InProperty, EPropertyChangeType InType = 0)
		: Property(InProperty)
		, MemberProperty(InProperty)
		, ChangeType(InType)
	{
	}

	FProperty* Property;
	FProperty* MemberProperty;
	EPropertyChangeType ChangeType;
};

/** Declares what every native class has. The class also writes IMPLEMENT_EDITOR_CLASS and DescribeClass in its source.
 */
#define EDITOR_CLASS(TClass, TSuper) \
public: \
	using Super = TSuper; \
	using ThisClass = TClass; \
	static UClass* StaticClass(); \
	static void DescribeClass(FClassDescriber& Class); \
\
private:

/** Declares what every native struct that reflection knows has; see UObject/NativeClass.h. */
#define EDITOR_STRUCT(TStruct) \
public: \
	static UScriptStruct* StaticStruct(); \
	static void DescribeStruct(class FStructDescriber& Struct);

/** Whether the object exists and was not marked as garbage. */
inline bool IsValid(const UObject* Test)
{
	return Test != nullptr && !Test->IsGarbage();
}

#include "Templates/Casts.h"
#include "UObject/ObjectPtr.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/WeakObjectPtr.h"
