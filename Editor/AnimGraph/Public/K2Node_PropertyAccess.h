#pragma once

#include "EdGraph/EdGraphPin.h"
#include "K2Node.h"

/** Reads a value by a path of members, starting at the object that the graph belongs to. */
class UK2Node_PropertyAccess : public UK2Node
{
	EDITOR_CLASS(UK2Node_PropertyAccess, UK2Node)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	const TArray<FString>& GetPath() const { return Path; }
	/** Follows the path through the classes and structs that it names; the pin takes the type of what it ends at. */
	void SetPath(TArray<FString> InPath);

private:
	UEdGraphPin* CreateValuePin();

	TArray<FString> Path;
	FText TextPath;
	/** The type that the path ends at. */
	FEdGraphPinType ResolvedPinType;
	FName ContextId;
};
