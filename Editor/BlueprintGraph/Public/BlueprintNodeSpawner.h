#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"
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
class UBlueprintNodeSpawner : public UObject
{
	EDITOR_CLASS(UBlueprintNodeSpawner, UObject)

public:
	/** Called on a spawned node before its pins are allocated. */
	using FCustomizeNodeDelegate = TFunction<void(UEdGraphNode* NewNode, bool bIsTemplateNode)>;
	using FBindingSet = TSet<UObject*>;

	static UBlueprintNodeSpawner* Create(
		const UClass* NodeClass, UObject* Outer = nullptr, FCustomizeNodeDelegate PostSpawnDelegate = nullptr);
	template <class T>
	static UBlueprintNodeSpawner* Create(UObject* Outer = nullptr, FCustomizeNodeDelegate PostSpawnDelegate = nullptr)
	{
		return Create(T::StaticClass(), Outer, MoveTemp(PostSpawnDelegate));
	}

	/** Makes the node in the graph at a place; null when the graph cannot have it. */
	virtual UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const;
	UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FVector2D Location) const
	{
		return Invoke(ParentGraph, FBindingSet(), Location);
	}
	/** The menu's words; worked out once from the node itself when the spawner has none of its own. */
	virtual FBlueprintActionUiSpec GetUiSpec() const;
	/** A node of the kind that is in no real graph, to ask for its title and pins. Null where one cannot be made. */
	UEdGraphNode* GetTemplateNode(UEdGraph* TargetGraph = nullptr) const;
	/** Lets the spawner and its template go with the next collection. For whoever made it, once no menu offers it. */
	void Discard();
	/** The class that a menu must be for, or below it, to offer the action; null for any. */
	virtual const UClass* GetRequiredClass() const { return nullptr; }

	TSubclassOf<UEdGraphNode> NodeClass;
	mutable FBlueprintActionUiSpec DefaultMenuSignature;
	FCustomizeNodeDelegate CustomizeNodeDelegate;

protected:
	/** Customize is called on the node before CustomizeNodeDelegate, to bind it to what the spawner is for. */
	UEdGraphNode* SpawnEdGraphNode(const UClass* InNodeClass, UEdGraph* ParentGraph, const FBindingSet& Bindings,
		FVector2D Location, const FCustomizeNodeDelegate& PostSpawnDelegate) const;

private:
	mutable TWeakObjectPtr<UEdGraphNode> TemplateNode;
};
