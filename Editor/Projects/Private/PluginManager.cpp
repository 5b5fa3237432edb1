#include "Interfaces/IPluginManager.h"

#include "Dom/JsonObject.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Serialization/JsonSerializer.h"
#include "Standalone/PathConfinement.h"

#include <dirent.h>

namespace Plugins
{
DEFINE_LOG_CATEGORY_STATIC(LogPluginManager, Log, All);

class FPlugin final : public IPlugin
{
public:
	FPlugin(const FString& InDescriptorFile)
		: DescriptorFile(InDescriptorFile)
		, Name(FPaths::GetBaseFilename(InDescriptorFile))
		, FriendlyName(Name)
	{
	}

	const FString& GetName() const override { return Name; }
	const FString& GetFriendlyName() const override { return FriendlyName; }
	FString GetBaseDir() const override { return FPaths::GetPath(DescriptorFile); }
	FString GetContentDir() const override { return GetBaseDir() / TEXT("Content"); }
	FString GetMountedAssetPath() const override { return TEXT("/") + Name + TEXT("/"); }
	bool IsEnabled() const override { return bEnabled; }
	bool CanContainContent() const override { return bCanContainContent; }

	const FString DescriptorFile;
	const FString Name;
	FString FriendlyName;
	bool bEnabled = true;
	bool bCanContainContent = false;
};

/** Sub-folders by name, hidden ones left out. Links count when they lead to folders. */
static TArray<FString> FoldersIn(const FString& Directory)
{
	TArray<FString> Names;
	if (DIR* const Handle = opendir(TCHAR_TO_UTF8(*Directory)))
	{
		while (const dirent* const Entry = readdir(Handle))
		{
			const FString Name = FromUtf8(Entry->d_name);
			if (!Name.StartsWith(TEXT(".")) && IFileManager::Get().DirectoryExists(*(Directory / Name)))
			{
				Names.Add(Name);
			}
		}
		closedir(Handle);
	}
	Names.Sort(
		[](const FString& Left, const FString& Right) { return Left.Compare(Right, ESearchCase::CaseSensitive) < 0; });
	return Names;
}

/** The file of that extension that describes the folder: the one that bears its name, else the first. */
static FString DescriptorIn(const FString& Directory, const TCHAR* Extension)
{
	const FString ByFolder = Directory / (FPaths::GetCleanFilename(Directory) + Extension);
	if (IFileManager::Get().FileExists(*ByFolder))
	{
		return ByFolder;
	}
	TArray<FString> Names;
	if (DIR* const Handle = opendir(TCHAR_TO_UTF8(*Directory)))
	{
		while (const dirent* const Entry = readdir(Handle))
		{
			Names.Add(FromUtf8(Entry->d_name));
		}
		closedir(Handle);
	}
	Names.RemoveAll([Extension](const FString& Name) { return !Name.EndsWith(Extension); });
	Names.Sort(
		[](const FString& Left, const FString& Right) { return Left.Compare(Right, ESearchCase::CaseSensitive) < 0; });
	return Names.IsEmpty() ? FString() : Directory / Names[0];
}

static TSharedPtr<FJsonObject> ReadJson(const FString& Filename)
{
	FString Text;
	FString Error;
	TSharedPtr<FJsonObject> Object;
	if (FFileHelper::LoadFileToString(Text, *Filename, Error))
	{
		const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(Text);
		FJsonSerializer::Deserialize(Reader, Object);
		Error = Reader->GetErrorMessage();
	}
	UE_CLOG(!Object.IsValid(), LogPluginManager, Warning, TEXT("%s: %s"), *Filename, *Error);
	return Object;
}

/** What the project says about plug-ins: name to enabled. */
static TMap<FString, bool> ReadProjectChoices()
{
	TMap<FString, bool> Choices;
	FString Project = FPaths::ProjectDir();
	FPaths::NormalizeDirectoryName(Project);
	const FString Descriptor = DescriptorIn(Project, TEXT(".uproject"));
	if (Descriptor.IsEmpty())
	{
		return Choices;
	}
	const TSharedPtr<FJsonObject> Root = ReadJson(Descriptor);
	const TArray<TSharedPtr<FJsonValue>>* Listed = nullptr;
	if (Root.IsValid() && Root->TryGetArrayField(TEXT("Plugins"), Listed))
	{
		for (const TSharedPtr<FJsonValue>& Entry : *Listed)
		{
			const TSharedPtr<FJsonObject>* Plugin = nullptr;
			FString Name;
			bool bEnabled = true;
			if (Entry->TryGetObject(Plugin) && (*Plugin)->TryGetStringField(TEXT("Name"), Name))
			{
				(*Plugin)->TryGetBoolField(TEXT("Enabled"), bEnabled);
				Choices.Add(Name, bEnabled);
			}
		}
	}
	return Choices;
}

static bool IsReservedRoot(const FString& Name)
{
	for (const TCHAR* const Reserved : {TEXT("Game"), TEXT("Engine"), TEXT("Script"), TEXT("Temp"), TEXT("Memory")})
	{
		if (Name.Equals(Reserved, ESearchCase::IgnoreCase))
		{
			return true;
		}
	}
	return false;
}

class FPluginManager final : public IPluginManager
{
public:
	void RefreshPluginsList() override
	{
		Found.Empty();
		const TMap<FString, bool> Choices = ReadProjectChoices();
		FString Directory = FPaths::ConvertRelativePathToFull(FPaths::ProjectPluginsDir());
		FPaths::NormalizeDirectoryName(Directory);
		FindBelow(Directory, Choices, 0);
		Found.Sort(
			[](const TSharedRef<FPlugin>& Left, const TSharedRef<FPlugin>& Right) { return Left->Name < Right->Name; });
	}

