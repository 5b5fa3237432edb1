#pragma once

#include "CoreMinimal.h"
#include "IToolExecutor.h"
#include "Modules/ModuleManager.h"

/** Owns the tool executor for as long as the module is loaded. */
class MORVANETOOLKIT_API FMorvaneToolkitModule : public IModuleInterface
{
public:
	void StartupModule() override;
	void ShutdownModule() override;

	/** Null before start-up and after shutdown. */
	static TSharedPtr<IToolExecutor> GetToolExecutor();
	/** For a program that brings an executor of its own; null takes the present one away. */
	static void SetToolExecutor(const TSharedPtr<IToolExecutor>& Executor);
};
