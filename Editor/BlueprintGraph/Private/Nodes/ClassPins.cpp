#include "ClassPins.h"

#include "EdGraph/EdGraphPin.h"
#include "K2Node.h"

namespace ClassPins
{
UClass* GetChosen(const UEdGraphPin* Pin)
{
	if (!Pin)
	{
		return nullptr;
	}
	return Pin->LinkedTo.IsEmpty() ? Cast<UClass>(Pin->DefaultObject.Get())
								   : Cast<UClass>(Pin->LinkedTo[0]->PinType.PinSubCategoryObject.Get());
}

UEdGraphPin* FindInput(const UK2Node& Node, const TArray<UEdGraphPin*>* PinsToSearch, FName Name)
{
	const TArray<UEdGraphPin*>& Pins = PinsToSearch ? *PinsToSearch : Node.Pins;
	UEdGraphPin* const* const Found = Pins.FindByPredicate(
		[Name](const UEdGraphPin* Pin) { return Pin->PinName == Name && Pin->Direction == EGPD_Input; });
	return Found ? *Found : nullptr;
}
} // namespace ClassPins
