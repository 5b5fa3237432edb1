#include "Clipboard/PastedNodes.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_StructOperation.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/FeedbackContext.h"
#include "UObject/UnrealType.h"

namespace PastedNodes
{
namespace
{
using FSchema = UEdGraphSchema_K2;

/** What declares the node's pins, if that is a function or a struct. */
const UStruct* FindDeclaration(const UEdGraphNode& Node)
{
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		return Call->GetTargetFunction();
	}
	if (const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
	{
		return Event->FindEventSignatureFunction();
	}
	if (const UK2Node_StructOperation* const Operation = Cast<UK2Node_StructOperation>(&Node))
	{
		return Operation->StructType;
	}
	return nullptr;
}

/** A native float is single; what stood as float in a Blueprint is double since there are both. */
void RepairPrecision(UEdGraphPin& Pin, const UStruct& Declaration)
{
	const FProperty* Property = Declaration.FindPropertyByName(Pin.PinName);
	if (const FArrayProperty* const Array = CastField<FArrayProperty>(Property))
	{
		Property = Array->Inner;
	}
	if (Property && Property->IsA<FFloatProperty>())
	{
		Pin.PinType.PinSubCategory = FSchema::PC_Float;
	}
}

UK2Node_Event* FindOtherEvent(const UBlueprint& Blueprint, const UK2Node_Event& Event)
{
	TArray<UK2Node_Event*> Events;
	FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Events);
	for (UK2Node_Event* const Other : Events)
	{
		if (Other != &Event && Other->bOverrideFunction && Other->GetFunctionName() == Event.GetFunctionName())
		{
			return Other;
		}
	}
	return nullptr;
}

void MoveLinks(UEdGraphPin& From, UEdGraphPin& To)
{
	const TArray<UEdGraphPin*> Links = From.LinkedTo;
	for (UEdGraphPin* const Link : Links)
	{
		From.BreakLinkTo(Link);
		To.MakeLinkTo(Link);
	}
}

/** The pin that takes a pasted parameter's links: the entry's own, or a new parameter where the author may add one. */
UEdGraphPin* FindOrAddParameter(UK2Node_FunctionEntry& Entry, const UEdGraphPin& Pin)
{
	if (UEdGraphPin* const Own = Entry.FindPin(Pin.PinName, EGPD_Output))
	{
		return Own;
	}
	return Entry.bIsEditable ? Entry.CreateUserDefinedPin(Pin.PinName, Pin.PinType, EGPD_Output, false) : nullptr;
}

/** A function has one entry; it takes the place and the links of the pasted one. */
bool SettleEntry(UK2Node_FunctionEntry& Pasted, FFeedbackContext& Warn)
{
	TArray<UK2Node_FunctionEntry*> Entries;
	Pasted.GetGraph()->GetNodesOfClass(Entries);
	UK2Node_FunctionEntry* const* const Found = Entries.FindByPredicate(
		[&Pasted](const UK2Node_FunctionEntry* Entry) { return Entry != &Pasted; });
	const UEdGraphSchema* const Schema = Pasted.GetSchema();
	// Elsewhere an entry stands for nothing; the compile says so.
	if (!Found || !Schema || Schema->GetGraphType(Pasted.GetGraph()) != GT_Function)
	{
		return true;
	}
	UK2Node_FunctionEntry& Entry = **Found;
	Entry.Modify();
	Entry.NodePosX = Pasted.NodePosX;
	Entry.NodePosY = Pasted.NodePosY;
	for (UEdGraphPin* const Pin : Pasted.Pins)
	{
		const bool bNeeded = !Pin->LinkedTo.IsEmpty() || !FSchema::IsExecPin(*Pin);
		UEdGraphPin* const Own = bNeeded && !Pin->ParentPin ? FindOrAddParameter(Entry, *Pin) : nullptr;
		if (Own)
		{
			MoveLinks(*Pin, *Own);
		}
		else if (!Pin->LinkedTo.IsEmpty())
		{
			Warn.Logf(TEXT("The function '%s' has no parameter '%s'; its links are dropped"),
				*Pasted.GetGraph()->GetName(), *Pin->PinName.ToString());
		}
	}
	return false;
}

/** A default event that nobody used gives way; a real one stays, since a function can be overridden once. */
bool SettleEvent(UK2Node_Event& Pasted, FFeedbackContext& Warn)
{
	const UBlueprint* const Blueprint = Pasted.GetTypedOuter<UBlueprint>();
	UK2Node_Event* const Other = Blueprint && Pasted.bOverrideFunction ? FindOtherEvent(*Blueprint, Pasted) : nullptr;
	if (!Other)
	{
		return true;
	}
	if (Other->IsAutomaticallyPlacedGhostNode())
	{
		Other->DestroyNode();
		return true;
	}
	Warn.Logf(TEXT("The Blueprint has the event '%s' already; the pasted one is left out"),
		*Pasted.GetFunctionName().ToString());
	return false;
}
} // namespace

void RepairTypes(UEdGraphNode& Node)
{
	const UStruct* const Declaration = FindDeclaration(Node);
	const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node);
	const bool bOwnVariable = Variable && Variable->VariableReference.IsSelfContext();
	const UBlueprint* const Blueprint = Node.GetTypedOuter<UBlueprint>();
	for (UEdGraphPin* const Pin : Node.Pins)
	{
		if (Declaration && Pin->PinType.PinCategory == FSchema::PC_Real)
		{
			RepairPrecision(*Pin, *Declaration);
		}
		if (bOwnVariable && Blueprint && Pin->PinName == FSchema::PN_Self)
		{
			Pin->PinType.PinSubCategoryObject = Blueprint->GeneratedClass.Get();
			Pin->KeptFields.Empty();
		}
	}
}

bool Settle(UEdGraphNode& Node, FFeedbackContext& Warn)
{
	if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(&Node))
	{
		return SettleEntry(*Entry, Warn);
	}
	if (UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
	{
		return SettleEvent(*Event, Warn);
	}
	return true;
}
} // namespace PastedNodes
