#include "BinaryPackageWriter.h"

#include <algorithm>
#include <cstdio>

namespace BinaryPackageWriter
{
constexpr uint32_t Magic = 0x9E2A83C1;

struct FArea
{
	const char* Name;
	FByteWriter::FGuidWords Guid;
};

static const FArea Areas[] = {
	{"Framework", {0xCFFC743F, 0x43B04480, 0x939114DF, 0x171D2073}},
	{"Blueprints", {0xB0D832E4, 0x1F894F0D, 0xACCF7EB7, 0x36FD4AA2}},
	{"Release", {0x9C54D522, 0xA8264FBE, 0x94210746, 0x61B482D0}},
	{"Core", {0x375EC13C, 0x06E448FB, 0xB50084F0, 0x262A717E}},
	{"Editor", {0xE4B068ED, 0xF49442E9, 0xA231DA0B, 0x2E46BB41}},
	{"UE5-Release", {0xD89B5E42, 0x24BD4D46, 0x8412ACA8, 0xDF641779}},
	{"UE5-Main", {0x697DD581, 0xE64F41AB, 0xAA4A51EC, 0xBEB7B628}},
	{"Fortnite-Main", {0x601D1886, 0xAC644F84, 0xAA16D3DE, 0x0DEAC7D6}},
	// One that no reader has to know.
	{"Private", {0x01234567, 0x89ABCDEF, 0x01234567, 0x89ABCDEF}},
};

struct FEngine
{
	const char* Version;
	int32_t Legacy, Ue4, Ue5;
	/** In the order of Areas; -1 where the engine does not write the area. */
	int32_t Steps[9];
};

static const FEngine Engines[] = {
	{"4.13", -6, 505, 0, {15, 6, 8, 0, 5, -1, -1, -1, 3}},
	{"4.14", -7, 508, 0, {20, 6, 10, 0, 10, -1, -1, -1, 3}},
	{"4.16", -7, 511, 0, {24, 6, 15, 0, 15, -1, -1, -1, 3}},
	{"4.18", -7, 514, 0, {26, 6, 20, 2, 20, -1, -1, -1, 3}},
	{"4.20", -7, 516, 0, {31, 6, 21, 2, 22, -1, -1, -1, 3}},
	{"4.22", -7, 517, 0, {33, 6, 26, 2, 32, -1, -1, 20, 3}},
	{"4.24", -7, 518, 0, {35, 6, 31, 3, 34, -1, -1, 30, 3}},
	{"4.25", -7, 518, 0, {37, 6, 32, 4, 38, -1, -1, 43, 3}},
	{"4.26", -7, 520, 0, {37, 6, 37, 4, 40, -1, -1, 51, 3}},
	{"4.27", -7, 522, 0, {37, 6, 43, 4, 40, -1, -1, 55, 3}},
	{"5.0", -8, 522, 1004, {37, 6, 45, 4, 40, 38, 57, 60, 3}},
	{"5.1", -8, 522, 1008, {37, 6, 46, 4, 40, 42, 84, 78, 3}},
	{"5.2", -8, 522, 1009, {37, 6, 47, 4, 40, 46, 104, 84, 3}},
	{"5.3", -8, 522, 1009, {37, 6, 47, 4, 40, 48, 118, 98, 3}},
	{"5.4-preview", -8, 522, 1011, {37, 6, 47, 4, 40, 49, 119, 110, 3}},
	{"5.4", -8, 522, 1012, {37, 6, 47, 4, 40, 50, 119, 129, 3}},
	{"5.5", -8, 522, 1013, {37, 6, 47, 4, 40, 52, 119, 166, 3}},
	{"5.6", -9, 522, 1017, {37, 6, 47, 4, 40, 54, 119, 195, 3}},
	{"5.7", -9, 522, 1018, {37, 6, 47, 4, 40, 56, 119, 240, 3}},
	{"later", -9, 522, 1018, {37, 6, 47, 4, 40, 56, 119, 268, 3}},
};

/** Lengths that do not depend on what the file holds. */
static void EngineVersion(FByteWriter& Out, const uint16_t Major)
{
	Out.Put<uint16_t>(Major);
	Out.Put<uint16_t>(0);
	Out.Put<uint16_t>(0);
	Out.Put<uint32_t>(0);
	Out.Text(Major == 0 ? "" : "++Engine+Release");
}
} // namespace BinaryPackageWriter

int32_t FPackageLayout::StepOf(const std::string& Area) const
{
	const auto Found = Steps.find(Area);
	return Found == Steps.end() ? -1 : Found->second;
}

