#pragma once

#include "CoreMinimal.h"

class FFeedbackContext;
class UEdGraphNode;

/** What pasted nodes need before they are nodes like others. */
namespace PastedNodes
{
/** Gives pins the types that the text could not tell: floats of before there were two precisions, the Blueprint's own
 * class. */
void RepairTypes(UEdGraphNode& Node);
/**
 * Makes room for a node that a graph or Blueprint may have but once. False when there is no room: the links went to the
 * node that is there, and the caller destroys this one.
 */
bool Settle(UEdGraphNode& Node, FFeedbackContext& Warn);
} // namespace PastedNodes
