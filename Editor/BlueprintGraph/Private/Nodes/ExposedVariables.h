#pragma once

#include "CoreMinimal.h"

class FProperty;
class UClass;
class UEdGraphPin;
class UK2Node;

/** The variables of a class that whoever makes an object of it may set at once. */
namespace ExposedVariables
{
/** Whether the variable is exposed on spawn and free to be set from outside. */
bool IsExposed(const FProperty& Property);
/**
 * Adds an input for each exposed variable that the node has no pin for, with the class's own default.
 * @param Ignored variables that get none
 * @param OutPins takes the new pins; may be null
 */
void CreatePins(UK2Node& Node, const UClass& Class, const TSet<FName>& Ignored, TArray<UEdGraphPin*>* OutPins);
} // namespace ExposedVariables
