#include "AssetOperationBase.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "Factories/Factory.h"
#include "Misc/FeedbackContext.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Misc/StringOutputDevice.h"
#include "Modules/ModuleManager.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"

namespace AssetOperationPlace
{
/** "'/Game/', '/MyPlugin/'": where assets may stand. */
static FString ListRoots()
{
	TArray<FString> Roots;
	FPackageName::QueryRootContentPaths(Roots);
	TArray<FString> Quoted;
	for (const FString& Root : Roots)
	{
		Quoted.Add(FString::Printf(TEXT("'%s'"), *Root));
	}
	return Quoted.IsEmpty() ? FString(TEXT("'/Game/'")) : FString::Join(Quoted, TEXT(", "));
}

/** Whether an asset may have this package name and this name; the error tells what would be right. */
static bool CheckPath(const FString& Path, const FString& Name, Morvane::FToolResult& Result)
{
	if (Path.IsEmpty())
	{
		Result.AddErrorMessage(
			TEXT("Cannot create asset: the path is empty. Use a path such as '/Game/Folder/BP_Name'."));
		return false;
	}
	if (Path.Contains(TEXT("..")))
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT(
				"Cannot create asset at '%s': the path must not hold '..'. Use a path such as '/Game/Folder/BP_Name'."),
			*Path));
		return false;
	}
	FText Reason;
	if (!FPackageName::IsValidTextForLongPackageName(Path, &Reason))
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Cannot create asset at '%s': %s Use a path such as '/Game/Folder/BP_Name'."), *Path,
				*Reason.ToString()));
		return false;
	}
	if (!FPackageName::IsValidLongPackageName(Path))
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT("Cannot create asset at '%s': assets of this project stand below %s."), *Path, *ListRoots()));
		return false;
	}
	if (!FName::IsValidXName(Name, INVALID_OBJECTNAME_CHARACTERS, &Reason))
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Cannot create asset: '%s' is no asset name: %s"), *Name, *Reason.ToString()));
		return false;
	}
	return true;
}

/** The first file that stands where the asset's own would, whatever its kind; empty when there is none. */
static FString FindFile(const FString& Path)
{
	const FString OwnFile = FAssetOperationBase::FindPackageFile(Path);
	if (!OwnFile.IsEmpty())
	{
		return OwnFile;
	}
	for (const TCHAR* const Extension : {TEXT(".uasset"), TEXT(".umap")})
	{
		const FString File = FPackageName::LongPackageNameToFilename(Path, Extension);
		if (FPaths::FileExists(File))
		{
			return File;
		}
	}
	return FString();
}

/** Whether nothing stands at the path, in memory or on disk. */
static bool CheckFree(const FString& Path, const FString& Name, Morvane::FToolResult& Result)
{
	const FAssetRegistryModule& Module = FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry"));
	const FAssetData Existing = Module.Get().GetAssetByObjectPath(FSoftObjectPath(Path + TEXT(".") + Name));
	if (Existing.IsValid())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Cannot create asset: '%s' already exists (class %s)."), *Path,
			*Existing.AssetClassPath.GetAssetName().ToString()));
		return false;
	}
	const FString File = FindFile(Path);
	if (!File.IsEmpty())
	{
		const FString Reason = FAssetOperationBase::AskWhyNotLoaded(Path);
		Result.AddErrorMessage(FString::Printf(
			TEXT(
				"Cannot create asset '%s': the file '%s' stands in its place and is no asset that can be read here.%s"),
			*Path, *File, Reason.IsEmpty() ? TEXT("") : *(TEXT("\n") + Reason)));
		return false;
	}
	const UPackage* const Package = FindPackage(nullptr, *Path);
	if (Package && Package->FindAssetInPackage())
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Cannot create asset: '%s' already exists (it is not saved yet)."), *Path));
		return false;
	}
	return true;
}
} // namespace AssetOperationPlace

UObject* FAssetOperationBase::CreateAsset(
	const FString& Path, const FString& Name, UClass* AssetClass, Morvane::FToolResult& Result, UFactory* Factory)
{
	if (!AssetOperationPlace::CheckPath(Path, Name, Result) || !AssetOperationPlace::CheckFree(Path, Name, Result))
	{
		return nullptr;
	}
	if (!AssetClass || !Factory)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Cannot create asset '%s': no class or factory was given."), *Path));
		return nullptr;
	}
	UPackage* const Package = CreatePackage(*Path);
	UObject* const Asset = Package ? Factory->FactoryCreateNew(AssetClass, Package, FName(*Name),
							   static_cast<EObjectFlags>(RF_Public | RF_Standalone | RF_Transactional), nullptr, GWarn)
								   : nullptr;
	if (!Asset)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Failed to create asset '%s' of class %s."), *Path, *AssetClass->GetName()));
		if (Package)
		{
			Package->MarkAsGarbage();
		}
		return nullptr;
	}
	FAssetRegistryModule::AssetCreated(Asset);
	Asset->MarkPackageDirty();
	return Asset;
}

bool FAssetOperationBase::SaveAsset(UObject* Asset, Morvane::FToolResult& Result)
{
	UPackage* const Package = Asset ? Asset->GetOutermost() : nullptr;
	if (!Package)
	{
		Result.AddErrorMessage(TEXT("Failed to save asset: there is no package to save."));
		return false;
	}
	const FString PackageName = Package->GetName();
	FString Filename;
	if (!FPackageName::TryConvertLongPackageNameToFilename(
			PackageName, Filename, FPackageName::GetAssetPackageExtension()))
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Failed to save asset '%s': it does not lie in the project."), *PackageName));
		return false;
	}
	FStringOutputDevice Reason;
	FSavePackageArgs Args;
	Args.TopLevelFlags = static_cast<EObjectFlags>(RF_Public | RF_Standalone);
	Args.Error = &Reason;
	// A Blueprint of a level is saved with its map.
	UObject* TopLevel = Asset;
	while (TopLevel->GetOuter() && TopLevel->GetOuter() != Package)
	{
		TopLevel = TopLevel->GetOuter();
	}
	if (UPackage::SavePackage(Package, TopLevel, *Filename, Args))
	{
		return true;
	}
	Result.AddErrorMessage(FString::Printf(TEXT("Failed to save asset '%s': %s"), *PackageName, *Reason));
	return false;
}

FString FAssetOperationBase::FindPackageFile(const FString& PackageName)
{
	FString File;
	return FPackageName::IsValidLongPackageName(PackageName) && FPackageName::DoesPackageExist(PackageName, &File)
		? File
		: FString();
}

FString FAssetOperationBase::AskWhyNotLoaded(const FString& PackageName)
{
	if (!FPackageName::IsValidLongPackageName(PackageName) || AssetOperationPlace::FindFile(PackageName).IsEmpty())
	{
		return FString();
	}
	FStringOutputDevice Heard;
	FOutputDeviceRedirector::Get()->AddOutputDevice(&Heard);
	LoadPackage(nullptr, *PackageName, LOAD_None);
	// Lines that other threads wrote wait for their turn, and the device ends here.
	FOutputDeviceRedirector::Get()->Flush();
	FOutputDeviceRedirector::Get()->RemoveOutputDevice(&Heard);
	return Heard;
}
