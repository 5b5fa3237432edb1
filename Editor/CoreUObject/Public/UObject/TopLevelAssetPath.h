#pragma once

#include "CoreMinimal.h"

class UObject;

/** Package name and asset name of a top-level object: "/Script/Engine.Actor". */
struct FTopLevelAssetPath
{
	FTopLevelAssetPath() = default;
	FTopLevelAssetPath(FName InPackageName, FName InAssetName)
		: PackageName(InPackageName)
		, AssetName(InAssetName)
	{
	}
	explicit FTopLevelAssetPath(const UObject* Object);
	explicit FTopLevelAssetPath(const TCHAR* Path) { TrySetPath(Path); }
	explicit FTopLevelAssetPath(const FString& Path) { TrySetPath(Path); }

	/**
	 * Takes a full path that begins with '/', also behind "Class'...'", or a package path alone. A short name, an empty
	 * text or a sub-object path gives false and leaves the path null.
	 */
	bool TrySetPath(const TCHAR* Path);
	bool TrySetPath(const FString& Path) { return TrySetPath(*Path); }

	FName GetPackageName() const { return PackageName; }
	FName GetAssetName() const { return AssetName; }
	FString ToString() const;
	void AppendString(FString& Out) const;
	bool IsNull() const { return PackageName.IsNone(); }
	bool IsValid() const { return !PackageName.IsNone(); }
	void Reset() { *this = FTopLevelAssetPath(); }
	bool operator==(const FTopLevelAssetPath& Other) const = default;

private:
	FName PackageName;
	FName AssetName;
};

inline uint32 GetTypeHash(const FTopLevelAssetPath& Path)
{
	return HashCombine(GetTypeHash(Path.GetPackageName()), GetTypeHash(Path.GetAssetName()));
}
