#pragma once

#include "CoreMinimal.h"
#include "K2Node_Tunnel.h"

/** A graph collapsed into one node. */
class UK2Node_Composite : public UK2Node_Tunnel
{
	EDITOR_CLASS(UK2Node_Composite, UK2Node_Tunnel)

public:
	UK2Node_Tunnel* GetEntryNode() const;
	UK2Node_Tunnel* GetExitNode() const;

	bool CanUserDeleteNode() const override { return true; }
	bool DrawNodeAsEntry() const override { return false; }
	bool DrawNodeAsExit() const override { return false; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void PostPlacedNewNode() override;
	void PostPasteNode() override;
	void DestroyNode() override;
	void OnRenameNode(const FString& NewName) override;
	TArray<UEdGraph*> GetSubGraphs() const override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;

	TObjectPtr<UEdGraph> BoundGraph;

protected:
	/** The tunnels of the inner graph that lead here, found again after load or paste. */
	void FixUpTunnels();
};
