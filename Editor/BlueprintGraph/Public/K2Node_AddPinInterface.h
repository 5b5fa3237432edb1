#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

class UEdGraphPin;

class UK2Node_AddPinInterface : public UInterface
{
	EDITOR_CLASS(UK2Node_AddPinInterface, UInterface)
};

/** A node with a "+" that adds one more pin. */
class IK2Node_AddPinInterface
{
public:
	using UClassType = UK2Node_AddPinInterface;

	virtual ~IK2Node_AddPinInterface() = default;
	virtual void AddInputPin() {}
	virtual bool CanAddPin() const { return true; }
	virtual bool CanRemovePin(const UEdGraphPin* Pin) const { return false; }
	virtual void RemoveInputPin(UEdGraphPin* Pin) {}
	static constexpr int32 GetMaxInputPinsNum() { return 26; }
	/** "A", "B" ... for the pin of that place. */
	static FName GetNameForAdditionalPin(int32 PinIndex);
};
