#include "Utils/Asset/SoftReferences.h"

#include "Misc/PackageName.h"

FString SoftReferences::ToObjectPath(const FString& Text)
{
	const FString Path = Text.TrimStartAndEnd();
	const bool bPackage = Path.StartsWith(TEXT("/")) && !Path.Contains(TEXT("'")) && !Path.Contains(TEXT("."))
		&& FPackageName::IsValidTextForLongPackageName(Path);
	return bPackage ? Path + TEXT(".") + FPackageName::GetLongPackageAssetName(Path) : Text;
}
