#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** Loads an asset and goes on when it is there. */
class UK2Node_LoadAsset : public UK2Node
{
	EDITOR_CLASS(UK2Node_LoadAsset, UK2Node)

public:
	void AllocateDefaultPins() override;
	bool IsLatentForMacros() const override { return true; }
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

protected:
	virtual FName GetInputPinName() const;
	virtual FName GetOutputPinName() const;
	virtual FName GetInputCategory() const;
	virtual FName GetOutputCategory() const;
	virtual EPinContainerType GetContainer() const { return EPinContainerType::None; }
};

/** Loads a class. */
class UK2Node_LoadAssetClass : public UK2Node_LoadAsset
{
	EDITOR_CLASS(UK2Node_LoadAssetClass, UK2Node_LoadAsset)

public:
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

protected:
	FName GetInputPinName() const override;
	FName GetOutputPinName() const override;
	FName GetInputCategory() const override;
	FName GetOutputCategory() const override;
};

/** Loads several assets. */
class UK2Node_LoadAssets : public UK2Node_LoadAsset
{
	EDITOR_CLASS(UK2Node_LoadAssets, UK2Node_LoadAsset)

public:
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

protected:
	FName GetInputPinName() const override;
	FName GetOutputPinName() const override;
	EPinContainerType GetContainer() const override { return EPinContainerType::Array; }
};
