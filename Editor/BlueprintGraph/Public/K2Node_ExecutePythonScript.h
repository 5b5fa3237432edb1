#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** Runs a script with named values in and out, which any type will do for. */
class UK2Node_ExecutePythonScript : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_ExecutePythonScript, UK2Node_CallFunction)

public:
	UK2Node_ExecutePythonScript();
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	TArray<FName> Inputs;
	TArray<FName> Outputs;
};
