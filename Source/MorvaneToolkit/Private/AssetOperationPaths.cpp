#include "AssetOperationBase.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "Engine/Blueprint.h"
#include "HAL/FileManager.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"

namespace AssetOperationPathText
{
static FString StripExtension(const FString& Path)
{
	for (const FString& Extension :
		{FPackageName::GetAssetPackageExtension(), FString(TEXT(".uasset")), FString(TEXT(".umap"))})
	{
		if (Path.EndsWith(Extension, ESearchCase::IgnoreCase))
		{
			return Path.LeftChop(Extension.Len());
		}
	}
	return Path;
}

/** Slashes only forward, none doubled. */
static FString CleanSlashes(const FString& Path)
{
	FString Clean = Path.Replace(TEXT("\\"), TEXT("/"));
	while (Clean.ReplaceInline(TEXT("//"), TEXT("/")) > 0)
	{
	}
	return Clean;
}

/** "/Game/A/BP_X.BP_X" of "/Game/A/BP_X.BP_X:EventGraph". A colon that follows no object is left for the error. */
static FString StripSubObject(const FString& Path)
{
	int32 Colon = INDEX_NONE;
	int32 Dot = INDEX_NONE;
	const bool bBehindObject = Path.FindChar(TEXT(':'), Colon) && Path.FindChar(TEXT('.'), Dot) && Dot < Colon;
	return bBehindObject ? Path.Left(Colon) : Path;
}

/** The path below a mounted root, with the root in front and in its own spelling. */
static FString AddRoot(const FString& Path)
{
	const FString Relative = Path.StartsWith(TEXT("/")) ? Path.RightChop(1) : Path;
	FString Root;
	FString Rest;
	if (!Relative.Split(TEXT("/"), &Root, &Rest))
	{
		return Path;
	}
	if (Root.Equals(TEXT("Game"), ESearchCase::IgnoreCase) || Root.Equals(TEXT("Content"), ESearchCase::IgnoreCase))
	{
		return TEXT("/Game/") + Rest;
	}
	const bool bMounted = FPackageName::MountPointExists(TEXT("/") + Root + TEXT("/"));
	return bMounted || Path.StartsWith(TEXT("/")) ? TEXT("/") + Relative : TEXT("/Game/") + Relative;
}

/** The package of an object path: what stands before the first '.' behind the last '/'. */
static FString StripObjectName(const FString& Path)
{
	int32 LastSlash = INDEX_NONE;
	Path.FindLastChar(TEXT('/'), LastSlash);
	const int32 Dot = Path.Find(TEXT("."), ESearchCase::CaseSensitive, ESearchDir::FromStart, LastSlash + 1);
	return Dot == INDEX_NONE ? Path : Path.Left(Dot);
}

/** "BP_X" of "BP_X.BP_X_C". */
static FString GetBareName(const FString& Text)
{
	FString Left;
	return Text.Split(TEXT("."), &Left, nullptr) ? Left : Text;
}

static FAssetData FindAsset(const FString& PackageName)
{
	const FString ObjectPath = PackageName + TEXT(".") + FPackageName::GetLongPackageAssetName(PackageName);
	const FAssetRegistryModule& Module = FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry"));
	return Module.Get().GetAssetByObjectPath(FSoftObjectPath(ObjectPath));
}

/** A folder has one spelling, that of the one that stands. */
static FString WithStandingFolders(const FString& PackageName)
{
	FString File;
	if (!FPackageName::TryConvertLongPackageNameToFilename(PackageName, File))
	{
		return PackageName;
	}
	const FString Folder = FPaths::GetPath(File);
	const FString Standing = IFileManager::Get().GetFilenameOnDisk(*Folder);
	FString StandingName;
	const bool bDiffers = !Standing.Equals(Folder, ESearchCase::CaseSensitive)
		&& FPackageName::TryConvertFilenameToLongPackageName(Standing + File.RightChop(Folder.Len()), StandingName);
	return bDiffers ? StandingName : PackageName;
}

/** The asset's own name where one is known under this name, ignoring case, or under this name without "_C" or a slash.
 */
static FString GetKnownSpelling(const FString& PackageName)
{
	const FAssetData Asset = FindAsset(PackageName);
	if (Asset.IsValid())
	{
		return Asset.PackageName.ToString();
	}
	for (const TCHAR* const Suffix : {TEXT("_C"), TEXT("/")})
	{
		const FAssetData Stripped = PackageName.EndsWith(Suffix, ESearchCase::CaseSensitive)
			? FindAsset(PackageName.LeftChop(FCString::Strlen(Suffix)))
			: FAssetData();
		if (Stripped.IsValid())
		{
			return Stripped.PackageName.ToString();
		}
	}
	return WithStandingFolders(PackageName);
}

/** Native classes go by their names without the letter in front. */
static UClass* FindNativeClass(const FString& Name)
{
	UClass* Class = FindFirstObject<UClass>(*Name, EFindFirstObjectOptions::NativeFirst);
	const bool bHasPrefix = Name.Len() > 2 && (Name[0] == TEXT('U') || Name[0] == TEXT('A') || Name[0] == TEXT('I'))
		&& FChar::IsUpper(Name[1]);
	if (!Class && bHasPrefix)
	{
		Class = FindFirstObject<UClass>(*Name.RightChop(1), EFindFirstObjectOptions::NativeFirst);
	}
	return Class;
}

static UClass* GetGeneratedClass(UObject* Asset)
{
	const UBlueprint* const Blueprint = Cast<UBlueprint>(Asset);
	return Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
}

/** Blueprints of a short name, of whatever family, sorted by path. */
static TArray<FAssetData> FindBlueprintsNamed(const FString& Name)
{
	const FAssetRegistryModule& Module = FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry"));
	TArray<FAssetData> Assets;
	Module.Get().GetAssetsByName(FName(*Name), Assets);
	Assets.RemoveAll([](const FAssetData& Asset) { return !Asset.IsInstanceOf(UBlueprint::StaticClass()); });
	return Assets;
}

/** The one that a bare name means: a family that is more special goes first, then the order of paths decides. */
static const FAssetData* ChooseByFamily(const TArray<FAssetData>& Blueprints)
{
	static const FTopLevelAssetPath Special[] = {FTopLevelAssetPath(TEXT("/Script/Engine"), TEXT("AnimBlueprint")),
		FTopLevelAssetPath(TEXT("/Script/UMGEditor"), TEXT("WidgetBlueprint"))};
	for (const FTopLevelAssetPath& Family : Special)
	{
		const FAssetData* const Found = Blueprints.FindByPredicate(
			[&Family](const FAssetData& Asset) { return Asset.AssetClassPath == Family; });
		if (Found)
		{
			return Found;
		}
	}
	return Blueprints.IsEmpty() ? nullptr : &Blueprints[0];
}

/** The generated class of the Blueprint in the project that the name means. */
static UClass* LoadClassOfBlueprintNamed(const FString& Name)
{
	const TArray<FAssetData> Blueprints = FindBlueprintsNamed(Name);
	const FAssetData* const Asset = ChooseByFamily(Blueprints);
	return Asset ? GetGeneratedClass(Asset->GetAsset()) : nullptr;
}

static FString StripClassSuffix(const FString& Name)
{
	return Name.EndsWith(TEXT("_C"), ESearchCase::CaseSensitive) ? Name.LeftChop(2) : Name;
}
} // namespace AssetOperationPathText

