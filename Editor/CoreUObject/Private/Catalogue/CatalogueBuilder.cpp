#include "Catalogue/CatalogueSource.h"

#include <algorithm>
#include <cstring>
#include <tuple>
#include <unordered_map>

namespace Catalogue
{
namespace CatalogueBuilder
{
/** Packs one image; made for one run. */
class FImageBuilder
{
public:
	std::string Build(const std::vector<FSourceFile>& Files)
	{
		AddText("");
		for (const FSourceFile& File : Files)
		{
			for (const FSourceOwner& Owner : File.Owners)
			{
				AddOwner(Owner);
			}
		}
		NestSignatures();
		HashPaths();
		HashNames();
		return Write();
	}

private:
	FTextOffset AddText(const std::string& Value);
	FReference AddReference(const std::string& Path);
	std::uint32_t AddType(const FSourceType& Type);
	FRange AddMeta(const FMetaList& Meta);
	FRange AddProperties(const std::vector<FSourceProperty>& Properties, const std::string& FallbackCategory);
	FRange AddFunctions(const FSourceOwner& Owner);
	FRange AddValues(const std::vector<FSourceValue>& Values);
	FRange AddComponents(const std::vector<FSourceComponent>& Components);
	FRange AddInterfaces(const std::vector<std::string>& Paths);
	void AddOwner(const FSourceOwner& Source);
	void NestSignatures();
	void HashPaths();
	void HashNames();
	std::string Write() const;

