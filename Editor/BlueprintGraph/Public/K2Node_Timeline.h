#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

class UTimelineTemplate;

/** A timeline of the Blueprint: its controls and its tracks. */
class UK2Node_Timeline : public UK2Node
{
	EDITOR_CLASS(UK2Node_Timeline, UK2Node)

public:
	UEdGraphPin* GetUpdatePin() const;
	UEdGraphPin* GetFinishedPin() const;
	UEdGraphPin* GetDirectionPin() const;
	UEdGraphPin* GetTrackPin(const FName TrackName) const { return FindPin(TrackName, EGPD_Output); }
	/** The timeline's settings and tracks; null when they are gone. */
	UTimelineTemplate* GetTimelineTemplate() const;
	/** Gives node and template another name; false when that is taken. */
	bool RenameTimeline(const FString& NewName);

	/** Takes the timeline away with it. */
	void DestroyNode() override;
	void AllocateDefaultPins() override;
	void PostPasteNode() override;
	void PostPlacedNewNode() override;
	void OnRenameNode(const FString& NewName) override;
	bool NodeCausesStructuralBlueprintChange() const override { return true; }
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FName TimelineName;
	FGuid TimelineGuid;
	bool bAutoPlay = false;
	bool bLoop = false;
	bool bReplicated = false;
	bool bIgnoreTimeDilation = false;

private:
	void CreateTrackPins(const UTimelineTemplate& Timeline);
};
