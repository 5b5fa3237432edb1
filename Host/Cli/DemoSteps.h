#pragma once

#include <string_view>
#include <vector>

/** One call of the demonstration. */
struct FDemoStep
{
	/** What is going on, for the person who watches. */
	std::string_view Story;
	std::string_view Tool;
	std::string_view Arguments;
};

/** A session as an agent would have it: assets of every kind, a door that opens, a button, a compile, a look, a
 * clean-up. */
const std::vector<FDemoStep>& GetDemoSteps();
