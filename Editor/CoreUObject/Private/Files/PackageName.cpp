#include "Misc/PackageName.h"

#include "Standalone/PackageText.h"

#include "Files/AtomicFile.h"
#include "Files/PackageLookup.h"
#include "Misc/Paths.h"
#include "Standalone/NameSyntax.h"
#include "Standalone/PathConfinement.h"
#include "UObject/Object.h"
#include "UObject/Package.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unordered_map>

namespace PackageNames
{
struct FMount
{
	/** "/Name/" */
	FString Root;
	/** Absolute, with a slash at the end. */
	FString Content;
};

static TArray<FMount>& Mounts()
{
	static TArray<FMount> Table;
	return Table;
}

const TCHAR* const GameRoot = TEXT("/Game/");

static FMount DefaultGameMount()
{
	return {GameRoot, FPaths::ConvertRelativePathToFull(FPaths::ProjectContentDir())};
}

static FString WithSlashes(const FString& Root)
{
	FString Result = Root;
	if (!Result.StartsWith(TEXT("/")))
	{
		Result = TEXT("/") + Result;
	}
	return Result.EndsWith(TEXT("/")) ? Result : Result + TEXT("/");
}

static bool FindMountOfName(FStringView Name, FMount& OutMount)
{
	for (const FMount& Mount : Mounts())
	{
		if (Name.StartsWith(Mount.Root, ESearchCase::IgnoreCase))
		{
			OutMount = Mount;
			return true;
		}
	}
	if (Name.StartsWith(GameRoot, ESearchCase::IgnoreCase))
	{
		OutMount = DefaultGameMount();
		return true;
	}
	return false;
}

/** A content folder may lie inside another one; the innermost counts. */
static bool FindMountOfFile(const FString& Filename, FMount& OutMount)
{
	TArray<FMount> Candidates = Mounts();
	const auto IsGame = [](const FMount& Mount) { return Mount.Root.Equals(GameRoot, ESearchCase::IgnoreCase); };
	if (!Candidates.ContainsByPredicate(IsGame))
	{
		Candidates.Add(DefaultGameMount());
	}
	for (const FMount& Mount : Candidates)
	{
		if (Filename.StartsWith(Mount.Content, ESearchCase::CaseSensitive)
			&& Mount.Content.Len() > OutMount.Content.Len())
		{
			OutMount = Mount;
		}
	}
	return !OutMount.Root.IsEmpty();
}

static void Explain(FText* OutReason, FString Reason)
{
	if (OutReason)
	{
		*OutReason = FText::FromString(MoveTemp(Reason));
	}
}

static bool IsFile(const FString& Path)
{
	struct stat Info;
	return stat(TCHAR_TO_UTF8(*Path), &Info) == 0 && S_ISREG(Info.st_mode);
}

/** What a folder holds, by names in small letters. */
struct FFolderEntries
{
	AtomicFile::FStamp Stamp;
	/** The stamp was old enough when the folder was read, so that it alone tells of a change. */
	bool bSettled = false;
	std::unordered_map<std::wstring, FString> ByName;
};

static FFolderEntries ReadEntries(const std::string& Directory)
{
	FFolderEntries Entries;
	Entries.Stamp = AtomicFile::StampOf(Directory);
	Entries.bSettled = AtomicFile::IsSettled(Entries.Stamp);
	if (DIR* const Handle = opendir(Directory.c_str()))
	{
		while (const dirent* const Entry = readdir(Handle))
		{
			const FString Name = FromUtf8(Entry->d_name);
			FString& Standing = Entries.ByName[Name.ToLower().ToStdWString()];
			// The smallest spelling, so that the order of the folder does not matter.
			if (Standing.IsEmpty() || Name.Compare(Standing, ESearchCase::CaseSensitive) < 0)
			{
				Standing = Name;
			}
		}
		closedir(Handle);
	}
	return Entries;
}

/**
 * The entry of a folder whose name is the wanted one in any case; empty when there is none. References to what is not
 * in a checkout are many, so a folder is read once and again only when its stamp is another one, or too young to tell.
 */
static FString FindEntry(const FString& Directory, const FString& Name)
{
	constexpr std::size_t MaxFolders = 1024;
	static std::unordered_map<std::string, FFolderEntries> Folders;
	const std::string Path = ToUtf8(Directory);
	const auto Known = Folders.find(Path);
	const bool bFresh = Known != Folders.end() && Known->second.bSettled
		&& Known->second.Stamp == AtomicFile::StampOf(Path);
	if (!bFresh && Folders.size() >= MaxFolders)
	{
		Folders.clear();
	}
	const FFolderEntries& Entries = bFresh ? Known->second : (Folders[Path] = ReadEntries(Path));
	const auto Found = Entries.ByName.find(Name.ToLower().ToStdWString());
	return Found == Entries.ByName.end() ? FString() : Found->second;
}
/** The engine's own content, which assets refer to and nothing here writes. */
static bool IsOfEngine(FStringView Name)
{
	return Name.StartsWith(TEXT("/Engine/"), ESearchCase::IgnoreCase);
}
} // namespace PackageNames

