#pragma once

#include "GraphText.h"

#include <string>
#include <vector>

/** One thing in which a node is not what it was. */
struct FNodeDifference
{
	/** "pin lost", "pin new", "type", "default", "links", "order", "class", "node lost". */
	std::string What;
	std::string NodeClass;
	/** The node's binding, as its text has it: a function, a variable, a macro. */
	std::string Member;
	/** "in X" or "out X". */
	std::string Pin;
	std::string Before;
	std::string After;

	std::string ToString() const;
};

/**
 * All that differs between node Index of two texts. Pins are told apart by direction and name, ignoring case as names
 * do, so one that is new does not hide the others. Properties, and what is only shown of a pin, are not compared.
 */
std::vector<FNodeDifference> FindNodeDifferences(
	const std::vector<FGraphTextNode>& Before, const std::vector<FGraphTextNode>& After, std::size_t Index);
