#pragma once

#include <string>
#include <vector>

class FBlueprintBuilder;
class UBlueprint;

/**
 * What is wrong in a Blueprint by itself, one line each: parts in the wrong place or that are gone, links of one side,
 * names or ids that two things share, references that lead nowhere, halves without the other half. Empty for a sound
 * one, whatever it does.
 */
std::vector<std::string> FindInconsistencies(UBlueprint& Blueprint);

/** The same, of the Blueprint as it is, as it is after saving and reading it again, and the line "saving again changes
 * the file" where that is so. The Blueprint is another object afterwards. */
std::vector<std::string> FindInconsistenciesAfterReload(FBlueprintBuilder& Blueprint);

/** The file of the Blueprint as it was last saved. */
std::string ReadBlueprintFile(const FBlueprintBuilder& Blueprint);
