#include "Session/UnsavedPackages.h"

#include "AssetOperationBase.h"
#include "Misc/PackageName.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"
#include "UObject/UObjectIterator.h"

namespace UnsavedPackagesPrivate
{
/** Dirty, and with something in it that a file could hold. */
bool IsUnsaved(const UPackage* Package)
{
	return Package->IsDirty() && !FPackageName::GetPackageMountPoint(Package->GetName()).IsNone()
		&& !FPackageName::IsScriptPackage(Package->GetName()) && Package->FindAssetInPackage() != nullptr;
}

TArray<UPackage*> FindCreated()
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

void Save(UPackage* Package, Morvane::FToolResult& Result)
{
	if (!FAssetOperationBase::SaveAsset(Package->FindAssetInPackage(), Result))
	{
		return;
	}
	FString Reason;
	if (!FAssetOperationBase::AddAssetToSourceControl(Package->GetName(), Reason))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("'%s' is saved, but could not be added to source control: %s"), *Package->GetName(), *Reason));
	}
}
} // namespace UnsavedPackagesPrivate

void FUnsavedPackages::EndCall(Morvane::FToolResult& Result)
{
	const bool bKeep = Result.WasSuccessful();
	for (UPackage* Package : UnsavedPackagesPrivate::FindCreated())
	{
		if (IsLeftBehind(Package))
		{
			continue;
		}
		if (bKeep)
		{
			UnsavedPackagesPrivate::Save(Package, Result);
		}
		if (Package->IsDirty())
		{
			LeftBehind.Add(Package);
		}
	}
}

bool FUnsavedPackages::IsLeftBehind(const UPackage* Package) const
{
	return LeftBehind.ContainsByPredicate(
		[Package](const TWeakObjectPtr<UPackage>& Known) { return Known.Get() == Package; });
}

TArray<FString> FUnsavedPackages::ListUnsaved()
{
	TArray<FString> Names;
	for (TObjectIterator<UPackage> It; It; ++It)
	{
		if (UnsavedPackagesPrivate::IsUnsaved(*It))
		{
			Names.Add(It->GetName());
		}
	}
	Names.Sort();
	return Names;
}
