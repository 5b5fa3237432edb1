#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "BinaryPackage/BinarySummary.h"

/** An object of another package. */
struct FBinaryImport
{
	std::string ClassPackage;
	std::string ClassName;
	/** As every reference: 0 none, k > 0 the export k - 1, k < 0 the import -k - 1. */
	int32_t Outer = 0;
	std::string Name;
};

/** An object of this package and the bytes that describe it. */
struct FBinaryExport
{
	/** 0 for a class. */
	int32_t Class = 0;
	/** What a class, function or struct stands on; 0 for all else. */
	int32_t Super = 0;
	int32_t Outer = 0;
	std::string Name;
	uint32_t Flags = 0;
	int64_t Size = 0;
	int64_t Offset = 0;
	/** Where the tagged properties lie, from Offset on; negative where the file does not say. */
	int64_t ScriptStart = -1;
	int64_t ScriptEnd = -1;
};

constexpr uint32_t BinaryFlagPublic = 1;
constexpr uint32_t BinaryFlagStandalone = 2;
constexpr uint32_t BinaryFlagDefaultObject = 0x10;
constexpr uint32_t BinaryFlagTemplate = 0x20;

/** The tables of a binary package, and its objects by name. The bytes outlive it. */
class FBinaryTables
{
public:
	/** PackageName is where the file lies, which goes before what the file says of itself. */
	bool Read(std::string_view Bytes, const std::string& PackageName, std::string& OutRefusal);
	/** As Read, of a file whose objects are not at hand: its first bytes, up to the header's end. Its own objects have
	 * no paths then, other packages' have. */
	bool ReadHead(std::string_view Bytes, const std::string& PackageName, std::string& OutRefusal);

	const FBinarySummary& GetSummary() const { return Summary; }
	const FBinaryVersions& GetVersions() const { return Summary.Versions; }
	const std::vector<FBinaryExport>& GetExports() const { return Exports; }
	/** The export that bears the package's name, else the one that stands alone; 0 for a package without any. */
	int32_t GetAsset() const { return AssetReference; }
	/** The name that the file gives its asset. The asset itself goes by its package's name, as does its class. */
	const std::string& GetRecordedName() const { return RecordedName; }
	static bool EqualsIgnoringCase(std::string_view Left, std::string_view Right);

	/** A name with its number; fails the cursor for one that is not in the table. */
	std::string ReadName(FBinaryCursor& Cursor) const;
	/** "/Script/Engine.Actor", "/Game/X.X:Graph.Node"; empty for none and for a reference out of range. */
	std::string PathOf(int32_t Reference) const;
	/** The class of the object; "/Script/CoreUObject.Class" for a class. */
	std::string ClassPathOf(int32_t Reference) const;
	/** The object as values name it: "Class'Path'" in quotes, or None. */
	std::string QuoteReference(int32_t Reference) const;
	/** A soft reference's path, from the table or in place. */
	std::string ReadSoftPath(FBinaryCursor& Cursor) const;
	/** How long the text of a file's objects may grow. A file that would be more says of itself what cannot be. */
	std::size_t GetTextLimit() const { return Bytes.size() * TextPerByte + LeastTextLimit; }
	/** The bytes of an export; empty where it says of itself what cannot be. */
	std::string_view BytesOf(const FBinaryExport& Export) const;

private:
	/** The text of real files is about as long as they are. */
	static constexpr std::size_t TextPerByte = 16;
	static constexpr std::size_t LeastTextLimit = 1024 * 1024;

	void ReadNames();
	void ReadSoftPaths();
	void ReadImports();
	void ReadExports();
	int32_t FindAsset(std::string_view Wanted) const;
	void NameAssetByPackage();
	std::string ReadSoftPathInPlace(FBinaryCursor& Cursor) const;
	FBinaryCursor CursorAt(const FBinaryTable& Table, std::size_t LeastSize);
	/** False when the names are longer together than the file can mean. */
	bool BuildPaths(std::vector<std::string>& OutPaths, std::size_t Count, int Sign, std::string& OutRefusal);
	std::string BuildPath(int32_t Reference, int Depth) const;
	void CountName(const std::string& Name, FBinaryCursor& Cursor);
	void NoteDamage(const char* Table, const FBinaryCursor& Cursor);
	std::string DescribeCutOff() const;

	std::string_view Bytes;
	std::string PackageName;
	FBinarySummary Summary;
	std::vector<std::string> Names;
	std::vector<std::string> SoftPaths;
	std::vector<FBinaryImport> Imports;
	std::vector<FBinaryExport> Exports;
	int32_t AssetReference = 0;
	std::string RecordedName;
	/** Of exports and imports, made once: every value that refers to an object asks. */
	std::vector<std::string> ExportPaths;
	std::vector<std::string> ImportPaths;
	/** Of all rows of all tables. */
	std::size_t NumNameBytes = 0;
	std::size_t NumPathBytes = 0;
	/** The table that ended or broke off, and where; empty while all is well. */
	std::string Damaged;
};
