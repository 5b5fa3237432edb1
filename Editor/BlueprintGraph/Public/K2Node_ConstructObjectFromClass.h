#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** The base of nodes that make an object of a chosen class and set the variables that the class exposes for that. */
class UK2Node_ConstructObjectFromClass : public UK2Node
{
	EDITOR_CLASS(UK2Node_ConstructObjectFromClass, UK2Node)

public:
	UEdGraphPin* GetThenPin() const { return UK2Node::GetThenPin(); }
	UEdGraphPin* GetClassPin(const TArray<UEdGraphPin*>* InPinsToSearch = nullptr) const;
	UEdGraphPin* GetOuterPin() const;
	UEdGraphPin* GetResultPin() const;
	/** The class that is chosen: the class pin's default, or that of what is linked. */
	UClass* GetClassToSpawn(const TArray<UEdGraphPin*>* InPinsToSearch = nullptr) const;
	virtual bool IsSpawnVarPin(UEdGraphPin* Pin) const;
	virtual bool UseWorldContext() const;
	virtual bool UseOuter() const { return false; }
	virtual UClass* GetClassPinBaseClass() const;

	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	ERedirectType DoPinsMatchForReconstruction(
		const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const override;
	void PostPlacedNewNode() override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

protected:
	/** Pins for what the class exposes on spawn, behind those that are there. */
	virtual void CreatePinsForClass(UClass* InClass, TArray<UEdGraphPin*>* OutClassPins = nullptr);
	/** Pins of the node class itself, behind the result. */
	virtual void CreateOwnPins() {}
	virtual FString GetTitlePrefix() const;
	virtual FText GetBaseNodeTitle() const;
	void OnClassPinChanged();
};
