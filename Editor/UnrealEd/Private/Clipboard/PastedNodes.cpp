#include "Clipboard/PastedNodes.h"

#include "Clipboard/PastedTracks.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_StructOperation.h"
#include "K2Node_Timeline.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/FeedbackContext.h"
#include "Standalone/EdGraphNode_Placeholder.h"
#include "Standalone/ObjectText.h"
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

/** The class that the target pin of an own variable names, where the Blueprint is one; else the Blueprint's class. */
UClass* FindDeclarer(const UEdGraphPin& Target, UClass& Own)
{
	UClass* const Named = Cast<UClass>(Target.PinType.PinSubCategoryObject.Get());
	if (Named && Own.IsChildOf(Named))
	{
		return Named;
	}
	const UEdGraphPin::FKeptField* const Kept = Target.KeptFields.FindByPredicate(
		[](const UEdGraphPin::FKeptField& Field) { return Field.Key == TEXT("PinType.PinSubCategoryObject"); });
	// No search finds what is missing, but the Blueprint's own line of parents leads there.
	for (UClass* Class = Kept ? &Own : nullptr; Class; Class = Class->GetSuperClass())
	{
		if (Kept->Value.Contains(TEXT("'") + Class->GetPathName() + TEXT("'")))
		{
			return Class;
		}
	}
	return &Own;
}

bool IsFunctionGraph(const UEdGraph* Graph)
{
	const UEdGraphSchema* const Schema = Graph->GetSchema();
	return Schema && Schema->GetGraphType(Graph) == GT_Function;
}

