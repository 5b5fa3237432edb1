#include "PinNames.h"

namespace PinNames
{
void Rename(UEdGraphPin& Pin, FName NewName)
{
	const FString OldPrefix = Pin.PinName.ToString() + TEXT("_");
	for (UEdGraphPin* const SubPin : Pin.SubPins)
	{
		const FString SubName = SubPin->PinName.ToString();
		if (SubName.StartsWith(OldPrefix, ESearchCase::CaseSensitive))
		{
			Rename(*SubPin, FName(NewName.ToString() + TEXT("_") + SubName.RightChop(OldPrefix.Len())));
		}
	}
	Pin.PinName = NewName;
}

void RenameInOrder(TConstArrayView<UEdGraphPin*> Pins, TFunctionRef<FName(int32)> NameAt)
{
	for (int32 Index = 0; Index < Pins.Num(); ++Index)
	{
		const FName Name = NameAt(Index);
		if (Pins[Index]->PinName != Name)
		{
			Rename(*Pins[Index], Name);
		}
	}
}
} // namespace PinNames