const FString& FPackageName::GetAssetPackageExtension()
{
	static const FString Extension(TEXT(".uatext"));
	return Extension;
}

bool FPackageName::IsPackageExtension(const TCHAR* Extension)
{
	const FStringView Given(Extension);
	return Given.Equals(GetAssetPackageExtension(), ESearchCase::IgnoreCase)
		|| Given.Equals(FStringView(GetAssetPackageExtension()).RightChop(1), ESearchCase::IgnoreCase);
}

FString FPackageName::LongPackageNameToFilename(const FString& LongPackageName, const FString& Extension)
{
	FString Filename;
	TryConvertLongPackageNameToFilename(LongPackageName, Filename, Extension);
	return Filename;
}

bool FPackageName::TryConvertLongPackageNameToFilename(
	const FString& LongPackageName, FString& OutFilename, const FString& Extension)
{
	PackageNames::FMount Mount;
	const FString Name = LongPackageName.EndsWith(TEXT("/")) ? LongPackageName.LeftChop(1) : LongPackageName;
	const bool bIsRoot = PackageNames::FindMountOfName(Name + TEXT("/"), Mount) && Name.Len() + 1 == Mount.Root.Len();
	if (bIsRoot)
	{
		OutFilename = Mount.Content + Extension;
		return Extension.IsEmpty();
	}
	if (!IsValidTextForLongPackageName(Name) || !PackageNames::FindMountOfName(Name, Mount))
	{
		return false;
	}
	OutFilename = Mount.Content + LongPackageName.RightChop(Mount.Root.Len()) + Extension;
	return true;
}

FString FPackageName::FilenameToLongPackageName(const FString& Filename)
{
	FString PackageName;
	TryConvertFilenameToLongPackageName(Filename, PackageName);
	return PackageName;
}

bool FPackageName::TryConvertFilenameToLongPackageName(
	const FString& Filename, FString& OutPackageName, FString* OutFailureReason)
{
	FString Full = FPaths::ConvertRelativePathToFull(Filename);
	FPaths::NormalizeFilename(Full);
	PackageNames::FMount Mount;
	if (!PackageNames::FindMountOfFile(Full, Mount))
	{
		if (OutFailureReason)
		{
			*OutFailureReason = FString::Printf(TEXT("'%s' lies below no content folder"), *Filename);
		}
		return false;
	}
	FString Name = Mount.Root + Full.RightChop(Mount.Content.Len());
	const FString Extension = FPaths::GetExtension(Name, true);
	if (IsPackageExtension(*Extension) || FPackageText::IsBinaryFile(Extension))
	{
		Name.LeftChopInline(Extension.Len());
	}
	if (!IsValidTextForLongPackageName(Name.EndsWith(TEXT("/")) ? Name.LeftChop(1) : Name))
	{
		if (OutFailureReason)
		{
			*OutFailureReason = FString::Printf(TEXT("'%s' is no valid package name"), *Name);
		}
		return false;
	}
	OutPackageName = MoveTemp(Name);
	return true;
}

bool FPackageName::IsValidTextForLongPackageName(FStringView Name, FText* OutReason)
{
	const auto Refuse = [&](const TCHAR* Problem)
	{
		PackageNames::Explain(OutReason, FString::Printf(TEXT("Package name '%s' %s."), *FString(Name), Problem));
		return false;
	};
	if (Name.Len() < 4 || Name[0] != TEXT('/') || !Name.RightChop(1).Contains(TEXT("/")))
	{
		return Refuse(TEXT("does not have the form '/Root/Name'"));
	}
	if (Name[Name.Len() - 1] == TEXT('/'))
	{
		return Refuse(TEXT("ends with a slash"));
	}
	if (Name.Contains(TEXT("//")))
	{
		return Refuse(TEXT("has an empty part"));
	}
	if (Name.Len() >= NAME_SIZE)
	{
		return Refuse(TEXT("is too long"));
	}
	const FStringView Invalid(INVALID_LONGPACKAGE_CHARACTERS);
	for (const TCHAR Char : Name)
	{
		int32 Ignored = 0;
		if (Char < TEXT(' ') || Invalid.FindChar(Char, Ignored))
		{
			return Refuse(*FString::Printf(TEXT("holds the character '%s'"), *FString::Chr(Char)));
		}
	}
	for (FStringView Rest = Name.RightChop(1); !Rest.IsEmpty();)
	{
		int32 Slash = INDEX_NONE;
		const FStringView Part = Rest.FindChar(TEXT('/'), Slash) ? Rest.Left(Slash) : Rest;
		const FString Fault = NameSyntax::FindFileFault(Part);
		if (!Fault.IsEmpty())
		{
			return Refuse(
				*FString::Printf(TEXT("has the part '%s', which cannot be a name: %s"), *FString(Part), *Fault));
		}
		Rest = Rest.Mid(FMath::Min(Part.Len() + 1, Rest.Len()));
	}
	return true;
}

