// The graphs of animation Blueprints and the rules that each kind has.

#include "Animation/AnimNodeBase.h"
#include "AnimationGraph.h"
#include "AnimationGraphSchema.h"
#include "AnimationStateGraph.h"
#include "AnimationStateMachineGraph.h"
#include "AnimationStateMachineSchema.h"
#include "AnimationTransitionGraph.h"
#include "AnimGraphNode_BlendListByEnum.h"
#include "AnimGraphNode_LinkedAnimGraphBase.h"
#include "AnimGraphNode_LinkedInputPose.h"
#include "AnimGraphNode_LocalToComponentSpace.h"
#include "AnimGraphNode_MeshRefPose.h"
#include "AnimGraphNode_ModifyCurve.h"
#include "AnimGraphNode_MultiWayBlend.h"
#include "AnimGraphNode_Root.h"
#include "AnimGraphNode_SaveCachedPose.h"
#include "AnimGraphNode_SkeletalControlBase.h"
#include "AnimGraphNode_StateMachine.h"
#include "AnimGraphNode_UseCachedPose.h"
#include "AnimStateAliasNode.h"
#include "AnimStateConduitNode.h"
#include "AnimStateEntryNode.h"
#include "AnimStateNode.h"
#include "AnimStateTransitionNode.h"
#include "K2Node_AnimGetter.h"
#include "K2Node_PropertyAccess.h"
#include "K2Node_TransitionRuleGetter.h"
#include "Standalone/AnimGraphClasses.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UAnimationGraph, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimationStateGraph, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimationTransitionGraph, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimationStateMachineGraph, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimationGraphSchema, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimationStateGraphSchema, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimationTransitionSchema, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimationStateMachineSchema, "/Script/AnimGraph", CLASS_None)

void UAnimationGraph::DescribeClass(FClassDescriber&) {}
void UAnimationStateGraph::DescribeClass(FClassDescriber&) {}
void UAnimationTransitionGraph::DescribeClass(FClassDescriber&) {}
void UAnimationGraphSchema::DescribeClass(FClassDescriber&) {}
void UAnimationStateGraphSchema::DescribeClass(FClassDescriber&) {}
void UAnimationTransitionSchema::DescribeClass(FClassDescriber&) {}
void UAnimationStateMachineSchema::DescribeClass(FClassDescriber&) {}

void UAnimationStateMachineGraph::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("EntryNode"), &UAnimationStateMachineGraph::EntryNode);
	Class.Property(TEXT("OwnerAnimGraphNode"), &UAnimationStateMachineGraph::OwnerAnimGraphNode);
}

namespace AnimationGraphs
{
template <class T>
T* CreateDefaultNode(UEdGraph& Graph)
{
	FGraphNodeCreator<T> Creator(Graph);
	T* const Node = Creator.CreateNode();
	Creator.Finalize();
	return Node;
}
} // namespace AnimationGraphs

UScriptStruct* UAnimationGraphSchema::GetPoseLinkStruct()
{
	return FPoseLink::StaticStruct();
}

bool UAnimationGraphSchema::IsPosePin(const FEdGraphPinType& PinType)
{
	const UObject* const Struct = PinType.PinSubCategoryObject.Get();
	return PinType.PinCategory == PC_Struct && Struct
		&& (Struct == GetPoseLinkStruct() || Struct == FComponentSpacePoseLink::StaticStruct());
}

const FPinConnectionResponse UAnimationGraphSchema::CanCreateConnection(
	const UEdGraphPin* A, const UEdGraphPin* B) const
{
	const FPinConnectionResponse Response = Super::CanCreateConnection(A, B);
	const bool bPlainLink = Response.Response != CONNECT_RESPONSE_DISALLOW
		&& Response.Response != CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE
		&& Response.Response != CONNECT_RESPONSE_MAKE_WITH_PROMOTION;
	if (!bPlainLink || !IsPosePin(A->PinType) || A->LinkedTo.Contains(const_cast<UEdGraphPin*>(B)))
	{
		return Response;
	}
	// Poses run in a tree: who makes one hands it to a single taker, as it is evaluated on that one's behalf.
	return A->LinkedTo.IsEmpty() && B->LinkedTo.IsEmpty()
		? Response
		: FPinConnectionResponse(CONNECT_RESPONSE_BREAK_OTHERS_AB, TEXT("Replaces the pose links of both pins"));
}

void UAnimationGraphSchema::CreateDefaultNodesForGraph(UEdGraph& Graph) const
{
	AnimationGraphs::CreateDefaultNode<UAnimGraphNode_Root>(Graph);
}

void UAnimationStateGraphSchema::CreateDefaultNodesForGraph(UEdGraph& Graph) const
{
	AnimationGraphs::CreateDefaultNode<UAnimGraphNode_StateResult>(Graph);
}

void UAnimationTransitionSchema::CreateDefaultNodesForGraph(UEdGraph& Graph) const
{
	AnimationGraphs::CreateDefaultNode<UAnimGraphNode_TransitionResult>(Graph);
}

void UAnimationStateMachineSchema::CreateDefaultNodesForGraph(UEdGraph& Graph) const
{
	UAnimStateEntryNode* const Entry = AnimationGraphs::CreateDefaultNode<UAnimStateEntryNode>(Graph);
	if (UAnimationStateMachineGraph* const Machine = Cast<UAnimationStateMachineGraph>(&Graph))
	{
		Machine->EntryNode = Entry;
	}
}

