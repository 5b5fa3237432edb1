#include "Session/EditorModules.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "ISourceControlModule.h"
#include "Modules/ModuleManager.h"
#include "Standalone/AnimGraphClasses.h"
#include "Standalone/BlueprintGraphClasses.h"
#include "Standalone/Catalogue.h"
#include "Standalone/EngineClasses.h"
#include "Standalone/EngineContent.h"
#include "Standalone/GameplayTagsClasses.h"
#include "Standalone/ObjectProviders.h"
#include "Standalone/PackageText.h"
#include "Standalone/StandardMacros.h"
#include "Standalone/SubobjectDataInterfaceClasses.h"
#include "Standalone/UMGClasses.h"
#include "Standalone/UnrealEdClasses.h"

IModuleInterface* CreateModule_MorvaneCore();
IModuleInterface* CreateModule_MorvaneToolkit();
IModuleInterface* CreateModule_MorvaneToolkit_Blueprint();

namespace EditorModulesPrivate
{
static void RegisterModules()
{
	FModuleManager& Modules = FModuleManager::Get();
	Modules.RegisterStaticModule(TEXT("AssetRegistry"), &CreateModule_AssetRegistry);
	Modules.RegisterStaticModule(TEXT("SourceControl"), &CreateModule_SourceControl);
	Modules.RegisterStaticModule(TEXT("MorvaneCore"), &CreateModule_MorvaneCore);
	Modules.RegisterStaticModule(TEXT("MorvaneToolkit"), &CreateModule_MorvaneToolkit);
	Modules.RegisterStaticModule(TEXT("MorvaneToolkit_Blueprint"), &CreateModule_MorvaneToolkit_Blueprint);
}
} // namespace EditorModulesPrivate

void EditorModules::StartTools()
{
	EditorModulesPrivate::RegisterModules();
	FModuleManager::Get().LoadModule(TEXT("MorvaneCore"));
	FModuleManager::Get().LoadModule(TEXT("MorvaneToolkit"));
	FModuleManager::Get().LoadModule(TEXT("MorvaneToolkit_Blueprint"));
}

void EditorModules::StartEditor()
{
	static bool bStarted = false;
	if (bStarted)
	{
		return;
	}
	bStarted = true;
	RegisterCoreUObjectClasses();
	RegisterGameplayTagsClasses();
	RegisterEngineClasses();
	RegisterBlueprintGraphClasses();
	RegisterUMGClasses();
	RegisterAnimGraphClasses();
	RegisterUnrealEdClasses();
	RegisterSubobjectDataInterfaceClasses();
	FCatalogue::Get().Install();
	FPackageText::RegisterLoader();
	StandardMacros::Install();
	EngineContent::Install();
}

void EditorModules::StopTools()
{
	FModuleManager::Get().UnloadModule(TEXT("MorvaneToolkit_Blueprint"));
	FModuleManager::Get().UnloadModule(TEXT("MorvaneToolkit"));
	FModuleManager::Get().UnloadModule(TEXT("MorvaneCore"));
}
