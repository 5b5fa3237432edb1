#include "AssetOperationBase.h"

#include "SourceControlHelpers.h"

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