FPackageLayout FPackageLayout::Of(const std::string& Engine)
{
	FPackageLayout Layout;
	for (const BinaryPackageWriter::FEngine& Known : BinaryPackageWriter::Engines)
	{
		if (Engine != Known.Version)
		{
			continue;
		}
		Layout = {Known.Legacy, Known.Ue4, Known.Ue5, {}, 0};
		for (std::size_t Index = 0; Index < std::size(Known.Steps); ++Index)
		{
			if (Known.Steps[Index] >= 0)
			{
				Layout.Steps[BinaryPackageWriter::Areas[Index].Name] = Known.Steps[Index];
			}
		}
	}
	return Layout;
}

const std::vector<std::string>& FPackageLayout::AllEngines()
{
	static const std::vector<std::string> All = []
	{
		std::vector<std::string> Versions;
		for (const BinaryPackageWriter::FEngine& Engine : BinaryPackageWriter::Engines)
		{
			Versions.push_back(Engine.Version);
		}
		return Versions;
	}();
	return All;
}

int32_t FTestPackage::IndexOfName(const std::string& Text)
{
	const auto Found = std::find(Names.begin(), Names.end(), Text);
	const int32_t Index = static_cast<int32_t>(Found - Names.begin());
	if (Found == Names.end())
	{
		Names.push_back(Text);
	}
	return Index;
}

int32_t FTestPackage::AddImport(
	const std::string& ClassPackage, const std::string& Class, const int32_t Outer, const std::string& ObjectName)
{
	Imports.push_back({IndexOfName(ClassPackage), IndexOfName(Class), Outer, IndexOfName(ObjectName)});
	return -static_cast<int32_t>(Imports.size());
}

int32_t FTestPackage::ImportClass(const std::string& Package, const std::string& Class)
{
	const int32_t Outer = AddImport("/Script/CoreUObject", "Package", 0, Package);
	return AddImport("/Script/CoreUObject", "Class", Outer, Class);
}

int32_t FTestPackage::AddExport(
	const int32_t Class, const int32_t Outer, const std::string& ObjectName, const uint32_t Flags)
{
	Exports.push_back({Class, Outer, IndexOfName(ObjectName), Flags, {}, {}});
	return static_cast<int32_t>(Exports.size());
}

void FTestPackage::SetBytes(const int32_t Export, std::string Properties, std::string Native)
{
	FExport& Row = Exports[static_cast<std::size_t>(Export) - 1];
	Row.Properties = std::move(Properties);
	Row.Native = std::move(Native);
}

int32_t FTestPackage::AddSoftPath(const std::string& Package, const std::string& Asset, const std::string& SubPath)
{
	const bool bTwoNames = Layout.Ue5 >= 1007;
	SoftPaths.push_back(
		{IndexOfName(bTwoNames ? Package : Package + "." + Asset), bTwoNames ? IndexOfName(Asset) : 0, SubPath});
	return static_cast<int32_t>(SoftPaths.size()) - 1;
}

void FTestPackage::PutName(FByteWriter& Out, const int32_t Index, const int32_t Number) const
{
	Out.Int(Index);
	Out.Int(Number);
}

std::string FTestPackage::WriteNames() const
{
	FByteWriter Out;
	for (const std::string& Text : Names)
	{
		Out.Text(Text);
		if (Layout.Ue4 >= 504)
		{
			Out.Put<uint16_t>(0x1234);
			Out.Put<uint16_t>(0x5678);
		}
	}
	return Out.Bytes;
}

std::string FTestPackage::WriteSoftPaths() const
{
	FByteWriter Out;
	for (const FSoftPath& Path : SoftPaths)
	{
		PutName(Out, Path.Package);
		if (Layout.Ue5 >= 1007)
		{
			PutName(Out, Path.Asset);
		}
		if (Layout.StepOf("Fortnite-Main") >= 192)
		{
			Out.Int(static_cast<int32_t>(Path.SubPath.size()));
			Out.Raw(Path.SubPath);
		}
		else
		{
			Out.Text(Path.SubPath);
		}
	}
	return Out.Bytes;
}

std::string FTestPackage::WriteImports() const
{
	FByteWriter Out;
	for (const FImport& Import : Imports)
	{
		PutName(Out, Import.ClassPackage);
		PutName(Out, Import.Class);
		Out.Int(Import.Outer);
		PutName(Out, Import.Name);
		if (Layout.Ue4 >= 520)
		{
			PutName(Out, 0);
		}
		if (Layout.Ue5 >= 1003)
		{
			Out.Bool(false);
		}
	}
	return Out.Bytes;
}

