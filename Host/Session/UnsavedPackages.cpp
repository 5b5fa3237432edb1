#include "Session/UnsavedPackages.h"

#include "AssetOperationBase.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "Misc/PackageName.h"
#include "Standalone/PackageText.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"
#include "UObject/UObjectIterator.h"

namespace UnsavedPackages
{
/** A package of the engine's own form, whose file is only read. */
static bool IsOnlyRead(const UPackage* Package)
{
	return FPackageText::IsBinaryFile(Package->FileName);
}

/** Dirty, and with something in it that a file could hold. */
static bool IsUnsaved(const UPackage* Package)
{
	return Package->IsDirty() && !IsOnlyRead(Package)
		&& !FPackageName::GetPackageMountPoint(Package->GetName()).IsNone()
		&& !FPackageName::IsScriptPackage(Package->GetName()) && Package->FindAssetInPackage() != nullptr;
}

/** None is older than the call: each call leaves its own with a file or takes it away again. */
static TArray<UPackage*> FindCreated()
{
	TArray<UPackage*> Created;
	for (TObjectIterator<UPackage> It; It; ++It)
	{
		if (It->FileName.IsEmpty() && IsUnsaved(*It))
		{
			Created.Add(*It);
		}
	}
	return Created;
}

static bool Save(UPackage* Package, Morvane::FToolResult& Result)
{
	if (!FAssetOperationBase::SaveAsset(Package->FindAssetInPackage(), Result))
	{
		return false;
	}
	FString Reason;
	if (!FAssetOperationBase::AddAssetToSourceControl(Package->GetName(), Reason))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("'%s' is saved, but could not be added to source control: %s"), *Package->GetName(), *Reason));
	}
	return true;
}

static void Discard(UPackage* Package)
{
	FAssetRegistryModule::AssetDeleted(Package->FindAssetInPackage());
	Package->MarkAsGarbage();
}

/** A change of one asset may reach others that use it. Those of binary packages are read afresh by the next call. */
static void TellOnlyRead(Morvane::FToolResult& Result)
{
	TArray<FString> Files;
	for (TObjectIterator<UPackage> It; It; ++It)
	{
		if (It->IsDirty() && IsOnlyRead(*It))
		{
			Files.Add(It->FileName);
		}
	}
	Files.Sort();
	for (const FString& File : Files)
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("%s uses what was changed and stays as it is, since binary packages are only read here"), *File));
	}
}

void EndCall(Morvane::FToolResult& Result)
{
	TellOnlyRead(Result);
	const bool bKeep = Result.WasSuccessful();
	for (UPackage* const Package : FindCreated())
	{
		if (!bKeep || !Save(Package, Result))
		{
			Discard(Package);
			Result.DropModifications();
		}
	}
}

TArray<FString> List()
{
	TArray<FString> Names;
	for (TObjectIterator<UPackage> It; It; ++It)
	{
		if (IsUnsaved(*It))
		{
			Names.Add(It->GetName());
		}
	}
	Names.Sort();
	return Names;
}
} // namespace UnsavedPackages
