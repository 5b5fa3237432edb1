#include "AnimStateAliasNode.h"
#include "AnimStateConduitNode.h"
#include "AnimStateEntryNode.h"
#include "AnimStateNode.h"
#include "AnimStateTransitionNode.h"

#include "AnimationGraphSchema.h"
#include "AnimationStateGraph.h"
#include "AnimationStateMachineSchema.h"
#include "AnimationTransitionGraph.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UAnimStateNodeBase, "/Script/AnimGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UAnimStateNode, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimStateConduitNode, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimStateAliasNode, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimStateTransitionNode, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimStateEntryNode, "/Script/AnimGraph", CLASS_None)

namespace AnimStateNodes
{
const FName TransitionCategory(TEXT("Transition"));

static void CreateStatePins(UEdGraphNode& Node)
{
	Node.CreatePin(EGPD_Input, TransitionCategory, TEXT("In"));
	Node.CreatePin(EGPD_Output, TransitionCategory, TEXT("Out"));
}

static FString NameOf(const UEdGraph* Graph)
{
	return Graph ? Graph->GetName() : FString(TEXT("(null)"));
}
} // namespace AnimStateNodes

void UAnimStateNodeBase::DescribeClass(FClassDescriber&) {}

void UAnimStateNode::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("BoundGraph"), &UAnimStateNode::BoundGraph);
	Class.Property(TEXT("bAlwaysResetOnEntry"), &UAnimStateNode::bAlwaysResetOnEntry, CPF_Edit);
}

void UAnimStateConduitNode::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("BoundGraph"), &UAnimStateConduitNode::BoundGraph);
}

void UAnimStateAliasNode::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bGlobalAlias"), &UAnimStateAliasNode::bGlobalAlias, CPF_Edit);
	Class.Property(TEXT("StateAliasName"), &UAnimStateAliasNode::StateAliasName, CPF_Edit);
	Class.Property(TEXT("AliasedStateNodes"), &UAnimStateAliasNode::AliasedStateNodes);
}

void UAnimStateTransitionNode::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("BoundGraph"), &UAnimStateTransitionNode::BoundGraph);
	Class.Property(TEXT("PriorityOrder"), &UAnimStateTransitionNode::PriorityOrder, CPF_Edit);
	Class.Property(TEXT("CrossfadeDuration"), &UAnimStateTransitionNode::CrossfadeDuration, CPF_Edit);
	Class.Property(TEXT("Bidirectional"), &UAnimStateTransitionNode::Bidirectional, CPF_Edit);
	Class.Property(TEXT("bAutomaticRuleBasedOnSequencePlayerInState"),
		&UAnimStateTransitionNode::bAutomaticRuleBasedOnSequencePlayerInState, CPF_Edit);
}

void UAnimStateEntryNode::DescribeClass(FClassDescriber&) {}

void UAnimStateNodeBase::GetTransitionList(TArray<UAnimStateTransitionNode*>& OutTransitions) const
{
	for (const UEdGraphPin* const Pin : Pins)
	{
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			if (UAnimStateTransitionNode* const Transition = Cast<UAnimStateTransitionNode>(Linked->GetOwningNode()))
			{
				OutTransitions.AddUnique(Transition);
			}
		}
	}
}

TArray<UEdGraph*> UAnimStateNodeBase::GetSubGraphs() const
{
	UEdGraph* const Graph = GetBoundGraph();
	return Graph ? TArray<UEdGraph*>{Graph} : TArray<UEdGraph*>{};
}

FText UAnimStateNodeBase::GetNodeTitle(ENodeTitleType::Type) const
{
	return FText::FromString(GetStateName());
}

bool UAnimStateNodeBase::CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const
{
	return Schema && Schema->IsA<UAnimationStateMachineSchema>();
}

void UAnimStateNodeBase::OnRenameNode(const FString& NewName)
{
	if (UEdGraph* const Graph = GetBoundGraph())
	{
		Graph->Rename(*NewName);
	}
}

void UAnimStateNodeBase::DestroyNode()
{
	// A way from or to a state that is gone leads nowhere.
	TArray<UAnimStateTransitionNode*> Transitions;
	GetTransitionList(Transitions);
	for (UAnimStateTransitionNode* const Transition : Transitions)
	{
		Transition->DestroyNode();
	}
	UEdGraph* const Graph = GetBoundGraph();
	ClearBoundGraph();
	if (Graph)
	{
		if (UEdGraph* const Machine = GetGraph())
		{
			Machine->SubGraphs.Remove(Graph);
		}
		Graph->MarkAsGarbage();
	}
	Super::DestroyNode();
}

UEdGraph* UAnimStateNodeBase::MakeBoundGraph(const TCHAR* BaseName, UClass* GraphClass, UClass* SchemaClass)
{
	UEdGraph* const Machine = GetGraph();
	UObject* const Outer = this;
	// States of one machine have names of their own, so the name is looked for among the machine's graphs.
	FName Name(BaseName);
	for (int32 Number = 0; Machine
		 && Machine->SubGraphs.ContainsByPredicate(
			 [Name](const TObjectPtr<UEdGraph>& Other) { return Other && Other->GetFName() == Name; });
		 ++Number)
	{
		Name = FName(FString::Printf(TEXT("%s_%d"), BaseName, Number));
	}
	UEdGraph* const Graph = NewObject<UEdGraph>(Outer, GraphClass, Name, RF_Transactional);
	Graph->Schema = SchemaClass;
	Graph->GraphGuid = FGuid::NewGuid();
	if (Machine)
	{
		Machine->SubGraphs.Add(Graph);
	}
	Graph->GetSchema()->CreateDefaultNodesForGraph(*Graph);
	return Graph;
}

