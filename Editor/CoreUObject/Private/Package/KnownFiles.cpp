#include "Package/KnownFiles.h"

#include "Package/PackageFile.h"
#include "Standalone/PackageText.h"
#include "UObject/Package.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unordered_map>

namespace KnownFiles
{
struct FKnownFile
{
	FString PackageName;
	AtomicFile::FStamp Stamp;
	uint64 Checksum = 0;
	/** The stamp was old enough when the contents were looked at, so that it alone tells of a change. */
	bool bSettled = false;
	bool bRefused = false;
};

static std::unordered_map<std::string, FKnownFile>& Table()
{
	static std::unordered_map<std::string, FKnownFile> Files;
	return Files;
}

static FKnownFile* Find(const std::string& Path)
{
	const auto Found = Table().find(Path);
	return Found == Table().end() ? nullptr : &Found->second;
}

void Remember(const FString& Filename, const FString& PackageName, const AtomicFile::FStamp& Stamp, uint64 Checksum)
{
	Table()[ToUtf8(Filename)] = {PackageName, Stamp, Checksum, AtomicFile::IsSettled(Stamp), false};
}

void Forget(const FString& Filename)
{
	Table().erase(ToUtf8(Filename));
}

/** Whether the contents are still those that are known. */
static bool HasKnownContents(const std::string& Path, FKnownFile& Known, AtomicFile::FStamp& OutStamp)
{
	std::string Bytes;
	FPackageText::FHeader Header;
	FString Ignored;
	if (!AtomicFile::Read(Path, Bytes, Ignored, &OutStamp))
	{
		return false;
	}
	const bool bBinary = FPackageText::IsBinaryFile(FromUtf8(Path));
	if (!bBinary && !FPackageText::CheckBytes(Bytes, FString(), Header, Ignored))
	{
		return false;
	}
	if (Known.Checksum != (bBinary ? PackageFile::ChecksumOf(Bytes) : Header.Checksum))
	{
		return false;
	}
	Known.Stamp = OutStamp;
	Known.bSettled = AtomicFile::IsSettled(OutStamp);
	return true;
}

EStanding Look(const FString& Filename, AtomicFile::FStamp& OutStamp, FString& OutError)
{
	const std::string Path = ToUtf8(Filename);
	int ErrorNumber = 0;
	OutStamp = AtomicFile::StampOf(Path, &ErrorNumber);
	FKnownFile* const Known = Find(Path);
	if (!OutStamp.IsValid())
	{
		if (ErrorNumber != ENOENT && ErrorNumber != ENOTDIR)
		{
			OutError = FString::Printf(TEXT("it cannot be looked at: %s"), *FromUtf8(std::strerror(ErrorNumber)));
			return EStanding::Hidden;
		}
		return Known ? EStanding::Gone : EStanding::Nothing;
	}
	if (!Known)
	{
		return EStanding::Unknown;
	}
	if (Known->Stamp == OutStamp && Known->bSettled)
	{
		return EStanding::AsKnown;
	}
	return HasKnownContents(Path, *Known, OutStamp) ? EStanding::AsKnown : EStanding::Changed;
}

void NoteRefusal(const FString& Filename)
{
	if (FKnownFile* const Known = Find(ToUtf8(Filename)))
	{
		Known->bRefused = true;
	}
}

bool WasRefused(const FString& Filename)
{
	const FKnownFile* const Known = Find(ToUtf8(Filename));
	return Known && Known->bRefused;
}

TArray<UPackage*> GetLoaded()
{
	TArray<UPackage*> Packages;
	for (const auto& [Path, Known] : Table())
	{
		UPackage* const Package = FindPackage(nullptr, *Known.PackageName);
		if (Package && ToUtf8(Package->FileName) == Path)
		{
			Packages.Add(Package);
		}
	}
	Packages.Sort(
		[](const UPackage& Left, const UPackage& Right) { return Left.GetName().Compare(Right.GetName()) < 0; });
	return Packages;
}
} // namespace KnownFiles
