#pragma once

#include <string_view>
#include <vector>

/** One call of the demonstration. */
struct FDemoStep
{
	/** What is going on, for the person who watches. */
	std::string_view Story;
	std::string_view Tool;
	/** JSON. "$wait" stands for the id of the node that an earlier call asked for as "wait". */
	std::string_view Arguments;
};

/**
 * A session as an agent would have it: assets of every kind, a door whose graph comes out wrong at first and is
 * repaired, a compile, a look, a clean-up.
 */
const std::vector<FDemoStep>& GetDemoSteps();
