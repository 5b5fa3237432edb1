#include "BinaryPackage/BinarySummary.h"

#include <array>

namespace BinarySummary
{
constexpr uint32_t Tag = 0x9E2A83C1;
constexpr uint32_t SwappedTag = 0xC1832A9E;
constexpr int32_t NewestLegacy = -9;
constexpr int32_t NewestUe5 = 1018;
/** 4.13, the first engine that kept pins inside their nodes. */
constexpr int32_t OldestUe4 = 505;
constexpr uint32_t FlagFilterEditorOnly = 0x80000000;
constexpr uint32_t FlagUnversioned = 0x2000;
constexpr int32_t NewestUe4 = 522;

struct FKnownArea
{
	std::array<uint32_t, 4> Guid;
	int32_t FBinaryVersions::*Step;
};

constexpr FKnownArea Areas[] = {
	{{0xCFFC743F, 0x43B04480, 0x939114DF, 0x171D2073}, &FBinaryVersions::Framework},
	{{0xB0D832E4, 0x1F894F0D, 0xACCF7EB7, 0x36FD4AA2}, &FBinaryVersions::Blueprints},
	{{0x9C54D522, 0xA8264FBE, 0x94210746, 0x61B482D0}, &FBinaryVersions::Release},
	{{0x375EC13C, 0x06E448FB, 0xB50084F0, 0x262A717E}, &FBinaryVersions::Core},
	{{0xE4B068ED, 0xF49442E9, 0xA231DA0B, 0x2E46BB41}, &FBinaryVersions::Editor},
	{{0xD89B5E42, 0x24BD4D46, 0x8412ACA8, 0xDF641779}, &FBinaryVersions::Ue5Release},
	{{0x697DD581, 0xE64F41AB, 0xAA4A51EC, 0xBEB7B628}, &FBinaryVersions::Ue5Main},
	{{0x601D1886, 0xAC644F84, 0xAA16D3DE, 0x0DEAC7D6}, &FBinaryVersions::FortniteMain},
};

static void ReadAreas(FBinaryCursor& Cursor, FBinaryVersions& Versions)
{
	const int32_t Count = Cursor.ReadCount(20);
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		std::array<uint32_t, 4> Guid;
		for (uint32_t& Word : Guid)
		{
			Word = Cursor.Read<uint32_t>();
		}
		const int32_t Step = Cursor.ReadInt();
		for (const FKnownArea& Area : Areas)
		{
			if (Area.Guid == Guid)
			{
				Versions.*Area.Step = Step;
			}
		}
	}
}

static FBinaryTable ReadTable(FBinaryCursor& Cursor)
{
	FBinaryTable Table;
	Table.Count = Cursor.ReadInt();
	Table.Offset = Cursor.ReadInt();
	return Table;
}

static void SkipGenerations(FBinaryCursor& Cursor)
{
	Cursor.Skip(static_cast<std::size_t>(Cursor.ReadCount(8)) * 8);
}

static void SkipEngineVersion(FBinaryCursor& Cursor)
{
	Cursor.Skip(10);
	Cursor.ReadString();
}

/** From the tables to the place of the registry's data. */
static void ReadPlaces(FBinaryCursor& Cursor, FBinarySummary& Summary)
{
	const FBinaryVersions& Versions = Summary.Versions;
	Summary.Names = ReadTable(Cursor);
	if (Versions.Ue5 >= 1008)
	{
		Summary.SoftPaths = ReadTable(Cursor);
	}
	if (Versions.Ue4 >= 516)
	{
		Cursor.ReadString();
	}
	if (Versions.Ue4 >= 459)
	{
		ReadTable(Cursor);
	}
	Summary.Exports = ReadTable(Cursor);
	Summary.Imports = ReadTable(Cursor);
	Cursor.Skip(Versions.Ue5 >= 1015 ? 16 : 0);
	Cursor.Skip(Versions.Ue5 >= 1014 ? 4 : 0);
	Cursor.Skip(4);
	Cursor.Skip(Versions.Ue4 >= 384 ? 8 : 0);
	Cursor.Skip(Versions.Ue4 >= 510 ? 4 : 0);
	Cursor.Skip(4);
	Cursor.Skip(Versions.Ue5 >= 1018 ? 8 : 0);
	Cursor.Skip(Versions.Ue5 < 1016 ? 16 : 0);
	Cursor.Skip(Versions.Ue4 >= 518 ? 16 : 0);
	Cursor.Skip(Versions.Ue4 >= 518 && Versions.Ue4 < 520 ? 16 : 0);
	SkipGenerations(Cursor);
	SkipEngineVersion(Cursor);
	SkipEngineVersion(Cursor);
}

/** A sentence when the packing of the file is none that can be read. */
static std::string ReadPacking(FBinaryCursor& Cursor, FBinarySummary& Summary)
{
	Cursor.Skip(4);
	if (Cursor.ReadInt() != 0)
	{
		return "the package is compressed; only uncompressed packages of the editor can be read";
	}
	Cursor.Skip(4);
	const int32_t NumCooked = Cursor.ReadCount(4);
	for (int32_t Index = 0; Index < NumCooked; ++Index)
	{
		Cursor.ReadString();
	}
	Cursor.Skip(Summary.Versions.Legacy > -7 ? 4 : 0);
	Summary.RegistryOffset = Cursor.ReadInt();
	return std::string();
}

