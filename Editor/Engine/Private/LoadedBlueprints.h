#pragma once

/** The rules for what Blueprints, graphs and construction scripts hold. */
void AddBlueprintStructureChecks();
