#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** A node of a graph of poses. */
class UAnimGraphNode_Base : public UK2Node
{
	EDITOR_CLASS(UAnimGraphNode_Base, UK2Node)

public:
	bool IsNodePure() const override { return false; }
	bool CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const override;
	FText GetMenuCategory() const override;
	/** Where the class stands in the menu. */
	virtual FString GetNodeCategory() const;

protected:
	UEdGraphPin* CreatePosePin(EEdGraphPinDirection Direction, const TCHAR* Name);
};
