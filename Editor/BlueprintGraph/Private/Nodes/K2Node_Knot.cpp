#include "K2Node_Knot.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_Knot, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_Knot::DescribeClass(FClassDescriber&) {}

bool UK2Node_Knot::IsNodePure() const
{
	const UEdGraphPin* const Input = GetInputPin();
	return !Input || !UEdGraphSchema_K2::IsExecPin(*Input);
}

void UK2Node_Knot::AllocateDefaultPins()
{
	UEdGraphPin* const Input = CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Wildcard, FName(TEXT("InputPin")));
	Input->bDefaultValueIsIgnored = true;
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Wildcard, FName(TEXT("OutputPin")));
}

void UK2Node_Knot::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	// The type was taken from links that are not here yet.
	for (int32 Index = 0; Index < Pins.Num() && Index < OldPins.Num(); ++Index)
	{
		Pins[Index]->PinType = OldPins[Index]->PinType;
	}
}

void UK2Node_Knot::PostReconstructNode()
{
	PropagatePinType();
	Super::PostReconstructNode();
}

void UK2Node_Knot::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	PropagatePinType();
}

namespace Knots
{
/** The pin at the far end of a chain of knots whose type is known. Loops end the search. */
static const UEdGraphPin* FindTyped(const UEdGraphPin& Start)
{
	TArray<const UEdGraphPin*> Open = {&Start};
	TSet<const UEdGraphNode*> Seen;
	while (!Open.IsEmpty())
	{
		const UEdGraphPin* const Pin = Open.Pop();
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			const UK2Node_Knot* const Knot = Cast<UK2Node_Knot>(Linked->GetOwningNode());
			if (!Knot)
			{
				if (Linked->PinType.PinCategory != UEdGraphSchema_K2::PC_Wildcard)
				{
					return Linked;
				}
				continue;
			}
			const bool bSeen = Seen.Contains(Knot);
			Seen.Add(Knot);
			const UEdGraphPin* const FarSide = Pin->Direction == EGPD_Input ? Knot->GetInputPin()
																			: Knot->GetOutputPin();
			if (!bSeen && FarSide)
			{
				Open.Add(FarSide);
			}
		}
	}
	return nullptr;
}
} // namespace Knots

void UK2Node_Knot::PropagatePinType()
{
	UEdGraphPin* const Input = GetInputPin();
	UEdGraphPin* const Output = GetOutputPin();
	if (!Input || !Output)
	{
		return;
	}
	const UEdGraphPin* Typed = Knots::FindTyped(*Input);
	Typed = Typed ? Typed : Knots::FindTyped(*Output);
	FEdGraphPinType Type;
	Type.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
	if (Typed)
	{
		Type = Typed->PinType;
		// The Blueprint's own class, where the far end says just "self".
		if (Type.PinSubCategory == UEdGraphSchema_K2::PSC_Self)
		{
			const UK2Node* const Node = Cast<UK2Node>(Typed->GetOwningNode());
			UClass* const Class = Node ? Node->GetBlueprintClassFromNode() : nullptr;
			Type.PinSubCategory = NAME_None;
			Type.PinSubCategoryObject = Class ? Class->GetAuthoritativeClass() : nullptr;
		}
	}
	else if (!Input->LinkedTo.IsEmpty() || !Output->LinkedTo.IsEmpty())
	{
		return;
	}
	if (Input->PinType == Type && Output->PinType == Type)
	{
		return;
	}
	Input->PinType = Type;
	Output->PinType = Type;
	for (UEdGraphPin* const Side : {Input, Output})
	{
		const TArray<UEdGraphPin*> Links = Side->LinkedTo;
		for (UEdGraphPin* const Linked : Links)
		{
			if (UK2Node_Knot* const Knot = Cast<UK2Node_Knot>(Linked->GetOwningNode()))
			{
				Knot->PropagatePinType();
			}
		}
	}
}

FText UK2Node_Knot::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::EditableTitle)
	{
		return FText::FromString(NodeComment);
	}
	return TitleType == ENodeTitleType::MenuTitle ? NSLOCTEXT("K2Node_Knot", "KnotListTitle", "Add Reroute Node...")
												  : NSLOCTEXT("K2Node_Knot", "KnotTitle", "Reroute Node");
}

FText UK2Node_Knot::GetTooltipText() const
{
	return NSLOCTEXT("K2Node_Knot", "KnotTooltip", "Lets a link take another way through the graph");
}

FText UK2Node_Knot::GetMenuCategory() const
{
	return FText::GetEmpty();
}

void UK2Node_Knot::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
