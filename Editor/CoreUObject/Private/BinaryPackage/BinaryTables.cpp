#include "BinaryPackage/BinaryTables.h"

#include <algorithm>

#include "Containers/StringConv.h"

namespace BinaryTables
{
/** More outers than any asset has; a file whose objects hold each other ends here. */
constexpr int MaxDepth = 64;
/** 1023 characters of up to four bytes. */
constexpr std::size_t MaxNameBytes = 4 * 1023;

static std::string JoinSoftPath(const std::string& Asset, const std::string& SubPath)
{
	const std::string Path = Asset == "None" ? std::string() : Asset;
	return SubPath.empty() ? Path : Path + ":" + SubPath;
}
} // namespace BinaryTables

bool FBinaryTables::Read(const std::string_view InBytes, const std::string& InPackageName, std::string& OutRefusal)
{
	if (!ReadHead(InBytes, InPackageName, OutRefusal))
	{
		return false;
	}
	OutRefusal = DescribeCutOff();
	return OutRefusal.empty() && BuildPaths(ExportPaths, Exports.size(), 1, OutRefusal);
}

bool FBinaryTables::ReadHead(const std::string_view InBytes, const std::string& InPackageName, std::string& OutRefusal)
{
	Bytes = InBytes;
	PackageName = InPackageName;
	if (!Summary.Read(Bytes, OutRefusal))
	{
		return false;
	}
	ReadNames();
	ReadSoftPaths();
	ReadImports();
	ReadExports();
	if (!Damaged.empty())
	{
		OutRefusal = Summary.bNewer
			? "the package was written by an engine newer than 5.7, and its table of " + Damaged + " cannot be read"
			: "the package is damaged: its table of " + Damaged;
		return false;
	}
	if (!BuildPaths(ImportPaths, Imports.size(), -1, OutRefusal))
	{
		return false;
	}
	NameAssetByPackage();
	return true;
}

bool FBinaryTables::EqualsIgnoringCase(const std::string_view Left, const std::string_view Right)
{
	return FromUtf8(Left).Equals(FromUtf8(Right), ESearchCase::IgnoreCase);
}

int32_t FBinaryTables::FindAsset(const std::string_view Wanted) const
{
	int32_t Standing = 0;
	for (std::size_t Index = 0; Index < Exports.size(); ++Index)
	{
		const int32_t Reference = static_cast<int32_t>(Index) + 1;
		if (Exports[Index].Outer != 0)
		{
			continue;
		}
		if (EqualsIgnoringCase(Exports[Index].Name, Wanted))
		{
			return Reference;
		}
		const bool bStands = (Exports[Index].Flags & BinaryFlagStandalone) != 0 && Exports[Index].Class != 0
			&& !ClassPathOf(Reference).ends_with(".MetaData");
		Standing = bStands && Standing == 0 ? Reference : Standing;
	}
	return Standing;
}

/**
 * A package is found by its file, and an asset by its package. A file that was copied or renamed outside the editor
 * still holds its asset under the old name; so the asset, its class and what is named after them take the new one.
 */
void FBinaryTables::NameAssetByPackage()
{
	const std::string Wanted = PackageName.substr(PackageName.rfind('/') + 1);
	AssetReference = FindAsset(Wanted);
	if (AssetReference == 0)
	{
		return;
	}
	RecordedName = Exports[static_cast<std::size_t>(AssetReference) - 1].Name;
	if (EqualsIgnoringCase(RecordedName, Wanted))
	{
		return;
	}
	const std::string Old = RecordedName + "_C";
	for (std::size_t Index = 0; Index < Exports.size(); ++Index)
	{
		std::string& Name = Exports[Index].Name;
		const bool bTop = Exports[Index].Outer == 0;
		// A level's Blueprint lies in the level and is called as the map.
		if (Name == RecordedName
			&& (bTop || ClassPathOf(static_cast<int32_t>(Index) + 1).ends_with(".LevelScriptBlueprint")))
		{
			Name = Wanted;
		}
		else if (bTop && Name.ends_with(Old))
		{
			const std::string Prefix = Name.substr(0, Name.size() - Old.size());
			const bool bOwn = Prefix.empty() || Prefix == "Default__" || Prefix == "SKEL_"
				|| Prefix == "Default__SKEL_";
			Name = bOwn ? Prefix + Wanted + "_C" : Name;
		}
	}
}

