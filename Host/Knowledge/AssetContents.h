#pragma once

#include "AssetRegistry/AssetData.h"
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

/** What an asset holds that is no Blueprint, for somebody whose graphs refer to it. */
namespace AssetContents
{
/**
 * "row_struct" and "rows" of a data table, "entries" of an enum and of a string table, "members" of a struct,
 * "properties" of everything else. Empty for a Blueprint, which the read tools show, and for what cannot be read.
 */
TSharedRef<FJsonObject> Describe(const FAssetData& Asset);
} // namespace AssetContents