const FPinConnectionResponse UAnimationStateMachineSchema::CanCreateConnection(
	const UEdGraphPin* A, const UEdGraphPin* B) const
{
	const UEdGraphNode* const NodeA = A->GetOwningNode();
	const UEdGraphNode* const NodeB = B->GetOwningNode();
	if (NodeA == NodeB)
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("Both are on the same node"));
	}
	if (A->Direction == B->Direction)
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW,
			A->Direction == EGPD_Input ? TEXT("Input is not compatible with another input")
									   : TEXT("Output is not compatible with another output"));
	}
	if (NodeA->IsA<UAnimStateEntryNode>() || NodeB->IsA<UAnimStateEntryNode>())
	{
		const bool bEntryIsA = NodeA->IsA<UAnimStateEntryNode>();
		const UEdGraphNode* const Other = bEntryIsA ? NodeB : NodeA;
		if (!Other->IsA<UAnimStateNodeBase>() || Other->IsA<UAnimStateTransitionNode>())
		{
			return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("Entry must connect to a state node"));
		}
		return FPinConnectionResponse(
			bEntryIsA ? CONNECT_RESPONSE_BREAK_OTHERS_A : CONNECT_RESPONSE_BREAK_OTHERS_B, TEXT(""));
	}
	if (NodeA->IsA<UAnimStateTransitionNode>() || NodeB->IsA<UAnimStateTransitionNode>())
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_DISALLOW, TEXT("Cannot wire directly to a transition node"));
	}
	return FPinConnectionResponse(CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE, TEXT("Create a transition"));
}

bool UAnimationStateMachineSchema::TryCreateConnection(UEdGraphPin* A, UEdGraphPin* B) const
{
	if (A->Direction == EGPD_Input)
	{
		return Super::TryCreateConnection(B, A);
	}
	return Super::TryCreateConnection(A, B);
}

bool UAnimationStateMachineSchema::CreateAutomaticConversionNodeAndConnections(UEdGraphPin* A, UEdGraphPin* B) const
{
	UAnimStateNodeBase* const From = Cast<UAnimStateNodeBase>(A->GetOwningNode());
	UAnimStateNodeBase* const To = Cast<UAnimStateNodeBase>(B->GetOwningNode());
	if (!From || !To || !From->GetOutputPin() || !To->GetInputPin())
	{
		return false;
	}
	FGraphNodeCreator<UAnimStateTransitionNode> Creator(*From->GetGraph());
	UAnimStateTransitionNode* const Transition = Creator.CreateNode();
	Transition->NodePosX = (From->NodePosX + To->NodePosX) / 2;
	Transition->NodePosY = (From->NodePosY + To->NodePosY) / 2;
	Creator.Finalize();
	Transition->CreateConnections(From, To);
	return true;
}

void RegisterAnimGraphClasses()
{
	NativeClass::RegisterNativeClasses({&UAnimationGraph::StaticClass, &UAnimationStateGraph::StaticClass,
		&UAnimationTransitionGraph::StaticClass, &UAnimationStateMachineGraph::StaticClass,
		&UAnimationGraphSchema::StaticClass, &UAnimationStateGraphSchema::StaticClass,
		&UAnimationTransitionSchema::StaticClass, &UAnimationStateMachineSchema::StaticClass,
		&UAnimStateNodeBase::StaticClass, &UAnimStateNode::StaticClass, &UAnimStateConduitNode::StaticClass,
		&UAnimStateAliasNode::StaticClass, &UAnimStateTransitionNode::StaticClass, &UAnimStateEntryNode::StaticClass,
		&UAnimGraphNode_Base::StaticClass, &UAnimGraphNode_Root::StaticClass, &UAnimGraphNode_StateResult::StaticClass,
		&UAnimGraphNode_TransitionResult::StaticClass, &UAnimGraphNode_StateMachineBase::StaticClass,
		&UAnimGraphNode_StateMachine::StaticClass, &UAnimGraphNode_SkeletalControlBase::StaticClass,
		&UAnimGraphNode_LocalToComponentSpace::StaticClass, &UAnimGraphNode_MeshRefPose::StaticClass,
		&UAnimGraphNode_BlendListBase::StaticClass, &UAnimGraphNode_BlendListByBool::StaticClass,
		&UAnimGraphNode_BlendListByInt::StaticClass, &UAnimGraphNode_BlendListByEnum::StaticClass,
		&UAnimGraphNode_MultiWayBlend::StaticClass, &UAnimGraphNode_ModifyCurve::StaticClass,
		&UAnimGraphNode_SaveCachedPose::StaticClass, &UAnimGraphNode_UseCachedPose::StaticClass,
		&UAnimGraphNode_LinkedInputPose::StaticClass, &UAnimGraphNode_CustomProperty::StaticClass,
		&UAnimGraphNode_LinkedAnimGraphBase::StaticClass, &UAnimGraphNode_LinkedAnimGraph::StaticClass,
		&UAnimGraphNode_LinkedAnimLayer::StaticClass, &UK2Node_AnimGetter::StaticClass,
		&UK2Node_TransitionRuleGetter::StaticClass, &UK2Node_PropertyAccess::StaticClass});
	// By name too, for pins in text.
	FPoseLink::StaticStruct();
	FComponentSpacePoseLink::StaticStruct();
}