	std::string Text;
	std::unordered_map<std::string, FTextOffset> TextOffsets;
	std::vector<FTextOffset> References;
	std::unordered_map<std::string, FReference> ReferenceIndices;
	std::vector<FTypeRecord> Types;
	std::vector<FPropertyRecord> Properties;
	std::vector<FFunctionRecord> Functions;
	std::vector<FValueRecord> Values;
	std::vector<FComponentRecord> Components;
	std::vector<FMetaRecord> Metas;
	std::vector<FReference> Interfaces;
	std::vector<FOwnerRecord> Owners;
	std::vector<std::string> OwnerPaths;
	std::vector<std::uint32_t> Nested;
	std::vector<std::uint32_t> PathSlots;
	std::vector<std::uint32_t> NameSlots;
	std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> TypesByHash;
};

template <class TRow>
FRange RangeFrom(const std::vector<TRow>& Rows, std::size_t First)
{
	return {static_cast<std::uint32_t>(First), static_cast<std::uint32_t>(Rows.size() - First)};
}

/** The smallest power of two that leaves half of the slots free. */
static std::size_t NumSlotsFor(std::size_t NumEntries)
{
	std::size_t NumSlots = 16;
	while (NumSlots < NumEntries * 2)
	{
		NumSlots *= 2;
	}
	return NumSlots;
}

FTextOffset FImageBuilder::AddText(const std::string& Value)
{
	const auto [Found, bNew] = TextOffsets.emplace(Value, static_cast<FTextOffset>(Text.size()));
	if (bNew)
	{
		const std::uint32_t Length = static_cast<std::uint32_t>(Value.size());
		Text.append(reinterpret_cast<const char*>(&Length), sizeof(Length));
		Text.append(Value);
		// Lengths are read in place, so each entry starts aligned.
		Text.append(sizeof(Length) - Text.size() % sizeof(Length), '\0');
	}
	return Found->second;
}

FReference FImageBuilder::AddReference(const std::string& Path)
{
	if (Path.empty())
	{
		return NoIndex;
	}
	const auto [Found, bNew] = ReferenceIndices.emplace(Path, static_cast<FReference>(References.size()));
	if (bNew)
	{
		References.push_back(AddText(Path));
	}
	return Found->second;
}

std::uint32_t FImageBuilder::AddType(const FSourceType& Type)
{
	FTypeRecord Record;
	Record.Category = Type.Category;
	Record.Subtype = Type.Subtype;
	Record.Container = Type.Container;
	Record.Path = AddReference(Type.Path);
	Record.ValueType = Type.MapValue.empty() ? NoIndex : AddType(Type.MapValue[0]);
	std::vector<std::uint32_t>& SamePath =
		TypesByHash[(static_cast<std::uint64_t>(Record.Path) << 8) | static_cast<std::uint64_t>(Record.Category)];
	for (const std::uint32_t Index : SamePath)
	{
		if (std::memcmp(&Types[Index], &Record, sizeof(Record)) == 0)
		{
			return Index;
		}
	}
	SamePath.push_back(static_cast<std::uint32_t>(Types.size()));
	Types.push_back(Record);
	return SamePath.back();
}

FRange FImageBuilder::AddMeta(const FMetaList& Meta)
{
	const std::size_t First = Metas.size();
	for (const auto& [Key, Value] : Meta)
	{
		Metas.push_back({AddText(Key), AddText(Value)});
	}
	return RangeFrom(Metas, First);
}

FRange FImageBuilder::AddProperties(const std::vector<FSourceProperty>& Sources, const std::string& FallbackCategory)
{
	const std::size_t First = Properties.size();
	for (const FSourceProperty& Source : Sources)
	{
		FPropertyRecord Record;
		Record.Name = AddText(Source.Name);
		Record.Type = AddType(Source.Type);
		Record.Flags = Source.Flags;
		Record.Default = AddText(Source.Default);
		Record.Display = AddText(Source.Display);
		Record.Category = AddText(Source.Category.empty() ? FallbackCategory : Source.Category);
		Record.Meta = AddMeta(Source.Meta);
		Properties.push_back(Record);
	}
	return RangeFrom(Properties, First);
}

FRange FImageBuilder::AddFunctions(const FSourceOwner& Owner)
{
	const std::size_t First = Functions.size();
	for (const FSourceFunction& Source : Owner.Functions)
	{
		FFunctionRecord Record;
		Record.Name = AddText(Source.Name);
		Record.Flags = Source.Flags;
		Record.Params = AddProperties(Source.Params, "");
		Record.Display = AddText(Source.Display);
		// Events stand together in menus unless they name a category themselves.
		const bool bEventOnly = (Source.Flags & (Function_Event | Function_NativeEvent)) != 0
			&& (Source.Flags & Function_Callable) == 0;
		Record.Category = AddText(Source.Category.empty() && !bEventOnly ? Owner.Category : Source.Category);
		Record.Compact = AddText(Source.Compact);
		Record.Keywords = AddText(Source.Keywords);
		Record.WorldContext = AddText(Source.WorldContext);
		Record.Meta = AddMeta(Source.Meta);
		Functions.push_back(Record);
	}
	return RangeFrom(Functions, First);
}

FRange FImageBuilder::AddValues(const std::vector<FSourceValue>& Sources)
{
	const std::size_t First = Values.size();
	for (const FSourceValue& Source : Sources)
	{
		FValueRecord Record;
		Record.Value = Source.Value;
		Record.Name = AddText(Source.Name);
		Record.Display = AddText(Source.Display);
		Record.bHidden = Source.bHidden ? 1 : 0;
		Values.push_back(Record);
	}
	return RangeFrom(Values, First);
}

FRange FImageBuilder::AddComponents(const std::vector<FSourceComponent>& Sources)
{
	const std::size_t First = Components.size();
	for (const FSourceComponent& Source : Sources)
	{
		Components.push_back(
			{AddText(Source.Name), AddReference(Source.Class), AddText(Source.Property), AddText(Source.Attach)});
	}
	return RangeFrom(Components, First);
}

FRange FImageBuilder::AddInterfaces(const std::vector<std::string>& Paths)
{
	const std::size_t First = Interfaces.size();
	for (const std::string& Path : Paths)
	{
		Interfaces.push_back(AddReference(Path));
	}
	return RangeFrom(Interfaces, First);
}

void FImageBuilder::AddOwner(const FSourceOwner& Source)
{
	FOwnerRecord Record;
	Record.Path = AddText(Source.Path);
	Record.Kind = Source.Kind;
	Record.Flags = Source.Flags;
	Record.Parent = AddReference(Source.Parent);
	Record.CppName = AddText(Source.CppName);
	Record.Header = AddText(Source.Header);
	Record.Display = AddText(Source.Display);
	Record.EnumForm = Source.EnumForm;
	Record.NativeMake = AddText(Source.NativeMake);
	Record.NativeBreak = AddText(Source.NativeBreak);
	Record.Properties = AddProperties(Source.Properties, Source.Category);
	Record.Functions = AddFunctions(Source);
	Record.Components = AddComponents(Source.Components);
	Record.Values = AddValues(Source.Values);
	Record.Interfaces = AddInterfaces(Source.Interfaces);
	Record.Defaults = AddMeta(Source.Defaults);
	Record.Meta = AddMeta(Source.Meta);
	Owners.push_back(Record);
	OwnerPaths.push_back(Source.Path);
}

void FImageBuilder::NestSignatures()
{
	std::unordered_map<std::string, std::vector<std::uint32_t>> ByClass;
	for (std::uint32_t Index = 0; Index < OwnerPaths.size(); ++Index)
	{
		const std::size_t Colon = OwnerPaths[Index].find(':');
		if (Colon != std::string::npos)
		{
			ByClass[OwnerPaths[Index].substr(0, Colon)].push_back(Index);
		}
	}
	for (std::uint32_t Index = 0; Index < OwnerPaths.size(); ++Index)
	{
		const auto Found = ByClass.find(OwnerPaths[Index]);
		if (Found != ByClass.end())
		{
			const std::size_t First = Nested.size();
			Nested.insert(Nested.end(), Found->second.begin(), Found->second.end());
			Owners[Index].Nested = RangeFrom(Nested, First);
		}
	}
}

void FImageBuilder::HashPaths()
{
	PathSlots.assign(NumSlotsFor(Owners.size()), NoIndex);
	const std::size_t Mask = PathSlots.size() - 1;
	for (std::uint32_t Index = 0; Index < OwnerPaths.size(); ++Index)
	{
		std::size_t Slot = HashText(OwnerPaths[Index]) & Mask;
		while (PathSlots[Slot] != NoIndex)
		{
			Slot = (Slot + 1) & Mask;
		}
		PathSlots[Slot] = Index;
	}
}

void FImageBuilder::HashNames()
{
	NameSlots.assign(NumSlotsFor(Owners.size()), NoIndex);
	// Backwards, so that a chain runs in the order of the files.
	for (std::uint32_t Index = static_cast<std::uint32_t>(OwnerPaths.size()); Index-- > 0;)
	{
		std::uint32_t& Slot = NameSlots[HashText(ShortName(OwnerPaths[Index])) & (NameSlots.size() - 1)];
		Owners[Index].NextByName = Slot;
		Slot = Index;
	}
}

template <class TRow>
void AppendTable(std::string& Image, ETable Table, const TRow* Rows, std::size_t Num)
{
	FImageHeader Header;
	std::memcpy(&Header, Image.data(), sizeof(Header));
	Image.append((8 - Image.size() % 8) % 8, '\0');
	Header.Tables[static_cast<std::size_t>(Table)] = {
		static_cast<std::uint32_t>(Image.size()), static_cast<std::uint32_t>(Num)};
	Image.append(reinterpret_cast<const char*>(Rows), Num * sizeof(TRow));
	std::memcpy(Image.data(), &Header, sizeof(Header));
}

std::string FImageBuilder::Write() const
{
	const FImageHeader Header;
	std::string Image(reinterpret_cast<const char*>(&Header), sizeof(Header));
	AppendTable(Image, ETable::Owners, Owners.data(), Owners.size());
	AppendTable(Image, ETable::PathSlots, PathSlots.data(), PathSlots.size());
	AppendTable(Image, ETable::NameSlots, NameSlots.data(), NameSlots.size());
	AppendTable(Image, ETable::References, References.data(), References.size());
	AppendTable(Image, ETable::Types, Types.data(), Types.size());
	AppendTable(Image, ETable::Properties, Properties.data(), Properties.size());
	AppendTable(Image, ETable::Functions, Functions.data(), Functions.size());
	AppendTable(Image, ETable::Values, Values.data(), Values.size());
	AppendTable(Image, ETable::Components, Components.data(), Components.size());
	AppendTable(Image, ETable::Metas, Metas.data(), Metas.size());
	AppendTable(Image, ETable::Interfaces, Interfaces.data(), Interfaces.size());
	AppendTable(Image, ETable::Nested, Nested.data(), Nested.size());
	AppendTable(Image, ETable::Text, Text.data(), Text.size());
	return Image;
}
} // namespace CatalogueBuilder

std::string BuildImage(const std::vector<FSourceFile>& Files)
{
	return CatalogueBuilder::FImageBuilder().Build(Files);
}
} // namespace Catalogue
