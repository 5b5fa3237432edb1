#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphNode.h"

class UAnimStateTransitionNode;

/** What stands in a state machine: states, conduits, aliases and the transitions between them. */
class UAnimStateNodeBase : public UEdGraphNode
{
	EDITOR_CLASS(UAnimStateNodeBase, UEdGraphNode)

public:
	virtual FString GetStateName() const { return GetName(); }
	virtual UEdGraphPin* GetInputPin() const { return nullptr; }
	virtual UEdGraphPin* GetOutputPin() const { return nullptr; }
	virtual UEdGraph* GetBoundGraph() const { return nullptr; }
	virtual void ClearBoundGraph() {}
	void GetTransitionList(TArray<UAnimStateTransitionNode*>& OutTransitions) const;

	TArray<UEdGraph*> GetSubGraphs() const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	bool CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const override;
	/** Renames the bound graph, whose name is the state's. */
	void OnRenameNode(const FString& NewName) override;
	void DestroyNode() override;

protected:
	/** A graph of the class below this node, with its schema's default nodes. */
	UEdGraph* MakeBoundGraph(const TCHAR* BaseName, UClass* GraphClass, UClass* SchemaClass);
};