bool FBinaryTables::BuildPaths(
	std::vector<std::string>& OutPaths, const std::size_t Count, const int Sign, std::string& OutRefusal)
{
	OutPaths.reserve(Count);
	for (std::size_t Index = 0; Index < Count && NumPathBytes <= GetTextLimit(); ++Index)
	{
		OutPaths.push_back(BuildPath(Sign * (static_cast<int32_t>(Index) + 1), 0));
		NumPathBytes += OutPaths.back().size();
	}
	OutRefusal = NumPathBytes <= GetTextLimit()
		? std::string()
		: "the package is damaged: the paths of its objects are longer than a file of its size can name";
	return OutRefusal.empty();
}

/** A sentence when an object reaches beyond the end. */
std::string FBinaryTables::DescribeCutOff() const
{
	uint64_t End = 0;
	for (const FBinaryExport& Export : Exports)
	{
		const bool bPossible = Export.Offset >= 0 && Export.Size >= 0 && Export.Size <= INT64_MAX - Export.Offset;
		End = std::max(End, bPossible ? static_cast<uint64_t>(Export.Offset + Export.Size) : UINT64_MAX);
	}
	if (End == UINT64_MAX)
	{
		return "the package is damaged: an object has a size or a place that no file has";
	}
	return End <= Bytes.size() ? std::string()
							   : "the package is damaged: it is cut off at byte " + std::to_string(Bytes.size())
			+ ", its objects reach to byte " + std::to_string(End);
}

void FBinaryTables::NoteDamage(const char* const Table, const FBinaryCursor& Cursor)
{
	if (Cursor.HasFailed() && Damaged.empty())
	{
		Damaged = std::string(Table) + " ends or breaks off at byte " + std::to_string(Cursor.GetPosition());
	}
}

FBinaryCursor FBinaryTables::CursorAt(const FBinaryTable& Table, const std::size_t LeastSize)
{
	FBinaryCursor Cursor(Bytes);
	Cursor.Seek(static_cast<std::size_t>(Table.Offset < 0 ? -1 : Table.Offset));
	if (Cursor.HasFailed() || Table.Count < 0 || static_cast<std::size_t>(Table.Count) > Cursor.GetLeft() / LeastSize)
	{
		Cursor.Fail();
	}
	return Cursor;
}

void FBinaryTables::ReadNames()
{
	FBinaryCursor Cursor = CursorAt(Summary.Names, 4);
	for (int32_t Index = 0; Index < Summary.Names.Count && !Cursor.HasFailed(); ++Index)
	{
		Names.push_back(Cursor.ReadString());
		// The engine has no longer ones; and no line of text may break within one.
		if (Names.back().size() > BinaryTables::MaxNameBytes)
		{
			Cursor.Fail();
		}
		std::replace_if(
			Names.back().begin(), Names.back().end(), [](const unsigned char Char) { return Char < ' '; }, ' ');
		Cursor.Skip(Summary.Versions.Ue4 >= 504 ? 4 : 0);
	}
	NoteDamage("names", Cursor);
}

/** A name that thousands of rows share would fill the memory, were it not for this. */
void FBinaryTables::CountName(const std::string& Name, FBinaryCursor& Cursor)
{
	NumNameBytes += Name.size();
	if (NumNameBytes > GetTextLimit())
	{
		Cursor.Fail();
	}
}