static std::string DescribeUnreadable(const FBinarySummary& Summary)
{
	const FBinaryVersions& Versions = Summary.Versions;
	if (Versions.Legacy < NewestLegacy)
	{
		return "the package was written by an engine newer than 5.7, whose layout is not known";
	}
	if (Versions.Ue4 == 0)
	{
		return "the package is cooked (it names no version); only packages of the editor can be read";
	}
	if (Versions.Legacy > -6 || Versions.Ue4 < OldestUe4)
	{
		return "the package was written by an engine before 4.13; save it anew with a later editor";
	}
	if ((Summary.PackageFlags & FlagUnversioned) != 0)
	{
		return "the package is cooked (its properties bear no names); only packages of the editor can be read";
	}
	if ((Summary.PackageFlags & FlagFilterEditorOnly) != 0)
	{
		return "the package is cooked (what only the editor needs was left out); only packages of the editor can be read";
	}
	return std::string();
}

/** What a file is that does not begin as a package. */
static std::string DescribeForeign(const std::string_view Bytes, const uint32_t FirstWord)
{
	using namespace std::string_view_literals;
	static constexpr struct
	{
		std::string_view Start;
		const char* Sentence;
	} Known[] = {
		{"version https://git-lfs"sv,
			"the file is a Git LFS pointer and not the package itself; 'git lfs pull' fetches it"},
		{"\0GITCRYPT\0"sv, "the file is encrypted by git-crypt; 'git-crypt unlock' opens it"},
		{"age-encryption.org/"sv, "the file is encrypted (by age)"},
		{"-----BEGIN AGE ENCRYPTED FILE"sv, "the file is encrypted (by age)"},
		{"-----BEGIN PGP MESSAGE"sv, "the file is encrypted (by PGP)"},
		{"Salted__"sv, "the file is encrypted (by OpenSSL)"},
		{"PK\3\4"sv, "the file is a zip archive and no package"},
		{"\x1f\x8b"sv, "the file is compressed by gzip; unpacked it may be a package"},
		{"<<<<<<< "sv, "the file is no package: it holds the marks of a merge that was not finished"},
		{"uatext "sv, "the file is a text package under the name of a binary one; its name has to end in '.uatext'"},
	};
	if (Bytes.empty())
	{
		return "the file is empty";
	}
	for (const auto& Row : Known)
	{
		if (Bytes.starts_with(Row.Start))
		{
			return Row.Sentence;
		}
	}
	if (FirstWord == SwappedTag)
	{
		return "the package was written for another byte order; only packages of the editor can be read";
	}
	if (Bytes.find_first_not_of('\0') == std::string_view::npos)
	{
		return "the file holds zeros alone: its contents were lost";
	}
	return "the file is no package: it does not begin as one, or it is encrypted";
}
} // namespace BinarySummary

bool FBinarySummary::Read(const std::string_view Bytes, std::string& OutRefusal)
{
	FBinaryCursor Cursor(Bytes);
	const uint32_t Tag = Cursor.Read<uint32_t>();
	if (Tag != BinarySummary::Tag)
	{
		OutRefusal = BinarySummary::DescribeForeign(Bytes, Tag);
		return false;
	}
	Versions.Legacy = Cursor.ReadInt();
	Cursor.Skip(4);
	Versions.Ue4 = Cursor.ReadInt();
	Versions.Ue5 = Versions.Legacy <= -8 ? Cursor.ReadInt() : 0;
	Cursor.Skip(4);
	OutRefusal = Cursor.HasFailed() ? "the package is damaged: it ends within its head"
									: BinarySummary::DescribeUnreadable(*this);
	if (!OutRefusal.empty())
	{
		return false;
	}
	bNewer = Versions.Ue5 > BinarySummary::NewestUe5 || Versions.Ue4 > BinarySummary::NewestUe4;
	Cursor.Skip(Versions.Ue5 >= 1016 ? 20 : 0);
	HeaderSize = Versions.Ue5 >= 1016 ? Cursor.ReadInt() : 0;
	BinarySummary::ReadAreas(Cursor, Versions);
	HeaderSize = Versions.Ue5 < 1016 ? Cursor.ReadInt() : HeaderSize;
	Cursor.ReadString();
	PackageFlags = Cursor.Read<uint32_t>();
	OutRefusal = Cursor.HasFailed() ? std::string() : BinarySummary::DescribeUnreadable(*this);
	if (OutRefusal.empty())
	{
		BinarySummary::ReadPlaces(Cursor, *this);
		OutRefusal = BinarySummary::ReadPacking(Cursor, *this);
	}
	if (Cursor.HasFailed())
	{
		OutRefusal =
			std::string(bNewer
					? "the package was written by an engine newer than 5.7, and its head cannot be read from byte "
					: "the package is damaged: its head ends or breaks off at byte ")
			+ std::to_string(Cursor.GetPosition());
	}
	return OutRefusal.empty();
}
