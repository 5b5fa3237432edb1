#pragma once

#include "AssetRegistry/AssetData.h"
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

/** What somebody wants to see of the assets. Each text is empty for any, and compared ignoring case. */
struct FAssetQuery
{
	/** "/Game/Doors", "/Engine"; empty for all of the project. */
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
} // namespace AssetSearch
