#include "AssetRegistry/AssetRegistryModule.h"

#include "AssetRegistry/ARFilter.h"
#include "ContentScan.h"
#include "HAL/FileManager.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Standalone/EngineContent.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/PackageText.h"
#include "Standalone/PathConfinement.h"
#include "UObject/Class.h"
#include "UObject/ObjectSaveContext.h"
#include "UObject/Package.h"

namespace AssetRegistries
{
static bool IsBelow(FName PackagePath, const FString& Folder)
{
	const FStringView Path = PackagePath.GetView();
	return Path.Len() > Folder.Len() && Path[Folder.Len()] == TEXT('/')
		&& Path.StartsWith(Folder, ESearchCase::IgnoreCase);
}

static FString WithoutEndSlash(const FString& Path)
{
	return Path.EndsWith(TEXT("/")) ? Path.LeftChop(1) : Path;
}

/** The engine's own assets are listed for who names their folder; whoever asks for assets means the project's. */
static bool AsksForEngine(const FARFilter& Filter)
{
	return Filter.PackagePaths.ContainsByPredicate(
		[](const FName& Path)
		{
			const FString Folder = WithoutEndSlash(Path.ToString());
			return Folder == TEXT("/Engine") || Folder.StartsWith(TEXT("/Engine/"));
		});
}

/** Tests assets against one filter. Classes are looked at once each, not once for each asset. */
class FMatcher
{
public:
	explicit FMatcher(const FARFilter& InFilter)
		: Filter(InFilter)
		, Packages(InFilter.PackageNames)
	{
		for (const FName Path : Filter.PackagePaths)
		{
			Folders.Add(WithoutEndSlash(Path.ToString()));
		}
	}

	bool Matches(const FAssetData& Asset)
	{
		return (Filter.PackageNames.IsEmpty() || Packages.Contains(Asset.PackageName)) && MatchesPath(Asset)
			&& (Filter.SoftObjectPaths.IsEmpty() || Filter.SoftObjectPaths.Contains(Asset.GetSoftObjectPath()))
			&& (Filter.ClassPaths.IsEmpty() || MatchesClass(Asset.AssetClassPath)) && MatchesTags(Asset);
	}

private:
	bool MatchesPath(const FAssetData& Asset) const
	{
		return Folders.IsEmpty()
			|| Folders.ContainsByPredicate(
				[&](const FString& Folder) {
					return Asset.PackagePath == *Folder
						|| (Filter.bRecursivePaths && IsBelow(Asset.PackagePath, Folder));
				});
	}

	bool MatchesClass(const FTopLevelAssetPath& ClassPath)
	{
		if (const bool* const Known = KnownClasses.Find(ClassPath))
		{
			return *Known;
		}
		const bool bMatches = Filter.bRecursiveClasses
			? IsBelowAny(ClassPath, Filter.ClassPaths) && !IsBelowAny(ClassPath, Filter.RecursiveClassPathsExclusionSet)
			: Filter.ClassPaths.Contains(ClassPath);
		KnownClasses.Add(ClassPath, bMatches);
		return bMatches;
	}

	template <typename PathsType>
	static bool IsBelowAny(const FTopLevelAssetPath& ClassPath, const PathsType& Bases)
	{
		for (const FTopLevelAssetPath& Base : Bases)
		{
			const UClass* const BaseClass = FindObject<UClass>(Base);
			const UClass* const Class = FindObject<UClass>(ClassPath);
			if (Base == ClassPath || (BaseClass && Class && Class->IsChildOf(BaseClass)))
			{
				return true;
			}
		}
		return false;
	}

	bool MatchesTags(const FAssetData& Asset) const
	{
		for (const auto& Wanted : Filter.TagsAndValues)
		{
			const FString* const Value = Asset.TagsAndValues.Find(Wanted.Key);
			if (!Value || (Wanted.Value.IsSet() && !Value->Equals(Wanted.Value.GetValue(), ESearchCase::IgnoreCase)))
			{
				return false;
			}
		}
		return true;
	}

	const FARFilter& Filter;
	const TSet<FName> Packages;
	TArray<FString> Folders;
	TMap<FTopLevelAssetPath, bool> KnownClasses;
};

class FAssetRegistry final : public IAssetRegistry
{
public:
	FAssetRegistry()
	{
		UPackage::PackageSavedWithContextEvent.AddLambda(
			[this](const FString& Filename, const UPackage* Package, const FObjectPostSaveContext&)
			{
				// The file tells more than the asset does in memory.
				const UObject* const Asset = Package->FindAssetInPackage();
				if (Asset && !ScanFile(Filename))
				{
					AssetSaved(*Asset);
				}
			});
		FPackageText::OnFileChanged().AddLambda(
			[this](const FString& PackageName, const FString& Filename)
			{
				Forget(FName(PackageName));
				if (IFileManager::Get().FileExists(*Filename))
				{
					ScanFile(Filename);
				}
			});
	}

