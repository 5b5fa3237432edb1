#pragma once

#include "BlueprintNodeBinder.h"
#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphPin.h"
#include "Templates/SubclassOf.h"
#include "UObject/WeakObjectPtr.h"

class UEdGraph;
class UEdGraphNode;

/** What a spawner's entry in the menu says. */
struct FBlueprintActionUiSpec
{
	FText MenuName;
	FText Category;
	FText Tooltip;
	FText Keywords;
};

/** Makes one kind of node, bound to something or not. Owned by the action database, alive as long as the process. */
class UBlueprintNodeSpawner : public UObject, public IBlueprintNodeBinder
{
	EDITOR_CLASS(UBlueprintNodeSpawner, UObject)

public:
	/** Called on a spawned node before its pins are allocated. */
	using FCustomizeNodeDelegate = TFunction<void(UEdGraphNode* NewNode, bool bIsTemplateNode)>;
	/** Told of one pin; true ends the visit. */
	using FPinVisitor = TFunctionRef<bool(const FEdGraphPinType& Type, EEdGraphPinDirection Direction)>;

	static UBlueprintNodeSpawner* Create(
		const UClass* NodeClass, UObject* Outer = nullptr, FCustomizeNodeDelegate PostSpawnDelegate = nullptr);
	template <class T>
	static UBlueprintNodeSpawner* Create(UObject* Outer = nullptr, FCustomizeNodeDelegate PostSpawnDelegate = nullptr)
	{
		return Create(T::StaticClass(), Outer, MoveTemp(PostSpawnDelegate));
	}

	/** Makes the node in the graph at a place; null when the graph cannot have it, or what it is about is gone. */
	virtual UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const;
	/** The menu's words; worked out once from the node itself when the spawner has none of its own. The tooltip is
	 * left out: see GetTooltip. */
	virtual FBlueprintActionUiSpec GetUiSpec() const;
	/** What the node does, in a sentence or more: the spawner's own words, or those of a node that it would make.
	 * Worked out anew each time, as menus ask for few of their entries. */
	FText GetTooltip() const;
	/**
	 * Whether the visitor takes one of the pins that a new node would show. Answered from signatures where there are
	 * some, so that a menu for a pin makes no node for each of its entries.
	 */
	virtual bool AnyPin(FPinVisitor Visit) const;
	/** A node of the kind that no graph lists, to ask for its pins; made once. Null where one cannot be made. */
	UEdGraphNode* GetTemplateNode() const;
	/** Lets the spawner and its template go with the next collection. For whoever made it, once no menu offers it. */
	void Discard();
	/** The class that a menu must be for, or below it, to offer the action; null for any. */
	virtual const UClass* GetRequiredClass() const { return nullptr; }

	TSubclassOf<UEdGraphNode> NodeClass;
	mutable FBlueprintActionUiSpec DefaultMenuSignature;
	FCustomizeNodeDelegate CustomizeNodeDelegate;

protected:
	/** Whether what the spawner is about is still there. */
	virtual bool IsBindable() const { return true; }
	/** Makes a new node be about what the spawner is for, before CustomizeNodeDelegate and the pins. */
	virtual void Bind(UEdGraphNode& Node, bool bIsTemplate) const {}

private:
	/** Makes an empty node be about what the spawner is for. A template must leave no trace. */
	void Customize(UEdGraphNode& Node, bool bIsTemplate) const;
	/** A bound node without pins that no graph lists: enough to say what it is. Null for what is gone. */
	UEdGraphNode* MakeUnplacedNode() const;

	mutable TWeakObjectPtr<UEdGraphNode> TemplateNode;
};
