#pragma once

#include <string>

namespace Morvane
{
class FToolResult;
}

/** The result object of a tool as the host prints and sends it: one line of UTF-8 JSON. */
std::string WriteResultText(const Morvane::FToolResult& Result);
