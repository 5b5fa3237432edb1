#pragma once

#include "CoreMinimal.h"

#include "AssetRegistry/AssetData.h"

struct FARFilter;

/**
 * The assets of the mounted content folders, and those in memory that are on no disk yet. Folders are scanned when
 * somebody first asks, and again when other ones are mounted; a scan reads the headers of package files and loads
 * nothing. Every list is sorted by path, ignoring case. What is in memory hides what is on disk.
 */
class IAssetRegistry
{
public:
	static IAssetRegistry* Get();
	static IAssetRegistry& GetChecked();
	virtual ~IAssetRegistry() = default;

	/** All of the Get functions append, and answer whether anything was found. */
	virtual bool GetAssets(
		const FARFilter& Filter, TArray<FAssetData>& OutAssets, bool bSkipARFilteredAssets = true) const = 0;
	virtual bool GetAllAssets(TArray<FAssetData>& OutAssets, bool bIncludeOnlyOnDiskAssets = false) const = 0;
	virtual bool GetAssetsByPackageName(FName PackageName, TArray<FAssetData>& OutAssets,
		bool bIncludeOnlyOnDiskAssets = false, bool bSkipARFilteredAssets = true) const = 0;
	virtual bool GetAssetsByPath(FName PackagePath, TArray<FAssetData>& OutAssets, bool bRecursive = false,
		bool bIncludeOnlyOnDiskAssets = false) const = 0;
	virtual bool GetAssetsByClass(
		const FTopLevelAssetPath& ClassPath, TArray<FAssetData>& OutAssets, bool bSearchSubClasses = false) const = 0;
	/** Assets of that short name, ignoring case, in constant time. Not of the engine. */
	virtual bool GetAssetsByName(FName AssetName, TArray<FAssetData>& OutAssets) const = 0;
	/** Not valid when there is none. Looks at the disk for a file that has appeared since the scan. */
	virtual FAssetData GetAssetByObjectPath(
		const FSoftObjectPath& ObjectPath, bool bIncludeOnlyOnDiskAssets = false) const = 0;
	/** Packages whose files name the package. Files are read for it; what was changed in memory alone is not seen. */
	virtual bool GetReferencers(FName PackageName, TArray<FName>& OutReferencers) const = 0;
	virtual bool HasAssets(FName PackagePath, bool bRecursive = false) const = 0;

	virtual void SearchAllAssets(bool bSynchronousSearch) = 0;
	/** Package paths ("/Game/Doors"). Folders below them are read again whatever was known. */
	virtual void ScanPathsSynchronous(const TArray<FString>& Paths, bool bForceRescan = false) = 0;

	virtual void AssetCreated(UObject* NewAsset) = 0;
	/** Called while the asset still has its path. */
	virtual void AssetDeleted(UObject* DeletedAsset) = 0;
	virtual void AssetSaved(const UObject& SavedAsset) = 0;
	virtual void PackageDeleted(UPackage* DeletedPackage) = 0;
};
