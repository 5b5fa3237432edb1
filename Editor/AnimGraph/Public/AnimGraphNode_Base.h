#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

class FStructProperty;

/**
 * A node of a graph of poses. What it does at run time is a struct, the member Node of its class; the struct's members
 * are its settings, and those that metadata or the author shows are its pins.
 */
class UAnimGraphNode_Base : public UK2Node
{
	EDITOR_CLASS(UAnimGraphNode_Base, UK2Node)

public:
	/** The member that holds the run-time struct; null for a class that has none. */
	FStructProperty* GetFNodeProperty() const;
	UScriptStruct* GetFNodeType() const;
	/** Whether poses end here, so that nothing comes out. */
	virtual bool IsSinkNode() const { return false; }

	bool IsNodePure() const override { return false; }
	bool CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const override;
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	/** Where the class stands in the menu. */
	virtual FString GetNodeCategory() const;
	/** Shows or hides the pin of a member. False when the member has none, or always has one. */
	bool SetPinVisibility(bool bInVisible, FName PropertyName);

	/** Each member of the struct, and whether it is shown as a pin. */
	TArray<FOptionalPinFromProperty> ShowPinForProperties;

protected:
	/** The pins that poses leave by. */
	virtual void CreateOutputPins();
	/** Names a member's pin, or takes it out of sight, by what other members say. ArrayIndex is that of an element. */
	virtual void CustomizePinData(UEdGraphPin* Pin, FName SourcePropertyName, int32 ArrayIndex) const;
	/** Whether the class stands in the menu by itself. */
	virtual bool IsInMenu() const { return true; }
	/** Pins that no member stands for; made after those of members and the output. */
	virtual void CreateCustomPins(TArray<UEdGraphPin*>* OldPins) {}

	UEdGraphPin* CreatePosePin(EEdGraphPinDirection Direction, const TCHAR* Name);
	UEdGraphPin* CreateComponentPosePin(EEdGraphPinDirection Direction, const TCHAR* Name);
	/** Adds elements with their struct's defaults until there are so many. */
	void GrowArray(FName ArrayName, int32 Num);
	/** A member of the struct as text; empty for what is none. */
	FString GetMemberText(FName MemberName) const;

private:
	void RebuildPropertyList();
	void CreatePropertyPins(TArray<UEdGraphPin*>* OldPins);
	/** Whether another member's value leaves the member without use. */
	bool IsOutOfSight(const FProperty& Member) const;
};