	bool GetAssets(const FARFilter& Filter, TArray<FAssetData>& OutAssets, bool) const override
	{
		const int32 NumBefore = OutAssets.Num();
		FMatcher Matcher(Filter);
		ForEach(Filter.bIncludeOnlyOnDiskAssets,
			[&](const FAssetData& Asset)
			{
				if (Matcher.Matches(Asset))
				{
					OutAssets.Add(Asset);
				}
			});
		if (AsksForEngine(Filter))
		{
			for (const EngineContent::FEntry& Entry : EngineContent::GetEntries())
			{
				const FAssetData Asset(FName(Entry.PackageName), FName(Entry.GetAssetName()), Entry.ClassPath);
				if (Matcher.Matches(Asset))
				{
					OutAssets.Add(Asset);
				}
			}
		}
		return OutAssets.Num() > NumBefore;
	}

	bool GetAllAssets(TArray<FAssetData>& OutAssets, bool bIncludeOnlyOnDiskAssets) const override
	{
		FARFilter Everything;
		Everything.bIncludeOnlyOnDiskAssets = bIncludeOnlyOnDiskAssets;
		return GetAssets(Everything, OutAssets, true);
	}

	bool GetAssetsByPackageName(
		FName PackageName, TArray<FAssetData>& OutAssets, bool bIncludeOnlyOnDiskAssets, bool) const override
	{
		const FAssetData Asset = FindInPackage(PackageName, bIncludeOnlyOnDiskAssets);
		if (Asset.IsValid())
		{
			OutAssets.Add(Asset);
		}
		return Asset.IsValid();
	}

	bool GetAssetsByPath(
		FName PackagePath, TArray<FAssetData>& OutAssets, bool bRecursive, bool bIncludeOnlyOnDiskAssets) const override
	{
		FARFilter Filter;
		Filter.PackagePaths.Add(PackagePath);
		Filter.bRecursivePaths = bRecursive;
		Filter.bIncludeOnlyOnDiskAssets = bIncludeOnlyOnDiskAssets;
		return GetAssets(Filter, OutAssets, true);
	}

	bool GetAssetsByClass(
		const FTopLevelAssetPath& ClassPath, TArray<FAssetData>& OutAssets, bool bSearchSubClasses) const override
	{
		FARFilter Filter;
		Filter.ClassPaths.Add(ClassPath);
		Filter.bRecursiveClasses = bSearchSubClasses;
		return GetAssets(Filter, OutAssets, true);
	}

	bool GetAssetsByName(FName AssetName, TArray<FAssetData>& OutAssets) const override
	{
		EnsureScanned();
		TSet<FName> Packages;
		if (const TArray<FName>* const OnDiskPackages = PackagesByAssetName.Find(AssetName))
		{
			Packages.Append(*OnDiskPackages);
		}
		for (const auto& [PackageName, Asset] : InMemory())
		{
			if (Asset->GetFName() == AssetName)
			{
				Packages.Add(PackageName);
			}
		}
		TArray<FAssetData> Found;
		for (const FName PackageName : Packages)
		{
			const FAssetData Asset = FindInPackage(PackageName, false);
			if (Asset.AssetName == AssetName)
			{
				Found.Add(Asset);
			}
		}
		Found.Sort();
		OutAssets.Append(Found);
		return !Found.IsEmpty();
	}

	FAssetData GetAssetByObjectPath(const FSoftObjectPath& ObjectPath, bool bIncludeOnlyOnDiskAssets) const override
	{
		if (ObjectPath.IsNull())
		{
			return FAssetData();
		}
		const FAssetData Asset = FindInPackage(ObjectPath.GetLongPackageFName(), bIncludeOnlyOnDiskAssets);
		if (!Asset.IsValid())
		{
			FPackageText::NoteWhyUnknown(ObjectPath.GetLongPackageName());
		}
		return Asset.AssetName == ObjectPath.GetAssetPath().GetAssetName() ? Asset : FAssetData();
	}

