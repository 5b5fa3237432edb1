#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** The object that the graph runs in. */
class UK2Node_Self : public UK2Node
{
	EDITOR_CLASS(UK2Node_Self, UK2Node)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
