#pragma once

class UK2Node;

/** Nodes whose pins come from something that is missing. */
namespace MissingDeclarations
{
/** Whether what declares the node's pins is missing, so that the pins that stand are all that is known of them. */
bool IsMissing(const UK2Node& Node);
/** Start-up calls it once; more calls do nothing. */
void Register();
} // namespace MissingDeclarations
