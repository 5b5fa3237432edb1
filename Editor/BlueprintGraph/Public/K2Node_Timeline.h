#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

class UTimelineTemplate;

/** A timeline of the Blueprint as a node: what controls it, what it raises, and one output for each track. */
class UK2Node_Timeline : public UK2Node
{
	EDITOR_CLASS(UK2Node_Timeline, UK2Node)

public:
	/** The template that the Blueprint holds under the node's timeline name; null when it is gone. */
	UTimelineTemplate* GetTimelineTemplate() const;
	UEdGraphPin* GetPlayPin() const { return FindPin(TEXT("Play")); }
	UEdGraphPin* GetUpdatePin() const { return FindPin(TEXT("Update")); }
	UEdGraphPin* GetFinishedPin() const { return FindPin(TEXT("Finished")); }
	UEdGraphPin* GetDirectionPin() const { return FindPin(TEXT("Direction")); }

	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool NodeCausesStructuralBlueprintChange() const override { return true; }
	bool IsCompatibleWithGraph(const UEdGraph* TargetGraph) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	FName TimelineName;
	FGuid TimelineGuid;
	bool bAutoPlay = false;
	bool bLoop = false;
	bool bReplicated = false;
	bool bIgnoreTimeDilation = false;
};
