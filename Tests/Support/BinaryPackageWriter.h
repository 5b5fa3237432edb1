#pragma once

#include "ByteWriter.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/**
 * Writes binary packages of the engine by what is known of their layout, so that tests need no file of anybody's. It
 * shares no code with the reader: a mistake in one of them shows.
 */

/** The steps of the layout that a file is written by. */
struct FPackageLayout
{
	int32_t Legacy = -7;
	int32_t Ue4 = 522;
	int32_t Ue5 = 0;
	/** By the names in Areas(); one that is missing is not written. */
	std::map<std::string, int32_t> Steps;
	uint32_t PackageFlags = 0;

	int32_t StepOf(const std::string& Area) const;
	/** What an engine of that version writes: "4.13" to "5.7", and "later" for the one after. */
	static FPackageLayout Of(const std::string& Engine);
	/** All that Of knows, oldest first. */
	static const std::vector<std::string>& AllEngines();
};

/** A property's type as a tree: "ArrayProperty" with what it holds. */
struct FTypeTree
{
	std::string Name;
	std::vector<FTypeTree> Parameters;
};

class FTestPackage
{
public:
	FTestPackage(FPackageLayout InLayout, std::string InName)
		: Layout(std::move(InLayout))
		, Name(std::move(InName))
	{
	}

	/** References count exports from 1 up and imports from -1 down. */
	int32_t AddImport(
		const std::string& ClassPackage, const std::string& Class, int32_t Outer, const std::string& Name);
	/** The class of that path, with its package. */
	int32_t ImportClass(const std::string& Package, const std::string& Class);
	int32_t AddExport(int32_t Class, int32_t Outer, const std::string& Name, uint32_t Flags = 0);
	/** What the object writes of itself; the properties end where they say, native data follows. */
	void SetBytes(int32_t Export, std::string Properties, std::string Native = std::string());
	/** The registry's data: the first asset's tags. */
	void AddRegistryTag(const std::string& Key, const std::string& Value) { RegistryTags.emplace_back(Key, Value); }
	int32_t AddSoftPath(const std::string& Package, const std::string& Asset, const std::string& SubPath);

	int32_t IndexOfName(const std::string& Name);
	const FPackageLayout& GetLayout() const { return Layout; }

	struct FWritten
	{
		std::string Bytes;
		/** Where a field of the head lies: "Names.Count", "Names.Offset", "CompressedChunks" ... */
		std::map<std::string, std::size_t> Places;
		std::size_t HeaderSize = 0;

		/** Puts another number where that field lies. */
		void Patch(const std::string& Place, int32_t Value);
	};
	FWritten Write();

private:
	struct FImport
	{
		int32_t ClassPackage, Class, Outer, Name;
	};
	struct FExport
	{
		int32_t Class, Outer, Name;
		uint32_t Flags;
		std::string Properties, Native;
	};
	using FOffsets = std::map<std::string, int64_t>;

	void PutName(FByteWriter& Out, int32_t Index, int32_t Number = 0) const;
	std::string WriteSummary(const FOffsets& Offsets, FWritten& Written) const;
	std::string WriteExports(int64_t FirstOffset) const;
	std::string WriteNames() const;
	std::string WriteSoftPaths() const;
	std::string WriteImports() const;
	std::string WriteRegistry(int64_t At) const;
	std::string BytesOf(const FExport& Export) const;

	const FPackageLayout Layout;
	const std::string Name;
	std::vector<std::string> Names;
	std::vector<FImport> Imports;
	std::vector<FExport> Exports;
	struct FSoftPath
	{
		int32_t Package, Asset;
		std::string SubPath;
	};
	std::vector<FSoftPath> SoftPaths;
	std::vector<std::pair<std::string, std::string>> RegistryTags;
};

/** The bytes of one object. Names go into the package's table as they are written. */
class FObjectBytes : public FByteWriter
{
public:
	explicit FObjectBytes(FTestPackage& InPackage)
		: Package(InPackage)
		, Layout(InPackage.GetLayout())
	{
	}

	void Name(const std::string& Text, int32_t Number = 0)
	{
		Int(Package.IndexOfName(Text));
		Int(Number);
	}
	/** A name that was a text before pins had names. */
	void NameOrText(const std::string& Words);

	struct FTagOptions
	{
		int32_t Index = 0;
		bool bGuid = false;
		bool bExtension = false;
		bool bTrue = false;
	};
	void Tag(const std::string& PropertyName, const FTypeTree& Type, const std::string& Value, FTagOptions Options);
	void Tag(const std::string& PropertyName, const FTypeTree& Type, const std::string& Value)
	{
		Tag(PropertyName, Type, Value, FTagOptions());
	}
	/** An array of structs, with the tag of all that older files have. */
	void StructArray(
		const std::string& PropertyName, const std::string& Struct, const std::vector<std::string>& Elements);
	void EndTags() { Name("None"); }

	/** A text of a person: NSLOCTEXT. */
	void BaseText(const std::string& Namespace, const std::string& Key, const std::string& Source);
	void NoText();

	struct FPinType
	{
		std::string Category = "exec";
		std::string SubCategory;
		int32_t Object = 0;
		uint8_t Container = 0;
		std::string ValueCategory;
		bool bReference = false;
	};
	void PinType(const FPinType& Type);

	struct FPin
	{
		uint32_t Id = 0;
		std::string Name;
		bool bOutput = false;
		FPinType Type;
		std::string Default;
		/** A node and the id of its pin. */
		std::vector<std::pair<int32_t, uint32_t>> Links;
		std::vector<std::pair<int32_t, uint32_t>> SubPins;
		std::pair<int32_t, uint32_t> Parent = {0, 0};
		uint32_t Bits = 0;
	};
	void Pin(int32_t Node, const FPin& Pin);
	void PinReference(int32_t Node, uint32_t Id);

	static FGuidWords GuidOf(const uint32_t Id) { return {0xA1B2C3D4, 0, 0, Id}; }
	static std::string GuidText(uint32_t Id);

private:
	void WholeType(const FTypeTree& Type);
	void LegacyType(const FTypeTree& Type, const std::string& Value, const FTagOptions& Options);

	FTestPackage& Package;
	const FPackageLayout& Layout;
};
