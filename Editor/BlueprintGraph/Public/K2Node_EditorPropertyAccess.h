#pragma once

#include "CoreMinimal.h"
#include "K2Node_CallFunction.h"

/** Reads or writes a property of any object by its name, as the editor's details panel does. */
class UK2Node_EditorPropertyAccessBase : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_EditorPropertyAccessBase, UK2Node_CallFunction)

public:
	UEdGraphPin* GetPropertyValuePin() const;
	void AllocateDefaultPins() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PostReconstructNode() override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

protected:
	/** The call that the class stands for, and which nodes do not save. */
	void CallAlways(const TCHAR* Library, const TCHAR* Function);
	void ConformValueType();
};

class UK2Node_GetEditorProperty : public UK2Node_EditorPropertyAccessBase
{
	EDITOR_CLASS(UK2Node_GetEditorProperty, UK2Node_EditorPropertyAccessBase)

public:
	UK2Node_GetEditorProperty();
};

class UK2Node_SetEditorProperty : public UK2Node_EditorPropertyAccessBase
{
	EDITOR_CLASS(UK2Node_SetEditorProperty, UK2Node_EditorPropertyAccessBase)

public:
	UK2Node_SetEditorProperty();
};
