#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/**
 * The address of something that the server can show: "morvane://menu?query=print%20string",
 * "morvane://blueprint/Game/Doors/BP_Door".
 */
struct FResourceUri
{
	/** "menu", "assets", "node", "blueprint". */
	std::string Kind;
	/** "/Game/Doors/BP_Door", without percent signs; empty when the address ends with its kind. */
	std::string Path;
	/** As they came, without percent signs. */
	std::vector<std::pair<std::string, std::string>> Query;

	/** Nothing for an address of another scheme, and one with a broken percent sign. */
	static std::optional<FResourceUri> Parse(std::string_view Uri);
	/** Percent signs for all that an address may not hold as it is; slashes stay. */
	static std::string Encode(std::string_view Text);

	/** The last value given under a name; empty for none. */
	std::string Get(std::string_view Name) const;
	/** The same as a number that is not below 0; Default where there is none. */
	int GetNumber(std::string_view Name, int Default) const;
};
