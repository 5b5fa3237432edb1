#pragma once

#include "CoreMinimal.h"

class UEdGraphNode;
struct FBPNodeModification;

namespace Morvane
{
class FToolResult;
}

/** Applies a node record with action modify to a node that is there. */
class FBlueprintNodeEditing
{
public:
	/**
	 * Position, comment, title, called function, then the pins one by one. What is refused is a warning, and the rest
	 * is done. True when anything of the record was applied, or when all it asks for stands already.
	 */
	static bool ModifyNode(UEdGraphNode* Node, const FBPNodeModification& Record, Morvane::FToolResult& Result);
	/**
	 * Whether a title means the node as it is called now, in any of the forms in which reads and messages give titles.
	 * Such a title is no request for another one.
	 */
	static bool IsTitleOf(const UEdGraphNode& Node, const FString& Title);
};
