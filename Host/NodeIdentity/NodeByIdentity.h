#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

class UBlueprint;
class UClass;
class UEdGraphNode;
class UEdGraph;

/**
 * Makes single nodes from what identifies them: the node class and what it is bound to, as a JSON object. For looking
 * at the pins that a node has, outside of any asset.
 *
 * Members: "node_class" (path or short name); "function", "function_parent", "self_context" with "declared_in";
 * "event", "event_parent", "custom_event"; "variable", "variable_parent"; "delegate", "delegate_parent"; "macro",
 * "struct", "enum", "cast_target", "key" as paths or names; "keys" and "props" as objects whose members are property
 * lines of the node, as object text spells them; "user_pins"; "self_class" (the native parent of the Blueprint it stood
 * in).
 *
 * Nodes stand in a scratch Blueprint of a fitting parent class, which lives as long as this object.
 */
class FNodeByIdentity
{
public:
	FNodeByIdentity() = default;
	~FNodeByIdentity();
	FNodeByIdentity(const FNodeByIdentity&) = delete;
	FNodeByIdentity& operator=(const FNodeByIdentity&) = delete;

	/** The node with its pins; null with a sentence in OutError. */
	UEdGraphNode* Make(const FJsonObject& Identity, FString& OutError);
	/** "node_class" and "pins", or "error" where the node cannot be made. The node is gone afterwards. */
	TSharedRef<FJsonObject> Describe(const FJsonObject& Identity);
	/** The event graph of the scratch Blueprint of that parent; null when none can be made. */
	UEdGraph* GetEventGraph(UClass& Parent);
	/** The pins in order, with the members: name, dir, cat, sub, obj, obj_kind, container, ref, const, hidden,
	 * advanced, and more where it is set. */
	static TArray<TSharedPtr<FJsonValue>> DescribePins(const UEdGraphNode& Node);

private:
	UClass* ChooseParent(const FJsonObject& Identity) const;
	UEdGraph* GetGraph(UClass* Parent, const UClass* NodeClass);

	TMap<UClass*, UBlueprint*> Scratch;
};
