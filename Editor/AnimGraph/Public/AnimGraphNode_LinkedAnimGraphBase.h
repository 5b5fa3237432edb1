#pragma once

#include "AnimGraphNode_CustomProperty.h"

/** Runs a graph of poses of another class, or a layer. Each pose that the graph asks for is a pin. */
class UAnimGraphNode_LinkedAnimGraphBase : public UAnimGraphNode_CustomProperty
{
	EDITOR_CLASS(UAnimGraphNode_LinkedAnimGraphBase, UAnimGraphNode_CustomProperty)

public:
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;

	/** The graph that runs, as a function of its class. */
	FMemberReference FunctionReference;

protected:
	/** The graph of the name among those of this Blueprint and of the class; null when it is not at hand. */
	UEdGraph* FindLinkedGraph(FName GraphName) const;
	virtual UEdGraph* GetLinkedGraph() const;
	/** What the title names; empty when nothing is chosen. */
	virtual FString GetLinkedName() const;
	UClass* GetTargetClass() const override;
	void CreateCustomPins(TArray<UEdGraphPin*>* OldPins) override;
};

class UAnimGraphNode_LinkedAnimGraph : public UAnimGraphNode_LinkedAnimGraphBase
{
	EDITOR_CLASS(UAnimGraphNode_LinkedAnimGraph, UAnimGraphNode_LinkedAnimGraphBase)
};

/** A layer: a graph that is called by name, of this Blueprint or of an interface that it implements. */
class UAnimGraphNode_LinkedAnimLayer : public UAnimGraphNode_LinkedAnimGraphBase
{
	EDITOR_CLASS(UAnimGraphNode_LinkedAnimLayer, UAnimGraphNode_LinkedAnimGraphBase)

public:
	UAnimGraphNode_LinkedAnimLayer() { bCanRenameNode = true; }
	/** Runs the layer of that name from now on. */
	void OnRenameNode(const FString& NewName) override;

protected:
	UEdGraph* GetLinkedGraph() const override;
	FString GetLinkedName() const override;
};
