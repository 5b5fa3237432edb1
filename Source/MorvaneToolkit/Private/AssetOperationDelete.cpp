#include "AssetOperationBase.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "Engine/Blueprint.h"
#include "HAL/FileManager.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/PackageName.h"
#include "Misc/StringOutputDevice.h"
#include "Modules/ModuleManager.h"
#include "SourceControlHelpers.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/Package.h"

namespace AssetOperationDeletion
{
static IAssetRegistry& GetRegistry()
{
	return FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get();
}

/** The asset to delete; not valid after an error in the result. */
static FAssetData FindAsset(const FString& Path, const FString& TypeWord, Morvane::FToolResult& Result)
{
	const FAssetData Asset = GetRegistry().GetAssetByObjectPath(
		FSoftObjectPath(Path + TEXT(".") + FPackageName::GetShortName(Path)));
	if (!Asset.IsValid())
	{
		const FString File = FAssetOperationBase::FindPackageFile(Path);
		Result.AddErrorMessage(File.IsEmpty()
				? FString::Printf(TEXT("%s does not exist: %s"), *TypeWord, *Path)
				: FString::Printf(
					TEXT("%s cannot be deleted: the file '%s' cannot be read. Mend it, or remove it by hand.\n%s"),
					*TypeWord, *File, *FAssetOperationBase::AskWhyNotLoaded(Path)));
		return FAssetData();
	}
	const UClass* const Class = FindObject<UClass>(Asset.AssetClassPath);
	if (!Class || !Class->IsChildOf(UBlueprint::StaticClass()))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Asset '%s' is not a %s (class %s)"), *Path, *TypeWord,
			*Asset.AssetClassPath.GetAssetName().ToString()));
		return FAssetData();
	}
	return Asset;
}

/** Packages of assets that name this one, on disk and in memory, by path. */
static TArray<FString> FindReferencers(const FAssetData& Asset)
{
	TSet<FName> Packages;
	TArray<FName> OnDisk;
	GetRegistry().GetReferencers(Asset.PackageName, OnDisk);
	Packages.Append(OnDisk);
	if (UBlueprint* const Blueprint = Cast<UBlueprint>(Asset.FastGetAsset(false)))
	{
		TArray<UBlueprint*> InMemory;
		FBlueprintEditorUtils::GetDependentBlueprints(Blueprint, InMemory);
		for (const UBlueprint* const Dependent : InMemory)
		{
			Packages.Add(Dependent->GetOutermost()->GetFName());
		}
	}
	Packages.Remove(Asset.PackageName);
	TArray<FString> Names;
	for (const FName Package : Packages)
	{
		Names.Add(Package.ToString());
	}
	Names.Sort();
	return Names;
}

/** The asset's file: the one that is found, else the one it was read from or saved to, which may hide for now. */
static FString FindFile(const FString& Path)
{
	const FString File = FAssetOperationBase::FindPackageFile(Path);
	const UPackage* const Package = File.IsEmpty() ? FindPackage(nullptr, *Path) : nullptr;
	return Package ? Package->GetLoadedPathName() : File;
}

/** Through source control where there is one, which deletes the file itself. */
static bool TakeAway(const FString& Path, const FString& File, FString& OutError)
{
	if (!FAssetOperationBase::CanWritePackageFile(Path, File, OutError))
	{
		return false;
	}
	if (USourceControlHelpers::IsEnabled())
	{
		const bool bMarked = USourceControlHelpers::MarkFileForDelete(File);
		OutError = bMarked ? FString() : USourceControlHelpers::LastErrorMsg().ToString();
		return bMarked;
	}
	// The log alone is told why a file stays.
	FStringOutputDevice Heard;
	FOutputDeviceRedirector::Get()->AddOutputDevice(&Heard);
	const bool bGone = IFileManager::Get().Delete(*File);
	FOutputDeviceRedirector::Get()->Flush();
	FOutputDeviceRedirector::Get()->RemoveOutputDevice(&Heard);
	OutError = Heard;
	return bGone;
}

static bool DeleteFile(const FString& Path, const FString& TypeWord, Morvane::FToolResult& Result)
{
	const FString File = FindFile(Path);
	FString Reason;
	if (File.IsEmpty() || TakeAway(Path, File, Reason))
	{
		return true; // an asset that was never saved has no file
	}
	Result.AddErrorMessage(FString::Printf(TEXT("Failed to delete %s '%s':\n%s"), *TypeWord, *Path, *Reason));
	return false;
}

/** Takes the asset out of memory and out of the registry. Its objects are freed when the tool is done. */
static void Forget(const FAssetData& Asset)
{
	if (UObject* const Object = Asset.FastGetAsset(false))
	{
		FAssetRegistryModule::AssetDeleted(Object);
	}
	UPackage* const Package = CreatePackage(*Asset.PackageName.ToString());
	GetRegistry().PackageDeleted(Package);
	Package->MarkAsGarbage();
}
} // namespace AssetOperationDeletion

void FAssetOperationBase::ExecuteDeleteOperation(
	const FJsonObject& Args, Morvane::FToolResult& Result, const FString& TypeWord)
{
	using namespace AssetOperationDeletion;

	FString Path;
	if (!MorvaneJson::TryGetStringField(Args, Morvane::ToolInfo::FieldName_Path, Path))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Missing required field '%s'"), Morvane::ToolInfo::FieldName_Path));
		return;
	}
	Path = ResolveBlueprintPath(Path);
	const FAssetData Asset = FindAsset(Path, TypeWord, Result);
	if (!Asset.IsValid())
	{
		return;
	}
	const TArray<FString> Referencers = FindReferencers(Asset);
	if (!DeleteFile(Path, TypeWord, Result))
	{
		return;
	}
	Forget(Asset);
	if (!Referencers.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Deleted %s '%s' was still used by %d asset(s): %s"), *TypeWord,
			*Path, Referencers.Num(), *FString::Join(Referencers, TEXT(", "))));
	}
	Result.AddSuccessMessage(FString::Printf(TEXT("Successfully deleted %s: %s"), *TypeWord, *Path));
}