std::string FTestPackage::BytesOf(const FExport& Export) const
{
	// One byte that says how the object overrides its parent's values.
	const bool bControl = Layout.Ue5 >= 1011;
	return std::string(bControl ? 1 : 0, '\0') + Export.Properties + Export.Native;
}

std::string FTestPackage::WriteExports(int64_t Offset) const
{
	FByteWriter Out;
	for (const FExport& Export : Exports)
	{
		const std::string Bytes = BytesOf(Export);
		Out.Int(Export.Class);
		Out.Int(0);
		if (Layout.Ue4 >= 508)
		{
			Out.Int(0);
		}
		Out.Int(Export.Outer);
		PutName(Out, Export.Name);
		Out.Put<uint32_t>(Export.Flags);
		if (Layout.Ue4 >= 511)
		{
			Out.Long(static_cast<int64_t>(Bytes.size()));
			Out.Long(Offset);
		}
		else
		{
			Out.Int(static_cast<int32_t>(Bytes.size()));
			Out.Int(static_cast<int32_t>(Offset));
		}
		Out.Bool(false); // forced
		Out.Bool(false); // not for clients
		Out.Bool(false); // not for servers
		Out.Zeros(Layout.Ue5 < 1005 ? 16 : 0);
		Out.Zeros(Layout.Ue5 >= 1006 ? 4 : 0);
		Out.Int(0); // flags of the package
		Out.Bool(true); // not always loaded in game
		Out.Zeros(Layout.Ue4 >= 485 ? 4 : 0);
		Out.Zeros(Layout.Ue5 >= 1003 ? 4 : 0);
		Out.Zeros(Layout.Ue4 >= 507 ? 20 : 0);
		if (Layout.Ue5 >= 1010)
		{
			Out.Long(0);
			Out.Long(static_cast<int64_t>(Bytes.size() - Export.Native.size()));
		}
		Offset += static_cast<int64_t>(Bytes.size());
	}
	return Out.Bytes;
}

std::string FTestPackage::WriteRegistry(const int64_t At) const
{
	FByteWriter Out;
	std::string Tags;
	if (Layout.Ue4 >= 519)
	{
		// The dependencies stand behind the tags; nobody reads them here.
		Out.Long(At);
	}
	Out.Int(Exports.empty() ? 0 : 1);
	if (!Exports.empty())
	{
		Out.Text(Names[static_cast<std::size_t>(Exports.front().Name)]);
		Out.Text("Blueprint");
		Out.Int(static_cast<int32_t>(RegistryTags.size()));
		for (const auto& [Key, Value] : RegistryTags)
		{
			Out.Text(Key);
			Out.Text(Value);
		}
	}
	return Out.Bytes;
}

