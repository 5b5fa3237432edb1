#include "K2Node_AddPinInterface.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_AddPinInterface, "/Script/BlueprintGraph", CLASS_Interface | CLASS_Abstract)

void UK2Node_AddPinInterface::DescribeClass(FClassDescriber&) {}

FName IK2Node_AddPinInterface::GetNameForAdditionalPin(int32 PinIndex)
{
	check(PinIndex < GetMaxInputPinsNum());
	const TCHAR Name[] = {static_cast<TCHAR>(TEXT('A') + PinIndex), TEXT('\0')};
	return FName(Name);
}
