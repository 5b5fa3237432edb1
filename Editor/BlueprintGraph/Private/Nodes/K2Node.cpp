#include "K2Node.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintClassProvider.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_STRUCT(FOptionalPinFromProperty, "/Script/BlueprintGraph")

void UK2Node::DescribeClass(FClassDescriber&) {}

void FOptionalPinFromProperty::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("PropertyName"), &FOptionalPinFromProperty::PropertyName);
	Struct.Property(TEXT("PropertyFriendlyName"), &FOptionalPinFromProperty::PropertyFriendlyName);
	Struct.Property(TEXT("PropertyTooltip"), &FOptionalPinFromProperty::PropertyTooltip);
	Struct.Property(TEXT("CategoryName"), &FOptionalPinFromProperty::CategoryName);
	Struct.Property(TEXT("bShowPin"), &FOptionalPinFromProperty::bShowPin);
	Struct.Property(TEXT("bCanToggleVisibility"), &FOptionalPinFromProperty::bCanToggleVisibility);
	Struct.Property(TEXT("bPropertyIsCustomized"), &FOptionalPinFromProperty::bPropertyIsCustomized);
	Struct.Property(TEXT("bHasOverridePin"), &FOptionalPinFromProperty::bHasOverridePin);
	Struct.Property(TEXT("bIsMarkedForAdvancedDisplay"), &FOptionalPinFromProperty::bIsMarkedForAdvancedDisplay);
}

bool UK2Node::CanSplitPin(const UEdGraphPin* Pin) const
{
	return Pin && Pin->GetOwningNode() == this && !Pin->bNotConnectable && Pin->LinkedTo.IsEmpty()
		&& Pin->PinType.PinCategory == UEdGraphSchema_K2::PC_Struct && !Pin->PinType.IsContainer();
}

UBlueprint* UK2Node::GetBlueprint() const
{
	return GetTypedOuter<UBlueprint>();
}

UClass* UK2Node::GetBlueprintClassFromNode() const
{
	return BlueprintClassProvider::GetSelfClass(GetBlueprint());
}

UFunction* UK2Node::ResolveFunction(const FMemberReference& Reference) const
{
	return Reference.ResolveFunction(
		Reference.IsSelfContext() || Reference.IsLocalScope() ? GetBlueprintClassFromNode() : nullptr);
}

FProperty* UK2Node::ResolveProperty(const FMemberReference& Reference) const
{
	return Reference.ResolveProperty(
		Reference.IsSelfContext() || Reference.IsLocalScope() ? GetBlueprintClassFromNode() : nullptr);
}

bool UK2Node::IsSelfOrParentClass(const UClass* Class) const
{
	const UBlueprint* const Blueprint = GetBlueprint();
	if (!Blueprint || !Class)
	{
		return false;
	}
	if (Class->ClassGeneratedBy == Blueprint)
	{
		return true;
	}
	const UClass* const Parent = Blueprint->ParentClass.Get();
	return Parent && Parent->IsChildOf(Class);
}

const UEdGraphSchema_K2* UK2Node::GetK2Schema() const
{
	const UEdGraphSchema_K2* const Schema = Cast<UEdGraphSchema_K2>(GetSchema());
	return Schema ? Schema : GetDefault<UEdGraphSchema_K2>();
}

UEdGraphPin* UK2Node::GetExecPin() const
{
	UEdGraphPin* const Pin = FindPin(UEdGraphSchema_K2::PN_Execute, EGPD_Input);
	return Pin && UEdGraphSchema_K2::IsExecPin(*Pin) ? Pin : nullptr;
}

UEdGraphPin* UK2Node::GetThenPin() const
{
	UEdGraphPin* const Pin = FindPin(UEdGraphSchema_K2::PN_Then, EGPD_Output);
	return Pin && UEdGraphSchema_K2::IsExecPin(*Pin) ? Pin : nullptr;
}

UEdGraphPin* UK2Node::CreatePinFromProperty(const FProperty* Property, EEdGraphPinDirection Direction, FName PinName)
{
	FEdGraphPinType Type;
	if (!UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(Property, Type))
	{
		return nullptr;
	}
	return CreatePin(Direction, Type, PinName);
}

void UK2Node::PinConnectionListChanged(UEdGraphPin*) {}

void UK2Node::PinDefaultValueChanged(UEdGraphPin*) {}

void UK2Node::PostPlacedNewNode() {}

void UK2Node::PostReconstructNode()
{
	// A struct default of before reconstruction may name members that are gone; the schema's check at compile tells it.
	for (UEdGraphPin* const Pin : Pins)
	{
		PinTypeChanged(Pin);
	}
}

bool UK2Node::CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const
{
	return Schema && Schema->GetClass()->IsChildOf(UEdGraphSchema_K2::StaticClass());
}

bool UK2Node::CanUserDeleteNode() const
{
	return true;
}

FText UK2Node::GetToolTipHeading() const
{
	return FText::GetEmpty();
}

void UK2Node::AutowireNewNode(UEdGraphPin* FromPin)
{
	const UEdGraphSchema_K2* const Schema = GetK2Schema();
	if (!FromPin || !Schema)
	{
		return;
	}
	for (UEdGraphPin* const Pin : Pins)
	{
		const ECanCreateConnectionResponse Response = Schema->CanCreateConnection(FromPin, Pin).Response;
		if (!Pin->bHidden && (Response == CONNECT_RESPONSE_MAKE || Response == CONNECT_RESPONSE_BREAK_OTHERS_A))
		{
			Schema->TryCreateConnection(FromPin, Pin);
			return;
		}
	}
}

void UK2Node::ValidateNodeDuringCompilation(FCompilerResultsLog&) const {}
