#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/**
 * The members of one JSON object, each value left as the raw text it came as.
 *
 * Reading looks at the object's own level only: a value deeper down may be malformed, nested beyond any bound or hold a
 * number that no double can, and the other members are still there. A message with a bad argument therefore keeps its
 * id.
 */
class FJsonFields
{
public:
	enum class EOutcome
	{
		Read,
		NotJson,
		NotAnObject
	};

	/** Replaces what was read before. A name given twice keeps its last value. */
	EOutcome Read(std::string_view ObjectText);

	/** The raw text of the value, or null when there is no such member. Names compare exactly. */
	const std::string* Find(std::string_view Name) const;

	/** The decoded string; nothing when the member is absent, of another type, or holds a broken escape. */
	std::optional<std::string> FindString(std::string_view Name) const;

	/** The member's own members; nothing when it is absent or not an object. */
	std::optional<FJsonFields> FindObject(std::string_view Name) const;

	bool Has(std::string_view Name) const { return Find(Name) != nullptr; }

	/** Absent and null are the same to a protocol in which optional members are left out. */
	bool HasValue(std::string_view Name) const;

private:
	/** As they came, doubles included: the last one of a name is the one that counts. */
	std::vector<std::pair<std::string, std::string>> Members;
};

namespace JsonRaw
{
/** The text of a JSON string literal; nothing for any other value or a broken escape. */
std::optional<std::string> DecodeString(std::string_view RawValue);

/** An optional minus and digits, as JSON writes an integer. */
bool IsInteger(std::string_view RawValue);

bool IsObject(std::string_view RawValue);
} // namespace JsonRaw