void FBinaryTables::ReadSoftPaths()
{
	if (Summary.SoftPaths.Count == 0)
	{
		return;
	}
	FBinaryCursor Cursor = CursorAt(Summary.SoftPaths, 12);
	for (int32_t Index = 0; Index < Summary.SoftPaths.Count && !Cursor.HasFailed(); ++Index)
	{
		SoftPaths.push_back(ReadSoftPathInPlace(Cursor));
		CountName(SoftPaths.back(), Cursor);
	}
	NoteDamage("soft object paths", Cursor);
}

std::string FBinaryTables::ReadSoftPathInPlace(FBinaryCursor& Cursor) const
{
	std::string Asset = ReadName(Cursor);
	if (Summary.Versions.Ue5 >= 1007)
	{
		const std::string Name = ReadName(Cursor);
		Asset = Name == "None" ? Asset : Asset + "." + Name;
	}
	if (Summary.Versions.FortniteMain >= 192)
	{
		const int32_t Count = Cursor.ReadCount(1);
		return BinaryTables::JoinSoftPath(Asset, std::string(Cursor.ReadBytes(static_cast<std::size_t>(Count))));
	}
	return BinaryTables::JoinSoftPath(Asset, Cursor.ReadString());
}

std::string FBinaryTables::ReadSoftPath(FBinaryCursor& Cursor) const
{
	if (SoftPaths.empty())
	{
		return ReadSoftPathInPlace(Cursor);
	}
	const int32_t Index = Cursor.ReadInt();
	if (Index < 0 || static_cast<std::size_t>(Index) >= SoftPaths.size())
	{
		Cursor.Fail();
		return std::string();
	}
	return SoftPaths[static_cast<std::size_t>(Index)];
}

void FBinaryTables::ReadImports()
{
	FBinaryCursor Cursor = CursorAt(Summary.Imports, 28);
	for (int32_t Index = 0; Index < Summary.Imports.Count && !Cursor.HasFailed(); ++Index)
	{
		FBinaryImport& Import = Imports.emplace_back();
		Import.ClassPackage = ReadName(Cursor);
		Import.ClassName = ReadName(Cursor);
		Import.Outer = Cursor.ReadInt();
		Import.Name = ReadName(Cursor);
		CountName(Import.ClassPackage, Cursor);
		CountName(Import.ClassName, Cursor);
		CountName(Import.Name, Cursor);
		Cursor.Skip(Summary.Versions.Ue4 >= 520 ? 8 : 0);
		Cursor.Skip(Summary.Versions.Ue5 >= 1003 ? 4 : 0);
	}
	NoteDamage("imports", Cursor);
}

void FBinaryTables::ReadExports()
{
	const FBinaryVersions& Versions = Summary.Versions;
	FBinaryCursor Cursor = CursorAt(Summary.Exports, 60);
	for (int32_t Index = 0; Index < Summary.Exports.Count && !Cursor.HasFailed(); ++Index)
	{
		FBinaryExport& Export = Exports.emplace_back();
		Export.Class = Cursor.ReadInt();
		Export.Super = Cursor.ReadInt();
		Cursor.Skip(Versions.Ue4 >= 508 ? 4 : 0);
		Export.Outer = Cursor.ReadInt();
		Export.Name = ReadName(Cursor);
		CountName(Export.Name, Cursor);
		Export.Flags = Cursor.Read<uint32_t>();
		// Sizes are wide since 4.16.
		Export.Size = Versions.Ue4 >= 511 ? Cursor.Read<int64_t>() : Cursor.ReadInt();
		Export.Offset = Versions.Ue4 >= 511 ? Cursor.Read<int64_t>() : Cursor.ReadInt();
		Cursor.Skip(12);
		Cursor.Skip(Versions.Ue5 < 1005 ? 16 : 0);
		Cursor.Skip(Versions.Ue5 >= 1006 ? 4 : 0);
		Cursor.Skip(8);
		Cursor.Skip(Versions.Ue4 >= 485 ? 4 : 0);
		Cursor.Skip(Versions.Ue5 >= 1003 ? 4 : 0);
		Cursor.Skip(Versions.Ue4 >= 507 ? 20 : 0);
		if (Versions.Ue5 >= 1010)
		{
			Export.ScriptStart = Cursor.Read<int64_t>();
			Export.ScriptEnd = Cursor.Read<int64_t>();
		}
	}
	NoteDamage("exports", Cursor);
}

