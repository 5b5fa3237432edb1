#pragma once

class FJsonObject;
class UEdGraphNode;

/** What a node is about beyond its class and its pins: what an author chose once and would look for in its details. */
namespace NodeFacts
{
/** Sets what the node's class has to tell; nothing for most. */
void Set(FJsonObject& Properties, const UEdGraphNode& Node);
} // namespace NodeFacts
