#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObject;
class UClass;
class UPackage;
template <class T>
class TSubclassOf;

/** Reserved outer argument of the find functions: any package. No object, but aligned like one. */
#define ANY_PACKAGE (reinterpret_cast<UPackage*>(-16))

enum ELoadFlags : uint32
{
	LOAD_None = 0,
	LOAD_NoWarn = 0x2,
	LOAD_Quiet = 0x2000,
};

enum class EFindFirstObjectOptions : uint32
{
	None = 0,
	NativeFirst = 1,
	EnsureIfAmbiguous = 2,
	ExactClass = 4,
};
ENUM_CLASS_FLAGS(EFindFirstObjectOptions)

/** Set while a package is being written. Edits refuse to run then. */
extern bool GIsSavingPackage;
/** Set while marked objects are being freed. */
extern bool GIsGarbageCollecting;

/** The object for a C++ class, made below Outer. NAME_None makes a fresh name; a name that is taken replaces nothing
 * and returns the one that stands if its class fits, else a renamed fresh one is made. */
UObject* StaticConstructObject_Internal(
	const UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags = RF_NoFlags, UObject* Template = nullptr);

template <class T>
T* NewObject(UObject* Outer, const UClass* Class, FName Name = NAME_None, EObjectFlags Flags = RF_NoFlags,
	UObject* Template = nullptr)
{
	return static_cast<T*>(StaticConstructObject_Internal(Class, Outer, Name, Flags, Template));
}
template <class T>
T* NewObject(UObject* Outer, FName Name, EObjectFlags Flags = RF_NoFlags, UObject* Template = nullptr)
{
	return static_cast<T*>(StaticConstructObject_Internal(T::StaticClass(), Outer, Name, Flags, Template));
}
template <class T>
T* NewObject(UObject* Outer)
{
	return static_cast<T*>(StaticConstructObject_Internal(T::StaticClass(), Outer, NAME_None));
}
UPackage* GetTransientPackage();
UObject* GetTransientPackageAsObject();
template <class T>
T* NewObject()
{
	return static_cast<T*>(StaticConstructObject_Internal(T::StaticClass(), GetTransientPackageAsObject(), NAME_None));
}

/** A deep copy of the object and everything below it, with references among the copied kept inside the copy. */
UObject* StaticDuplicateObject(const UObject* Source, UObject* DestOuter, FName DestName = NAME_None,
	EObjectFlags FlagMask = static_cast<EObjectFlags>(0xFFFFFFFF), UClass* DestClass = nullptr);
template <class T>
T* DuplicateObject(const T* Source, UObject* Outer, FName Name = NAME_None)
{
	return static_cast<T*>(StaticDuplicateObject(Source, Outer, Name));
}

/**
 * The object of that class at a path, or below Outer by name, if it is in memory; catalogued and native classes always
 * are. Path forms: a full path, a "Class'path'" reference; with null Outer a bare name finds a top-level package only.
 */
UObject* StaticFindObject(UClass* Class, UObject* Outer, const TCHAR* Name, bool bExactClass = false);
UObject* StaticFindObject(UClass* Class, const struct FTopLevelAssetPath& Path, bool bExactClass = false);
/** By exact outer and name, without parsing. */
UObject* StaticFindObjectFast(UClass* Class, UObject* Outer, FName Name, bool bExactClass = false);
/** The first object of that short name anywhere; native classes before Blueprints. Verbosity and operation only word a
 * log line. */
UObject* StaticFindFirstObject(UClass* Class, const TCHAR* Name,
	EFindFirstObjectOptions Options = EFindFirstObjectOptions::None,
	ELogVerbosity::Type AmbiguousMessageVerbosity = ELogVerbosity::NoLogging,
	const TCHAR* InCurrentOperation = nullptr);
/** As StaticFindObject, and reads the package from disk when the object is not in memory. A package path alone means
 * its asset. Null when there is none; the reason goes to the log. */
UObject* StaticLoadObject(
	UClass* Class, UObject* Outer, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None);

template <class T>
T* FindObject(UObject* Outer, const TCHAR* Name, bool bExactClass = false)
{
	return static_cast<T*>(StaticFindObject(T::StaticClass(), Outer, Name, bExactClass));
}
template <class T>
T* FindObject(UObject* Outer, const FString& Name, bool bExactClass = false)
{
	return static_cast<T*>(StaticFindObject(T::StaticClass(), Outer, *Name, bExactClass));
}
template <class T>
T* FindObject(const FTopLevelAssetPath& Path, bool bExactClass = false)
{
	return static_cast<T*>(StaticFindObject(T::StaticClass(), Path, bExactClass));
}
template <class T>
T* FindFirstObject(const TCHAR* Name, EFindFirstObjectOptions Options = EFindFirstObjectOptions::None)
{
	return static_cast<T*>(StaticFindFirstObject(T::StaticClass(), Name, Options));
}
template <class T>
T* LoadObject(UObject* Outer, const TCHAR* Name, const TCHAR* Filename = nullptr, uint32 LoadFlags = LOAD_None)
{
	return static_cast<T*>(StaticLoadObject(T::StaticClass(), Outer, Name, Filename, LoadFlags));
}

/** The package of that name, made when there is none. */
UPackage* CreatePackage(const TCHAR* PackageName);
UPackage* FindPackage(UObject* Outer, const TCHAR* PackageName);
/** Reads a package file by long package name; null with a logged reason. */
UPackage* LoadPackage(UPackage* Outer, const TCHAR* LongPackageName, uint32 LoadFlags);

/** Frees what was marked as garbage, with all below it. Keep flags and the purge flag are taken and mean nothing more
 * here. */
void CollectGarbage(EObjectFlags KeepFlags = RF_NoFlags, bool bPerformFullPurge = true);

struct FCoreUObjectDelegates
{
	/** After each CollectGarbage, also one that found nothing to free. */
	static FSimpleMulticastDelegate& GetPostGarbageCollect();

	/** Whether a package may be written to that file; the device is told why not. */
	using FIsPackageOKToSaveDelegate = TDelegate<bool(UPackage*, const FString&, FOutputDevice*)>;
	/** Refuses the files of the engine's editor, which this one only reads. */
	static FIsPackageOKToSaveDelegate IsPackageOKToSaveDelegate;
};

/** A name that no object has below Outer: the base name (the class's if none), '_' and a number. */
FName MakeUniqueObjectName(UObject* Outer, const UClass* Class, FName BaseName = NAME_None);
bool IsUniqueObjectName(FName Name, const UObject* Outer);

/** The objects whose outer is the given one, in order of creation; with bIncludeNested those below them too, depth
 * first. */
void GetObjectsWithOuter(const UObject* Outer, TArray<UObject*>& Results, bool bIncludeNestedObjects = true);
void ForEachObjectWithOuter(
	const UObject* Outer, TFunctionRef<void(UObject*)> Operation, bool bIncludeNestedObjects = true);
void GetObjectsOfClass(const UClass* Class, TArray<UObject*>& Results, bool bIncludeDerived = true);
/** Classes in memory below the given one. Catalogued classes count without their members being read. */
void GetDerivedClasses(const UClass* Class, TArray<UClass*>& Results, bool bRecursive = true);

template <class T>
T* GetMutableDefault();
template <class T>
const T* GetDefault();

#include "UObject/Class.h"
