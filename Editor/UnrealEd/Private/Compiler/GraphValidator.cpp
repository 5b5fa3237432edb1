#include "Compiler/GraphValidator.h"

#include "Compiler/GraphFlow.h"
#include "Compiler/MacroUse.h"
#include "Compiler/PinTypeProperty.h"
#include "Compiler/UnresolvedUse.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Event.h"
#include "K2Node_FormatText.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Knot.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_Timeline.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/EdGraphNode_Placeholder.h"
#include "Standalone/MissingObjects.h"
#include "UObject/UnrealType.h"

namespace GraphValidation
{
using FSchema = UEdGraphSchema_K2;

/** A side of the macro or collapsed graph that is being checked, as opposed to a use of one. */
static bool IsGraphEnd(const UEdGraphNode& Node)
{
	return ExactCast<UK2Node_Tunnel>(const_cast<UEdGraphNode*>(&Node)) != nullptr;
}

static bool IsConstFunction(const UEdGraph& Graph)
{
	const UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(
		FBlueprintEditorUtils::GetTopLevelGraph(&Graph));
	return Entry && Entry->bEnforceConstCorrectness && (Entry->GetFunctionFlags() & FUNC_Const) != 0;
}

static bool HasLinkedWildcard(const UEdGraphNode& Node)
{
	return Node.Pins.ContainsByPredicate([](const UEdGraphPin* Pin)
		{ return Pin && Pin->PinType.PinCategory == FSchema::PC_Wildcard && !Pin->LinkedTo.IsEmpty(); });
}

/** Whether several values may meet in the input: targets that are called one after the other, and ways into a state. */
static bool TakesSeveral(const UEdGraphPin& Pin)
{
	const UK2Node* const Node = Cast<UK2Node>(Pin.GetOwningNode());
	return Node ? Pin.PinName == FSchema::PN_Self && Node->AllowMultipleSelfs(false)
				: Pin.PinType.PinCategory != FSchema::PC_Exec;
}

/** The type of the pin, or the parent of it, that is not here. */
static const UObject* FindMissingType(const FEdGraphPinType& Type, const UBlueprint& Blueprint)
{
	if (Type.PinSubCategory == FSchema::PSC_Self && !Type.PinSubCategoryObject.Get())
	{
		return FMissingObjects::FindMissingParent(Blueprint.ParentClass.Get());
	}
	for (const UObject* const Object : {Type.PinSubCategoryObject.Get(),
			 Type.PinValueType.TerminalSubCategoryObject.Get(), Type.PinSubCategoryMemberReference.MemberParent})
	{
		const UClass* const Class = Cast<UClass>(Object);
		const UObject* const Missing = Class ? FMissingObjects::FindMissingParent(Class) : Object;
		if (FMissingObjects::IsMissing(Missing))
		{
			return Missing;
		}
	}
	return nullptr;
}

/** Members that a Blueprint declares keep what they say about access; native ones say it to native code alone. */
static bool IsDeclaredByBlueprint(const UClass* Class)
{
	return Class && Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint);
}
} // namespace GraphValidation

FGraphValidator::FGraphValidator(UBlueprint& InBlueprint, UEdGraph& InGraph, FMacroUse& InMacros,
	FUnresolvedUse& InUnresolved, FCompilerResultsLog& InLog)
	: Blueprint(InBlueprint)
	, Graph(InGraph)
	, Macros(InMacros)
	, Unresolved(InUnresolved)
	, Log(InLog)
	, Schema(InGraph.GetSchema())
{
	if (Schema)
	{
		GraphType = Schema->GetGraphType(&Graph);
		bConstFunction = GraphType == GT_Function && GraphValidation::IsConstFunction(Graph);
	}
}

void FGraphValidator::Validate(const GraphFlow::FGraphUse* Use)
{
	if (!Schema)
	{
		Log.Error(*FString::Printf(TEXT("Graph '%s' has no schema, so it cannot be compiled"), *Graph.GetName()));
		return;
	}
	for (int32 Index = 0; Index < Graph.Nodes.Num(); ++Index)
	{
		UEdGraphNode* const Node = Graph.Nodes[Index];
		if (GraphFlow::IsCompiled(Node) && (!Use || Use->IsUsed(Node)))
		{
			CheckNode(*Node);
		}
	}
}

