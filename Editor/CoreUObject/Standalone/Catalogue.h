#pragma once

#include "CoreMinimal.h"

class UClass;
class UObject;

namespace Catalogue
{
class FLoadedImage;
}

/**
 * The engine's reflected classes, structs, enums and delegate signatures that are known as data, and those that a
 * project adds. They are part of the program: start-up reads nothing. An object is made when somebody asks for it by
 * path; its members when somebody asks for those. A native class of the same path keeps its C++ members and gets the
 * rest from here.
 */
class FCatalogue
{
public:
	static FCatalogue& Get();

	/**
	 * Makes the object system ask here for what is not in memory (see ObjectProviders). Start-up calls it once, before
	 * anything is looked up; calling it again does nothing.
	 */
	void Install();

	/**
	 * The class, struct, enum or signature at a path ("/Script/Engine.Actor",
	 * "/Script/UMG.Slider:OnX__DelegateSignature"), native or not; null when nobody knows it. Ignores case.
	 */
	UObject* FindOrCreate(FStringView Path);

	/**
	 * Visits what the catalogue knows of a kind (UClass, UScriptStruct, UEnum, UDelegateFunction or a common base),
	 * without making anything: the path, and the parent's path, empty for none. Engine entries first, sorted by module
	 * and path.
	 */
	void ForEachPath(
		const UClass* Kind, TFunctionRef<void(const FString& Path, const FString& ParentPath)> Visit) const;

	/** How many of the paths that ForEachPath gives for all kinds (UField) are the engine's: those that never go. */
	int32 GetNumEnginePaths() const;

	/**
	 * Reads the .jsonl files below Config/Catalogue of a project folder, in order of name, in place of those of the
	 * project before. A file with a fault is left out whole, with one "file:line: reason" for each fault in OutErrors;
	 * so is one that refers to a file left out. The others count. True when there was no fault; a project without such
	 * files has none.
	 */
	bool LoadProjectCatalogue(const FString& ProjectFolder, TArray<FString>& OutErrors);

	/** Forgets the project's entries and marks what was made from them as garbage; assets that use them must be gone.
	 */
	void UnloadProjectCatalogue();

	/** Another number after each change of the project's entries; tells caches that theirs may be gone. */
	uint32 GetGeneration() const { return Generation; }

	/** How many classes and structs have had their members read; tells tests and benchmarks that nothing was read in
	 * vain. */
	int32 GetNumFilled() const;

private:
	FCatalogue();

	TUniquePtr<Catalogue::FLoadedImage> Engine;
	TUniquePtr<Catalogue::FLoadedImage> Project;
	uint32 Generation = 0;
	bool bInstalled = false;
};