std::string FBinaryTables::ReadName(FBinaryCursor& Cursor) const
{
	const int32_t Index = Cursor.ReadInt();
	const int32_t Number = Cursor.ReadInt();
	if (Index < 0 || static_cast<std::size_t>(Index) >= Names.size() || Number < 0)
	{
		Cursor.Fail();
		return std::string();
	}
	const std::string& Plain = Names[static_cast<std::size_t>(Index)];
	return Number == 0 ? Plain : Plain + "_" + std::to_string(Number - 1);
}

std::string FBinaryTables::BuildPath(const int32_t Reference, const int Depth) const
{
	const bool bExport = Reference > 0;
	const std::size_t Index = static_cast<std::size_t>(bExport ? int64_t{Reference} - 1 : -int64_t{Reference} - 1);
	if (Reference == 0 || Index >= (bExport ? Exports.size() : Imports.size()) || Depth > BinaryTables::MaxDepth)
	{
		return std::string();
	}
	const int32_t Outer = bExport ? Exports[Index].Outer : Imports[Index].Outer;
	const std::string& Name = bExport ? Exports[Index].Name : Imports[Index].Name;
	if (Outer == 0)
	{
		return bExport ? PackageName + "." + Name : Name;
	}
	// Outers mostly come before what they hold, and have their paths by then.
	std::string Path = PathOf(Outer);
	Path = Path.empty() ? BuildPath(Outer, Depth + 1) : Path;
	const bool bTop = Path.find('.') == std::string::npos;
	return Path + (bTop ? "." : Path.find(':') == std::string::npos ? ":" : ".") + Name;
}

std::string FBinaryTables::PathOf(const int32_t Reference) const
{
	const std::vector<std::string>& Paths = Reference > 0 ? ExportPaths : ImportPaths;
	const std::size_t Index = static_cast<std::size_t>(
		Reference > 0 ? int64_t{Reference} - 1 : -int64_t{Reference} - 1);
	return Reference != 0 && Index < Paths.size() ? Paths[Index] : std::string();
}

std::string FBinaryTables::ClassPathOf(const int32_t Reference) const
{
	if (Reference > 0 && static_cast<std::size_t>(Reference) <= Exports.size())
	{
		const int32_t Class = Exports[static_cast<std::size_t>(Reference) - 1].Class;
		return Class == 0 ? "/Script/CoreUObject.Class" : PathOf(Class);
	}
	const std::size_t Index = static_cast<std::size_t>(-int64_t{Reference} - 1);
	return Reference < 0 && Index < Imports.size() ? Imports[Index].ClassPackage + "." + Imports[Index].ClassName
												   : std::string();
}

std::string FBinaryTables::QuoteReference(const int32_t Reference) const
{
	const std::string Path = PathOf(Reference);
	return Path.empty() ? "None" : "\"" + ClassPathOf(Reference) + "'" + Path + "'\"";
}

std::string_view FBinaryTables::BytesOf(const FBinaryExport& Export) const
{
	const bool bInside = Export.Offset >= 0 && Export.Size >= 0 && static_cast<uint64_t>(Export.Offset) <= Bytes.size()
		&& static_cast<uint64_t>(Export.Size) <= Bytes.size() - static_cast<uint64_t>(Export.Offset);
	return bInside ? Bytes.substr(static_cast<std::size_t>(Export.Offset), static_cast<std::size_t>(Export.Size))
				   : std::string_view();
}