void FGraphValidator::CheckNode(UEdGraphNode& Node)
{
	if (NoteUnresolved(Node))
	{
		for (int32 Index = 0; Index < Node.Pins.Num(); ++Index)
		{
			if (UEdGraphPin* const Pin = Node.Pins[Index])
			{
				CheckLinks(*Pin);
			}
		}
		return;
	}
	const int32 ErrorsBefore = Log.NumErrors;
	Node.ValidateNodeDuringCompilation(Log);
	// What the node knows to be wrong is not told once more for its pins.
	bNodeComplained = Log.NumErrors > ErrorsBefore;
	CheckMissing(Node);
	CheckPlacement(Node);
	CheckEvent(Node);
	CheckMacro(Node);
	CheckAccess(Node);
	for (int32 Index = 0; Index < Node.Pins.Num(); ++Index)
	{
		if (UEdGraphPin* const Pin = Node.Pins[Index])
		{
			CheckPin(Node, *Pin);
		}
	}
}

/** Each missing thing once, whatever refers to it: the node, the value of a pin or its type. */
void FGraphValidator::CheckMissing(UEdGraphNode& Node)
{
	TArray<const UObject*> Told;
	const auto Check = [&](const UObject* Object)
	{
		if (FMissingObjects::IsMissing(Object) && !Told.Contains(Object))
		{
			Told.Add(Object);
			Log.Error(*FString::Printf(TEXT("@@ refers to '%s', which is missing"), *Object->GetPathName()), &Node);
			bNodeComplained = true;
		}
	};
	VisitReferences(Node, Check);
}

void FGraphValidator::VisitReferences(UEdGraphNode& Node, TFunctionRef<void(const UObject*)> Visit)
{
	for (const FProperty* const Property : ReferenceProperties(Node))
	{
		Property->VisitObjects(Property->GetValuePtr(&Node), [&Visit](UObject*& Object) { Visit(Object); });
	}
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Visit(Pin->DefaultObject);
		Visit(Pin->PinType.PinSubCategoryObject.Get());
		Visit(Pin->PinType.PinValueType.TerminalSubCategoryObject.Get());
		Visit(Pin->PinType.PinSubCategoryMemberReference.MemberParent);
	}
}

bool FGraphValidator::NoteUnresolved(UEdGraphNode& Node)
{
	if (const UEdGraphNode_Placeholder* const Unknown = Cast<UEdGraphNode_Placeholder>(&Node))
	{
		Unresolved.NoteNodeOf(Unknown->GetOriginalClassPath(), Node);
		return true;
	}
	TArray<const UObject*> Told;
	VisitReferences(Node,
		[&](const UObject* Object)
		{
			if (FMissingObjects::IsMissing(Object) && !Told.Contains(Object) && Unresolved.Note(Object, &Node))
			{
				Told.Add(Object);
			}
		});
	return !Told.IsEmpty();
}

/** Properties that may refer to something beside the node, found once for each class. */
const TArray<const FProperty*>& FGraphValidator::ReferenceProperties(const UEdGraphNode& Node)
{
	TArray<const FProperty*>* Found = PropertiesByClass.Find(Node.GetClass());
	if (!Found)
	{
		Found = &PropertiesByClass.Add(Node.GetClass());
		for (TFieldIterator<FProperty> It(Node.GetClass()); It; ++It)
		{
			TArray<const FStructProperty*> Encountered;
			if (It->ContainsObjectReference(Encountered))
			{
				Found->Add(*It);
			}
		}
	}
	return *Found;
}

void FGraphValidator::CheckPlacement(const UEdGraphNode& Node)
{
	if (Node.IsA<UK2Node_FunctionEntry>() && GraphType != GT_Function)
	{
		Log.Error(TEXT("@@ starts a function and can only stand in the graph of one"), &Node);
	}
	if (GraphType != GT_Function && GraphType != GT_Macro)
	{
		return;
	}
	if (Node.IsA<UK2Node_Event>() || Node.IsA<UK2Node_Timeline>())
	{
		Log.Error(TEXT("@@ can only stand in an event graph, not in a function or a macro"), &Node);
		return;
	}
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node);
	if (Call && Call->IsLatentFunction() && GraphType == GT_Function)
	{
		Log.Error(TEXT("@@ is a latent action, which can only be used in an event graph or a macro, not in a function"),
			&Node);
	}
}

