#include "AnimationStateMachineGraph.h"
#include "AnimGraphNode_Root.h"
#include "AnimGraphNode_StateMachine.h"

#include "AnimationStateMachineSchema.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_Root, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_StateResult, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_TransitionResult, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_StateMachineBase, "/Script/AnimGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_StateMachine, "/Script/AnimGraph", CLASS_None)

void UAnimGraphNode_Root::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_StateResult::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_TransitionResult::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_StateMachine::DescribeClass(FClassDescriber&) {}

void UAnimGraphNode_StateMachineBase::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("EditorStateMachineGraph"), &UAnimGraphNode_StateMachineBase::EditorStateMachineGraph);
}

FText UAnimGraphNode_Root::GetTooltipText() const
{
	return FText::FromString(TEXT("The pose that the graph gives out"));
}

FText UAnimGraphNode_StateResult::GetTooltipText() const
{
	return FText::FromString(TEXT("The pose that the state gives out"));
}

FText UAnimGraphNode_TransitionResult::GetTooltipText() const
{
	return FText::FromString(TEXT("Whether the transition may be taken"));
}

FString UAnimGraphNode_StateMachineBase::GetNodeCategory() const
{
	return TEXT("Animation|State Machines");
}

FString UAnimGraphNode_StateMachineBase::GetStateMachineName() const
{
	return EditorStateMachineGraph ? EditorStateMachineGraph->GetName() : FString(TEXT("(null)"));
}

TArray<UEdGraph*> UAnimGraphNode_StateMachineBase::GetSubGraphs() const
{
	return EditorStateMachineGraph ? TArray<UEdGraph*>{EditorStateMachineGraph.Get()} : TArray<UEdGraph*>{};
}

void UAnimGraphNode_StateMachineBase::PostPlacedNewNode()
{
	if (EditorStateMachineGraph)
	{
		return;
	}
	UEdGraph* const Owner = GetGraph();
	FName Name(TEXT("New State Machine"));
	for (int32 Number = 0; Owner
		 && Owner->SubGraphs.ContainsByPredicate(
			 [Name](const TObjectPtr<UEdGraph>& Other) { return Other && Other->GetFName() == Name; });
		 ++Number)
	{
		Name = FName(FString::Printf(TEXT("New State Machine_%d"), Number));
	}
	EditorStateMachineGraph = NewObject<UAnimationStateMachineGraph>(this, Name, RF_Transactional);
	EditorStateMachineGraph->Schema = UAnimationStateMachineSchema::StaticClass();
	EditorStateMachineGraph->GraphGuid = FGuid::NewGuid();
	EditorStateMachineGraph->OwnerAnimGraphNode = this;
	if (Owner)
	{
		Owner->SubGraphs.Add(EditorStateMachineGraph.Get());
	}
	EditorStateMachineGraph->GetSchema()->CreateDefaultNodesForGraph(*EditorStateMachineGraph);
}

void UAnimGraphNode_StateMachineBase::OnRenameNode(const FString& NewName)
{
	if (EditorStateMachineGraph)
	{
		EditorStateMachineGraph->Rename(*NewName);
	}
}

void UAnimGraphNode_StateMachineBase::DestroyNode()
{
	if (UEdGraph* const Machine = EditorStateMachineGraph)
	{
		EditorStateMachineGraph = nullptr;
		if (UEdGraph* const Owner = GetGraph())
		{
			Owner->SubGraphs.Remove(Machine);
		}
		Machine->MarkAsGarbage();
	}
	Super::DestroyNode();
}

FText UAnimGraphNode_StateMachineBase::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const bool bInList = TitleType == ENodeTitleType::MenuTitle || TitleType == ENodeTitleType::ListView;
	if (!EditorStateMachineGraph && bInList)
	{
		return FText::FromString(TEXT("Add New State Machine..."));
	}
	const FString Name = EditorStateMachineGraph ? GetStateMachineName() : FString(TEXT("Error: No Graph"));
	return FText::FromString(TitleType == ENodeTitleType::FullTitle ? Name + TEXT("\nState Machine") : Name);
}

FText UAnimGraphNode_StateMachineBase::GetTooltipText() const
{
	return FText::FromString(TEXT("Animation State Machine"));
}