/** The node for a message: its name in the graph and what an author calls it. */
FString NameOf(const UEdGraphNode& Node)
{
	return FString::Printf(TEXT("'%s' (%s)"), *Node.GetName(), *Node.GetNodeTitle(ENodeTitleType::ListView).ToString());
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
UEdGraphNode* SettleEntry(UK2Node_FunctionEntry& Pasted, FFeedbackContext& Warn)
{
	TArray<UK2Node_FunctionEntry*> Entries;
	Pasted.GetGraph()->GetNodesOfClass(Entries);
	UK2Node_FunctionEntry* const* const Found = Entries.FindByPredicate(
		[&Pasted](const UK2Node_FunctionEntry* Entry) { return Entry != &Pasted; });
	if (!Found || !IsFunctionGraph(Pasted.GetGraph()))
	{
		return &Pasted;
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
	return nullptr;
}

/** A custom event with the parameters and links of an event that the Blueprint has already. */
UEdGraphNode* ReplaceByCustomEvent(UK2Node_Event& Pasted, const UFunction& Signature, FFeedbackContext& Warn)
{
	UK2Node_CustomEvent* const Custom = UK2Node_CustomEvent::CreateFromFunction(
		FVector2D(Pasted.NodePosX, Pasted.NodePosY), Pasted.GetGraph(),
		Pasted.GetFunctionName().ToString() + TEXT("_Event"), &Signature, false);
	Custom->NodeComment = Pasted.NodeComment;
	Custom->bCommentBubblePinned = Pasted.bCommentBubblePinned;
	Custom->bCommentBubbleVisible = Pasted.bCommentBubbleVisible;
	for (UEdGraphPin* const Pin : Pasted.Pins)
	{
		if (UEdGraphPin* const Own = Custom->FindPin(Pin->PinName, EGPD_Output))
		{
			MoveLinks(*Pin, *Own);
		}
	}
	Warn.Logf(TEXT("The Blueprint has the event '%s' already; the pasted one becomes the custom event '%s'"),
		*Pasted.GetFunctionName().ToString(), *Custom->CustomFunctionName.ToString());
	return Custom;
}

/** A default event that nobody used gives way; beside a real one, which a Blueprint has once, stands a custom event. */
UEdGraphNode* SettleEvent(UK2Node_Event& Pasted, FFeedbackContext& Warn)
{
	const UBlueprint* const Blueprint = Pasted.GetTypedOuter<UBlueprint>();
	UK2Node_Event* const Other = Blueprint && Pasted.bOverrideFunction ? FindOtherEvent(*Blueprint, Pasted) : nullptr;
	if (!Other)
	{
		return &Pasted;
	}
	if (Other->IsAutomaticallyPlacedGhostNode())
	{
		Other->DestroyNode();
		return &Pasted;
	}
	const UFunction* const Signature = Pasted.FindEventSignatureFunction();
	return Signature ? ReplaceByCustomEvent(Pasted, *Signature, Warn) : &Pasted;
}

/** The text tells the pins of a timeline's tracks, not the curves: each track starts out empty. */
void AddMissingTracks(const UK2Node_Timeline& Node)
{
	UTimelineTemplate* const Timeline = Node.GetTimelineTemplate();
	if (!Timeline)
	{
		return;
	}
	const TSet<const UEdGraphPin*> Fixed{Node.GetUpdatePin(), Node.GetFinishedPin(), Node.GetDirectionPin()};
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (Pin->Direction == EGPD_Output && !Pin->ParentPin && !Pin->bOrphanedPin && !Fixed.Contains(Pin)
			&& Timeline->IsNewTrackNameValid(Pin->PinName))
		{
			PastedTracks::Add(*Timeline, *Pin);
		}
	}
}

bool IsVariableKnown(const UK2Node_Variable& Node)
{
	if (!Node.VariableReference.IsLocalScope())
	{
		return Node.GetPropertyForVariable() != nullptr;
	}
	return FBlueprintEditorUtils::FindLocalVariable(Node.GetBlueprint(), Node.GetGraph(), Node.GetVarName()) != nullptr;
}

/** Whether the member that a node is bound to is there. True for a node of another kind. */
bool IsMemberKnown(const UEdGraphNode& Node)
{
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		return Call->GetTargetFunction() != nullptr;
	}
	// A variable of its kind, but bound to the struct alone.
	if (const UK2Node_StructOperation* const Operation = Cast<UK2Node_StructOperation>(&Node))
	{
		return Operation->StructType != nullptr;
	}
	if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
	{
		return IsVariableKnown(*Variable);
	}
	if (const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
	{
		return !Event->bOverrideFunction || Event->FindEventSignatureFunction();
	}
	if (const UK2Node_BaseMCDelegate* const Delegate = Cast<UK2Node_BaseMCDelegate>(&Node))
	{
		return Delegate->GetProperty() != nullptr;
	}
	if (const UK2Node_MacroInstance* const Macro = Cast<UK2Node_MacroInstance>(&Node))
	{
		return Macro->GetMacroGraph() != nullptr;
	}
	return true;
}

bool HasKept(const UEdGraphPin& Pin, const TCHAR* Key)
{
	return Pin.KeptFields.ContainsByPredicate([Key](const UEdGraphPin::FKeptField& Field) { return Field.Key == Key; });
}

bool IsTypeKept(const UEdGraphPin& Pin)
{
	return HasKept(Pin, TEXT("PinType.PinSubCategoryObject")) || HasKept(Pin, TEXT("PinType.PinValueType"));
}

/** A class pin whose class is not here, or comes from one that is not: a node may have pins for that one's members. */
bool IsChoiceKept(const UEdGraphPin& Pin)
{
	const FName Category = Pin.PinType.PinCategory;
	return Pin.Direction == EGPD_Input && (Category == FSchema::PC_Class || Category == FSchema::PC_SoftClass)
		&& (HasKept(Pin, TEXT("DefaultObject"))
			|| Pin.LinkedTo.ContainsByPredicate([](const UEdGraphPin* Linked) { return IsTypeKept(*Linked); }));
}

/** Whether everything is there that a node's pins follow from: its class, and all that its text refers to. */
bool IsDeclarationKnown(const UEdGraphNode& Node)
{
	const FKeptObjectText* const Kept = FKeptObjectText::Find(&Node);
	if (Node.GetClass()->GetNativeClass() != Node.GetClass() || (Kept && !Kept->Unread.empty()))
	{
		return false;
	}
	const bool bTypesKnown = !Node.Pins.ContainsByPredicate(
		[](const UEdGraphPin* Pin) { return IsTypeKept(*Pin) || IsChoiceKept(*Pin); });
	return bTypesKnown && IsMemberKnown(Node);
}

/** Whether the graph is a place for the node: a Blueprint's function has no key events, its event graph no entry. */
bool BelongsIn(const UEdGraphNode& Node, const UEdGraph& Graph)
{
	if (Node.IsA<UK2Node_FunctionEntry>() && !IsFunctionGraph(&Graph))
	{
		return false;
	}
	const UK2Node* const K2Node = Cast<UK2Node>(&Node);
	return Node.IsCompatibleWithGraph(&Graph) && (!K2Node || K2Node->CanPasteHere(&Graph));
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
		if (bOwnVariable && Blueprint && Blueprint->GeneratedClass.Get() && Pin->PinName == FSchema::PN_Self)
		{
			Pin->PinType.PinSubCategoryObject = FindDeclarer(*Pin, *Blueprint->GeneratedClass.Get());
			Pin->KeptFields.Empty();
		}
	}
}

UEdGraphNode* Settle(UEdGraphNode& Node, FFeedbackContext& Warn)
{
	if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(&Node))
	{
		return SettleEntry(*Entry, Warn);
	}
	if (UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
	{
		return SettleEvent(*Event, Warn);
	}
	return &Node;
}

void Renew(UEdGraphNode& Node, FFeedbackContext& Warn)
{
	if (Node.IsA<UEdGraphNode_Placeholder>())
	{
		Warn.Logf(TEXT("%s: its class is not known here; it is kept as it was read"), *NameOf(Node));
		return;
	}
	if (!BelongsIn(Node, *Node.GetGraph()))
	{
		Warn.Logf(TEXT("%s does not belong in the graph '%s'; it is kept as it was read"), *NameOf(Node),
			*Node.GetGraph()->GetName());
		return;
	}
	if (!IsDeclarationKnown(Node))
	{
		Warn.Logf(TEXT("%s: what it refers to is not known here; its pins are kept as they were read"), *NameOf(Node));
		return;
	}
	if (const UK2Node_Timeline* const Timeline = Cast<UK2Node_Timeline>(&Node))
	{
		AddMissingTracks(*Timeline);
	}
	Node.ReconstructNode();
}
} // namespace PastedNodes
