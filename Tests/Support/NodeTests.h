#pragma once

#include "BlueprintBuilder.h"
#include "EdGraph/EdGraph.h"

class UFunction;
class UScriptStruct;

/** What the tests of node families share: nodes by what binds them, values of each type, and pins as short text. */
namespace NodeTests
{
constexpr const TCHAR* Math = TEXT("/Script/Engine.KismetMathLibrary");
constexpr const TCHAR* System = TEXT("/Script/Engine.KismetSystemLibrary");

const UFunction* Function(const TCHAR* ClassPath, const TCHAR* Name);
UScriptStruct* Struct(const TCHAR* Path);
UEnum* Enum(const TCHAR* Path);

/** A node of a class, bound before it makes its pins. */
template <class TNode>
TNode* Make(UEdGraph* Graph, TFunctionRef<void(TNode&)> Bind)
{
	FGraphNodeCreator<TNode> Creator(*Graph);
	TNode* const Node = Creator.CreateNode(false);
	Bind(*Node);
	Creator.Finalize();
	return Node;
}

/** The output of a new node that gives a value of the type: "int", "real", "vector", "int[]" and so on. */
UEdGraphPin* Source(FGraphBuilder& Graph, const std::string& Type);

/** Links through the schema; false when it refuses or a pin is missing. */
bool Connect(UEdGraphPin* From, UEdGraphPin* To);
/** Breaks the links of a pin and tells both sides, as an author who cuts them does. */
void Cut(UEdGraphPin* Pin);

/** The type in words, or "no pin". */
std::string TypeOf(const UEdGraphPin* Pin);
/** Names of the pins of a direction, in order, with commas between. */
std::string Names(const UEdGraphNode& Node, EEdGraphPinDirection Direction);
/** Names and types of all visible pins that are no exec pins, in order: "A:Integer B:Integer". */
std::string DataPins(const UEdGraphNode& Node);
} // namespace NodeTests
