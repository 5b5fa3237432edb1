#pragma once

#include "AnimGraphNode_Base.h"

/** A node that shows members of a class besides its own. */
class UAnimGraphNode_CustomProperty : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_CustomProperty, UAnimGraphNode_Base)

public:
	TArray<FOptionalPinFromProperty> CustomPinProperties;

protected:
	/** The class whose members the pins are; null when nobody knows it. */
	virtual UClass* GetTargetClass() const { return nullptr; }
	void CreateCustomPins(TArray<UEdGraphPin*>* OldPins) override;
};
