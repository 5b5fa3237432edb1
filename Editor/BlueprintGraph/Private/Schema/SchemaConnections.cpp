// Whether two pins may be linked, what must give way, and how the link is made.

#include "EdGraphSchema_K2.h"

#include "BlueprintTypePromotion.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_PromotableOperator.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UEdGraphSchema_K2, "/Script/BlueprintGraph", CLASS_None)

void UEdGraphSchema_K2::DescribeClass(FClassDescriber&) {}

namespace PinConnections
{
using FSchema = UEdGraphSchema_K2;

FString NameOf(const UEdGraphPin& Pin)
{
	const FString Shown = Pin.GetDisplayName().ToString();
	return Shown.IsEmpty() ? Pin.PinName.ToString() : Shown;
}

FPinConnectionResponse Refuse(const FString& Reason)
{
	return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, FText::FromString(Reason));
}

bool IsOfClassNamed(const UEdGraphNode& Node, const TCHAR* ClassName)
{
	const FName Wanted(ClassName);
	for (const UClass* Class = Node.GetClass(); Class; Class = Class->GetSuperClass())
	{
		if (Class->GetFName() == Wanted)
		{
			return true;
		}
	}
	return false;
}

bool IsReroute(const UEdGraphPin& Pin)
{
	return IsOfClassNamed(*Pin.GetOwningNode(), TEXT("K2Node_Knot"));
}

/** Whether a target may be several objects: the call is made once for each, so there must be nothing to give back. */
bool TakesSeveralTargets(const UEdGraphPin& Input)
{
	if (Input.PinName != FSchema::PN_Self || Input.Direction != EGPD_Input)
	{
		return false;
	}
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Input.GetOwningNode()))
	{
		const UFunction* const Function = Call->GetTargetFunction();
		return Function && !Function->HasAnyFunctionFlags(FUNC_BlueprintPure) && !Function->GetReturnProperty()
			&& !Function->HasMetaData(FBlueprintMetadata::MD_Latent);
	}
	return IsOfClassNamed(*Input.GetOwningNode(), TEXT("K2Node_BaseMCDelegate"));
}

/** What speaks against a link whatever the types are. */
FString ReasonAgainstPin(const UEdGraphPin& Pin)
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

FString ReasonAgainstPlace(const UEdGraphPin& A, const UEdGraphPin& B)
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

FString ReasonOfNodes(const UEdGraphPin& A, const UEdGraphPin& B)
{
	FString Reason;
	const UK2Node* const NodeA = Cast<UK2Node>(A.GetOwningNode());
	if (NodeA && NodeA->IsConnectionDisallowed(&A, &B, Reason))
	{
		return Reason.IsEmpty() ? FString(TEXT("The node refuses this connection")) : Reason;
	}
	const UK2Node* const NodeB = Cast<UK2Node>(B.GetOwningNode());
	if (NodeB && NodeB->IsConnectionDisallowed(&B, &A, Reason))
	{
		return Reason.IsEmpty() ? FString(TEXT("The node refuses this connection")) : Reason;
	}
	return FString();
}

/** The class that self means in the graph of the two. */
const UClass* ContextOf(const UEdGraphPin& Pin)
{
	const UK2Node* const Node = Cast<UK2Node>(Pin.GetOwningNode());
	return Node ? Node->GetBlueprintClassFromNode() : nullptr;
}

/** Execution runs through a reroute as values do. */
bool IsExecThroughReroute(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const auto Opens = [](const UEdGraphPin& Exec, const UEdGraphPin& Open)
	{ return FSchema::IsExecPin(Exec) && Open.PinType.PinCategory == FSchema::PC_Wildcard && IsReroute(Open); };
	return Opens(Output, Input) || Opens(Input, Output);
}

/** A reroute that nothing is linked to yet can become the container that its target asks for. */
bool IsContainerFromReroute(const UEdGraphPin& Output)
{
	return Output.PinType.PinCategory == FSchema::PC_Wildcard && IsReroute(Output);
}

FPinConnectionResponse RespondToFitting(const UEdGraphPin& A, const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const bool bExec = FSchema::IsExecPin(Output) || FSchema::IsExecPin(Input);
	const bool bAlreadyLinked = Output.LinkedTo.Contains(const_cast<UEdGraphPin*>(&Input));
	const bool bBreakOutput = bExec && !Output.LinkedTo.IsEmpty() && !bAlreadyLinked;
	const bool bBreakInput = !bExec && !Input.LinkedTo.IsEmpty() && !bAlreadyLinked && !TakesSeveralTargets(Input);
	if (bBreakOutput && bBreakInput)
	{
		return FPinConnectionResponse(
			CONNECT_RESPONSE_BREAK_OTHERS_AB, TEXT("Replaces what both pins are connected to"));
	}
	if (bBreakOutput)
	{
		return FPinConnectionResponse(&A == &Output ? CONNECT_RESPONSE_BREAK_OTHERS_A : CONNECT_RESPONSE_BREAK_OTHERS_B,
			TEXT("Replaces what the output is connected to"));
	}
	if (bBreakInput)
	{
		return FPinConnectionResponse(&A == &Input ? CONNECT_RESPONSE_BREAK_OTHERS_A : CONNECT_RESPONSE_BREAK_OTHERS_B,
			TEXT("Replaces what the input is connected to"));
	}
	return FPinConnectionResponse(CONNECT_RESPONSE_MAKE, TEXT(""));
}

