#pragma once

#include "CoreMinimal.h"
#include "EdGraphSchema_K2.h"

/** The rules of graphs of poses. */
class UAnimationGraphSchema : public UEdGraphSchema_K2
{
	EDITOR_CLASS(UAnimationGraphSchema, UEdGraphSchema_K2)

public:
	/** The struct of a pose in local space, by which pose pins are typed. */
	static UScriptStruct* GetPoseLinkStruct();
	/** A pin of poses, in local or component space. */
	static bool IsPosePin(const FEdGraphPinType& PinType);
	const FPinConnectionResponse CanCreateConnection(const UEdGraphPin* A, const UEdGraphPin* B) const override;
	void CreateDefaultNodesForGraph(UEdGraph& Graph) const override;
	EGraphType GetGraphType(const UEdGraph* TestEdGraph) const override { return GT_Animation; }
};

class UAnimationStateGraphSchema : public UAnimationGraphSchema
{
	EDITOR_CLASS(UAnimationStateGraphSchema, UAnimationGraphSchema)

public:
	void CreateDefaultNodesForGraph(UEdGraph& Graph) const override;
};

class UAnimationTransitionSchema : public UEdGraphSchema_K2
{
	EDITOR_CLASS(UAnimationTransitionSchema, UEdGraphSchema_K2)

public:
	void CreateDefaultNodesForGraph(UEdGraph& Graph) const override;
	EGraphType GetGraphType(const UEdGraph* TestEdGraph) const override { return GT_Function; }
};
