#include "K2Node_Tunnel.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_Tunnel, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_Tunnel::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("OutputSourceNode"), &UK2Node_Tunnel::OutputSourceNode);
	Class.Property(TEXT("InputSinkNode"), &UK2Node_Tunnel::InputSinkNode);
	Class.Property(TEXT("bCanHaveInputs"), &UK2Node_Tunnel::bCanHaveInputs);
	Class.Property(TEXT("bCanHaveOutputs"), &UK2Node_Tunnel::bCanHaveOutputs);
	Class.Property(TEXT("MetaData"), &UK2Node_Tunnel::MetaData);
}

bool UK2Node_Tunnel::CanCreateUserDefinedPin(
	const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage)
{
	if (!bIsEditable)
	{
		OutErrorMessage = NSLOCTEXT("K2Node", "NotEditableError", "Cannot edit this node!");
		return false;
	}
	if (InDesiredDirection == EGPD_Input && !bCanHaveInputs)
	{
		OutErrorMessage = NSLOCTEXT("K2Node", "InputsNotSupportedError", "Cannot add input pins to this node!");
		return false;
	}
	if (InDesiredDirection == EGPD_Output && !bCanHaveOutputs)
	{
		OutErrorMessage = NSLOCTEXT("K2Node", "OutputsNotSupportedError", "Cannot add output pins to this node!");
		return false;
	}
	return true;
}

void UK2Node_Tunnel::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
}

UEdGraphPin* UK2Node_Tunnel::CreatePinFromUserDefinition(const TSharedPtr<FUserPinInfo> NewPinInfo)
{
	// What passes through has no value of its own: a pin that its author gave none is empty, whatever its type.
	return NewPinInfo->PinDefaultValue.IsEmpty() ? CreatePinFromUserDefinitionInternal(NewPinInfo)
												 : Super::CreatePinFromUserDefinition(NewPinInfo);
}

FText UK2Node_Tunnel::GetNodeTitle(ENodeTitleType::Type) const
{
	if (bCanHaveInputs && !bCanHaveOutputs)
	{
		return NSLOCTEXT("K2Node", "OutputsTitle", "Outputs");
	}
	if (bCanHaveOutputs && !bCanHaveInputs)
	{
		return NSLOCTEXT("K2Node", "InputsTitle", "Inputs");
	}
	return NSLOCTEXT("K2Node", "TunnelConnectionTitle", "Tunnel Connection");
}

FText UK2Node_Tunnel::GetTooltipText() const
{
	if (!MetaData.ToolTip.IsEmpty())
	{
		return MetaData.ToolTip;
	}
	return bCanHaveInputs && !bCanHaveOutputs ? NSLOCTEXT("K2Node", "MacroOutputsTooltip", "What leaves this graph")
											  : NSLOCTEXT("K2Node", "MacroInputsTooltip", "What comes into this graph");
}
