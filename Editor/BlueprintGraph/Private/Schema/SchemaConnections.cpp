// Whether two pins may be linked, what must give way, and how the link is made.

#include "EdGraphSchema_K2.h"

#include "Engine/Blueprint.h"
#include "K2Node_Knot.h"
#include "K2Node_PromotableOperator.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UEdGraphSchema_K2, "/Script/BlueprintGraph", CLASS_None)

void UEdGraphSchema_K2::DescribeClass(FClassDescriber&) {}

namespace PinConnections
{
using FSchema = UEdGraphSchema_K2;

static FString NameOf(const UEdGraphPin& Pin)
{
	const FString Shown = Pin.GetDisplayName().ToString();
	return Shown.IsEmpty() ? Pin.PinName.ToString() : Shown;
}

static FString TypeName(const UEdGraphPin& Pin)
{
	return FSchema::TypeToText(Pin.PinType).ToString();
}

static FPinConnectionResponse Refuse(const FString& Reason)
{
	return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, FText::FromString(Reason));
}

static bool IsReroute(const UEdGraphPin& Pin)
{
	return Pin.GetOwningNode()->IsA<UK2Node_Knot>();
}

/** Whether the pin is a target that may be several objects; bAsArray asks about all of them in one link. */
static bool TakesSeveralTargets(const UEdGraphPin& Input, bool bAsArray)
{
	const UK2Node* const Node = Cast<UK2Node>(Input.GetOwningNode());
	return Node && GetDefault<FSchema>()->IsSelfPin(Input) && !Input.PinType.IsContainer()
		&& Node->AllowMultipleSelfs(bAsArray);
}

/** Whether one more target may join those that are linked. An array of targets stands for itself: it is gone through
 * in a loop of its own. */
static bool JoinsOtherTargets(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	return !Output.PinType.IsContainer() && TakesSeveralTargets(Input, false)
		&& !Input.LinkedTo.ContainsByPredicate([](const UEdGraphPin* Linked) { return Linked->PinType.IsContainer(); });
}

/** What speaks against a link whatever the types are. */
static FString ReasonAgainstPin(const UEdGraphPin& Pin)
{
	const FString Node = Pin.GetOwningNode()->GetNodeTitle(ENodeTitleType::ListView).ToString();
	if (Pin.bOrphanedPin)
	{
		return FString::Printf(
			TEXT("'%s' no longer exists on %s; it can only be unlinked"), *Pin.PinName.ToString(), *Node);
	}
	if (Pin.bNotConnectable)
	{
		return FString::Printf(TEXT("'%s' of %s takes no connections"), *NameOf(Pin), *Node);
	}
	if (!Pin.SubPins.IsEmpty())
	{
		return FString::Printf(
			TEXT("'%s' of %s is split; connect its parts or recombine it first"), *NameOf(Pin), *Node);
	}
	return FString();
}

static FString ReasonAgainstPlace(const UEdGraphPin& A, const UEdGraphPin& B)
{
	if (A.GetOwningNode() == B.GetOwningNode())
	{
		return TEXT("Both pins are on the same node");
	}
	if (A.GetOwningNode()->GetGraph() != B.GetOwningNode()->GetGraph())
	{
		return TEXT("The pins are in different graphs");
	}
	if (A.Direction == B.Direction)
	{
		return FString::Printf(TEXT("Directions are not compatible: '%s' and '%s' are both %s"), *NameOf(A), *NameOf(B),
			A.Direction == EGPD_Input ? TEXT("inputs") : TEXT("outputs"));
	}
	for (const UEdGraphPin* const Pin : {&A, &B})
	{
		const FString Reason = ReasonAgainstPin(*Pin);
		if (!Reason.IsEmpty())
		{
			return Reason;
		}
	}
	return FString();
}

