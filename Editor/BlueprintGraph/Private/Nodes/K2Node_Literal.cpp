#include "K2Node_Literal.h"

#include "EdGraphSchema_K2.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_Literal, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_Literal::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ObjectRef"), &UK2Node_Literal::ObjectRef);
}

UEdGraphPin* UK2Node_Literal::GetValuePin() const
{
	return Pins.IsEmpty() ? nullptr : Pins[0];
}

void UK2Node_Literal::AllocateDefaultPins()
{
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, ObjectRef ? ObjectRef->GetClass() : UObject::StaticClass(),
		UEdGraphSchema_K2::PN_ReturnValue);
	Super::AllocateDefaultPins();
}

UK2Node::ERedirectType UK2Node_Literal::DoPinsMatchForReconstruction(
	const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const
{
	// There is one pin, which in a level bears the name that its actor had.
	return NewPinIndex == 0 && OldPinIndex == 0 && NewPin->Direction == OldPin->Direction
		? ERedirectType_Name
		: Super::DoPinsMatchForReconstruction(NewPin, NewPinIndex, OldPin, OldPinIndex);
}

void UK2Node_Literal::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	Super::ReallocatePinsDuringReconstruction(OldPins);
	if (!OldPins.IsEmpty() && !Pins.IsEmpty() && OldPins[0]->Direction == EGPD_Output)
	{
		Pins[0]->PinName = OldPins[0]->PinName;
	}
}

FText UK2Node_Literal::GetNodeTitle(ENodeTitleType::Type) const
{
	return ObjectRef ? FText::FromString(ObjectRef->GetName()) : NSLOCTEXT("K2Node", "Unknown", "Unknown");
}

FText UK2Node_Literal::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "Literal_Tooltip", "A reference to an object of the level");
}

void UK2Node_Literal::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (!ObjectRef)
	{
		MessageLog.Warning(TEXT("Node @@ does not have an object reference set"), this);
	}
}
