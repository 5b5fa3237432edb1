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

bool FAssetData::operator<(const FAssetData& Other) const
{
	const int32 ByPackage = PackageName.GetView().Compare(Other.PackageName.GetView(), ESearchCase::IgnoreCase);
	return ByPackage != 0 ? ByPackage < 0
						  : AssetName.GetView().Compare(Other.AssetName.GetView(), ESearchCase::IgnoreCase) < 0;
}
