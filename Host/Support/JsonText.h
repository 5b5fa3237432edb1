#pragma once

#include <string>
#include <string_view>

/** Writes JSON straight into UTF-8 text, for the few envelopes that the host builds itself. */
namespace JsonText
{
/** Appends Utf8 as a quoted JSON string. Bytes that are not UTF-8 become U+FFFD, so the output is always valid. */
void AppendString(std::string& Out, std::string_view Utf8);

std::string Quote(std::string_view Utf8);

/** Copies Utf8 with every malformed sequence replaced by U+FFFD. */
std::string RepairUtf8(std::string_view Utf8);
} // namespace JsonText
