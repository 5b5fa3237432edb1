#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** A call of a function of an object that a variable holds. */
class UK2Node_CallFunctionOnMember : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_CallFunctionOnMember, UK2Node_CallFunction)

public:
	void HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass, UEdGraph* InGraph,
		const FName& InOldVarName, const FName& InNewVarName) override;
	bool ReferencesVariable(const FName& InVarName, const UStruct* InScope) const override;
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FMemberReference MemberVariableToCallOn;
};
