#include "Modules/ModuleManager.h"

FModuleManager& FModuleManager::Get()
{
	static FModuleManager Manager;
	return Manager;
}

void FModuleManager::RegisterStaticModule(FName Name, FFactory Factory)
{
	Factories.FindOrAdd(Name, Factory);
}

bool FModuleManager::IsModuleLoaded(FName Name) const
{
	return Loaded.Contains(Name);
}

IModuleInterface* FModuleManager::LoadModule(FName Name)
{
	if (IModuleInterface* const Module = GetModule(Name))
	{
		return Module;
	}
	const FFactory Factory = Factories.FindRef(Name);
	if (!Factory)
	{
		return nullptr;
	}
	IModuleInterface* const Module = Factory();
	// Known before it starts, so that a module may ask for itself; what it loads in turn comes after it in the order.
	Loaded.Add(Name, TUniquePtr<IModuleInterface>(Module));
	Module->StartupModule();
	return Module;
}

IModuleInterface& FModuleManager::LoadModuleChecked(FName Name)
{
	IModuleInterface* const Module = LoadModule(Name);
	checkf(Module, TEXT("The module %ls was not registered"), Name.GetView().GetData());
	return *Module;
}

IModuleInterface* FModuleManager::GetModule(FName Name) const
{
	const TUniquePtr<IModuleInterface>* const Module = Loaded.Find(Name);
	return Module ? Module->Get() : nullptr;
}

bool FModuleManager::UnloadModule(FName Name)
{
	IModuleInterface* const Module = GetModule(Name);
	if (!Module)
	{
		return false;
	}
	Module->ShutdownModule();
	Loaded.Remove(Name);
	return true;
}

void FModuleManager::UnloadModulesAtShutdown()
{
	TArray<FName> Names;
	Loaded.GetKeys(Names);
	while (!Names.IsEmpty())
	{
		UnloadModule(Names.Pop());
	}
}
