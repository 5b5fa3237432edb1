#pragma once

#include "AnimStateNodeBase.h"
#include "CoreMinimal.h"

/** Stands for several states at once, as the start of transitions. */
class UAnimStateAliasNode : public UAnimStateNodeBase
{
	EDITOR_CLASS(UAnimStateAliasNode, UAnimStateNodeBase)

public:
	FString GetStateName() const override { return StateAliasName; }
	UEdGraphPin* GetInputPin() const override { return FindPin(TEXT("In"), EGPD_Input); }
	UEdGraphPin* GetOutputPin() const override { return FindPin(TEXT("Out"), EGPD_Output); }
	const TSet<TWeakObjectPtr<UAnimStateNodeBase>>& GetAliasedStates() const { return AliasedStateNodes; }
	TSet<TWeakObjectPtr<UAnimStateNodeBase>>& GetAliasedStates() { return AliasedStateNodes; }
	void AllocateDefaultPins() override;
	void PostPlacedNewNode() override;
	void OnRenameNode(const FString& NewName) override { StateAliasName = NewName; }
	FText GetTooltipText() const override;

	bool bGlobalAlias = false;
	FString StateAliasName;

private:
	TSet<TWeakObjectPtr<UAnimStateNodeBase>> AliasedStateNodes;
};