	TSharedPtr<IPlugin> FindPlugin(const FString& Name) override
	{
		for (const TSharedRef<FPlugin>& Plugin : Found)
		{
			if (Plugin->Name.Equals(Name, ESearchCase::IgnoreCase))
			{
				return TSharedPtr<IPlugin>(Plugin);
			}
		}
		return nullptr;
	}

	TArray<TSharedRef<IPlugin>> GetDiscoveredPlugins() override
	{
		return Select([](const FPlugin&) { return true; });
	}
	TArray<TSharedRef<IPlugin>> GetEnabledPluginsWithContent() const override
	{
		return Select([](const FPlugin& Plugin) { return Plugin.bEnabled && Plugin.bCanContainContent; });
	}

private:
	TArray<TSharedRef<IPlugin>> Select(TFunctionRef<bool(const FPlugin&)> Wanted) const
	{
		TArray<TSharedRef<IPlugin>> Result;
		for (const TSharedRef<FPlugin>& Plugin : Found)
		{
			if (Wanted(*Plugin))
			{
				Result.Add(Plugin);
			}
		}
		return Result;
	}

	/** Plug-ins may stand in folders that only group them; below a plug-in there is no other one. */
	void FindBelow(const FString& Directory, const TMap<FString, bool>& Choices, int32 Depth)
	{
		constexpr int32 MaxGrouping = 3;
		for (const FString& Name : FoldersIn(Directory))
		{
			const FString Folder = Directory / Name;
			FString Reason;
			if (!FPathConfinement::IsInside(Folder, Reason))
			{
				UE_LOG(LogPluginManager, Warning, TEXT("The plug-in folder is passed over: %s"), *Reason);
				continue;
			}
			const FString Descriptor = DescriptorIn(Folder, TEXT(".uplugin"));
			if (!Descriptor.IsEmpty())
			{
				Add(Descriptor, Choices);
			}
			else if (Depth + 1 < MaxGrouping)
			{
				FindBelow(Folder, Choices, Depth + 1);
			}
		}
	}

	void Add(const FString& Descriptor, const TMap<FString, bool>& Choices)
	{
		const TSharedRef<FPlugin> Plugin = MakeShared<FPlugin>(Descriptor);
		if (IsReservedRoot(Plugin->Name) || FindPlugin(Plugin->Name).IsValid())
		{
			UE_LOG(LogPluginManager, Warning, TEXT("%s: a plug-in cannot be called '%s' here"), *Descriptor,
				*Plugin->Name);
			return;
		}
		const TSharedPtr<FJsonObject> Root = ReadJson(Descriptor);
		if (!Root.IsValid())
		{
			return;
		}
		Root->TryGetStringField(TEXT("FriendlyName"), Plugin->FriendlyName);
		Root->TryGetBoolField(TEXT("EnabledByDefault"), Plugin->bEnabled);
		Root->TryGetBoolField(TEXT("CanContainContent"), Plugin->bCanContainContent);
		Plugin->bCanContainContent |= IFileManager::Get().DirectoryExists(*Plugin->GetContentDir());
		if (const bool* const Choice = Choices.Find(Plugin->Name))
		{
			Plugin->bEnabled = *Choice;
		}
		Found.Add(Plugin);
	}

	TArray<TSharedRef<FPlugin>> Found;
};
} // namespace Plugins

IPluginManager& IPluginManager::Get()
{
	static Plugins::FPluginManager Manager;
	return Manager;
}