bool FPackageName::IsValidLongPackageName(FStringView Name, bool bIncludeReadOnlyRoots, FText* OutReason)
{
	if (!IsValidTextForLongPackageName(Name, OutReason))
	{
		return false;
	}
	PackageNames::FMount Mount;
	if (PackageNames::FindMountOfName(Name, Mount)
		|| (bIncludeReadOnlyRoots && (IsScriptPackage(Name) || IsTempPackage(Name) || PackageNames::IsOfEngine(Name))))
	{
		return true;
	}
	PackageNames::Explain(
		OutReason, FString::Printf(TEXT("Package name '%s' begins with no known content root."), *FString(Name)));
	return false;
}

bool FPackageName::IsValidObjectPath(const FString& ObjectPath, FText* OutReason)
{
	if (!IsValidLongPackageName(ObjectPathToPackageName(ObjectPath), true, OutReason))
	{
		return false;
	}
	const FString Inner = ObjectPath.RightChop(ObjectPathToPackageName(ObjectPath).Len() + 1);
	const FStringView Invalid(INVALID_OBJECTPATH_CHARACTERS);
	for (const TCHAR Char : Inner)
	{
		int32 Ignored = 0;
		if (Char < TEXT(' ') || Char == TEXT('/') || Invalid.FindChar(Char, Ignored))
		{
			PackageNames::Explain(OutReason,
				FString::Printf(TEXT("Object path '%s' holds the character '%s'."), *ObjectPath, *FString::Chr(Char)));
			return false;
		}
	}
	return true;
}

bool FPackageName::IsScriptPackage(FStringView PackageName)
{
	return PackageName.StartsWith(TEXT("/Script/"), ESearchCase::IgnoreCase);
}

bool FPackageName::IsTempPackage(FStringView PackageName)
{
	return PackageName.StartsWith(TEXT("/Temp/"), ESearchCase::IgnoreCase);
}

FString FPackageName::GetLongPackagePath(const FString& LongPackageName)
{
	int32 Slash = INDEX_NONE;
	return LongPackageName.FindLastChar(TEXT('/'), Slash) && Slash > 0 ? LongPackageName.Left(Slash) : LongPackageName;
}

FString FPackageName::GetLongPackageAssetName(const FString& LongPackageName)
{
	return GetShortName(LongPackageName);
}

FString FPackageName::GetShortName(const FString& LongName)
{
	int32 Slash = INDEX_NONE;
	return LongName.FindLastChar(TEXT('/'), Slash) ? LongName.RightChop(Slash + 1) : LongName;
}

bool FPackageName::DoesPackageExist(const FString& LongPackageName, FString* OutFilename, bool)
{
	if (IsScriptPackage(LongPackageName))
	{
		return FindPackage(nullptr, *LongPackageName) != nullptr;
	}
	const FString Filename = FPackageText::FindPackageFile(LongPackageName);
	if (OutFilename && !Filename.IsEmpty())
	{
		*OutFilename = Filename;
	}
	return !Filename.IsEmpty();
}

FString PackageLookup::FindOnDisk(const FString& LongPackageName)
{
	return FindOnDisk(LongPackageName, FPackageName::GetAssetPackageExtension());
}

