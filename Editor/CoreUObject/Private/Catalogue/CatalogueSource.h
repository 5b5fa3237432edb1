#pragma once

#include "Catalogue/CatalogueImage.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/**
 * Catalogue files as they are written: one JSON object a line, read into plain records with every word checked, so that
 * what follows (resolving, packing) never sees JSON. Catalogue/README.md tells the fields.
 */
namespace Catalogue
{
/** A fault in a file; Line counts from 1. */
struct FFault
{
	std::string File;
	int Line = 0;
	std::string Text;

	std::string ToString() const { return File + ":" + std::to_string(Line) + ": " + Text; }
};

using FMetaList = std::vector<std::pair<std::string, std::string>>;

struct FSourceType
{
	ECategory Category = ECategory::Bool;
	ESubtype Subtype = ESubtype::None;
	EContainer Container = EContainer::None;
	std::string Path;
	/** Empty, or the value type of a map. */
	std::vector<FSourceType> MapValue;
};

struct FSourceProperty
{
	std::string Name;
	FSourceType Type;
	std::uint32_t Flags = 0;
	std::string Default;
	std::string Display;
	std::string Category;
	FMetaList Meta;
	int Line = 0;
};

struct FSourceFunction
{
	std::string Name;
	std::uint32_t Flags = 0;
	std::vector<FSourceProperty> Params;
	std::string Display;
	std::string Category;
	std::string Compact;
	std::string Keywords;
	std::string WorldContext;
	FMetaList Meta;
	int Line = 0;
};

struct FSourceValue
{
	std::string Name;
	std::string Display;
	std::int64_t Value = 0;
	bool bHidden = false;
};

struct FSourceComponent
{
	std::string Name;
	std::string Class;
	std::string Property;
	std::string Attach;
	int Line = 0;
};

struct FSourceOwner
{
	std::string Path;
	EOwnerKind Kind = EOwnerKind::Class;
	std::uint32_t Flags = 0;
	std::string Parent;
	std::string CppName;
	std::string Header;
	std::string Display;
	std::string Category;
	EEnumForm EnumForm = EEnumForm::Regular;
	std::string NativeMake;
	std::string NativeBreak;
	std::vector<std::string> Interfaces;
	/** Values of inherited properties that the class starts with. */
	FMetaList Defaults;
	std::vector<FSourceProperty> Properties;
	std::vector<FSourceFunction> Functions;
	std::vector<FSourceComponent> Components;
	std::vector<FSourceValue> Values;
	FMetaList Meta;
	int Line = 0;
};

struct FSourceFile
{
	/** As messages name it. */
	std::string Name;
	std::vector<FSourceOwner> Owners;
};

/** Reads a file's text. Every fault of the file is added; with any, what was read must not be used. */
FSourceFile ParseFile(std::string_view Name, std::string_view Text, std::vector<FFault>& OutFaults);

/** The kind of entry that a reference needs. */
enum class ETarget
{
	Class,
	Struct,
	Enum,
	Delegate,
	Function,
};

constexpr ETarget TargetOf(EOwnerKind Kind)
{
	switch (Kind)
	{
	case EOwnerKind::Class:
		return ETarget::Class;
	case EOwnerKind::Struct:
		return ETarget::Struct;
	case EOwnerKind::Enum:
		return ETarget::Enum;
	case EOwnerKind::Delegate:
		return ETarget::Delegate;
	}
	return ETarget::Class;
}

/** Calls Visit(Path, Target, Line) for each path that the owner refers to. */
template <class TVisit>
void VisitReferences(const FSourceOwner& Owner, TVisit&& Visit);

/** Packs files whose references are known to resolve. The bytes are the same for the same input. */
std::string BuildImage(const std::vector<FSourceFile>& Files);
} // namespace Catalogue

#include "Catalogue/CatalogueReferences.inl"
