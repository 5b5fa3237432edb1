#include "ContentScan.h"

#include "Misc/FileHelper.h"
#include "Misc/PackageName.h"
#include "Standalone/PackageText.h"
#include "Standalone/PathConfinement.h"

#include <algorithm>
#include <dirent.h>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace ContentScan
{
DEFINE_LOG_CATEGORY_STATIC(LogAssetRegistry, Log, All);

class FWalk
{
public:
	void Folder(const std::string& Path, bool bIsLink)
	{
		struct stat Info;
		if (stat(Path.c_str(), &Info) != 0 || !S_ISDIR(Info.st_mode))
		{
			return;
		}
		if (bIsLink && !LeadsInside(Path))
		{
			return;
		}
		// A link may lead to a folder above it.
		if (Seen.emplace(Info.st_dev, Info.st_ino).second)
		{
			Entries(Path);
		}
	}

	std::vector<std::string> Files;

private:
	struct FEntry
	{
		std::string Name;
		unsigned char Type;
	};

	/** Levels that keep each actor in a file of its own have tens of thousands of them, which are no assets. */
	static bool IsPartsOfLevels(const std::string_view Folder)
	{
		return Folder == "__ExternalActors__" || Folder == "__ExternalObjects__";
	}

	static bool LeadsInside(const std::string& Path)
	{
		FString Reason;
		const bool bInside = FPathConfinement::IsInside(FromUtf8(Path), Reason);
		UE_CLOG(!bInside, LogAssetRegistry, Warning, TEXT("A link is passed over: %s"), *Reason);
		return bInside;
	}

	void Entries(const std::string& Path)
	{
		std::vector<FEntry> Found;
		if (DIR* const Handle = opendir(Path.c_str()))
		{
			while (const dirent* const Entry = readdir(Handle))
			{
				if (Entry->d_name[0] != '.' && !IsPartsOfLevels(Entry->d_name))
				{
					Found.push_back({Entry->d_name, Entry->d_type});
				}
			}
			closedir(Handle);
		}
		std::sort(
			Found.begin(), Found.end(), [](const FEntry& Left, const FEntry& Right) { return Left.Name < Right.Name; });
		for (const FEntry& Entry : Found)
		{
			Take(Path + "/" + Entry.Name, Entry.Type);
		}
	}

	void Take(const std::string& Path, unsigned char Type)
	{
		static const std::string Extension = ToUtf8(FPackageName::GetAssetPackageExtension());
		const bool bIsPackage = Path.ends_with(Extension) || Path.ends_with(".uasset") || Path.ends_with(".umap");
		if (bIsPackage && Type != DT_DIR)
		{
			if (Type == DT_REG || LeadsInside(Path))
			{
				Files.push_back(Path);
			}
		}
		else if (Type == DT_DIR || Type == DT_LNK || Type == DT_UNKNOWN)
		{
			Folder(Path, Type != DT_DIR);
		}
	}

	std::set<std::pair<dev_t, ino_t>> Seen;
};

TArray<FString> FindPackageFiles(const FString& Directory)
{
	FWalk Walk;
	Walk.Folder(ToUtf8(Directory.EndsWith(TEXT("/")) ? Directory.LeftChop(1) : Directory), false);
	// A text package goes before a binary one of the same path: it is the copy that is worked on.
	const std::string Extension = ToUtf8(FPackageName::GetAssetPackageExtension());
	const std::set<std::string> Known(Walk.Files.begin(), Walk.Files.end());
	TArray<FString> Files;
	Files.Reserve(static_cast<int32>(Walk.Files.size()));
	for (const std::string& Path : Walk.Files)
	{
		const std::string Text = Path.substr(0, Path.rfind('.')) + Extension;
		if (Text == Path || !Known.contains(Text))
		{
			Files.Add(FromUtf8(Path));
		}
	}
	return Files;
}

bool ReadAsset(const FString& Filename, FAssetData& OutAsset)
{
	FString Reason;
	FString Expected;
	FPackageText::FHeader Header;
	if (!FPackageName::TryConvertFilenameToLongPackageName(Filename, Expected, &Reason)
		|| !FPackageText::ReadHeader(Filename, Header, Reason))
	{
		UE_LOG(LogAssetRegistry, Warning, TEXT("An asset is passed over: %s"), *Reason);
		return false;
	}
	if (!Header.PackageName.Equals(Expected, ESearchCase::IgnoreCase))
	{
		UE_LOG(LogAssetRegistry, Warning,
			TEXT("An asset is passed over: %s: the file holds the package '%s', not '%s'"), *Filename,
			*Header.PackageName, *Expected);
		return false;
	}
	OutAsset = FAssetData(
		FName(Header.PackageName), FName(Header.AssetName), FTopLevelAssetPath(Header.AssetClassPath));
	for (const FPackageText::FTag& Tag : Header.Tags)
	{
		// Several tags of one name are lines of one value.
		FString* const Before = OutAsset.TagsAndValues.Find(Tag.Name);
		if (Before)
		{
			*Before += TEXT("\n") + Tag.Value;
			continue;
		}
		OutAsset.TagsAndValues.Add(Tag.Name, Tag.Value);
	}
	return true;
}

bool NamesPackage(const FString& Filename, const FString& PackageName)
{
	TArray<uint8> Bytes;
	if (!FFileHelper::LoadFileToArray(Bytes, *Filename))
	{
		return false;
	}
	// An object's path goes on with a dot behind its package's name.
	const std::string Wanted = ToUtf8(PackageName + TEXT("."));
	const std::boyer_moore_horspool_searcher Searcher(Wanted.begin(), Wanted.end());
	const uint8* const First = Bytes.GetData();
	const uint8* const End = First + Bytes.Num();
	return std::search(First, End, Searcher) != End;
}
} // namespace ContentScan
