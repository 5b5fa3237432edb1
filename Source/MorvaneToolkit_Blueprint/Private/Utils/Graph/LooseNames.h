#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UClass;
class UEdGraphNode;
class UFunction;

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

/**
 * The one visible data pin of the direction whose name ends with the words asked for, or they with its: "Lifespan" for
 * "In Lifespan", "Rotation" for "New Rotation", "Print Duration" for "Duration". The last that is tried, for it says
 * less than a whole name; null when none fits, or more than one.
 */
UEdGraphPin* FindPinByLastWords(const UEdGraphNode& Node, const FString& Name, EEdGraphPinDirection Direction);

/**
 * The one function of the class or its parents that is shown so, "BeginPlay", "Event Begin Play" and "Parent:
 * BeginPlay" for ReceiveBeginPlay; null when none is, or more than one.
 */
UFunction* FindFunction(const UClass* Class, const FString& Shown);
} // namespace LooseNames
