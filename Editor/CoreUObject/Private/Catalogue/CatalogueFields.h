#pragma once

#include "Catalogue/CatalogueSource.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <simdjson.h>

namespace Catalogue
{
/** A word of a file and what it stands for. */
struct FWord
{
	std::string_view Text;
	std::uint32_t Value;
};

/** Where faults of one line go. */
struct FLineReport
{
	std::string_view File;
	int Line = 0;
	std::vector<FFault>* Faults = nullptr;

	void Fault(std::string Text) const { Faults->push_back({std::string(File), Line, std::move(Text)}); }
};

/**
 * The fields of one JSON object, read by name. It remembers what was asked for, so that a key that nobody knows is a
 * fault without a second list of keys; call RejectOthers when all are read. A value of the wrong type is a fault and
 * reads as absent.
 */
class FFields
{
public:
	FFields(const simdjson::dom::object& InObject, const FLineReport& InReport)
		: Object(InObject)
		, Report(InReport)
	{
	}

	std::string String(std::string_view Key);
	/** As String, and a fault when it is absent or empty. */
	std::string RequiredString(std::string_view Key);
	bool Bool(std::string_view Key);
	std::int64_t Integer(std::string_view Key, std::int64_t Default);
	std::vector<std::string> Strings(std::string_view Key);
	/** The sum of the flags in a list of words. */
	std::uint32_t Flags(std::string_view Key, std::span<const FWord> Words);
	/** Name and text pairs of an object. */
	FMetaList Meta(std::string_view Key);
	/** The objects of a list, or of a single object for a key that holds one. */
	std::vector<simdjson::dom::object> Objects(std::string_view Key);
	void RejectOthers();

private:
	bool Find(std::string_view Key, simdjson::dom::element& Out);
	void WrongType(std::string_view Key, std::string_view Wanted);

	simdjson::dom::object Object;
	const FLineReport& Report;
	std::vector<std::string_view> Asked;
};

/** The word's value; NoIndex for an unknown one. */
std::uint32_t FindWord(std::string_view Text, std::span<const FWord> Words);

/** Reads "[array|set] category[:subtype] [path]" or "map KEY -> VALUE"; false with a fault. */
bool ParseType(std::string_view Text, const FLineReport& Report, FSourceType& Out);

/** Whether the text has the form of a path to a class, struct, enum or signature. */
bool IsPath(std::string_view Text);
} // namespace Catalogue
