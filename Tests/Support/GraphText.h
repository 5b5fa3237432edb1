#pragma once

#include "CoreMinimal.h"

#include <map>
#include <string>
#include <vector>

/** Graph text as data, without what may differ between two texts of the same graph: ids, node names, order of blanks,
 * spelling of references. */
struct FGraphTextNode
{
	std::string Class;
	/** Property lines: name, and element number, to value. */
	std::map<std::string, std::string> Properties;
	/** "Key=Value" fields of each pin in their order, ids and links left out. */
	std::vector<std::vector<std::string>> Pins;
	/** Partners of each pin as "node index.pin index"; partners outside the text are left out. */
	std::vector<std::vector<std::string>> Links;
};

/** Every node of the text; a text that cannot be read fails the test. */
std::vector<FGraphTextNode> ReadGraphText(const std::string& Text);

/** The first difference, in words; empty when the graphs are the same. */
std::string FindDifference(const std::vector<FGraphTextNode>& Expected, const std::vector<FGraphTextNode>& Actual);

/** A file below Tests/Data. */
std::string ReadTestData(const std::string& RelativePath);
