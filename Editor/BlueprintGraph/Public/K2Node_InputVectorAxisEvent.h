#pragma once

#include "CoreMinimal.h"
#include "K2Node_InputAxisKeyEvent.h"

/** The value of a motion sensor, told every frame. */
class UK2Node_InputVectorAxisEvent : public UK2Node_InputAxisKeyEvent
{
	EDITOR_CLASS(UK2Node_InputVectorAxisEvent, UK2Node_InputAxisKeyEvent)

protected:
	void CreateValuePin() override;
	bool IsKeyOfKind(const FKey& Key) const override;
};
