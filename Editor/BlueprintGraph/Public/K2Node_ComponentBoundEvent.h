#pragma once

#include "CoreMinimal.h"
#include "K2Node_Event.h"

/** An event of one of the Blueprint's components or widgets. */
class UK2Node_ComponentBoundEvent : public UK2Node_Event
{
	EDITOR_CLASS(UK2Node_ComponentBoundEvent, UK2Node_Event)

public:
	void InitializeComponentBoundEventParams(
		const FObjectProperty* InComponentProperty, const FMulticastDelegateProperty* InDelegateProperty);
	FMulticastDelegateProperty* GetTargetDelegateProperty() const;
	FText GetTargetDelegateDisplayName() const;
	FName GetComponentPropertyName() const { return ComponentPropertyName; }

	void HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass, UEdGraph* InGraph,
		const FName& InOldVarName, const FName& InNewVarName) override;
	bool ReferencesVariable(const FName& InVarName, const UStruct* InScope) const override;
	void ReconstructNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	FName DelegatePropertyName;
	FText DelegatePropertyDisplayName;
	TSubclassOf<UObject> DelegateOwnerClass;
	FName ComponentPropertyName;
};
