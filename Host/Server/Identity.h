#pragma once

#include <string>
#include <string_view>

/** Who this server says it is, and what it tells an agent before the first call. */
namespace Identity
{
constexpr std::string_view Name = "morvane";
constexpr std::string_view Version = "1.0.0";

/** name, title, version and description as a JSON object. */
const std::string& ServerInfoJson();

/** What may be asked of it besides tool calls: the same in every revision. */
std::string_view CapabilitiesJson();

/** A few lines for the agent's system prompt. */
std::string_view Instructions();
} // namespace Identity