	bool GetReferencers(FName PackageName, TArray<FName>& OutReferencers) const override
	{
		const int32 NumBefore = OutReferencers.Num();
		const FString Name = PackageName.ToString();
		ForEach(true,
			[&](const FAssetData& Asset)
			{
				const FString File = FPackageText::FindPackageFile(Asset.PackageName.ToString());
				if (Asset.PackageName != PackageName && ContentScan::NamesPackage(File, Name))
				{
					OutReferencers.Add(Asset.PackageName);
				}
			});
		return OutReferencers.Num() > NumBefore;
	}

	bool HasAssets(FName PackagePath, bool bRecursive) const override
	{
		TArray<FAssetData> Found;
		return GetAssetsByPath(PackagePath, Found, bRecursive, false);
	}

	void SearchAllAssets(bool) override { EnsureScanned(); }

	void ScanPathsSynchronous(const TArray<FString>& Paths, bool) override
	{
		EnsureScanned();
		for (const FString& Path : Paths)
		{
			const FString Folder = WithoutEndSlash(Path);
			TArray<FName> Gone;
			for (const auto& Pair : OnDisk)
			{
				if (Pair.Value.PackagePath == *Folder || IsBelow(Pair.Value.PackagePath, Folder))
				{
					Gone.Add(Pair.Key);
				}
			}
			for (const FName PackageName : Gone)
			{
				Forget(PackageName);
			}
			FString Directory;
			if (FPackageName::TryConvertLongPackageNameToFilename(Folder, Directory))
			{
				ScanFolder(Directory);
			}
		}
	}

	void AssetCreated(UObject* NewAsset) override
	{
		if (NewAsset && NewAsset->GetOutermost())
		{
			NewAsset->GetOutermost()->PackageFlags |= PKG_NewlyCreated;
			FMissingObjects::Bind();
		}
	}

	void AssetDeleted(UObject* DeletedAsset) override
	{
		if (DeletedAsset && DeletedAsset->GetOutermost())
		{
			Forget(DeletedAsset->GetOutermost()->GetFName());
		}
	}

	void AssetSaved(const UObject& SavedAsset) override { Remember(FAssetData(&SavedAsset)); }

	void PackageDeleted(UPackage* DeletedPackage) override
	{
		if (DeletedPackage)
		{
			Forget(DeletedPackage->GetFName());
		}
	}

private:
	struct FScannedRoot
	{
		FString Root;
		FString Content;
		bool operator==(const FScannedRoot& Other) const
		{
			return Root.Equals(Other.Root) && Content.Equals(Other.Content);
		}
	};

	/** Scans what is mounted and was not scanned yet, and forgets what is mounted no more. */
	void EnsureScanned() const
	{
		TArray<FString> Roots;
		FPackageName::QueryRootContentPaths(Roots);
		TArray<FScannedRoot> Mounted;
		for (const FString& Root : Roots)
		{
			Mounted.Add({Root, FPackageName::GetContentPathForRoot(Root)});
		}
		if (Mounted == Scanned)
		{
			return;
		}
		const TArray<FScannedRoot> Before = Scanned;
		Scanned = Mounted;
		ForgetAllBut(Before.FilterByPredicate([&](const FScannedRoot& Old) { return Mounted.Contains(Old); }));
		for (const FScannedRoot& New : Mounted)
		{
			if (!Before.Contains(New))
			{
				ScanFolder(New.Content);
			}
		}
	}

	/** What was saved or looked up below a root before its scan goes with it, too. */
	void ForgetAllBut(const TArray<FScannedRoot>& Kept) const
	{
		TArray<FName> Gone;
		for (const auto& Pair : OnDisk)
		{
			const FStringView Package = Pair.Key.GetView();
			if (!Kept.ContainsByPredicate([Package](const FScannedRoot& Root)
					{ return Package.StartsWith(Root.Root, ESearchCase::IgnoreCase); }))
			{
				Gone.Add(Pair.Key);
			}
		}
		for (const FName PackageName : Gone)
		{
			Forget(PackageName);
		}
	}

	void ScanFolder(const FString& Directory) const
	{
		for (const FString& File : ContentScan::FindPackageFiles(Directory))
		{
			ScanFile(File);
		}
	}

	bool ScanFile(const FString& File) const
	{
		FAssetData Asset;
		const bool bRead = ContentScan::ReadAsset(File, Asset);
		if (bRead)
		{
			Remember(MoveTemp(Asset));
		}
		return bRead;
	}

