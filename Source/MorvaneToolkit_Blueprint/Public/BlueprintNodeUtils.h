#pragma once

#include "CoreMinimal.h"

class UClass;
class UBlueprint;
class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;
class UK2Node_VariableGet;
class UK2Node_VariableSet;

/** Names and makes single nodes. Nothing here reports; a node that could not be made is null and leaves nothing behind.
 */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintNodeUtils
{
public:
	/** The first 7 digits of the node's guid, by which reads and messages name it; empty for null. */
	static FString GetShortNodeId(const UEdGraphNode* Node);
	/** The title, or the class name where a title is empty; "None" for null. */
	static FString GetFullTitle(const UEdGraphNode* Node);

	/** A node for a variable that the Blueprint declares or inherits. The caller has checked that there is one. */
	static UK2Node_VariableGet* CreateVariableGetNode(
		UBlueprint* Blueprint, UEdGraph* Graph, const FString& VariableName, const FVector2D& Position);
	static UK2Node_VariableSet* CreateVariableSetNode(
		UBlueprint* Blueprint, UEdGraph* Graph, const FString& VariableName, const FVector2D& Position);

	/**
	 * A node for a variable of another class, whose target is what OwnerPin holds; where the two do not fit, or the pin
	 * is null, the target stays open. Null when the class has no such variable.
	 */
	static UK2Node_VariableGet* CreateCrossObjectVariableGetNode(UEdGraph* Graph, const FString& VariableName,
		UClass* SourceClass, UEdGraphPin* OwnerPin, const FVector2D& Position);
	static UK2Node_VariableSet* CreateCrossObjectVariableSetNode(UEdGraph* Graph, const FString& VariableName,
		UClass* SourceClass, UEdGraphPin* OwnerPin, const FVector2D& Position);
};
