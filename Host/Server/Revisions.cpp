#include "Server/Revisions.h"

#include <algorithm>

std::string_view Revisions::Negotiate(const std::string_view Requested)
{
	const bool bSpoken = std::find(Legacy.begin(), Legacy.end(), Requested) != Legacy.end();
	return bSpoken ? Requested : Legacy.front();
}

std::string_view Revisions::ListJson()
{
	return R"(["2026-07-28","2025-11-25","2025-06-18","2025-03-26","2024-11-05"])";
}