	void Remember(FAssetData Asset) const
	{
		const FName PackageName = Asset.PackageName;
		if (FAssetData* const Known = OnDisk.Find(PackageName))
		{
			if (Known->AssetName == Asset.AssetName)
			{
				*Known = MoveTemp(Asset);
				return;
			}
			Forget(PackageName);
		}
		PackagesByAssetName.FindOrAdd(Asset.AssetName).Add(PackageName);
		OnDisk.Add(PackageName, MoveTemp(Asset));
		bSorted = false;
	}

	void Forget(FName PackageName) const
	{
		const FAssetData* const Known = OnDisk.Find(PackageName);
		if (!Known)
		{
			return;
		}
		PackagesByAssetName.FindOrAdd(Known->AssetName).Remove(PackageName);
		OnDisk.Remove(PackageName);
		bSorted = false;
	}

	/** Assets in memory by package. Script packages hold none. */
	static TMap<FName, const UObject*> InMemory()
	{
		TArray<UObject*> Packages;
		GetObjectsOfClass(UPackage::StaticClass(), Packages, true);
		TMap<FName, const UObject*> Result;
		for (UObject* const Object : Packages)
		{
			const FStringView Name = Object->GetFName().GetView();
			if (!FPackageName::IsScriptPackage(Name) && !FPackageName::IsTempPackage(Name)
				&& Object != GetTransientPackage())
			{
				if (const UObject* const Asset = static_cast<UPackage*>(Object)->FindAssetInPackage())
				{
					Result.Add(Object->GetFName(), Asset);
				}
			}
		}
		return Result;
	}

	FAssetData FindInPackage(FName PackageName, bool bOnlyOnDisk) const
	{
		if (!bOnlyOnDisk)
		{
			const UPackage* const Package = FindPackage(nullptr, *PackageName.ToString());
			if (const UObject* const Asset = Package && Package != GetTransientPackage() ? Package->FindAssetInPackage()
																						 : nullptr)
			{
				return FAssetData(Asset);
			}
		}
		if (const EngineContent::FEntry* const Entry = EngineContent::Find(PackageName.ToString()))
		{
			return FAssetData(PackageName, FName(Entry->GetAssetName()), Entry->ClassPath);
		}
		EnsureScanned();
		// Other programs write to the folder too: a file may have come or gone since the scan.
		const FString File = FPackageText::FindPackageFile(PackageName.ToString());
		if (File.IsEmpty())
		{
			Forget(PackageName);
			return FAssetData();
		}
		return OnDisk.Contains(PackageName) || ScanFile(File) ? OnDisk.FindRef(PackageName) : FAssetData();
	}

	void ForEach(bool bOnlyOnDisk, TFunctionRef<void(const FAssetData&)> Visit) const
	{
		EnsureScanned();
		const TMap<FName, const UObject*> Memory = bOnlyOnDisk ? TMap<FName, const UObject*>() : InMemory();
		if (!bSorted)
		{
			OnDisk.ValueSort([](const FAssetData& Left, const FAssetData& Right) { return Left < Right; });
			bSorted = true;
		}
		TArray<FAssetData> FromMemory;
		for (const auto& Pair : Memory)
		{
			FromMemory.Add(FAssetData(Pair.Value));
		}
		FromMemory.Sort();
		int32 Next = 0;
		for (const auto& Pair : OnDisk)
		{
			while (Next < FromMemory.Num() && FromMemory[Next] < Pair.Value)
			{
				Visit(FromMemory[Next++]);
			}
			if (!Memory.Contains(Pair.Key))
			{
				Visit(Pair.Value);
			}
		}
		while (Next < FromMemory.Num())
		{
			Visit(FromMemory[Next++]);
		}
	}

	/** By package name: a package has one asset. In the order of paths when bSorted. Filled by questions, which change
	 * nothing that can be seen. */
	mutable TMap<FName, FAssetData> OnDisk;
	mutable TMap<FName, TArray<FName>> PackagesByAssetName;
	mutable TArray<FScannedRoot> Scanned;
	mutable bool bSorted = true;
};
} // namespace AssetRegistries

IAssetRegistry& FAssetRegistryModule::GetRegistry()
{
	static AssetRegistries::FAssetRegistry Registry;
	return Registry;
}

IAssetRegistry* IAssetRegistry::Get()
{
	return &FAssetRegistryModule::GetRegistry();
}

IAssetRegistry& IAssetRegistry::GetChecked()
{
	return FAssetRegistryModule::GetRegistry();
}

IMPLEMENT_MODULE(FAssetRegistryModule, AssetRegistry);
