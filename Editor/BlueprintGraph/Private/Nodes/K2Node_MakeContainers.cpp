// Make Array, Make Set and Make Map.

#include "K2Node_MakeArray.h"
#include "K2Node_MakeMap.h"
#include "K2Node_MakeSet.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Kismet2/CompilerResultsLog.h"
#include "PinNames.h"
#include "Standalone/NativeClass.h"
#include "WildcardTypes.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_MakeContainer, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_MakeArray, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_MakeSet, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_MakeMap, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_MakeContainer::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UK2Node_AddPinInterface::StaticClass());
	Class.Property(TEXT("NumInputs"), &UK2Node_MakeContainer::NumInputs);
}

void UK2Node_MakeArray::DescribeClass(FClassDescriber&) {}
void UK2Node_MakeSet::DescribeClass(FClassDescriber&) {}
void UK2Node_MakeMap::DescribeClass(FClassDescriber&) {}

UEdGraphPin* UK2Node_MakeContainer::GetOutputPin() const
{
	return FindPin(GetOutputPinName(), EGPD_Output);
}

void UK2Node_MakeContainer::CreateElementPins(int32 Index)
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Wildcard, GetPinName(Index));
}

void UK2Node_MakeContainer::AllocateDefaultPins()
{
	FCreatePinParams Params;
	Params.ContainerType = ContainerType;
	Params.ValueTerminalType.TerminalCategory = ContainerType == EPinContainerType::Map ? UEdGraphSchema_K2::PC_Wildcard
																						: FName();
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Wildcard, GetOutputPinName(), Params);
	// The number may come from text of any origin.
	constexpr int32 MaxInputs = 4096;
	NumInputs = FMath::Clamp(NumInputs, 0, MaxInputs);
	for (int32 Index = 0; Index < NumInputs; ++Index)
	{
		CreateElementPins(Index);
	}
}

void UK2Node_MakeContainer::GetKeyAndValuePins(TArray<UEdGraphPin*>& KeyPins, TArray<UEdGraphPin*>&) const
{
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin->Direction == EGPD_Input && !Pin->ParentPin && !Pin->bOrphanedPin)
		{
			KeyPins.Add(Pin);
		}
	}
}

void UK2Node_MakeMap::GetKeyAndValuePins(TArray<UEdGraphPin*>& KeyPins, TArray<UEdGraphPin*>& ValuePins) const
{
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin->Direction == EGPD_Input && !Pin->ParentPin && !Pin->bOrphanedPin)
		{
			(Pin->PinName.ToString().StartsWith(TEXT("Key ")) ? KeyPins : ValuePins).Add(Pin);
		}
	}
}

void UK2Node_MakeContainer::ConformTypes()
{
	UEdGraphPin* const Output = GetOutputPin();
	if (!Output)
	{
		return;
	}
	TArray<UEdGraphPin*> Keys;
	TArray<UEdGraphPin*> Values;
	GetKeyAndValuePins(Keys, Values);
	FEdGraphPinType KeyType;
	FEdGraphPinType ValueType;
	bool bKeyKnown = WildcardTypes::FindLinkedType(Keys, KeyType);
	bool bValueKnown = WildcardTypes::FindLinkedType(Values, ValueType);
	FEdGraphPinType Whole;
	if (WildcardTypes::FindLinkedType({Output}, Whole))
	{
		KeyType = bKeyKnown ? KeyType : Whole;
		bKeyKnown = true;
		if (Whole.IsMap())
		{
			ValueType = bValueKnown ? ValueType : FEdGraphPinType::GetPinTypeForTerminalType(Whole.PinValueType);
			bValueKnown = true;
		}
	}
	const FEdGraphPinType Open = WildcardTypes::Open();
	if (bKeyKnown || !WildcardTypes::IsAnyTypedIn(Keys))
	{
		WildcardTypes::SetTerminal(*Output, bKeyKnown ? KeyType : Open);
	}
	if (Output->PinType.IsMap() && (bValueKnown || !WildcardTypes::IsAnyTypedIn(Values)))
	{
		Output->PinType.PinValueType = FEdGraphTerminalType::FromPinType(bValueKnown ? ValueType : Open);
	}
	const FEdGraphPinType Key(Output->PinType);
	for (UEdGraphPin* const Pin : Keys)
	{
		WildcardTypes::Adopt(*Pin, Key);
	}
	const FEdGraphPinType Value = FEdGraphPinType::GetPinTypeForTerminalType(Output->PinType.PinValueType);
	for (UEdGraphPin* const Pin : Values)
	{
		WildcardTypes::Adopt(*Pin, Value);
	}
}

void UK2Node_MakeContainer::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	ConformTypes();
}

void UK2Node_MakeContainer::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	WildcardTypes::KeepTypes(Pins, OldPins);
	RestoreSplitPins(OldPins);
}

void UK2Node_MakeContainer::PostReconstructNode()
{
	Super::PostReconstructNode();
	ConformTypes();
}

void UK2Node_MakeContainer::AddInputPin()
{
	Modify();
	CreateElementPins(NumInputs);
	++NumInputs;
	ConformTypes();
}

bool UK2Node_MakeContainer::CanRemovePin(const UEdGraphPin* Pin) const
{
	return Pin && Pin->Direction == EGPD_Input && !Pin->ParentPin && !Pin->bOrphanedPin;
}

