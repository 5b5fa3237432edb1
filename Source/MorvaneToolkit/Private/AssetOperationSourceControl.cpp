#include "AssetOperationBase.h"

#include "HAL/FileManager.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Misc/StringOutputDevice.h"
#include "SourceControlHelpers.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

namespace AssetOperationPackage
{
/** Asks the program, which may keep some packages as they are. */
static bool IsOKToSave(const FString& PackageName, const FString& File, FString& OutError)
{
	if (!FCoreUObjectDelegates::IsPackageOKToSaveDelegate.IsBound())
	{
		return true;
	}
	// The question is asked of a package that need not be in memory yet.
	UPackage* const Present = FindPackage(nullptr, *PackageName);
	UPackage* const Package = Present ? Present : CreatePackage(*PackageName);
	FStringOutputDevice Reason;
	const bool bMaySave = FCoreUObjectDelegates::IsPackageOKToSaveDelegate.Execute(Package, File, &Reason);
	if (!Present)
	{
		Package->MarkAsGarbage();
	}
	OutError = bMaySave ? FString() : FString(Reason);
	return bMaySave;
}
} // namespace AssetOperationPackage

bool FAssetOperationBase::CanWritePackageFile(const FString& PackageName, const FString& File, FString& OutError)
{
	if (!AssetOperationPackage::IsOKToSave(PackageName, File, OutError))
	{
		return false;
	}
	if (!USourceControlHelpers::IsEnabled() && IFileManager::Get().IsReadOnly(*File))
	{
		OutError = FString::Printf(
			TEXT("The file '%s' is read-only and there is no source control to check it out from."), *File);
		return false;
	}
	return true;
}

bool FAssetOperationBase::CheckOutAssetForModify(const FString& Path, FString& OutError)
{
	const FString PackageName = NormalizeAssetPath(Path);
	const FString File = FindPackageFile(PackageName);
	if (File.IsEmpty())
	{
		return true;
	}
	if (!CanWritePackageFile(PackageName, File, OutError))
	{
		return false;
	}
	// Where there is no source control its helpers refuse everything.
	if (!USourceControlHelpers::IsEnabled() || USourceControlHelpers::CheckOutFile(File))
	{
		return true;
	}
	OutError = USourceControlHelpers::LastErrorMsg().ToString();
	return false;
}

bool FAssetOperationBase::IsSavable(const UObject& Asset, FString& OutError)
{
	const UPackage* const Package = Asset.GetOutermost();
	const FString File = Package ? Package->GetLoadedPathName() : FString();
	if (File.IsEmpty() || FPackageName::IsPackageExtension(*FPaths::GetExtension(File, true)))
	{
		return true;
	}
	// The refusal says what to do instead.
	return CanWritePackageFile(Package->GetName(), File, OutError);
}

bool FAssetOperationBase::AddAssetToSourceControl(const FString& Path, FString& OutError)
{
	const FString File = FindPackageFile(NormalizeAssetPath(Path));
	if (File.IsEmpty() || !USourceControlHelpers::IsEnabled() || USourceControlHelpers::MarkFileForAdd(File))
	{
		return true;
	}
	OutError = USourceControlHelpers::LastErrorMsg().ToString();
	return false;
}
