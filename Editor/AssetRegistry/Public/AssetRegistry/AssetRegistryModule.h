#pragma once

#include "AssetRegistry/IAssetRegistry.h"
#include "Modules/ModuleManager.h"

class FAssetRegistryModule : public IModuleInterface
{
public:
	static IAssetRegistry& GetRegistry();
	IAssetRegistry& Get() const { return GetRegistry(); }

	static void AssetCreated(UObject* NewAsset) { GetRegistry().AssetCreated(NewAsset); }
	static void AssetDeleted(UObject* DeletedAsset) { GetRegistry().AssetDeleted(DeletedAsset); }
};

/** The factory for FModuleManager::RegisterStaticModule, under the name "AssetRegistry". */
IModuleInterface* CreateModule_AssetRegistry();
