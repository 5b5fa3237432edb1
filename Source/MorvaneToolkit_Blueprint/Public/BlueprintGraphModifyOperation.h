#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/**
 * Fills one graph of one Blueprint: local variables, nodes, pin values, connections, layout, save. A batch that goes on
 * after partial failure: a node that fails costs the connections that need it and nothing else, and the result names
 * every loss, so that the next call can mend it. Makes no functions: that is the graph creation's work.
 */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintGraphModifyOperation
{
public:
	/** Failed nodes and connections are warnings. With any error the graph stays as it came out, in memory, unsaved. */
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