static FString ReasonOfNode(const UEdGraphPin& Mine, const UEdGraphPin& Other)
{
	FString Reason;
	const UK2Node* const Node = Cast<UK2Node>(Mine.GetOwningNode());
	if (!Node || !Node->IsConnectionDisallowed(&Mine, &Other, Reason))
	{
		return FString();
	}
	return Reason.IsEmpty() ? FString(TEXT("The node refuses this connection")) : Reason;
}

/** Why the pins are not linked whatever their types are; empty when nothing but those can speak against it. */
static FString ReasonBeforeTypes(const UEdGraphPin& A, const UEdGraphPin& B)
{
	FString Reason = ReasonAgainstPlace(A, B);
	Reason = Reason.IsEmpty() ? ReasonOfNode(A, B) : Reason;
	return Reason.IsEmpty() ? ReasonOfNode(B, A) : Reason;
}

/** The class that self means in the graph of the two. */
static const UClass* ContextOf(const UEdGraphPin& Pin)
{
	const UK2Node* const Node = Cast<UK2Node>(Pin.GetOwningNode());
	return Node ? Node->GetBlueprintClassFromNode() : nullptr;
}

/** Execution runs through a reroute as values do. */
static bool IsExecThroughReroute(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const auto Opens = [](const UEdGraphPin& Exec, const UEdGraphPin& Open)
	{ return FSchema::IsExecPin(Exec) && Open.PinType.PinCategory == FSchema::PC_Wildcard && IsReroute(Open); };
	return Opens(Output, Input) || Opens(Input, Output);
}

/** A reroute that nothing is linked to yet can become the container that its target asks for. */
static bool IsContainerFromReroute(const UEdGraphPin& Output)
{
	return Output.PinType.PinCategory == FSchema::PC_Wildcard && IsReroute(Output);
}

static FPinConnectionResponse Replace(bool bBreakA, const TCHAR* Reason)
{
	return FPinConnectionResponse(bBreakA ? CONNECT_RESPONSE_BREAK_OTHERS_A : CONNECT_RESPONSE_BREAK_OTHERS_B, Reason);
}

/** Execution leaves an output by one link and may arrive by many; a value leaves by many and arrives by one. */
static FPinConnectionResponse RespondToFitting(
	const UEdGraphPin& A, const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const bool bAlreadyLinked = Output.LinkedTo.Contains(const_cast<UEdGraphPin*>(&Input));
	if (!bAlreadyLinked && FSchema::IsExecPin(Output) && !Output.LinkedTo.IsEmpty())
	{
		return Replace(&A == &Output, TEXT("Replaces what the output is connected to"));
	}
	const bool bCarriesValue = !FSchema::IsExecPin(Output) && !FSchema::IsExecPin(Input);
	if (!bAlreadyLinked && bCarriesValue && !Input.LinkedTo.IsEmpty() && !JoinsOtherTargets(Output, Input))
	{
		return Replace(&A == &Input, TEXT("Replaces what the input is connected to"));
	}
	return FPinConnectionResponse(CONNECT_RESPONSE_MAKE, TEXT(""));
}

/** Whether the operand can take the other type by the operator choosing another overload. */
static bool CanPromote(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const UK2Node_PromotableOperator* const Operator = Cast<UK2Node_PromotableOperator>(Input.GetOwningNode());
	return Operator && Operator->FindTolerancePin() != &Input && Operator->TakesOperand(Input, Output.PinType);
}

