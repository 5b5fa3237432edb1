#pragma once

/** Widget Blueprints as a kind: their asset class, and the tree a new one starts with. */
void RegisterWidgetBlueprintKind();
