#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ObjectSaveContext.h"

struct FSavePackageArgs;
struct FSavePackageResultStruct;

enum EPackageFlags : uint32
{
	PKG_None = 0,
	PKG_NewlyCreated = 1,
	PKG_CompiledIn = 0x10,
};

/** The top of a tree of objects and what is one file on disk. */
class UPackage : public UObject
{
	EDITOR_CLASS(UPackage, UObject)

public:
	bool IsDirty() const { return bDirty; }
	void SetDirtyFlag(bool bIsDirty) { bDirty = bIsDirty; }
	void ClearDirtyFlag() { bDirty = false; }
	FString GetLoadedPathName() const { return FileName; }
	/** The asset: the top object that is not a class, default or metadata object. Null while there is none. */
	UObject* FindAssetInPackage() const;

	/**
	 * Writes the package's objects to a file in the object text form: beside the target, flushed and renamed over it,
	 * so that any failure leaves what stood there. Never overwrites a file of another kind or of a newer format
	 * version.
	 */
	static FSavePackageResultStruct Save(
		UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs);
	static bool SavePackage(
		UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs);

	/** After a package was written: its file and the package. */
	using FOnPackageSaved = TMulticastDelegate<void(const FString&, UPackage*, FObjectPostSaveContext)>;
	static FOnPackageSaved PackageSavedWithContextEvent;

	uint32 PackageFlags = PKG_None;
	/** The file the package was read from or last saved to; empty for one that exists in memory only. */
	FString FileName;

private:
	bool bDirty = false;
};