/** What a delegate of the type is called with: "(Actor Object Reference, Float (double-precision))". */
static FString SignatureOf(const UEdGraphPin& Pin)
{
	TArray<FString> Params;
	const UFunction* const Signature = FMemberReference::ResolveSimpleMemberReference(
		Pin.PinType.PinSubCategoryMemberReference, const_cast<UClass*>(ContextOf(Pin)));
	for (TFieldIterator<FProperty> It(Signature, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Params.Add(FSchema::TypeToText(*It).ToString());
	}
	return TEXT("(") + FString::Join(Params, TEXT(", ")) + TEXT(")");
}

static FPinConnectionResponse RespondToClash(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const FString Out = TypeName(Output);
	const FString In = TypeName(Input);
	const FName Category = Input.PinType.PinCategory;
	if (Output.PinType.ContainerType != Input.PinType.ContainerType)
	{
		return Refuse(FString::Printf(TEXT("%s is not compatible with %s"), *Out, *In));
	}
	if (Output.PinType.PinCategory == Category
		&& (Category == FSchema::PC_Delegate || Category == FSchema::PC_MCDelegate))
	{
		return Refuse(FString::Printf(TEXT("%s %s is not compatible with %s %s (the signatures differ)"), *Out,
			*SignatureOf(Output), *In, *SignatureOf(Input)));
	}
	if (Output.PinType.PinCategory == FSchema::PC_Interface && Category == FSchema::PC_Interface)
	{
		return Refuse(FString::Printf(TEXT("%s is not compatible with %s (one does not extend the other)"), *Out, *In));
	}
	if (Output.PinType.PinCategory == FSchema::PC_Object && Category == FSchema::PC_Interface)
	{
		return Refuse(
			FString::Printf(TEXT("%s is not compatible with %s (the class does not implement it)"), *Out, *In));
	}
	return Refuse(FString::Printf(TEXT("%s is not compatible with %s"), *Out, *In));
}

/** A value that may only be read cannot be handed to somebody who writes through it. */
static bool LosesConst(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	return Output.PinType.bIsConst && Output.PinType.bIsReference && Input.PinType.bIsReference
		&& !Input.PinType.bIsConst;
}

static void MarkBlueprintModified(const UEdGraphNode& Node)
{
	UBlueprint* const Blueprint = Node.GetTypedOuter<UBlueprint>();
	if (Blueprint && Blueprint->IsUpToDate())
	{
		Blueprint->Status = BS_Dirty;
	}
}
} // namespace PinConnections

const FPinConnectionResponse UEdGraphSchema_K2::CanCreateConnection(
	const UEdGraphPin* PinA, const UEdGraphPin* PinB) const
{
	using namespace PinConnections;
	if (!PinA || !PinB)
	{
		return Refuse(TEXT("There is no pin at one end"));
	}
	FString Reason = ReasonBeforeTypes(*PinA, *PinB);
	if (!Reason.IsEmpty())
	{
		// Who reads of it sees neither pin, so every refusal says what they are.
		Reason.RemoveFromEnd(TEXT("."));
		return Refuse(FString::Printf(TEXT("%s (%s and %s)"), *Reason, *TypeName(*PinA), *TypeName(*PinB)));
	}
	const UEdGraphPin* Input = nullptr;
	const UEdGraphPin* Output = nullptr;
	CategorizePinsByDirection(PinA, PinB, Input, Output);
	if (LosesConst(*Output, *Input))
	{
		return Refuse(
			FString::Printf(TEXT("'%s', a read-only %s, is not compatible with '%s', which changes the %s it is given"),
				*NameOf(*Output), *TypeName(*Output), *NameOf(*Input), *TypeName(*Input)));
	}
	const UClass* const Context = ContextOf(*Output);
	const bool bSeveralTargets = Output->PinType.IsArray() && TakesSeveralTargets(*Input, true);
	const bool bAnyContainer = bSeveralTargets || IsContainerFromReroute(*Output);
	if (ArePinTypesCompatible(Output->PinType, Input->PinType, Context, bAnyContainer)
		|| IsExecThroughReroute(*Output, *Input))
	{
		return RespondToFitting(*PinA, *Output, *Input);
	}
	if (CanPromote(*Output, *Input))
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_MAKE_WITH_PROMOTION,
			FText::FromString(FString::Printf(TEXT("Promote %s to %s"), *TypeName(*Input), *TypeName(*Output))));
	}
	FName Function;
	UClass* Owner = nullptr;
	UK2Node* NoNode = nullptr;
	if (FindSpecializedConversionNode(Output->PinType, *Input, false, NoNode)
		|| SearchForAutocastFunction(Output->PinType, Input->PinType, Function, Owner))
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE,
			FText::FromString(FString::Printf(TEXT("Convert %s to %s"), *TypeName(*Output), *TypeName(*Input))));
	}
	return RespondToClash(*Output, *Input);
}

