#include "Knowledge/AssetSearch.h"

#include "AssetRegistry/ARFilter.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "Knowledge/AssetContents.h"
#include "Misc/PackageName.h"
#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"

namespace AssetSearchPrivate
{
/** A class that nobody knows is compared by its name, since assets of such classes stand in projects too. */
static bool IsOfClass(const FAssetData& Asset, const FString& Name, const UClass* Class)
{
	const UClass* const Own = Class ? FindObject<UClass>(Asset.AssetClassPath) : nullptr;
	return Own ? Own->IsChildOf(Class)
			   : Asset.AssetClassPath.GetAssetName().ToString() == Name || Asset.AssetClassPath.ToString() == Name;
}
} // namespace AssetSearchPrivate

TArray<FAssetData> AssetSearch::Find(const FAssetQuery& Query)
{
	FARFilter Filter;
	Filter.bRecursivePaths = true;
	if (!Query.Folder.IsEmpty())
	{
		Filter.PackagePaths.Add(FName(Query.Folder));
	}
	TArray<FAssetData> Assets;
	IAssetRegistry::GetChecked().GetAssets(Filter, Assets);
	if (Assets.IsEmpty() && !Query.Folder.IsEmpty())
	{
		FARFilter Single;
		Single.PackageNames.Add(FName(Query.Folder));
		IAssetRegistry::GetChecked().GetAssets(Single, Assets);
	}
	const UClass* const Class = Query.Class.IsEmpty() ? nullptr
		: Query.Class.StartsWith(TEXT("/"))			  ? FindObject<UClass>(nullptr, *Query.Class)
													  : FindFirstObject<UClass>(*Query.Class);
	const bool bProject = Query.Folder.IsEmpty();
	Assets.RemoveAll(
		[&](const FAssetData& Asset)
		{
			return (bProject && Asset.PackageName.GetView().StartsWith(TEXTVIEW("/Engine/"), ESearchCase::IgnoreCase))
				|| (!Query.Word.IsEmpty() && !Asset.AssetName.ToString().Contains(Query.Word))
				|| (!Query.Class.IsEmpty() && !AssetSearchPrivate::IsOfClass(Asset, Query.Class, Class));
		});
	Assets.Sort();
	return Assets;
}

TSharedRef<FJsonObject> AssetSearch::Describe(const FAssetData& Asset)
{
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	Out->SetStringField(TEXT("path"), Asset.PackageName.ToString());
	Out->SetStringField(TEXT("class"), Asset.AssetClassPath.GetAssetName().ToString());
	FString Parent;
	if (Asset.GetTagValue(FName(TEXT("ParentClass")), Parent) && !Parent.IsEmpty())
	{
		Out->SetStringField(TEXT("parent"), FPackageName::ExportTextPathToObjectPath(Parent));
	}
	return Out;
}

bool AssetSearch::IsAskedByPath(const FAssetQuery& Query, const FAssetData& Asset)
{
	return Asset.PackageName.ToString().Equals(Query.Folder, ESearchCase::IgnoreCase);
}

TSharedRef<FJsonObject> AssetSearch::DescribeWhole(const FAssetData& Asset)
{
	const TSharedRef<FJsonObject> Out = Describe(Asset);
	const TSharedRef<FJsonObject> Contents = AssetContents::Describe(Asset);
	if (!Contents->Values.IsEmpty())
	{
		Out->SetObjectField(TEXT("contents"), Contents);
	}
	return Out;
}
