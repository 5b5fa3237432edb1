#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseAsyncTask.h"

/** A gameplay task. */
class UK2Node_LatentGameplayTaskCall : public UK2Node_BaseAsyncTask
{
	EDITOR_CLASS(UK2Node_LatentGameplayTaskCall, UK2Node_BaseAsyncTask)

public:
	UK2Node_LatentGameplayTaskCall();
	/** The pin that chooses what the task spawns; null for one that spawns nothing. */
	UEdGraphPin* GetClassPin(const TArray<UEdGraphPin*>* InPinsToSearch = nullptr) const;
	UClass* GetClassToSpawn(const TArray<UEdGraphPin*>* InPinsToSearch = nullptr) const;
	/** Inputs for the variables that the class exposes on spawn, but for those that the factory hides. */
	void CreatePinsForClass(UClass* InClass);

	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PostPlacedNewNode() override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

protected:
	/** The class whose tasks the node makes. */
	virtual UClass* GetTaskBaseClass() const;
	FText GetDefaultCategory() const override;
};

/** An ability task. */
class UK2Node_LatentAbilityCall : public UK2Node_LatentGameplayTaskCall
{
	EDITOR_CLASS(UK2Node_LatentAbilityCall, UK2Node_LatentGameplayTaskCall)

public:
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;

protected:
	UClass* GetTaskBaseClass() const override;
	FText GetDefaultCategory() const override;
};
