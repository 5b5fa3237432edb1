#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UObject;
class UClass;
class UStruct;
class UPackage;

/**
 * Where objects come from that are not in memory yet. The object system asks; whoever holds the data answers. Each
 * source sets its functions once at start-up; a function left null is never asked. Text arguments are not terminated.
 */
namespace ObjectProviders
{
/** Reflection objects that are kept as data until somebody asks for them by name. */
struct FLazyObjects
{
	/**
	 * The top-level class, struct, enum or delegate signature of a script package ("/Script/Engine", "Actor"), made now
	 * if it is known; else null. Names compare ignoring case. Asked only after memory was searched.
	 */
	UObject* (*FindByPath)(FStringView PackageName, FStringView ObjectName) = nullptr;

	/**
	 * The same by short name in any script package. Kind is what the caller wants: UClass, UScriptStruct, UEnum,
	 * UFunction, or a common base of them (UField, UObject) for whatever comes first.
	 */
	UObject* (*FindByShortName)(FStringView ObjectName, const UClass* Kind) = nullptr;

	/**
	 * Makes every object of that kind that is still data only (members stay unread), so that a walk over classes in
	 * memory is complete. Called before each such walk, so a second call must be cheap.
	 */
	void (*MakeAll)(const UClass* Kind) = nullptr;

	/**
	 * Adds what data knows of a native class or struct beyond its C++ description: properties, functions, interfaces,
	 * metadata. Called once for each, after the C++ description and before the struct is linked. A property that
	 * FindOwnProperty already gives must not be added again. A native struct takes metadata and functions only: its
	 * memory belongs to C++.
	 */
	void (*FillNativeMembers)(UStruct* Struct) = nullptr;

	/**
	 * Sets what data knows of a class's default values and default sub-objects on its new default object, which already
	 * has the parent's. Called for every class in /Script/ packages, native or not, parents first. Answers whether it
	 * changed anything.
	 */
	bool (*InitializeDefaults)(UClass* Class, UObject* DefaultObject) = nullptr;
};

/** Packages that stand in files. */
struct FPackageLoader
{
	/**
	 * Reads a package by long name ("/Game/A/BP_X") and answers it; one that is already read, or is being read right
	 * now, is answered as it stands. Null when there is none or it cannot be read; the reason goes to the log unless
	 * LoadFlags has LOAD_Quiet. Never asked for /Script/ names.
	 */
	UPackage* (*Load)(FStringView LongPackageName, uint32 LoadFlags) = nullptr;
};

/** Templates inside a class that start from a parent class's template and not from their own class's defaults. */
struct FTemplates
{
	/** Whether the object is one, as far as what it hangs on was read; asked before its own values are. */
	bool (*IsOverride)(const UObject& Template) = nullptr;
	/** What it starts from; null where that is not there, or the object is none. */
	UObject* (*FindArchetype)(const UObject& Template) = nullptr;
};

void SetLazyObjects(const FLazyObjects& Source);
const FLazyObjects& GetLazyObjects();
void SetPackageLoader(const FPackageLoader& Loader);
const FPackageLoader& GetPackageLoader();
void SetTemplates(const FTemplates& Source);
const FTemplates& GetTemplates();
} // namespace ObjectProviders

/**
 * Registers UObject, UField, UStruct, UClass and the other classes of /Script/CoreUObject, and its native structs
 * (Vector, Guid, ...). Start-up calls it before any other module's registration; calling it again does nothing.
 */
void RegisterCoreUObjectClasses();
