#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleManager.h"

class ITool;

/**
 * Publishes this module's tools to the tool executor, and its read tools to the read registry, for as long as it is
 * loaded. Without an executor it does nothing; a tool that the executor refuses stays unreachable. Neither is reported.
 */
class MORVANETOOLKIT_BLUEPRINT_API FMorvaneToolkitBlueprintModule : public IModuleInterface
{
public:
	void StartupModule() override;
	void ShutdownModule() override;

	/** The tools that the executor accepted, in that order. */
	const TArray<FString>& GetRegisteredTools() const { return RegisteredTools; }
	/** One for each tool of the table, in its order, accepted or not; null while the module is not started. */
	const TArray<TSharedPtr<ITool>>& GetToolHolders() const { return ToolHolders; }

private:
	TArray<FString> RegisteredTools;
	TArray<TSharedPtr<ITool>> ToolHolders;
};
