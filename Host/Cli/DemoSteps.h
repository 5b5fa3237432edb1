#pragma once

#include <string_view>
#include <vector>

/** In the place of a tool: a resource is read. */
inline constexpr std::string_view DemoResource = "resources/read";

/** One call of the demonstration. */
struct FDemoStep
{
	/** What is going on, for the person who watches. */
	std::string_view Story;
	std::string_view Tool;
	/** JSON. "$wait" stands for the id of the node that an earlier call asked for as "wait", "$On Clicked (Play)" for
	 * that of one that an earlier call showed under this title. For a resource, its address. */
	std::string_view Arguments;
};

/**
 * A session as an agent would have it: assets of every kind, a door whose graph comes out wrong at first and is
 * repaired, a compile, a look, a clean-up.
 */
const std::vector<FDemoStep>& GetDemoSteps();

/** What a client looks up before it edits, without changing anything: actions, pins, assets, a Blueprint. */
const std::vector<FDemoStep>& GetDemoResourceSteps();

/** Two widgets: a health bar whose text a function sets, and a main menu whose button opens a level. */
const std::vector<FDemoStep>& GetDemoWidgetSteps();

/** A lamp whose graph is wrong in every way that earlier calls can have: mended by calls until it compiles clean. */
const std::vector<FDemoStep>& GetDemoRepairSteps();

/** A lamp built from nothing: variables, components, an interface, a dispatcher, a timeline, and a graph of them. */
const std::vector<FDemoStep>& GetDemoStructureSteps();