bool UEdGraphSchema_K2::TryCreateConnection(UEdGraphPin* PinA, UEdGraphPin* PinB) const
{
	if (!PinA || !PinB)
	{
		return false;
	}
	// Nodes may make their pins anew when told of the link, so nothing is asked of the pins afterwards.
	const UEdGraphNode* const Node = PinA->GetOwningNode();
	const bool bLinked = Super::TryCreateConnection(PinA, PinB);
	if (bLinked)
	{
		PinConnections::MarkBlueprintModified(*Node);
	}
	return bLinked;
}

bool UEdGraphSchema_K2::CreatePromotedConnection(UEdGraphPin* PinA, UEdGraphPin* PinB) const
{
	UEdGraphPin* Input = nullptr;
	UEdGraphPin* Output = nullptr;
	if (!CategorizePinsByDirection<UEdGraphPin>(PinA, PinB, Input, Output)
		|| !PinConnections::CanPromote(*Output, *Input))
	{
		return false;
	}
	UK2Node_PromotableOperator* const Operator = static_cast<UK2Node_PromotableOperator*>(Input->GetOwningNode());
	Operator->Modify();
	// A node that hears of a broken link may make its pins anew.
	const FEdGraphPinReference HeldInput(Input);
	const FEdGraphPinReference HeldOutput(Output);
	BreakPinLinks(*Input, true);
	if (!HeldInput.Get() || !HeldOutput.Get())
	{
		return false;
	}
	Operator->ConvertPinType(HeldInput.Get(), HeldOutput.Get()->PinType);
	if (HeldInput.Get() && HeldOutput.Get())
	{
		HeldInput.Get()->MakeLinkTo(HeldOutput.Get());
	}
	return HeldInput.Get() && HeldInput.Get()->HasAnyConnections();
}

void UEdGraphSchema_K2::BreakPinLinks(UEdGraphPin& TargetPin, bool bSendsNodeNotification) const
{
	if (TargetPin.LinkedTo.IsEmpty())
	{
		return;
	}
	const UEdGraphNode* const Node = TargetPin.GetOwningNode();
	Super::BreakPinLinks(TargetPin, bSendsNodeNotification);
	PinConnections::MarkBlueprintModified(*Node);
}

void UEdGraphSchema_K2::BreakSinglePinLink(UEdGraphPin* SourcePin, UEdGraphPin* TargetPin) const
{
	if (!SourcePin || !TargetPin)
	{
		return;
	}
	const UEdGraphNode* const Node = SourcePin->GetOwningNode();
	Super::BreakSinglePinLink(SourcePin, TargetPin);
	PinConnections::MarkBlueprintModified(*Node);
}

bool UEdGraphSchema_K2::IsSelfPin(const UEdGraphPin& Pin) const
{
	return Pin.PinName == PN_Self;
}

UEdGraphPin* UEdGraphSchema_K2::FindSelfPin(const UEdGraphNode& Node, EEdGraphPinDirection Dir)
{
	return Node.FindPin(PN_Self, Dir);
}

UEdGraphPin* UEdGraphSchema_K2::FindExecutionPin(const UEdGraphNode& Node, EEdGraphPinDirection Dir)
{
	UEdGraphPin* const* const Found = Node.Pins.FindByPredicate(
		[Dir](const UEdGraphPin* Pin) { return Pin->Direction == Dir && IsExecPin(*Pin); });
	return Found ? *Found : nullptr;
}