void FGraphValidator::CheckEvent(const UEdGraphNode& Node)
{
	const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node);
	const UFunction* const Function = Event && Event->bOverrideFunction ? Event->FindEventSignatureFunction() : nullptr;
	if (Function && (!Function->HasAnyFunctionFlags(FUNC_BlueprintEvent) || Function->HasAnyFunctionFlags(FUNC_Final)))
	{
		Log.Error(TEXT("@@ stands for a function that cannot be overridden"), &Node);
	}
}

void FGraphValidator::CheckMacro(const UEdGraphNode& Node)
{
	const UK2Node_MacroInstance* const Instance = Cast<UK2Node_MacroInstance>(&Node);
	if (!Instance)
	{
		return;
	}
	if (Macros.IsEndless(Instance->GetMacroGraph()))
	{
		Log.Error(TEXT("The macro of @@ uses itself, so it could be unfolded for ever"), &Node);
	}
	else if (GraphType == GT_Function && Macros.HoldsLatentAction(Instance->GetMacroGraph()))
	{
		Log.Error(TEXT("@@ holds a latent action, which can only be used in an event graph, not in a function"), &Node);
	}
}

void FGraphValidator::CheckAccess(const UEdGraphNode& Node)
{
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		CheckFunctionAccess(*Call);
	}
	else if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
	{
		CheckVariableAccess(*Variable);
	}
}

void FGraphValidator::CheckFunctionAccess(const UK2Node_CallFunction& Call)
{
	const UFunction* const Function = Call.GetTargetFunction();
	const UClass* const Owner = Function ? Function->GetOwnerClass() : nullptr;
	const UClass* const Own = Blueprint.GeneratedClass.Get();
	if (!Owner || Owner == Own || !GraphValidation::IsDeclaredByBlueprint(Owner))
	{
		return;
	}
	if (Function->HasAnyFunctionFlags(FUNC_Private))
	{
		Log.Error(*FString::Printf(TEXT("The function of @@ is private to '%s'"), *Owner->GetName()), &Call);
	}
	else if (Function->HasAnyFunctionFlags(FUNC_Protected) && !Own->IsChildOf(Owner))
	{
		Log.Error(
			*FString::Printf(TEXT("The function of @@ is protected: only '%s' and classes derived from it may call it"),
				*Owner->GetName()),
			&Call);
	}
}

void FGraphValidator::CheckVariableAccess(const UK2Node_Variable& Node)
{
	const FProperty* const Property = Node.GetPropertyForVariable();
	const UClass* const Owner = Property ? Property->GetOwnerClass() : nullptr;
	if (!Owner)
	{
		return;
	}
	if (Owner != Blueprint.GeneratedClass.Get() && GraphValidation::IsDeclaredByBlueprint(Owner)
		&& Property->GetBoolMetaData(FBlueprintMetadata::MD_Private))
	{
		Log.Error(*FString::Printf(TEXT("The variable of @@ is private to '%s'"), *Owner->GetName()), &Node);
	}
	const UEdGraphPin* const Target = Node.FindPin(GraphValidation::FSchema::PN_Self, EGPD_Input);
	const bool bOnSelf = !Target || Target->LinkedTo.IsEmpty();
	if (bConstFunction && bOnSelf && Node.IsA<UK2Node_VariableSet>())
	{
		Log.Error(TEXT("@@ changes a variable of the object in a const function, which promises not to"), &Node);
	}
}

void FGraphValidator::CheckPin(UEdGraphNode& Node, UEdGraphPin& Pin)
{
	if (Pin.bOrphanedPin)
	{
		CheckOrphan(Node, Pin);
		return;
	}
	if (!Pin.LinkedTo.IsEmpty())
	{
		CheckLinks(Pin);
	}
	else if (Pin.Direction == EGPD_Input && !GraphValidation::FSchema::IsExecPin(Pin))
	{
		CheckUnlinkedInput(Node, Pin);
	}
	CheckWildcard(Node, Pin);
	CheckParameterType(Node, Pin);
}

