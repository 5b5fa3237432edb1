#pragma once

class UBlueprint;
class UClass;

/** Edits of whole Blueprints that scripts of the editor call. */
class UBlueprintEditorLibrary
{
public:
	/**
	 * Gives the Blueprint another parent and brings everything it has in line: components, events, overrides, calls of
	 * the parent, names that the parent has too. Nothing happens when it cannot have that parent: one that is no base
	 * for Blueprints, its own class or one below, or one of another kind of asset.
	 */
	static void ReparentBlueprint(UBlueprint* Blueprint, UClass* NewParentClass);
};
