#pragma once

#include "CoreMinimal.h"
#include "K2Node_Composite.h"

/**
 * A formula as one node. Its name is the formula: renaming it builds the inner graph of calls anew, with an input for
 * each variable and one output. What is wrong with a formula is told on the node and again at compile; the graph is
 * empty then.
 */
class UK2Node_MathExpression : public UK2Node_Composite
{
	EDITOR_CLASS(UK2Node_MathExpression, UK2Node_Composite)

public:
	UK2Node_MathExpression() { bCanRenameNode = true; }
	/** Parses the formula and builds the inner graph from it. */
	void RebuildExpression(FString InExpression);

	bool IsNodePure() const override { return true; }
	void OnRenameNode(const FString& NewName) override;
	/** Accepts any formula: what is wrong with one is told on the node. */
	TSharedPtr<INameValidatorInterface> MakeNameValidator() const override;
	void PostPlacedNewNode() override;
	void ReconstructNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FString Expression;
	bool bMadeAfterRotChange = false;

private:
	void ClearInnerGraph();
	void TellError(const FString& Error);

	/** Why the formula makes no graph; empty when it does. Found again when the formula is built again. */
	FString BuildError;
};
