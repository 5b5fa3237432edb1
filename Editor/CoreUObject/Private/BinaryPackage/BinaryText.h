#pragma once

#include <string>
#include <string_view>

#include "BinaryPackage/BinaryTables.h"

/** Spelling of values in object text. */
namespace BinaryText
{
/** In quotes, with what would end or break a line escaped. */
std::string Quote(std::string_view Utf8);
std::string Number(double Value);
std::string Number(float Value);

/**
 * A localised text as object text writes it: NSLOCTEXT, LOCTABLE or INVTEXT. A text that is made from others by a
 * format, a number or a date is written as what it shows, since nothing that reads graphs asks for more. Fails the
 * cursor for a kind that is not known or nested beyond reason.
 */
std::string ReadText(FBinaryCursor& Cursor, const FBinaryTables& Tables);
} // namespace BinaryText
