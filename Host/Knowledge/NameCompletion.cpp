#include "Containers/StringConv.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Knowledge/AssetSearch.h"
#include "Knowledge/MenuSearch.h"
#include "Knowledge/ProjectResources.h"
#include "Misc/PackageName.h"
#include "Standalone/EngineContent.h"
#include "UObject/Class.h"

namespace NameCompletion
{
/** What may be written in a place, each name once; those that begin with what is typed come before those that hold it.
 */
class FNames
{
public:
	explicit FNames(const FString& InTyped)
		: Typed(InTyped)
	{
	}

	void Offer(const FString& Name)
	{
		const bool bBegins = Name.StartsWith(Typed) || FPackageName::GetShortName(Name).StartsWith(Typed);
		if (!Name.IsEmpty() && (bBegins || Name.Contains(Typed)))
		{
			(bBegins ? Beginning : Holding).Add(Name);
		}
	}

	FCompletions Take()
	{
		FCompletions Taken;
		for (TSet<FString>* const Names : {&Beginning, &Holding})
		{
			TArray<FString> Sorted = Names->Array();
			Sorted.Sort();
			Taken.Total += static_cast<size_t>(Sorted.Num());
			for (const FString& Name : Sorted)
			{
				if (Taken.Values.size() < FCompletions::MaxValues)
				{
					Taken.Values.push_back(ToUtf8(Name));
				}
			}
		}
		return Taken;
	}

private:
	FString Typed;
	TSet<FString> Beginning;
	TSet<FString> Holding;
};

static void OfferMenu(FNames& Names, const bool bNodeClasses)
{
	const FMenuSearch Menu;
	for (const FMenuHit& Hit : Menu.Find(FMenuQuery()))
	{
		Names.Offer(bNodeClasses ? Hit.NodeClass : Hit.GetTitle());
	}
}

static void OfferAssets(FNames& Names, const ENameKind Kind)
{
	const bool bBlueprints = Kind == ENameKind::BlueprintPath;
	for (const FAssetData& Asset :
		AssetSearch::Find({FString(), bBlueprints ? TEXT("/Script/Engine.Blueprint") : TEXT(""), FString()}))
	{
		Names.Offer(Kind == ENameKind::FolderPath ? Asset.PackagePath.ToString()
				: Kind == ENameKind::AssetClass	  ? Asset.AssetClassPath.GetAssetName().ToString()
												  : Asset.PackageName.ToString());
	}
}

static void OfferEngineAssets(FNames& Names, const ENameKind Kind)
{
	for (const EngineContent::FEntry& Entry : EngineContent::GetEntries())
	{
		Names.Offer(Kind == ENameKind::AssetClass ? Entry.ClassPath.GetAssetName().ToString()
												  : FPackageName::GetLongPackagePath(Entry.PackageName));
	}
}

static void OfferParents(FNames& Names)
{
	TArray<UClass*> Classes;
	GetDerivedClasses(UObject::StaticClass(), Classes);
	for (const UClass* const Class : Classes)
	{
		if (!Class->ClassGeneratedBy && FKismetEditorUtilities::CanCreateBlueprintOfClass(Class))
		{
			Names.Offer(Class->GetPathName());
		}
	}
}
} // namespace NameCompletion

FCompletions ProjectResources::Complete(const ENameKind Kind, const FString& Typed)
{
	NameCompletion::FNames Names(Typed);
	switch (Kind)
	{
	case ENameKind::MenuTitle:
	case ENameKind::NodeClass:
		NameCompletion::OfferMenu(Names, Kind == ENameKind::NodeClass);
		break;
	case ENameKind::FolderPath:
	case ENameKind::AssetClass:
		NameCompletion::OfferEngineAssets(Names, Kind);
		NameCompletion::OfferAssets(Names, Kind);
		break;
	case ENameKind::AssetPath:
	case ENameKind::BlueprintPath:
		NameCompletion::OfferAssets(Names, Kind);
		break;
	case ENameKind::ParentClass:
		NameCompletion::OfferParents(Names);
		break;
	case ENameKind::ToolName:
	case ENameKind::None:
		break;
	}
	return Names.Take();
}
