#pragma once

#include "CoreMinimal.h"
#include "Utils/Request/GraphRecords.h"

class UBlueprint;
class UEdGraph;
class UEdGraphNode;
class UFunction;
class UK2Node_Event;

namespace Morvane
{
class FToolResult;
}

/** Events of event graphs, made by name, and the check that a variable exists before a node is made for it. */
class FBlueprintEventNodeUtils
{
public:
	/**
	 * Makes the event that the record's metadata names, or hands back the one that stands: asking twice does no harm.
	 * Reports its own failure; OutError is set as well where the text is for the caller's failure record. True means a
	 * node.
	 */
	static bool CreateEventNode(UBlueprint* Blueprint, UEdGraph* Graph, const FBPNodeModification& Record,
		Morvane::FToolResult& Result, UEdGraphNode*& OutNode, FString& OutError);

	/** An event that overrides a function of a class. Silent; null when it could not be made. */
	static UK2Node_Event* SpawnEventOverride(
		UEdGraph& Graph, const UFunction& Function, UClass* SignatureClass, const FVector2D& Position);

	/**
	 * Whether the Blueprint declares, inherits, or (as a widget) holds something of the name. OutError lists what there
	 * is while that list is short. Ignores case.
	 */
	static bool ValidateVariableExists(const UBlueprint* Blueprint, const FString& VariableName, FString& OutError);
};
