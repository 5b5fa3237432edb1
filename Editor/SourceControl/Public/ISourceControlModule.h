#pragma once

#include "CoreMinimal.h"

#include "ISourceControlOperation.h"
#include "ISourceControlProvider.h"
#include "ISourceControlState.h"
#include "Modules/ModuleInterface.h"

/** Picks the provider: git when the project folder lies in a git work tree, otherwise none. */
class ISourceControlModule : public IModuleInterface
{
public:
	static ISourceControlModule& Get();

	virtual ISourceControlProvider& GetProvider() const = 0;
	virtual bool IsEnabled() const = 0;
	/** Puts another provider in the place of the picked one; null takes it back. For tests; not of the engine. */
	virtual void OverrideProvider(ISourceControlProvider* Provider) = 0;
};

/** The factory for FModuleManager::RegisterStaticModule, under the name "SourceControl". */
IModuleInterface* CreateModule_SourceControl();
