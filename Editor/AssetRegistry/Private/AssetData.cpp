#include "AssetRegistry/AssetData.h"

#include "AssetRegistry/ARFilter.h"
#include "Misc/PackageName.h"
#include "Standalone/PackageText.h"
#include "UObject/Class.h"
#include "UObject/Package.h"

FAssetData::FAssetData(FName InPackageName, FName InAssetName, const FTopLevelAssetPath& InClassPath)
	: PackageName(InPackageName)
	, PackagePath(FPackageName::GetLongPackagePath(InPackageName.ToString()))
	, AssetName(InAssetName)
	, AssetClassPath(InClassPath)
{
}

FAssetData::FAssetData(const UObject* InAsset)
{
	if (!InAsset || !InAsset->GetOutermost())
	{
		return;
	}
	*this = FAssetData(
		InAsset->GetOutermost()->GetFName(), InAsset->GetFName(), InAsset->GetClass()->GetStructPathName());
	for (const FPackageText::FTag& Tag : FPackageText::CollectTags(*InAsset))
	{
		TagsAndValues.Add(Tag.Name, Tag.Value);
	}
}

FString FAssetData::GetObjectPathString() const
{
	return IsValid() ? PackageName.ToString() + TEXT(".") + AssetName.ToString() : FString();
}

FString FAssetData::GetFullName() const
{
	return AssetClassPath.GetAssetName().ToString() + TEXT(" ") + GetObjectPathString();
}

FString FAssetData::GetExportTextName() const
{
	return FString::Printf(TEXT("%s'%s'"), *AssetClassPath.ToString(), *GetObjectPathString());
}

UObject* FAssetData::GetAsset() const
{
	return FastGetAsset(true);
}

UObject* FAssetData::FastGetAsset(bool bLoad) const
{
	if (!IsValid())
	{
		return nullptr;
	}
	const FString Path = GetObjectPathString();
	UObject* const Found = StaticFindObject(UObject::StaticClass(), nullptr, *Path);
	return Found || !bLoad ? Found : StaticLoadObject(UObject::StaticClass(), nullptr, *Path);
}

UPackage* FAssetData::GetPackage() const
{
	return PackageName.IsNone() ? nullptr : LoadPackage(nullptr, *PackageName.ToString(), LOAD_None);
}

UClass* FAssetData::GetClass() const
{
	return FindObject<UClass>(AssetClassPath);
}

bool FAssetData::IsInstanceOf(const UClass* BaseClass) const
{
	const UClass* const Class = GetClass();
	return Class && BaseClass && Class->IsChildOf(BaseClass);
}

bool FAssetData::GetTagValue(FName Tag, FString& OutValue) const
{
	const FString* const Value = TagsAndValues.Find(Tag);
	OutValue = Value ? *Value : OutValue;
	return Value != nullptr;
}

bool FAssetData::GetTagValue(FName Tag, FName& OutValue) const
{
	FString Text;
	const bool bFound = GetTagValue(Tag, Text);
	OutValue = bFound ? FName(Text) : OutValue;
	return bFound;
}

bool FAssetData::operator<(const FAssetData& Other) const
{
	const int32 ByPackage = PackageName.GetView().Compare(Other.PackageName.GetView(), ESearchCase::IgnoreCase);
	return ByPackage != 0 ? ByPackage < 0
						  : AssetName.GetView().Compare(Other.AssetName.GetView(), ESearchCase::IgnoreCase) < 0;
}

void FARFilter::Append(const FARFilter& Other)
{
	PackageNames.Append(Other.PackageNames);
	PackagePaths.Append(Other.PackagePaths);
	SoftObjectPaths.Append(Other.SoftObjectPaths);
	ClassPaths.Append(Other.ClassPaths);
	TagsAndValues.Append(Other.TagsAndValues);
	for (const FTopLevelAssetPath& Path : Other.RecursiveClassPathsExclusionSet)
	{
		RecursiveClassPathsExclusionSet.Add(Path);
	}
	bRecursivePaths |= Other.bRecursivePaths;
	bRecursiveClasses |= Other.bRecursiveClasses;
	bIncludeOnlyOnDiskAssets |= Other.bIncludeOnlyOnDiskAssets;
}