FString PackageLookup::FindOnDisk(const FString& LongPackageName, const FString& Extension)
{
	PackageNames::FMount Mount;
	if (!FPackageName::IsValidTextForLongPackageName(LongPackageName)
		|| !PackageNames::FindMountOfName(LongPackageName, Mount))
	{
		return FString();
	}
	const FString Relative = LongPackageName.RightChop(Mount.Root.Len()) + Extension;
	if (PackageNames::IsFile(Mount.Content + Relative))
	{
		return Mount.Content + Relative;
	}
	TArray<FString> Parts;
	Relative.ParseIntoArray(Parts, TEXT("/"));
	FString Path = Mount.Content.LeftChop(1);
	for (const FString& Part : Parts)
	{
		const FString Entry = PackageNames::FindEntry(Path, Part);
		if (Entry.IsEmpty())
		{
			return FString();
		}
		Path += TEXT("/") + Entry;
	}
	return PackageNames::IsFile(Path) ? Path : FString();
}

FString FPackageText::FindPackageFile(const FString& LongPackageName)
{
	const FString OwnFile = PackageLookup::FindOnDisk(LongPackageName);
	const FString Filename = OwnFile.IsEmpty() ? FPackageText::FindEngineAsset(LongPackageName) : OwnFile;
	FString Ignored;
	return !Filename.IsEmpty() && FPathConfinement::IsInside(Filename, Ignored) ? Filename : FString();
}

FString FPackageName::ObjectPathToPackageName(const FString& ObjectPath)
{
	int32 Dot = INDEX_NONE;
	return ObjectPath.FindChar(TEXT('.'), Dot) ? ObjectPath.Left(Dot) : ObjectPath;
}

FString FPackageName::ExportTextPathToObjectPath(const FString& ExportTextPath)
{
	FString ObjectPath;
	return ParseExportTextPath(ExportTextPath, nullptr, &ObjectPath) ? ObjectPath : ExportTextPath.TrimQuotes();
}

bool FPackageName::ParseExportTextPath(const FString& ExportTextPath, FString* OutClassName, FString* OutObjectPath)
{
	const FString Bare = ExportTextPath.TrimQuotes();
	int32 Open = INDEX_NONE;
	if (!Bare.FindChar(TEXT('\''), Open) || !Bare.EndsWith(TEXT("'")) || Bare.Len() < Open + 2)
	{
		return false;
	}
	if (OutClassName)
	{
		*OutClassName = Bare.Left(Open);
	}
	if (OutObjectPath)
	{
		*OutObjectPath = Bare.Mid(Open + 1, Bare.Len() - Open - 2).TrimQuotes();
	}
	return true;
}

void FPackageName::RegisterMountPoint(const FString& RootPath, const FString& ContentPath)
{
	const FString Root = PackageNames::WithSlashes(RootPath);
	FString Content = FPaths::ConvertRelativePathToFull(ContentPath);
	FPaths::NormalizeDirectoryName(Content);
	Content += TEXT("/");
	for (PackageNames::FMount& Mount : PackageNames::Mounts())
	{
		if (Mount.Root.Equals(Root, ESearchCase::IgnoreCase))
		{
			Mount.Content = MoveTemp(Content);
			return;
		}
	}
	PackageNames::Mounts().Add({Root, MoveTemp(Content)});
}

void FPackageName::UnRegisterMountPoint(const FString& RootPath, const FString&)
{
	const FString Root = PackageNames::WithSlashes(RootPath);
	PackageNames::Mounts().RemoveAll(
		[&](const PackageNames::FMount& Mount) { return Mount.Root.Equals(Root, ESearchCase::IgnoreCase); });
}

bool FPackageName::MountPointExists(const FString& RootPath)
{
	return !GetContentPathForRoot(RootPath).IsEmpty();
}

FName FPackageName::GetPackageMountPoint(const FString& PackagePath, bool bWithoutSlashes)
{
	PackageNames::FMount Mount;
	if (!PackageNames::FindMountOfName(PackagePath.EndsWith(TEXT("/")) ? PackagePath : PackagePath + TEXT("/"), Mount))
	{
		return NAME_None;
	}
	return FName(bWithoutSlashes ? Mount.Root.Mid(1, Mount.Root.Len() - 2) : Mount.Root);
}

void FPackageName::QueryRootContentPaths(TArray<FString>& OutRootContentPaths)
{
	OutRootContentPaths.Empty();
	OutRootContentPaths.Add(PackageNames::GameRoot);
	for (const PackageNames::FMount& Mount : PackageNames::Mounts())
	{
		OutRootContentPaths.AddUnique(Mount.Root);
	}
}

FString FPackageName::GetContentPathForRoot(const FString& RootPath)
{
	const FString Root = PackageNames::WithSlashes(RootPath);
	PackageNames::FMount Mount;
	return PackageNames::FindMountOfName(Root, Mount) && Mount.Root.Equals(Root, ESearchCase::IgnoreCase)
		? Mount.Content
		: FString();
}