namespace GraphValidation
{
/** The pin that has taken an orphan's place with another type; null when there is none of the name any more. */
static const UEdGraphPin* FindSuccessor(const UEdGraphNode& Node, const UEdGraphPin& Orphan)
{
	return Node.FindPinByPredicate([&Orphan](const UEdGraphPin* Pin)
		{ return Pin && !Pin->bOrphanedPin && Pin->PinName == Orphan.PinName && Pin->Direction == Orphan.Direction; });
}
} // namespace GraphValidation

void FGraphValidator::CheckOrphan(const UEdGraphNode& Node, const UEdGraphPin& Pin)
{
	const bool bLinked = !Pin.LinkedTo.IsEmpty();
	if (const UEdGraphPin* const Successor = GraphValidation::FindSuccessor(Node, Pin))
	{
		const FString Was = UEdGraphSchema_K2::TypeToText(Pin.PinType).ToString();
		const FString Is = UEdGraphSchema_K2::TypeToText(Successor->PinType).ToString();
		const TCHAR* const Format = bLinked
			? TEXT("The type of @@ on node @@ was %s and is %s now. Please break the old link or connect the new pin.")
			: TEXT("The type of @@ on node @@ was %s and is %s now, so its old value is lost. Please refresh node.");
		const FString Text = FString::Printf(Format, *Was, *Is);
		bLinked ? Log.Error(*Text, &Pin, &Node) : Log.Warning(*Text, &Pin, &Node);
	}
	else if (bLinked)
	{
		Log.Error(TEXT("In use pin @@ no longer exists on node @@. Please refresh node or break links to remove pin."),
			&Pin, &Node);
	}
	else
	{
		Log.Warning(
			TEXT(
				"Input pin @@ specifying non-default value no longer exists on node @@. Please refresh node or reset pin to default value to remove pin."),
			&Pin, &Node);
	}
}

void FGraphValidator::CheckWildcard(const UEdGraphNode& Node, const UEdGraphPin& Pin)
{
	// A reroute passes on what there is, a format takes an argument that is not connected as an empty text, and what is
	// linked in a macro takes its type from where the macro is used.
	const bool bMayStayOpen = GraphValidation::IsGraphEnd(Node) || Node.IsA<UK2Node_Knot>()
		|| Node.IsA<UK2Node_FormatText>() || (GraphType == GT_Macro && GraphValidation::HasLinkedWildcard(Node));
	if (Pin.PinType.PinCategory != GraphValidation::FSchema::PC_Wildcard || bNodeComplained || Pin.bHidden
		|| bMayStayOpen)
	{
		return;
	}
	Log.Error(TEXT("The type of @@ is undetermined. Connect something to @@ to imply a specific type."), &Pin, &Node);
	// The other open pins of the node take their type from the same link.
	bNodeComplained = true;
}

void FGraphValidator::CheckParameterType(const UEdGraphNode& Node, const UEdGraphPin& Pin)
{
	const bool bDeclares = Node.IsA<UK2Node_FunctionTerminator>() || Node.IsA<UK2Node_Event>();
	if (bDeclares && !GraphValidation::FSchema::IsExecPin(Pin) && !PinTypeProperty::CanCarry(Pin.PinType))
	{
		Log.Error(*FString::Printf(TEXT("The parameter @@ of @@ has an invalid type: %s"),
					  *UEdGraphSchema_K2::TypeToText(Pin.PinType).ToString()),
			&Pin, &Node);
	}
}

void FGraphValidator::CheckLinks(UEdGraphPin& Pin)
{
	const bool bExec = GraphValidation::FSchema::IsExecPin(Pin);
	if (Pin.LinkedTo.Num() > 1 && bExec == (Pin.Direction == EGPD_Output) && !GraphValidation::TakesSeveral(Pin))
	{
		Log.Error(bExec ? TEXT("@@ of @@ leads to more than one node; use a Sequence to execute one after the other")
						: TEXT("@@ of @@ is connected to more than one output; an input takes one value"),
			&Pin, Pin.GetOwningNode());
	}
	// Each link once, told from its output end.
	if (Pin.Direction != EGPD_Output)
	{
		return;
	}
	for (const UEdGraphPin* const Other : Pin.LinkedTo)
	{
		const UEdGraphNode* const OtherNode = Other ? Other->GetOwningNodeUnchecked() : nullptr;
		if (!OtherNode || OtherNode->GetGraph() != &Graph)
		{
			Log.Error(TEXT("@@ is connected to a node outside its graph"), &Pin);
		}
		else if (!Other->bOrphanedPin)
		{
			CheckLinkTypes(Pin, *Other);
		}
	}
}