FString UAnimStateNode::GetStateName() const
{
	return AnimStateNodes::NameOf(BoundGraph);
}

void UAnimStateNode::AllocateDefaultPins()
{
	AnimStateNodes::CreateStatePins(*this);
}

void UAnimStateNode::PostPlacedNewNode()
{
	BoundGraph = MakeBoundGraph(
		TEXT("State"), UAnimationStateGraph::StaticClass(), UAnimationStateGraphSchema::StaticClass());
}

FText UAnimStateNode::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("%s (state)"), *GetStateName()));
}

FString UAnimStateConduitNode::GetStateName() const
{
	return AnimStateNodes::NameOf(BoundGraph);
}

void UAnimStateConduitNode::AllocateDefaultPins()
{
	AnimStateNodes::CreateStatePins(*this);
}

void UAnimStateConduitNode::PostPlacedNewNode()
{
	BoundGraph = MakeBoundGraph(
		TEXT("Conduit"), UAnimationTransitionGraph::StaticClass(), UAnimationTransitionSchema::StaticClass());
}

FText UAnimStateConduitNode::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("%s (conduit)"), *GetStateName()));
}

void UAnimStateAliasNode::AllocateDefaultPins()
{
	AnimStateNodes::CreateStatePins(*this);
}

void UAnimStateAliasNode::PostPlacedNewNode()
{
	if (StateAliasName.IsEmpty())
	{
		StateAliasName = TEXT("Alias");
	}
}

FText UAnimStateAliasNode::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("%s (alias)"), *GetStateName()));
}

FString UAnimStateTransitionNode::GetStateName() const
{
	return AnimStateNodes::NameOf(BoundGraph);
}

namespace AnimStateNodes
{
static UAnimStateNodeBase* LinkedState(const UEdGraphPin* Pin)
{
	return Pin && !Pin->LinkedTo.IsEmpty() ? Cast<UAnimStateNodeBase>(Pin->LinkedTo[0]->GetOwningNode()) : nullptr;
}
} // namespace AnimStateNodes

UAnimStateNodeBase* UAnimStateTransitionNode::GetPreviousState() const
{
	return AnimStateNodes::LinkedState(GetInputPin());
}

UAnimStateNodeBase* UAnimStateTransitionNode::GetNextState() const
{
	return AnimStateNodes::LinkedState(GetOutputPin());
}

void UAnimStateTransitionNode::CreateConnections(UAnimStateNodeBase* PreviousState, UAnimStateNodeBase* NextState)
{
	GetInputPin()->BreakAllPinLinks();
	GetInputPin()->MakeLinkTo(PreviousState->GetOutputPin());
	GetOutputPin()->BreakAllPinLinks();
	GetOutputPin()->MakeLinkTo(NextState->GetInputPin());
}

void UAnimStateTransitionNode::PinConnectionListChanged(UEdGraphPin* Pin)
{
	UEdGraph* const Machine = GetGraph();
	if (Pin && Pin->LinkedTo.IsEmpty() && Machine && Machine->Nodes.Contains(this))
	{
		// A transition has two ends or is none.
		Modify();
		DestroyNode();
	}
}

void UAnimStateTransitionNode::AllocateDefaultPins()
{
	AnimStateNodes::CreateStatePins(*this);
	for (UEdGraphPin* const Pin : Pins)
	{
		Pin->bHidden = true;
	}
}

void UAnimStateTransitionNode::PostPlacedNewNode()
{
	BoundGraph = MakeBoundGraph(
		TEXT("Transition"), UAnimationTransitionGraph::StaticClass(), UAnimationTransitionSchema::StaticClass());
}

FText UAnimStateTransitionNode::GetNodeTitle(ENodeTitleType::Type) const
{
	const UAnimStateNodeBase* const From = GetPreviousState();
	const UAnimStateNodeBase* const To = GetNextState();
	if (!From || !To)
	{
		return FText::FromString(TEXT("Trans ") + GetStateName());
	}
	return FText::FromString(FString::Printf(TEXT("%s to %s"), *From->GetStateName(), *To->GetStateName()));
}

FText UAnimStateTransitionNode::GetTooltipText() const
{
	return FText::FromString(TEXT("This is a state transition"));
}

UEdGraphNode* UAnimStateEntryNode::GetOutputNode() const
{
	return !Pins.IsEmpty() && !Pins[0]->LinkedTo.IsEmpty() ? Pins[0]->LinkedTo[0]->GetOwningNode() : nullptr;
}

void UAnimStateEntryNode::AllocateDefaultPins()
{
	CreatePin(EGPD_Output, TEXT("exec"), TEXT("Entry"));
}

FText UAnimStateEntryNode::GetNodeTitle(ENodeTitleType::Type) const
{
	const UEdGraph* const Graph = GetGraph();
	return FText::FromString(Graph ? Graph->GetName() : FString(TEXT("Entry")));
}

FText UAnimStateEntryNode::GetTooltipText() const
{
	return FText::FromString(TEXT("Entry point for state machine"));
}
