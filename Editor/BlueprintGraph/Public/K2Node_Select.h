#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_AddPinInterface.h"
#include "NodeDependingOnEnumInterface.h"

/** Gives the option that the index chooses. */
class UK2Node_Select : public UK2Node, public IK2Node_AddPinInterface, public INodeDependingOnEnumInterface
{
	EDITOR_CLASS(UK2Node_Select, UK2Node)

public:
	UEdGraphPin* GetReturnValuePin() const;
	UEdGraphPin* GetIndexPin() const;
	void GetOptionPins(TArray<UEdGraphPin*>& OptionPins) const;
	void SetEnum(UEnum* InEnum, bool bForceRegenerate = false);
	UEnum* GetEnum() const override { return Enum; }
	void ReloadEnum(UEnum* InEnum) override { SetEnum(InEnum, true); }

	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void AddInputPin() override;
	bool CanAddPin() const override;
	bool CanRemovePin(const UEdGraphPin* Pin) const override;
	void RemoveInputPin(UEdGraphPin* Pin) override;
	/** Takes the last option away. */
	void RemoveOptionPinToNode();
	/** Two options always stay; with a boolean or an enum as index there are as many as it has values. */
	bool CanRemoveOptionPinToNode() const;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	int32 NumOptionPins = 2;
	FEdGraphPinType IndexPinType;
	TObjectPtr<UEnum> Enum;
	TArray<FName> EnumEntries;
	TArray<FText> EnumEntryFriendlyNames;

private:
	FName GetOptionName(int32 Index) const;
	FText GetOptionFriendlyName(int32 Index) const;
	void TakeEntries(UEnum* InEnum);
	/** Makes the pins of the present index. An option may keep its place, links and value under its new name. */
	void RemakeOptions(bool bKeepPlaces);
	void RefreshIndexType();
	void RefreshOptionTypes();
};