/** Rank of a number among those that widen into one another; none for other types. */
int32 NumericRank(const FEdGraphPinType& Type)
{
	const FName Ranks[] = {FSchema::PC_Byte, FSchema::PC_Int, FSchema::PC_Int64, FSchema::PC_Real};
	if (Type.IsContainer() || Type.PinSubCategoryObject.IsValid())
	{
		return INDEX_NONE;
	}
	for (int32 Rank = 0; Rank < 4; ++Rank)
	{
		if (Type.PinCategory == Ranks[Rank])
		{
			return Rank;
		}
	}
	return INDEX_NONE;
}

/** Whether the operator has an overload of a struct and a number ("Multiply_VectorFloat"). */
bool HasMixedOverload(const UK2Node_PromotableOperator& Operator, const FEdGraphPinType& A, const FEdGraphPinType& B)
{
	const FEdGraphPinType& StructType = A.PinCategory == FSchema::PC_Struct ? A : B;
	const FEdGraphPinType& Number = A.PinCategory == FSchema::PC_Struct ? B : A;
	const UObject* const Struct = StructType.PinSubCategoryObject.Get();
	if (!Struct || StructType.IsContainer() || NumericRank(Number) == INDEX_NONE)
	{
		return false;
	}
	const UClass* const Library = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"));
	const FString Name = Operator.GetOperationName().ToString() + TEXT("_") + Struct->GetName();
	return Library
		&& (Library->FindFunctionByName(FName(Name + TEXT("Float")))
			|| Library->FindFunctionByName(FName(Name + TEXT("Int"))));
}

/** Whether an overload takes what is linked to the operator, with the new value in the place of the operand. */
bool TakesOperands(const UFunction& Overload, const UK2Node_PromotableOperator& Operator, const UEdGraphPin& Output,
	const UEdGraphPin& Operand)
{
	int32 Place = 0;
	for (const UEdGraphPin* const Pin : Operator.GetInputPins())
	{
		// Further operands join the result of the first two, so they are of the second one's type.
		const FEdGraphPinType Param = FTypePromotion::GetParamType(Overload, FMath::Min(Place++, 1));
		const UEdGraphPin* const Source = Pin == &Operand ? &Output
			: Pin->LinkedTo.IsEmpty()					  ? nullptr
														  : Pin->LinkedTo[0];
		if (Source && Source->PinType.PinCategory != FSchema::PC_Wildcard
			&& !GetDefault<FSchema>()->ArePinTypesCompatible(Source->PinType, Param)
			&& !FTypePromotion::IsValidPromotion(Source->PinType, Param))
		{
			return false;
		}
	}
	return true;
}

/** Whether the operand can take the other type by the operator choosing another overload. */
bool CanPromote(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const UK2Node_PromotableOperator* const Operator = Cast<UK2Node_PromotableOperator>(Input.GetOwningNode());
	if (!Operator || Operator->FindTolerancePin() == &Input)
	{
		return false;
	}
	for (const UFunction* const Overload : FTypePromotion::GetAllFuncsForOp(Operator->GetOperationName()))
	{
		if (TakesOperands(*Overload, *Operator, Output, Input))
		{
			return true;
		}
	}
	return false;
}

FString TypeName(const UEdGraphPin& Pin)
{
	return FSchema::TypeToText(Pin.PinType).ToString();
}

FPinConnectionResponse RespondToClash(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	const FEdGraphPinType& Out = Output.PinType;
	const FEdGraphPinType& In = Input.PinType;
	if (Out.PinCategory == FSchema::PC_Delegate && In.PinCategory == FSchema::PC_Delegate)
	{
		return Refuse(FString::Printf(
			TEXT("The signature of '%s' is not compatible with that of '%s'"), *NameOf(Output), *NameOf(Input)));
	}
	if (Out.PinCategory == FSchema::PC_Interface && In.PinCategory == FSchema::PC_Interface)
	{
		return Refuse(FString::Printf(
			TEXT("%s is not compatible with %s (one does not extend the other)"), *TypeName(Output), *TypeName(Input)));
	}
	if (Out.PinCategory == FSchema::PC_Object && In.PinCategory == FSchema::PC_Interface)
	{
		return Refuse(FString::Printf(TEXT("%s is not compatible with %s (the class does not implement it)"),
			*TypeName(Output), *TypeName(Input)));
	}
	return Refuse(FString::Printf(TEXT("%s is not compatible with %s"), *TypeName(Output), *TypeName(Input)));
}

/** A value that may only be read cannot be handed to somebody who writes through it. */
bool LosesConst(const UEdGraphPin& Output, const UEdGraphPin& Input)
{
	return Output.PinType.bIsConst && Output.PinType.bIsReference && Input.PinType.bIsReference
		&& !Input.PinType.bIsConst;
}

void MarkBlueprintModified(const UEdGraphNode& Node)
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
	const FString Place = ReasonAgainstPlace(*PinA, *PinB);
	if (!Place.IsEmpty())
	{
		return Refuse(Place);
	}
	const FString Objection = ReasonOfNodes(*PinA, *PinB);
	if (!Objection.IsEmpty())
	{
		return Refuse(Objection);
	}
	const UEdGraphPin* Input = nullptr;
	const UEdGraphPin* Output = nullptr;
	CategorizePinsByDirection(PinA, PinB, Input, Output);
	if (LosesConst(*Output, *Input))
	{
		return Refuse(FString::Printf(TEXT("'%s' is read-only and cannot be passed to '%s', which changes it"),
			*NameOf(*Output), *NameOf(*Input)));
	}
	const UClass* const Context = ContextOf(*Output);
	const bool bSeveralTargets = Output->PinType.IsArray() && !Input->PinType.IsContainer()
		&& TakesSeveralTargets(*Input);
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
	BreakPinLinks(*Input, true);
	Operator->ConvertPinType(Input, Output->PinType);
	Input->MakeLinkTo(Output);
	return true;
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
