#include "AssetOperationBase.h"

#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "SourceControlHelpers.h"
#include "UObject/Package.h"

bool FAssetOperationBase::CheckOutAssetForModify(const FString& Path, FString& OutError)
{
	const FString File = FindPackageFile(NormalizeAssetPath(Path));
	if (File.IsEmpty() || USourceControlHelpers::CheckOutFile(File))
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
	// The refusal of a check-out says what to do instead.
	const bool bCheckedOut = USourceControlHelpers::CheckOutFile(File);
	OutError = bCheckedOut ? FString() : USourceControlHelpers::LastErrorMsg().ToString();
	return bCheckedOut;
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
