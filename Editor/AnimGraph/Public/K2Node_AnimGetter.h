#pragma once

#include "EdGraph/EdGraph.h"
#include "K2Node_CallFunction.h"

class UAnimStateNodeBase;

/** Asks about a state, a transition or a player of the Blueprint: a call whose indices the node fills in. */
class UK2Node_AnimGetter : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_AnimGetter, UK2Node_CallFunction)

public:
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;

	/** The player or the machine that it is about. */
	TObjectPtr<UEdGraphNode> SourceNode;
	/** The state or the transition. */
	TObjectPtr<UEdGraphNode> SourceStateNode;
	TObjectPtr<UClass> GetterClass;
	TObjectPtr<UObject> SourceAnimBlueprint;
	FText CachedTitle;
	TArray<FString> Contexts;
};
