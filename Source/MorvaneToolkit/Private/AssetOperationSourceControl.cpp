#include "AssetOperationBase.h"

#include "Misc/PackageName.h"
#include "SourceControlHelpers.h"

namespace AssetOperationSourceControlFile
{
/** The asset's file; empty for an asset that is not on disk. */
static FString Find(const FString& Path)
{
	const FString PackageName = FAssetOperationBase::NormalizeAssetPath(Path);
	return FPackageName::IsValidLongPackageName(PackageName) ? FPackageName::FindPackageFile(PackageName) : FString();
}
} // namespace AssetOperationSourceControlFile

bool FAssetOperationBase::CheckOutAssetForModify(const FString& Path, FString& OutError)
{
	const FString File = AssetOperationSourceControlFile::Find(Path);
	if (File.IsEmpty() || USourceControlHelpers::CheckOutFile(File))
	{
		return true;
	}
	OutError = USourceControlHelpers::LastErrorMsg().ToString();
	return false;
}

bool FAssetOperationBase::AddAssetToSourceControl(const FString& Path, FString& OutError)
{
	const FString File = AssetOperationSourceControlFile::Find(Path);
	if (File.IsEmpty() || !USourceControlHelpers::IsEnabled() || USourceControlHelpers::MarkFileForAdd(File))
	{
		return true;
	}
	OutError = USourceControlHelpers::LastErrorMsg().ToString();
	return false;
}
