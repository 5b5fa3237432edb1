#include "SafeAssetLoader.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "Misc/PackageName.h"
#include "Modules/ModuleManager.h"

bool FSafeAssetLoader::IsValidAssetPath(const FString& Path)
{
	const FString ObjectPath = FPackageName::ExportTextPathToObjectPath(Path.TrimStartAndEnd());
	const FString PackageName = FPackageName::ObjectPathToPackageName(ObjectPath);
	if (ObjectPath.Contains(TEXT("..")) || !FPackageName::IsValidTextForLongPackageName(PackageName))
	{
		return false;
	}
	return ObjectPath.Len() == PackageName.Len() || FPackageName::IsValidObjectPath(ObjectPath);
}

bool FSafeAssetLoader::AssetExistsInRegistry(const FString& Path)
{
	if (!IsValidAssetPath(Path))
	{
		return false;
	}
	const FString ObjectPath = FPackageName::ExportTextPathToObjectPath(Path.TrimStartAndEnd());
	const FString PackageName = FPackageName::ObjectPathToPackageName(ObjectPath);
	if (FPackageName::IsScriptPackage(PackageName))
	{
		return false; // classes in memory are no assets
	}
	const FAssetRegistryModule& Module = FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry"));
	TArray<FAssetData> Assets;
	return Module.Get().GetAssetsByPackageName(FName(*PackageName), Assets);
}
