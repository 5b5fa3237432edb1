#pragma once

#include "CoreMinimal.h"
#include "K2Node_FunctionTerminator.h"

/** Where a function returns. Several of one graph show the same pins. */
class UK2Node_FunctionResult : public UK2Node_FunctionTerminator
{
	EDITOR_CLASS(UK2Node_FunctionResult, UK2Node_FunctionTerminator)

public:
	TArray<UK2Node_FunctionResult*> GetAllResultNodes() const;

	bool DrawNodeAsExit() const override { return true; }
	bool CanUserDeleteNode() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void PostPlacedNewNode() override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;

protected:
	UEdGraphPin* CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo) override;
};
