#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** Adds a component that a template of the Blueprint describes. */
class UK2Node_AddComponent : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_AddComponent, UK2Node_CallFunction)

public:
	UEdGraphPin* GetTemplateNamePinChecked() const;
	UEdGraphPin* GetRelativeTransformPin() const;
	UEdGraphPin* GetManualAttachmentPin() const;
	void AllocateDefaultPins() override;
	/** Its template goes with it, unless another node uses that too. */
	void DestroyNode() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	bool IsNodePure() const override { return false; }

	FString TemplateBlueprint;
	TSubclassOf<UObject> TemplateType;
};