void FGraphValidator::CheckLinkTypes(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const UEdGraphSchema_K2* const K2 = Cast<UEdGraphSchema_K2>(Schema);
	const bool bUnresolved = Unresolved.IsExcused(GraphValidation::FindMissingType(Output.PinType, Blueprint))
		|| Unresolved.IsExcused(GraphValidation::FindMissingType(Input.PinType, Blueprint));
	if (bUnresolved || !K2 || K2->ArePinsCompatible(&Output, &Input, Blueprint.GeneratedClass.Get()))
	{
		return;
	}
	// Some links stand though the types differ: an array of targets is called on one after the other. The schema knows,
	// and is asked about what the types alone do not settle.
	if (K2->CanCreateConnection(&Output, &Input).CanSafeConnect())
	{
		return;
	}
	const FString From = UEdGraphSchema_K2::TypeToText(Output.PinType).ToString();
	const FString To = UEdGraphSchema_K2::TypeToText(Input.PinType).ToString();
	Log.Error(*FString::Printf(TEXT("@@ can't be connected to @@ since %s is not compatible with %s."), *From, *To),
		&Output, &Input);
}

void FGraphValidator::CheckUnlinkedInput(UEdGraphNode& Node, UEdGraphPin& Pin)
{
	using FSchema = GraphValidation::FSchema;
	if (Pin.PinName == FSchema::PN_Self)
	{
		CheckTarget(Node, Pin);
		return;
	}
	const bool bSubPinsSpeak = !Pin.SubPins.IsEmpty();
	if (Pin.bHidden || bSubPinsSpeak || Pin.PinType.PinCategory == FSchema::PC_Wildcard
		|| GraphValidation::IsGraphEnd(Node))
	{
		return;
	}
	// A function that calls back needs somebody to call, unless it says that nobody is fine too.
	if (Pin.PinType.PinCategory == FSchema::PC_Delegate && Node.IsA<UK2Node_CallFunction>()
		&& !FSchema::IsAutoCreateRefTerm(&Pin))
	{
		Log.Error(TEXT("@@ of @@ must be connected to the event that is to be called"), &Pin, &Node);
		return;
	}
	const FString Problem = Schema->IsCurrentPinDefaultValid(&Pin);
	if (!Problem.IsEmpty())
	{
		Log.Error(*FString::Printf(TEXT("The value of pin @@ on node @@ is invalid: %s"), *Problem), &Pin, &Node);
	}
}

void FGraphValidator::CheckTarget(const UEdGraphNode& Node, const UEdGraphPin& Self)
{
	if (Self.bHidden || Self.DefaultObject)
	{
		return;
	}
	// What a parent that is not here stands for is not known: it may be what is wanted.
	if (Unresolved.IsExcused(FMissingObjects::FindMissingParent(Blueprint.ParentClass.Get())))
	{
		return;
	}
	const bool bNeedsTarget = Node.IsA<UK2Node_CallFunction>() || Node.IsA<UK2Node_Variable>();
	const UClass* const Wanted = Cast<UClass>(Self.PinType.PinSubCategoryObject.Get());
	const UClass* const Own = Blueprint.GeneratedClass.Get();
	if (!bNeedsTarget || !Wanted || !Own || FMissingObjects::IsMissing(Wanted) || Own->IsChildOf(Wanted)
		|| Own->ImplementsInterface(Wanted))
	{
		return;
	}
	Log.Error(*FString::Printf(TEXT("This blueprint (self) is not a %s, therefore ' @@ ' must have a connection."),
				  *Wanted->GetDisplayNameText().ToString()),
		&Self);
}
