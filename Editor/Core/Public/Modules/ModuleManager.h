#pragma once

#include "Containers/Array.h"
#include "Containers/Map.h"
#include "Modules/ModuleInterface.h"
#include "Templates/Function.h"
#include "Templates/UniquePtr.h"
#include "UObject/NameTypes.h"

/** The modules of this process. All are linked in; the start-up code names each once through RegisterStaticModule. */
class FModuleManager
{
public:
	using FFactory = IModuleInterface* (*)();

	static FModuleManager& Get();

	/** Makes a module known without starting it. A second registration of the name changes nothing. */
	void RegisterStaticModule(FName Name, FFactory Factory);
	bool IsModuleLoaded(FName Name) const;
	/** Starts it on first use; null when the name is not registered. */
	IModuleInterface* LoadModule(FName Name);
	IModuleInterface& LoadModuleChecked(FName Name);
	/** Null unless it has been started. */
	IModuleInterface* GetModule(FName Name) const;
	bool UnloadModule(FName Name);
	/** Shuts down in the reverse order of the starts. */
	void UnloadModulesAtShutdown();

	template <typename ModuleType>
	static ModuleType& LoadModuleChecked(FName Name)
	{
		return static_cast<ModuleType&>(Get().LoadModuleChecked(Name));
	}

private:
	TMap<FName, FFactory> Factories;
	TMap<FName, TUniquePtr<IModuleInterface>> Loaded;
};

/** A module that has nothing to do at start and end. */
class FDefaultModuleImpl : public IModuleInterface
{
};

/** Defines CreateModule_<Name>(), the factory that start-up code hands to RegisterStaticModule, seen from every
 * library. */
#define IMPLEMENT_MODULE(ImplClass, ModuleName) \
	__attribute__((visibility("default"))) IModuleInterface* CreateModule_##ModuleName(); \
	IModuleInterface* CreateModule_##ModuleName() \
	{ \
		return new ImplClass; \
	} \
	static_assert(true, "")
