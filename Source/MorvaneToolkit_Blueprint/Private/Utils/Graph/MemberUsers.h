#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;
class UK2Node;

/** Members of a Blueprint by which nodes may name them, wherever these stand. */
struct FDeclaredMembers
{
	/** What the graph and those nested in it declare: a function, the events of a page, a signature, a macro. */
	static FDeclaredMembers OfGraph(const UBlueprint& Blueprint, const UEdGraph& Graph);
	bool IsEmpty() const { return Functions.IsEmpty() && Dispatchers.IsEmpty() && Macros.IsEmpty(); }
	void Append(const FDeclaredMembers& Other);

	TSet<FName> Functions;
	TSet<FName> Dispatchers;
	TSet<const UEdGraph*> Macros;
};

namespace MemberUsers
{
/**
 * The nodes that stand for the members: calls, events and overrides below, chosen delegates, uses of macros and
 * dispatchers, and what is bound to those. In all Blueprints in memory, the Blueprint's own first. The ends of the
 * graphs that declare the members are none of them.
 */
TArray<UK2Node*> Find(const UBlueprint& Blueprint, const FDeclaredMembers& Members);
} // namespace MemberUsers
