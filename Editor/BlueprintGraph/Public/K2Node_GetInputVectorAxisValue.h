#pragma once

#include "CoreMinimal.h"
#include "K2Node_GetInputAxisKeyValue.h"

/** The value that a key with three axes, such as a device's tilt, has now. */
class UK2Node_GetInputVectorAxisValue : public UK2Node_GetInputAxisKeyValue
{
	EDITOR_CLASS(UK2Node_GetInputVectorAxisValue, UK2Node_GetInputAxisKeyValue)

public:
	void Initialize(const FKey AxisKey) override;

protected:
	bool IsKeyOfKind(const FKey& Key) const override;
};
