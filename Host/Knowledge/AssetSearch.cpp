#include "Knowledge/AssetSearch.h"

#include "AssetRegistry/ARFilter.h"
#include "AssetRegistry/AssetRegistryModule.h"
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
