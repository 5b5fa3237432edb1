#pragma once

#include "CoreMinimal.h"
#include "K2Node_Tunnel.h"

/** A graph by object, with the guid that finds it again after it was renamed. */
struct FGraphReference
{
	EDITOR_STRUCT(FGraphReference)

	void SetGraph(UEdGraph* InGraph);
	/** The graph, found by its guid when the name fails; null when it is gone. */
	UEdGraph* GetGraph() const;
	UBlueprint* GetBlueprint() const;

	mutable TObjectPtr<UEdGraph> MacroGraph;
	TObjectPtr<UBlueprint> GraphBlueprint;
	FGuid GraphGuid;
};

/** A use of a macro. */
class UK2Node_MacroInstance : public UK2Node_Tunnel
{
	EDITOR_CLASS(UK2Node_MacroInstance, UK2Node_Tunnel)

public:
	void SetMacroGraph(UEdGraph* Graph) { MacroGraphReference.SetGraph(Graph); }
	UEdGraph* GetMacroGraph() const { return MacroGraphReference.GetGraph(); }
	static FKismetUserDeclaredFunctionMetadata* GetAssociatedGraphMetadata(const UEdGraph* AssociatedMacroGraph);

	bool CanUserDeleteNode() const override { return true; }
	bool DrawNodeAsEntry() const override { return false; }
	bool DrawNodeAsExit() const override { return false; }
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void NodeConnectionListChanged() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	bool ShouldDrawCompact() const override;
	FText GetCompactNodeTitle() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	bool IsLatentForMacros() const override;
	/** A Blueprint's own macros stay with it; a library's go to Blueprints of its class. Functions take none that wait.
	 */
	bool CanPasteHere(const UEdGraph* TargetGraph) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FGraphReference MacroGraphReference;
	/** What the macro's wildcards are here; no category as long as they are open. */
	FEdGraphPinType ResolvedWildcardType;
	bool bReconstructNode = false;

private:
	UEdGraphPin* CreateTunnelPin(const UEdGraphPin& PortPin);
	void ResolveWildcards(const FEdGraphPinType& NewType);
	/** Whether the pin is open in the macro itself. */
	bool IsWildcardOfMacro(FName PinName) const;
};