std::string FTestPackage::WriteSummary(const FOffsets& Offsets, FWritten& Written) const
{
	FByteWriter Out;
	const auto At = [&Offsets](const char* Key) -> int64_t
	{
		const auto Found = Offsets.find(Key);
		return Found == Offsets.end() ? 0 : Found->second;
	};
	const auto Number = [&Out, &Written](const char* Place, const int64_t Value)
	{
		Written.Places[Place] = Out.Bytes.size();
		Out.Int(static_cast<int32_t>(Value));
	};
	const auto Table = [&Number, &At](const std::string& Key, const std::size_t Count)
	{
		Number((Key + ".Count").c_str(), static_cast<int64_t>(Count));
		Number((Key + ".Offset").c_str(), Count == 0 ? 0 : At(Key.c_str()));
	};
	const auto HeaderSize = [&Number, &At] { Number("HeaderSize", At("HeaderSize")); };
	Written.Places["Tag"] = 0;
	Out.Put(BinaryPackageWriter::Magic);
	Number("Legacy", Layout.Legacy);
	Out.Int(864);
	Number("Ue4", Layout.Ue4);
	if (Layout.Legacy <= -8)
	{
		Number("Ue5", Layout.Ue5);
	}
	Out.Int(0); // licensee
	if (Layout.Ue5 >= 1016)
	{
		Out.Zeros(20);
		HeaderSize();
	}
	Number("Areas.Count", static_cast<int64_t>(Layout.Steps.size()));
	for (const BinaryPackageWriter::FArea& Area : BinaryPackageWriter::Areas)
	{
		if (Layout.Steps.contains(Area.Name))
		{
			Out.Guid(Area.Guid);
			Out.Int(Layout.StepOf(Area.Name));
		}
	}
	if (Layout.Ue5 < 1016)
	{
		HeaderSize();
	}
	Out.Text("None");
	Number("PackageFlags", static_cast<int32_t>(Layout.PackageFlags));
	Table("Names", Names.size());
	if (Layout.Ue5 >= 1008)
	{
		Table("SoftPaths", SoftPaths.size());
	}
	if (Layout.Ue4 >= 516)
	{
		Out.Text("0123456789ABCDEF0123456789ABCDEF");
	}
	if (Layout.Ue4 >= 459)
	{
		Table("Texts", 0);
	}
	Table("Exports", Exports.size());
	Table("Imports", Imports.size());
	Out.Zeros(Layout.Ue5 >= 1015 ? 16 : 0);
	Out.Zeros(Layout.Ue5 >= 1014 ? 4 : 0);
	Number("Depends", At("Depends"));
	Out.Zeros(Layout.Ue4 >= 384 ? 8 : 0);
	Out.Zeros(Layout.Ue4 >= 510 ? 4 : 0);
	Out.Int(0); // thumbnails
	Out.Zeros(Layout.Ue5 >= 1018 ? 8 : 0);
	Out.Zeros(Layout.Ue5 < 1016 ? 16 : 0);
	Out.Zeros(Layout.Ue4 >= 518 ? 16 : 0);
	Out.Zeros(Layout.Ue4 >= 518 && Layout.Ue4 < 520 ? 16 : 0);
	Number("Generations.Count", 1);
	Out.Int(static_cast<int32_t>(Exports.size()));
	Out.Int(static_cast<int32_t>(Names.size()));
	BinaryPackageWriter::EngineVersion(Out, Layout.Legacy <= -8 ? 5 : 4);
	BinaryPackageWriter::EngineVersion(Out, 0);
	Out.Int(0); // compression
	Number("CompressedChunks", 0);
	Out.Int(0x5EED); // source
	Number("Cooked.Count", 1);
	Out.Text("/Game/Cooked");
	Out.Zeros(Layout.Legacy > -7 ? 4 : 0);
	Number("Registry.Offset", At("Registry"));
	Out.Long(At("End"));
	Out.Int(0); // world tile
	Out.Int(0); // chunks
	if (Layout.Ue4 >= 507)
	{
		Out.Int(-1);
		Out.Int(0);
	}
	if (Layout.Ue5 >= 1001)
	{
		Out.Int(static_cast<int32_t>(Names.size()));
	}
	if (Layout.Ue5 >= 1002)
	{
		Out.Long(At("End"));
	}
	if (Layout.Ue5 >= 1009)
	{
		Out.Int(-1);
	}
	return Out.Bytes;
}

FTestPackage::FWritten FTestPackage::Write()
{
	FWritten Written;
	FOffsets Offsets;
	std::string Tables;
	const std::size_t SummarySize = WriteSummary(Offsets, Written).size();
	const auto Add = [&Tables, &Offsets, SummarySize](const char* Key, const std::string& Table)
	{
		Offsets[Key] = static_cast<int64_t>(SummarySize + Tables.size());
		Tables += Table;
	};
	Add("Names", WriteNames());
	Add("SoftPaths", WriteSoftPaths());
	Add("Imports", WriteImports());
	const std::size_t ExportsAt = Tables.size();
	Add("Exports", WriteExports(0));
	Add("Depends", std::string(Exports.size() * 4, '\0'));
	Add("Registry", std::string());
	Tables += WriteRegistry(Offsets["Registry"]);
	Written.HeaderSize = SummarySize + Tables.size();
	Offsets["HeaderSize"] = static_cast<int64_t>(Written.HeaderSize);
	const std::string Placed = WriteExports(static_cast<int64_t>(Written.HeaderSize));
	Tables.replace(ExportsAt, Placed.size(), Placed);

	std::string Objects;
	for (const FExport& Export : Exports)
	{
		Objects += BytesOf(Export);
	}
	Offsets["End"] = static_cast<int64_t>(Written.HeaderSize + Objects.size());
	FByteWriter Trailer;
	if (Layout.Ue5 >= 1002)
	{
		Trailer.Put<uint64_t>(0xD1C43B2E80A5F697);
		Trailer.Int(0);
		Trailer.Put<uint32_t>(28);
		Trailer.Put<uint64_t>(0);
		Trailer.Int(0);
	}
	Trailer.Put(BinaryPackageWriter::Magic);
	Written.Bytes = WriteSummary(Offsets, Written) + Tables + Objects + Trailer.Bytes;
	return Written;
}

void FTestPackage::FWritten::Patch(const std::string& Place, const int32_t Value)
{
	std::memcpy(Bytes.data() + Places.at(Place), &Value, sizeof(Value));
}
