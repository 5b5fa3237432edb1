#include "Catalogue/CatalogueFields.h"

namespace Catalogue
{
namespace CatalogueTypes
{
/** Whether a category is followed by a path. */
enum class EPathRule
{
	Never,
	Optional,
	Always,
};

struct FCategoryRow
{
	std::string_view Word;
	ECategory Category;
	EPathRule PathRule;
};

constexpr FCategoryRow Categories[] = {
	{"bool", ECategory::Bool, EPathRule::Never},
	{"byte", ECategory::Byte, EPathRule::Optional},
	{"int", ECategory::Int, EPathRule::Never},
	{"int64", ECategory::Int64, EPathRule::Never},
	{"real", ECategory::Real, EPathRule::Never},
	{"name", ECategory::Name, EPathRule::Never},
	{"string", ECategory::String, EPathRule::Never},
	{"text", ECategory::Text, EPathRule::Never},
	{"wildcard", ECategory::Wildcard, EPathRule::Never},
	{"fieldpath", ECategory::FieldPath, EPathRule::Never},
	{"struct", ECategory::Struct, EPathRule::Always},
	{"object", ECategory::Object, EPathRule::Always},
	{"weakobject", ECategory::WeakObject, EPathRule::Always},
	{"lazyobject", ECategory::LazyObject, EPathRule::Always},
	{"class", ECategory::Class, EPathRule::Always},
	{"softobject", ECategory::SoftObject, EPathRule::Always},
	{"softclass", ECategory::SoftClass, EPathRule::Always},
	{"interface", ECategory::Interface, EPathRule::Always},
	{"delegate", ECategory::Delegate, EPathRule::Always},
	{"mcdelegate", ECategory::MulticastDelegate, EPathRule::Always},
};

struct FSubtypeRow
{
	ECategory Category;
	std::string_view Word;
	ESubtype Subtype;
};

constexpr FSubtypeRow Subtypes[] = {
	{ECategory::Real, "float", ESubtype::Float},
	{ECategory::Real, "double", ESubtype::Double},
	{ECategory::Int, "int8", ESubtype::Int8},
	{ECategory::Int, "int16", ESubtype::Int16},
	{ECategory::Int, "uint16", ESubtype::UInt16},
	{ECategory::Int, "uint32", ESubtype::UInt32},
	{ECategory::Int64, "uint64", ESubtype::UInt64},
};

/** Splits at the first separator; the second part is empty when there is none. */
static std::pair<std::string_view, std::string_view> Split(std::string_view Text, std::string_view Separator)
{
	const std::size_t At = Text.find(Separator);
	return At == std::string_view::npos ? std::pair(Text, std::string_view())
										: std::pair(Text.substr(0, At), Text.substr(At + Separator.size()));
}

static const FCategoryRow* FindCategory(std::string_view Word)
{
	for (const FCategoryRow& Row : Categories)
	{
		if (Row.Word == Word)
		{
			return &Row;
		}
	}
	return nullptr;
}

static bool ParseSubtype(std::string_view Word, FSourceType& Out)
{
	for (const FSubtypeRow& Row : Subtypes)
	{
		if (Row.Category == Out.Category && Row.Word == Word)
		{
			Out.Subtype = Row.Subtype;
			return true;
		}
	}
	return Word.empty() && Out.Category != ECategory::Real;
}

static bool ParsePlain(std::string_view Text, const FLineReport& Report, FSourceType& Out)
{
	const auto [Head, Path] = Split(Text, " ");
	const auto [Word, Subtype] = Split(Head, ":");
	const FCategoryRow* const Row = FindCategory(Word);
	if (!Row)
	{
		Report.Fault("unknown type '" + std::string(Text) + "'");
		return false;
	}
	Out.Category = Row->Category;
	Out.Path = Path;
	if (!ParseSubtype(Subtype, Out))
	{
		Report.Fault("unknown subtype in type '" + std::string(Text) + "'");
		return false;
	}
	if (Path.empty() ? Row->PathRule == EPathRule::Always : Row->PathRule == EPathRule::Never || !IsPath(Path))
	{
		Report.Fault("type '" + std::string(Text) + "' needs "
			+ (Row->PathRule == EPathRule::Never ? "no path" : "a path like /Script/Module.Name"));
		return false;
	}
	return true;
}
} // namespace CatalogueTypes

bool ParseType(std::string_view Text, const FLineReport& Report, FSourceType& Out)
{
	using namespace CatalogueTypes;
	const auto [Word, Rest] = Split(Text, " ");
	if (Word == "map")
	{
		const auto [Key, Value] = Split(Rest, " -> ");
		Out.Container = EContainer::Map;
		Out.MapValue.resize(1);
		return ParsePlain(Key, Report, Out) && ParsePlain(Value, Report, Out.MapValue[0]);
	}
	if (Word == "array" || Word == "set")
	{
		Out.Container = Word == "array" ? EContainer::Array : EContainer::Set;
		return ParsePlain(Rest, Report, Out);
	}
	return ParsePlain(Text, Report, Out);
}

bool IsPath(std::string_view Text)
{
	constexpr std::string_view Root = "/Script/";
	if (Text.substr(0, Root.size()) != Root)
	{
		return false;
	}
	int NumDots = 0;
	int NumColons = 0;
	char Previous = '.';
	for (const char Char : Text.substr(Root.size()))
	{
		const bool bSeparator = Char == '.' || Char == ':';
		const bool bWord = (Char >= 'a' && Char <= 'z') || (Char >= 'A' && Char <= 'Z') || (Char >= '0' && Char <= '9')
			|| Char == '_';
		if ((!bSeparator && !bWord) || (bSeparator && (Previous == '.' || Previous == ':'))
			|| (Char == ':' && NumDots == 0))
		{
			return false;
		}
		NumDots += Char == '.' ? 1 : 0;
		NumColons += Char == ':' ? 1 : 0;
		Previous = Char;
	}
	return NumDots == 1 && NumColons <= 1 && Previous != '.' && Previous != ':';
}
} // namespace Catalogue
