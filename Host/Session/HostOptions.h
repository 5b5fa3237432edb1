#pragma once

#include <cstdint>
#include <optional>
#include <string>

/** Options that every command takes. */
struct FHostOptions
{
	/** The project folder; empty means the current one. */
	std::string ProjectDir;
	/** Makes the ids of new nodes and assets repeatable. */
	std::optional<uint64_t> Seed;
	/** Results on several lines. */
	bool bPretty = false;
};
