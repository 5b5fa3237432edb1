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