FString FAssetOperationBase::NormalizeAssetPath(const FString& Path)
{
	using namespace AssetOperationPathText;

	const FString Text =
		FPackageName::ExportTextPathToObjectPath(Path.TrimStartAndEnd()).TrimQuotes().TrimStartAndEnd();
	FString Clean = CleanSlashes(Text);
	if (Clean.IsEmpty() || Clean.Contains(TEXT("..")) || Clean.StartsWith(TEXT("/Script/")))
	{
		return Text;
	}
	FString PackageName;
	if (FPackageName::TryConvertFilenameToLongPackageName(Clean, PackageName))
	{
		return GetKnownSpelling(PackageName);
	}
	Clean = StripExtension(StripSubObject(Clean));
	if (!Clean.Contains(TEXT("/")))
	{
		return GetBareName(Clean);
	}
	return GetKnownSpelling(StripObjectName(AddRoot(Clean)));
}

FString FAssetOperationBase::ResolveBlueprintPath(const FString& Path)
{
	using namespace AssetOperationPathText;

	const FString Normal = NormalizeAssetPath(Path);
	if (Normal.IsEmpty() || Normal.Contains(TEXT("/")))
	{
		return Normal;
	}
	for (const FString& Name : {Normal, StripClassSuffix(Normal)})
	{
		const TArray<FAssetData> Blueprints = FindBlueprintsNamed(Name);
		if (const FAssetData* const Asset = ChooseByFamily(Blueprints))
		{
			return Asset->PackageName.ToString();
		}
	}
	return Normal;
}

TArray<FString> FAssetOperationBase::FindBlueprintPaths(const FString& Name)
{
	TArray<FString> Paths;
	for (const FAssetData& Asset : AssetOperationPathText::FindBlueprintsNamed(Name))
	{
		Paths.Add(Asset.GetObjectPathString());
	}
	return Paths;
}

FString FAssetOperationBase::GetAssetNameFromPath(const FString& Path)
{
	return FPackageName::GetShortName(AssetOperationPathText::StripObjectName(Path));
}

UClass* FAssetOperationBase::GetAssetClassFromAssetName(const FString& Name)
{
	using namespace AssetOperationPathText;

	const FString Text = CleanSlashes(FPackageName::ExportTextPathToObjectPath(Name.TrimStartAndEnd()).TrimQuotes());
	if (Text.IsEmpty())
	{
		return nullptr;
	}
	if (Text.Contains(TEXT("/")))
	{
		if (UClass* const Class = FindObject<UClass>(nullptr, Text))
		{
			return Class;
		}
		const FString PackageName = NormalizeAssetPath(Text);
		return FPackageName::IsScriptPackage(PackageName) || !AssetExists(PackageName)
			? nullptr
			: GetGeneratedClass(StaticLoadObject(UBlueprint::StaticClass(), nullptr, *PackageName));
	}
	const FString Bare = GetBareName(Text);
	for (const FString& Spelling : {Bare, Bare.Replace(TEXT(" "), TEXT(""))})
	{
		if (UClass* const Class = FindNativeClass(Spelling))
		{
			return Class;
		}
	}
	return LoadClassOfBlueprintNamed(StripClassSuffix(Bare));
}

bool FAssetOperationBase::AssetExists(const FString& Path)
{
	const FString PackageName = NormalizeAssetPath(Path);
	return FPackageName::IsValidLongPackageName(PackageName)
		&& AssetOperationPathText::FindAsset(PackageName).IsValid();
}
