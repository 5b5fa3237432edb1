#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/**
 * A result that is too long for one answer, made short enough. The truth comes first and is kept: success, errors,
 * warnings, messages, counts. What is cut is said where it is cut:
 *
 * - of a list, the first entries stay whole, and a last entry says how many are not shown;
 * - members of an object share the room, so that one long one does not push out the others;
 * - a long text ends with how much of it is not shown; one that is a JSON document is cut as such.
 *
 * The member "cut" of the result says that it was, and how to read the rest.
 */
namespace ResultCut
{
/** The same text when it is short enough. It must be a result object as ResultObject writes it. */
std::string Shorten(std::string_view ResultJson, std::size_t MaxBytes);
} // namespace ResultCut
