#pragma once

#include <string>
#include <string_view>

namespace ResultJson
{
/** The result object of a call that failed before, or outside of, its tool. */
std::string Failure(std::string_view Error);
} // namespace ResultJson
