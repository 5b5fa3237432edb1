#pragma once

#include "Containers/UnrealString.h"
#include "Templates/SharedPointer.h"

#include <string>
#include <string_view>

class FJsonValue;

/** Where and why a text is not JSON. */
struct FJsonParseError
{
	std::string Reason;
	/** Both count from 1; a character is a code point. */
	int32 Line = 1;
	int32 Character = 1;

	/** One sentence with the position, in UTF-8. */
	std::string Describe() const;
};

namespace JsonParser
{
bool Check(std::string_view Text, FJsonParseError& OutError, std::size_t MaxValues);

/** On failure OutValue is null. */
bool Parse(std::string_view Text, TSharedPtr<FJsonValue>& OutValue, FJsonParseError& OutError);
} // namespace JsonParser
