#pragma once

/** Tells which asset class widget and animation Blueprints have, and what a new one starts with. */
void RegisterBlueprintKinds();
