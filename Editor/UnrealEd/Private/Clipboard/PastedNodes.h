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
 * Makes room for a node that a graph or Blueprint may have but once. Answers the node itself, or a new one that has
 * taken its links where its place was taken, or null when they went to a node that was there before. The caller
 * destroys a node that is not answered.
 */
UEdGraphNode* Settle(UEdGraphNode& Node, FFeedbackContext& Warn);
/**
 * Makes the pins anew, as what declares them may have changed since the text was written. A node that stands where it
 * does not belong, or whose declaration is not known here, keeps its pins as they were pasted; Warn is told its name.
 */
void Renew(UEdGraphNode& Node, FFeedbackContext& Warn);
} // namespace PastedNodes
