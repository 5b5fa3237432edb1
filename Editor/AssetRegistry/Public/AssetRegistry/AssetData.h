#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/SoftObjectPath.h"
#include "UObject/TopLevelAssetPath.h"

class UClass;
class UPackage;

/** What the registry knows of one asset, in memory or on disk. Copies are cheap beside what they spare: loading it. */
struct FAssetData
{
	/** "/Game/Doors/BP_Door" */
	FName PackageName;
	/** "/Game/Doors" */
	FName PackagePath;
	/** "BP_Door" */
	FName AssetName;
	FTopLevelAssetPath AssetClassPath;
	TMap<FName, FString> TagsAndValues;

	FAssetData() = default;
	FAssetData(FName InPackageName, FName InAssetName, const FTopLevelAssetPath& InClassPath);
	explicit FAssetData(const UObject* InAsset);

	bool IsValid() const { return !PackageName.IsNone() && !AssetName.IsNone(); }
	FString GetObjectPathString() const;
	FSoftObjectPath GetSoftObjectPath() const { return FSoftObjectPath(FTopLevelAssetPath(PackageName, AssetName)); }

	/** The asset, loaded when it must be; null when it cannot be. */
	UObject* GetAsset() const;
	UObject* FastGetAsset(bool bLoad = false) const;
	/** The asset's class, if it is in memory. */
	UClass* GetClass() const;
	bool IsInstanceOf(const UClass* BaseClass) const;
	bool IsAssetLoaded() const { return FastGetAsset(false) != nullptr; }

	bool GetTagValue(FName Tag, FString& OutValue) const;
	/** Empty (or None) when the asset has no such tag. */
	template <typename ValueType>
	ValueType GetTagValueRef(FName Tag) const
	{
		ValueType Value;
		GetTagValue(Tag, Value);
		return Value;
	}

	bool operator==(const FAssetData& Other) const
	{
		return PackageName == Other.PackageName && AssetName == Other.AssetName;
	}
	/** By path, ignoring case. */
	bool operator<(const FAssetData& Other) const;
};

inline uint32 GetTypeHash(const FAssetData& Data)
{
	return HashCombine(GetTypeHash(Data.PackageName), GetTypeHash(Data.AssetName));
}
