#pragma once

#include "CoreMinimal.h"

/** A plug-in of the project: a folder with a .uplugin file and, as a rule, content of its own. */
class IPlugin
{
public:
	virtual ~IPlugin() = default;

	virtual const FString& GetName() const = 0;
	virtual const FString& GetFriendlyName() const = 0;
	/** Without a slash at the end. */
	virtual FString GetBaseDir() const = 0;
	virtual FString GetContentDir() const = 0;
	/** "/Name/" */
	virtual FString GetMountedAssetPath() const = 0;
	virtual bool IsEnabled() const = 0;
	virtual bool CanContainContent() const = 0;
};

class IPluginManager
{
public:
	static IPluginManager& Get();
	virtual ~IPluginManager() = default;

	/** Reads the plug-ins of the project anew. Opening a project does it. */
	virtual void RefreshPluginsList() = 0;
	/** Ignores case; null when there is none. */
	virtual TSharedPtr<IPlugin> FindPlugin(const FString& Name) = 0;
	/** All lists are sorted by name. */
	virtual TArray<TSharedRef<IPlugin>> GetDiscoveredPlugins() = 0;
	virtual TArray<TSharedRef<IPlugin>> GetEnabledPluginsWithContent() const = 0;
};
