#pragma once

#include "CoreMinimal.h"
#include "InputCoreTypes.h"
#include "K2Node_CallFunction.h"

/** The value that an analog key or mouse axis has now, as this actor sees it. */
class UK2Node_GetInputAxisKeyValue : public UK2Node_CallFunction
{
	EDITOR_CLASS(UK2Node_GetInputAxisKeyValue, UK2Node_CallFunction)

public:
	virtual void Initialize(const FKey AxisKey);
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	FKey InputAxisKey;
	bool bConsumeInput = true;
	bool bExecuteWhenPaused = false;
	bool bOverrideParentBinding = true;

protected:
	virtual bool IsKeyOfKind(const FKey& Key) const;
	void BindTo(const FKey& Key, const TCHAR* FunctionName);
};