void UK2Node_MakeContainer::RemoveInputPin(UEdGraphPin* Pin)
{
	if (!CanRemovePin(Pin))
	{
		return;
	}
	RemovePin(Pin);
	--NumInputs;
	TArray<UEdGraphPin*> Keys;
	TArray<UEdGraphPin*> Values;
	GetKeyAndValuePins(Keys, Values);
	PinNames::RenameInOrder(Keys, [this](int32 Index) { return GetPinName(Index); });
	ConformTypes();
}

namespace MakeContainers
{
/** Whether values of the type have a hash, by which sets and maps find them. */
static bool HasHash(const FEdGraphPinType& Type)
{
	const FName Category = Type.PinCategory;
	return Category != UEdGraphSchema_K2::PC_Boolean && Category != UEdGraphSchema_K2::PC_Text
		&& Category != UEdGraphSchema_K2::PC_Delegate && Category != UEdGraphSchema_K2::PC_MCDelegate;
}
} // namespace MakeContainers

bool UK2Node_MakeContainer::IsConnectionDisallowed(
	const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const
{
	const FEdGraphPinType& Type = OtherPin->PinType;
	if (MyPin->Direction == EGPD_Output)
	{
		return false;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Exec)
	{
		OutReason = TEXT("Cannot make a container with an execution input!");
		return true;
	}
	if (Type.IsContainer())
	{
		OutReason = TEXT("Cannot make a container with an input of a container!");
		return true;
	}
	TArray<UEdGraphPin*> Keys;
	TArray<UEdGraphPin*> Values;
	GetKeyAndValuePins(Keys, Values);
	if (ContainerType != EPinContainerType::Array && !MakeContainers::HasHash(Type)
		&& Keys.Contains(const_cast<UEdGraphPin*>(MyPin)))
	{
		OutReason = FString::Printf(TEXT("%s has no hash, so that a set or the keys of a map cannot hold it."),
			*UEdGraphSchema_K2::TypeToText(Type).ToString());
		return true;
	}
	return false;
}

FText UK2Node_MakeContainer::GetMenuCategory() const
{
	switch (ContainerType)
	{
	case EPinContainerType::Set:
		return NSLOCTEXT("K2Node", "SetCategory", "Utilities|Set");
	case EPinContainerType::Map:
		return NSLOCTEXT("K2Node", "MapCategory", "Utilities|Map");
	default:
		return NSLOCTEXT("K2Node", "ArrayCategory", "Utilities|Array");
	}
}

void UK2Node_MakeContainer::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_MakeContainer::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UEdGraphPin* const Output = GetOutputPin();
	if (Output && Output->PinType.PinCategory == UEdGraphSchema_K2::PC_Wildcard)
	{
		MessageLog.Error(TEXT("The type of @@ is undetermined. Connect something to imply a specific type."), this);
	}
}

FName UK2Node_MakeArray::GetOutputPinName() const
{
	static const FName Name(TEXT("Array"));
	return Name;
}

FName UK2Node_MakeArray::GetPinName(int32 PinIndex) const
{
	return FName(FString::Printf(TEXT("[%d]"), PinIndex));
}

FText UK2Node_MakeArray::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "MakeArrayNodeTitle", "Make Array");
}

FText UK2Node_MakeArray::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "MakeArrayTooltip", "An array of the connected items");
}

FName UK2Node_MakeSet::GetOutputPinName() const
{
	static const FName Name(TEXT("Set"));
	return Name;
}

FName UK2Node_MakeSet::GetPinName(int32 PinIndex) const
{
	return FName(FString::Printf(TEXT("[%d]"), PinIndex));
}

FText UK2Node_MakeSet::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "MakeSetNodeTitle", "Make Set");
}

FText UK2Node_MakeSet::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "MakeSetTooltip", "A set of the connected items");
}

FName UK2Node_MakeMap::GetOutputPinName() const
{
	static const FName Name(TEXT("Map"));
	return Name;
}

/** Keys stand at even places, each value behind its key. */
FName UK2Node_MakeMap::GetPinName(int32 PinIndex) const
{
	return FName(FString::Printf(PinIndex % 2 == 0 ? TEXT("Key %d") : TEXT("Value %d"), PinIndex / 2));
}

void UK2Node_MakeMap::CreateElementPins(int32 Index)
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Wildcard, GetPinName(2 * Index));
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Wildcard, GetPinName(2 * Index + 1));
}

void UK2Node_MakeMap::RemoveInputPin(UEdGraphPin* Pin)
{
	TArray<UEdGraphPin*> Keys;
	TArray<UEdGraphPin*> Values;
	GetKeyAndValuePins(Keys, Values);
	const int32 At = FMath::Max(Keys.Find(Pin), Values.Find(Pin));
	if (At == INDEX_NONE || At >= Keys.Num() || At >= Values.Num())
	{
		return;
	}
	RemovePin(Keys[At]);
	RemovePin(Values[At]);
	--NumInputs;
	Keys.RemoveAt(At);
	Values.RemoveAt(At);
	PinNames::RenameInOrder(Keys, [this](int32 Index) { return GetPinName(2 * Index); });
	PinNames::RenameInOrder(Values, [this](int32 Index) { return GetPinName(2 * Index + 1); });
	ConformTypes();
}

FText UK2Node_MakeMap::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "MakeMapNodeTitle", "Make Map");
}

FText UK2Node_MakeMap::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "MakeMapTooltip", "A map of the connected pairs");
}
