#pragma once

#include "AssetRegistry/AssetData.h"
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

/** What somebody wants to see of the assets. Each text is empty for any, and compared ignoring case. */
struct FAssetQuery
{
	/** "/Game/Doors", "/Engine", or one asset; empty for all of the project. */
	FString Folder;
	/** Short name or path; those that derive from it count. */
	FString Class;
	/** Part of the name. */
	FString Word;
};

namespace AssetSearch
{
/** Sorted by path. The engine's own assets are found below their folder only. */
TArray<FAssetData> Find(const FAssetQuery& Query);
/** "path" and "class", and "parent" of a Blueprint. */
TSharedRef<FJsonObject> Describe(const FAssetData& Asset);
/** Whether the query asks for this one asset. */
bool IsAskedByPath(const FAssetQuery& Query, const FAssetData& Asset);
/** As Describe, with "contents" where the asset is no Blueprint. Reads it. */
TSharedRef<FJsonObject> DescribeWhole(const FAssetData& Asset);
} // namespace AssetSearch
