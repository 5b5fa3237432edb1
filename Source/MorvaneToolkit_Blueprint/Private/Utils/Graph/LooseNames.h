#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UEdGraphNode;

/** Names as people read them off the editor, where the names themselves are what programmers wrote. */
namespace LooseNames
{
/** Without case, blanks and underscores: "Loop Body", "LoopBody" and "loop_body" alike. */
FString Squeeze(const FString& Name);

/**
 * The one pin that an author would call so: by its name or the label that it is shown with, a flag with or without its
 * leading b, by what it is for where there is but one such pin (the exec pin, the result, the value). Among visible
 * pins of the direction alone; null when none fits, or more than one.
 */
UEdGraphPin* FindPin(const UEdGraphNode& Node, const FString& Name, EEdGraphPinDirection Direction);
} // namespace LooseNames
