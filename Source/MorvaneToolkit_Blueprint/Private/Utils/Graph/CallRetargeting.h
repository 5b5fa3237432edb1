#pragma once

#include "CoreMinimal.h"

class UEdGraphNode;
struct FBPNodeModification;

namespace Morvane
{
class FToolResult;
}

/** Points a function call that stands at another function. */
namespace CallRetargeting
{
/** Whether the record asks for it: "FunctionName" in its metadata, with "ClassName" beside it or not. */
bool IsAskedFor(const FBPNodeModification& Record);
/** Links and values whose pins the new function has, too, stay. False after a warning; the node is then as it was. */
bool Apply(UEdGraphNode& Node, const FBPNodeModification& Record, Morvane::FToolResult& Result);
} // namespace CallRetargeting
