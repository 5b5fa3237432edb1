#pragma once

class UEdGraph;
class UK2Node_Tunnel;

/** Fills a macro's graph between its entry and its exit. */
using FMacroBody = void (*)(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);

/** What the standard macros are made of. */
namespace StandardMacroBodies
{
void ForLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void ForEachLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void ReverseForEachLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void WhileLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void DoOnce(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void DoN(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void Gate(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void FlipFlop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void IsValid(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void IsValidClass(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void CompareInt(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void CompareFloat(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void IncrementInt(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void DecrementInt(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void IncrementFloat(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void DecrementFloat(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void SwitchHasAuthority(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
void SwitchOwnerHasAuthority(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit);
} // namespace StandardMacroBodies
