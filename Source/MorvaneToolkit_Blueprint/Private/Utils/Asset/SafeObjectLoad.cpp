#include "Utils/Asset/SafeObjectLoad.h"

#include "SafeAssetLoader.h"
#include "ToolResult.h"
#include "UObject/Object.h"
#include "UObject/UObjectGlobals.h"

namespace SafeObjectLoadImpl
{
/** The object, or null with the reason. */
static UObject* Load(const FString& Path, FString& OutReason)
{
	if (Path.IsEmpty())
	{
		OutReason = TEXT("Empty object path provided");
		return nullptr;
	}
	if (!FSafeAssetLoader::IsValidAssetPath(Path))
	{
		OutReason = FString::Printf(TEXT("Invalid asset path format: %s"), *Path);
		return nullptr;
	}
	// Native classes are in memory or nowhere; the registry knows assets only.
	const bool bNative = Path.StartsWith(TEXT("/Script/"), ESearchCase::IgnoreCase);
	if (!bNative && !FSafeAssetLoader::AssetExistsInRegistry(Path))
	{
		OutReason = FString::Printf(TEXT("Asset not found in registry: %s"), *Path);
		return nullptr;
	}
	UObject* const Object = StaticLoadObject(UObject::StaticClass(), nullptr, *Path, nullptr, LOAD_Quiet | LOAD_NoWarn);
	if (!Object)
	{
		OutReason = FString::Printf(TEXT("Failed to load or find object: %s"), *Path);
	}
	return Object;
}
} // namespace SafeObjectLoadImpl

UObject* SafeObjectLoad::LoadObjectSafe(const FString& Path, Morvane::FToolResult& Result)
{
	FString Reason;
	UObject* const Object = SafeObjectLoadImpl::Load(Path, Reason);
	if (!Object)
	{
		Result.AddWarningMessage(Reason);
	}
	return Object;
}

UObject* SafeObjectLoad::TryLoad(const FString& Path)
{
	FString Ignored;
	return SafeObjectLoadImpl::Load(Path, Ignored);
}
