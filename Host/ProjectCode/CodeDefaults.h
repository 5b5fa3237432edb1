#pragma once

#include <optional>
#include <string>

/** The value that default code gives, in the catalogue's words for a value of the type: "true", "1.000000", a text
 * without its quotes, an enumerator's name. Nothing where the code does not tell it by itself. */
std::optional<std::string> ReadCodeDefault(const std::string& Type, const std::string& Code);
