// One node or one pin as the JSON that agents read: the leaf of every read that shows nodes.

#include "BlueprintReadUtils.h"

#include "AnimGraphNode_StateMachine.h"
#include "AnimStateAliasNode.h"
#include "AnimStateConduitNode.h"
#include "AnimStateNode.h"
#include "AnimStateTransitionNode.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphNode_Comment.h"
#include "K2Node_CallFunction.h"
#include "K2Node_Composite.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Knot.h"
#include "K2Node_Literal.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Utils/Read/NodeFacts.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Read/ReadPins.h"
#include "Utils/Read/ReadUnresolved.h"

namespace ReadNode
{
/** What a node's own JSON needs to reach nested graphs. */
struct FContext
{
	const TSharedPtr<FJsonObject>& Command;
	int32 Depth;
	TSet<const UEdGraph*>& Visited;

	bool IsLean() const { return Command && ReadDetail::IsLean(*Command); }
};

static void SetMember(
	FJsonObject& Properties, const TCHAR* NameKey, FName Name, const TCHAR* ClassKey, const UClass* Parent)
{
	Properties.SetStringField(NameKey, Name.ToString());
	if (Parent)
	{
		Properties.SetStringField(ClassKey, Parent->GetName());
	}
}

static void SetVariable(FJsonObject& Properties, const UK2Node_Variable& Node)
{
	SetMember(Properties, TEXT("variable_name"), Node.VariableReference.GetMemberName(), TEXT("variable_scope"),
		Node.VariableReference.GetMemberParentClass());
}

static void SetCall(FJsonObject& Properties, const UK2Node_CallFunction& Node)
{
	SetMember(Properties, TEXT("function_name"), Node.GetFunctionName(), TEXT("function_class"),
		Node.FunctionReference.GetMemberParentClass());
	Properties.SetBoolField(TEXT("is_pure"), Node.IsNodePure());
}

static void SetEvent(FJsonObject& Properties, const UK2Node_Event& Node)
{
	Properties.SetStringField(TEXT("node_title"), Node.GetNodeTitle(ENodeTitleType::MenuTitle).ToString());
	if (const UClass* const Parent = Node.EventReference.GetMemberParentClass())
	{
		Properties.SetStringField(TEXT("event_class"), Parent->GetName());
	}
}

/** The head of objects that stand for a node of a state machine. */
static void SetHead(FJsonObject& Object, const UEdGraphNode& Node)
{
	Object.SetStringField(TEXT("class_name"), Node.GetClass()->GetName());
	Object.SetStringField(TEXT("node_guid"), FBlueprintNodeUtils::GetShortNodeId(&Node));
	Object.SetNumberField(TEXT("pos_x"), Node.NodePosX);
	Object.SetNumberField(TEXT("pos_y"), Node.NodePosY);
}

static void SetBoundGraph(FJsonObject& Object, const UEdGraph* BoundGraph, const FContext& Context)
{
	if (!BoundGraph)
	{
		return;
	}
	const TSharedPtr<FJsonObject> Graph = FBlueprintReadUtils::ReadEdGraph(
		BoundGraph, Context.Command, Context.Depth + 1, Context.Visited);
	Object.SetStringField(TEXT("bound_graph_name"), BoundGraph->GetName());
	if (Context.IsLean())
	{
		Graph->RemoveField(TEXT("name"));
		Object.SetObjectField(TEXT("bound_graph"), Graph);
		return;
	}
	Object.SetStringField(TEXT("bound_graph_class"), BoundGraph->GetClass()->GetName());
	Object.SetObjectField(TEXT("bound_graph"), Graph);
	Object.SetNumberField(TEXT("bound_graph_depth"), Context.Depth + 1);
}

static void SetAliasedStates(FJsonObject& Object, const UAnimStateAliasNode& Alias)
{
	if (Alias.GetAliasedStates().IsEmpty())
	{
		return;
	}
	TArray<TSharedPtr<FJsonValue>> States;
	for (const TWeakObjectPtr<UAnimStateNodeBase>& Weak : Alias.GetAliasedStates())
	{
		if (const UAnimStateNodeBase* const State = Weak.Get())
		{
			const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
			Entry->SetStringField(TEXT("state_name"), State->GetStateName());
			Entry->SetStringField(TEXT("state_guid"), FBlueprintNodeUtils::GetShortNodeId(State));
			Entry->SetStringField(TEXT("state_class"), State->GetClass()->GetName());
			States.Add(MakeShared<FJsonValueObject>(Entry));
		}
	}
	Object.SetArrayField(TEXT("aliased_states"), MoveTemp(States));
}

/** What the transition's own pins lead to: its inputs come from states, its outputs go to them. Duplicates stay. */
static void SetLinkedStates(FJsonObject& Object, const UAnimStateTransitionNode& Transition)
{
	TArray<TSharedPtr<FJsonValue>> From;
	TArray<TSharedPtr<FJsonValue>> To;
	for (const UEdGraphPin* const Pin : Transition.Pins)
	{
		for (const UEdGraphPin* const Linked : Pin ? Pin->LinkedTo : TArray<UEdGraphPin*>())
		{
			const UAnimStateNodeBase* const State = Linked ? Cast<UAnimStateNodeBase>(Linked->GetOwningNodeUnchecked())
														   : nullptr;
			if (State)
			{
				TArray<TSharedPtr<FJsonValue>>& List = Pin->Direction == EGPD_Input ? From : To;
				List.Add(MakeShared<FJsonValueString>(State->GetStateName()));
			}
		}
	}
	if (!From.IsEmpty())
	{
		Object.SetArrayField(TEXT("from_states"), MoveTemp(From));
	}
	if (!To.IsEmpty())
	{
		Object.SetArrayField(TEXT("to_states"), MoveTemp(To));
	}
}

static void SetTransition(FJsonObject& Object, const UAnimStateTransitionNode& Transition)
{
	Object.SetBoolField(TEXT("bidirectional"), Transition.Bidirectional);
	Object.SetNumberField(TEXT("priority_order"), Transition.PriorityOrder);
}

static TSharedPtr<FJsonObject> MakeNestedMachine(const UAnimGraphNode_StateMachine& Machine, const FContext& Context)
{
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("class_name"), Machine.GetClass()->GetName());
	Object->SetStringField(TEXT("state_machine_name"), Machine.GetNodeTitle(ENodeTitleType::FullTitle).ToString());
	Object->SetStringField(TEXT("node_guid"), FBlueprintNodeUtils::GetShortNodeId(&Machine));
	Object->SetNumberField(TEXT("pos_x"), Machine.NodePosX);
	Object->SetNumberField(TEXT("pos_y"), Machine.NodePosY);
	if (const UEdGraph* const Graph = Machine.EditorStateMachineGraph)
	{
		Object->SetStringField(TEXT("state_machine_graph_name"), Graph->GetName());
		Object->SetStringField(TEXT("state_machine_graph_path"), Graph->GetPathName());
		Object->SetObjectField(TEXT("nested_state_machine_graph"),
			FBlueprintReadUtils::ReadEdGraph(Graph, Context.Command, Context.Depth + 1, Context.Visited));
	}
	return Object;
}

/** What a state machine's graph holds, sorted into lists. */
struct FMachineContents
{
	TArray<TSharedPtr<FJsonValue>> States;
	TArray<TSharedPtr<FJsonValue>> Transitions;
	TArray<TSharedPtr<FJsonValue>> Composites;

	void Add(TArray<TSharedPtr<FJsonValue>>& List, const TSharedPtr<FJsonObject>& Object)
	{
		List.Add(MakeShared<FJsonValueObject>(Object));
	}
};

/** The machine's own graph shows the states with their graphs, once more in full and once at all in lean. */
static void SetGraphOfState(FJsonObject& Object, const UEdGraph* BoundGraph, const FContext& Context)
{
	if (!Context.IsLean())
	{
		SetBoundGraph(Object, BoundGraph, Context);
	}
}

static void AddToMachine(FMachineContents& Contents, const UEdGraphNode& Node,
	const UAnimGraphNode_StateMachine& Machine, const FContext& Context)
{
	if (const UAnimGraphNode_StateMachine* const Nested = Cast<UAnimGraphNode_StateMachine>(&Node))
	{
		Contents.Add(Contents.States, MakeNestedMachine(*Nested, Context));
		return;
	}
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	if (const UAnimStateNode* const State = Cast<UAnimStateNode>(&Node))
	{
		SetHead(*Object, Node);
		Object->SetStringField(TEXT("state_name"), State->GetStateName());
		SetGraphOfState(*Object, State->BoundGraph, Context);
		Contents.Add(Contents.States, Object);
	}
	else if (const UAnimStateConduitNode* const Conduit = Cast<UAnimStateConduitNode>(&Node))
	{
		SetHead(*Object, Node);
		SetGraphOfState(*Object, Conduit->BoundGraph, Context);
		Contents.Add(Contents.States, Object);
	}
	else if (const UAnimStateAliasNode* const Alias = Cast<UAnimStateAliasNode>(&Node))
	{
		SetHead(*Object, Node);
		SetAliasedStates(*Object, *Alias);
		Contents.Add(Contents.States, Object);
	}
	else if (const UAnimStateTransitionNode* const Transition = Cast<UAnimStateTransitionNode>(&Node))
	{
		SetHead(*Object, Node);
		SetTransition(*Object, *Transition);
		SetLinkedStates(*Object, *Transition);
		Contents.Add(Contents.Transitions, Object);
	}
	else if (const UEdGraphNode* const Tested = &Machine;
			 const UK2Node_Composite* const Composite = Cast<UK2Node_Composite>(Tested))
	{
		// The machine itself is tested, not the node of the walk, so this never holds and no composite is listed here:
		// a collapsed graph of a state machine shows through the machine's own graph, once.
		SetBoundGraph(*Object, Composite->BoundGraph, Context);
		Contents.Add(Contents.Composites, Object);
	}
}

static void SetStateMachine(
	FJsonObject& Properties, const UAnimGraphNode_StateMachine& Machine, const FContext& Context)
{
	const UEdGraph* const Graph = Machine.EditorStateMachineGraph;
	if (!Graph)
	{
		return;
	}
	Properties.SetStringField(TEXT("state_machine_graph"), Graph->GetName());
	Properties.SetStringField(TEXT("state_machine_graph_path"), Graph->GetPathName());
	FMachineContents Contents;
	for (const UEdGraphNode* const Node : Graph->Nodes)
	{
		if (Node)
		{
			AddToMachine(Contents, *Node, Machine, Context);
		}
	}
	const auto SetList = [&Properties](const TCHAR* Key, const TArray<TSharedPtr<FJsonValue>>& List)
	{
		if (!List.IsEmpty())
		{
			Properties.SetArrayField(Key, List);
		}
	};
	SetList(TEXT("states_info"), Contents.States);
	SetList(TEXT("transitions_info"), Contents.Transitions);
	SetList(TEXT("composites_info"), Contents.Composites);
	Properties.SetObjectField(TEXT("editor_state_machine_graph"),
		FBlueprintReadUtils::ReadEdGraph(Graph, Context.Command, Context.Depth + 1, Context.Visited));
}

static void SetInfo(FJsonObject& Properties, const TCHAR* Key, TFunctionRef<void(FJsonObject&)> Fill)
{
	const TSharedPtr<FJsonObject> Info = MakeShared<FJsonObject>();
	Fill(*Info);
	Properties.SetObjectField(Key, Info);
}

static void SetAnimationProperties(FJsonObject& Properties, const UEdGraphNode& Node, const FContext& Context)
{
	if (const UAnimGraphNode_StateMachine* const Machine = Cast<UAnimGraphNode_StateMachine>(&Node))
	{
		SetStateMachine(Properties, *Machine, Context);
	}
	else if (const UAnimStateNode* const State = Cast<UAnimStateNode>(&Node))
	{
		SetInfo(Properties, TEXT("anim_state_info"),
			[&](FJsonObject& Info)
			{
				Info.SetStringField(TEXT("state_name"), State->GetStateName());
				SetBoundGraph(Info, State->BoundGraph, Context);
			});
	}
	else if (const UAnimStateConduitNode* const Conduit = Cast<UAnimStateConduitNode>(&Node))
	{
		SetInfo(Properties, TEXT("anim_conduit_info"),
			[&](FJsonObject& Info)
			{
				SetHead(Info, Node);
				SetBoundGraph(Info, Conduit->BoundGraph, Context);
			});
	}
	else if (const UAnimStateAliasNode* const Alias = Cast<UAnimStateAliasNode>(&Node))
	{
		SetInfo(Properties, TEXT("anim_alias_info"),
			[&](FJsonObject& Info)
			{
				SetHead(Info, Node);
				SetAliasedStates(Info, *Alias);
			});
	}
	else if (const UAnimStateTransitionNode* const Transition = Cast<UAnimStateTransitionNode>(&Node))
	{
		SetInfo(Properties, TEXT("transition_info"),
			[&](FJsonObject& Info)
			{
				SetTransition(Info, *Transition);
				SetBoundGraph(Info, Transition->BoundGraph, Context);
				SetLinkedStates(Info, *Transition);
			});
	}
	else if (const UK2Node_Composite* const Composite = Cast<UK2Node_Composite>(&Node))
	{
		SetInfo(Properties, TEXT("composite_info"),
			[&](FJsonObject& Info) { SetBoundGraph(Info, Composite->BoundGraph, Context); });
	}
}

/** The extras of the node's class: the first class that fits decides, so a custom event reads as an event. */
static void SetProperties(FJsonObject& Properties, const UEdGraphNode& Node, const FContext& Context)
{
	if (const UK2Node_VariableGet* const Get = Cast<UK2Node_VariableGet>(&Node))
	{
		SetVariable(Properties, *Get);
	}
	else if (const UK2Node_VariableSet* const Set = Cast<UK2Node_VariableSet>(&Node))
	{
		SetVariable(Properties, *Set);
	}
	else if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		SetCall(Properties, *Call);
	}
	else if (const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
	{
		SetEvent(Properties, *Event);
	}
	else if (const UK2Node_Literal* const Literal = Cast<UK2Node_Literal>(&Node))
	{
		if (const UEdGraphPin* const Value = Literal->GetValuePin())
		{
			Properties.SetStringField(TEXT("value"), Value->GetDefaultAsString());
		}
	}
	else
	{
		SetAnimationProperties(Properties, Node, Context);
	}
	NodeFacts::Set(Properties, Node);
}

static void SetTitles(FJsonObject& Info, const UEdGraphNode& Node, const FString& FullTitle, bool bLean)
{
	if (bLean && Node.IsA<UEdGraphNode_Comment>())
	{
		// Its title is its comment.
		return;
	}
	const FString MenuTitle = Node.GetNodeTitle(ENodeTitleType::MenuTitle).ToString();
	Info.SetStringField(TEXT("menu_title"), MenuTitle);
	// Beyond the first line a full title says what class and properties say.
	FString FirstLine;
	const bool bLines = FullTitle.Split(TEXT("\n"), &FirstLine, nullptr);
	const bool bPlain = Node.IsA<UK2Node_Knot>() || Node.IsA<UK2Node_FunctionResult>();
	if (!bLean
		|| (!bPlain && !FullTitle.IsEmpty()
			&& !(bLines ? FirstLine : FullTitle).Equals(MenuTitle, ESearchCase::CaseSensitive)))
	{
		Info.SetStringField(TEXT("full_title"), FullTitle);
	}
	const UK2Node* const K2Node = Cast<UK2Node>(&Node);
	if (K2Node && !bLean)
	{
		Info.SetStringField(TEXT("menu_category"), K2Node->GetMenuCategory().ToString());
	}
}

/** Calls of such functions have that state from the start; it tells something where an author chose it. */
static bool IsForDevelopment(const UEdGraphNode& Node)
{
	static const FName DevelopmentOnly(TEXT("DevelopmentOnly"));
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node);
	const UFunction* const Function = Call ? Call->GetTargetFunction() : nullptr;
	return Function && Function->HasMetaData(DevelopmentOnly);
}

static void SetEnabledState(FJsonObject& Info, const UEdGraphNode& Node)
{
	switch (Node.GetDesiredEnabledState())
	{
	case ENodeEnabledState::Disabled:
		Info.SetStringField(TEXT("enabled_state"), TEXT("disabled"));
		break;
	case ENodeEnabledState::DevelopmentOnly:
		if (!IsForDevelopment(Node))
		{
			Info.SetStringField(TEXT("enabled_state"), TEXT("development_only"));
		}
		break;
	case ENodeEnabledState::Enabled:
		break;
	}
}
} // namespace ReadNode

void FBlueprintReadUtils::ExtractTitleTargetClass(const FString& Title, FString& OutClass)
{
	static const FString Marker(TEXT("Target is "));
	const int32 Index = Title.Find(Marker, ESearchCase::IgnoreCase, ESearchDir::FromStart);
	OutClass = Index == INDEX_NONE ? FString() : Title.RightChop(Index + Marker.Len());
}

TSharedPtr<FJsonObject> FBlueprintReadUtils::ReadNodeInfo(
	const UEdGraphNode* Node, const TSharedPtr<FJsonObject>& Command, int32 Depth, TSet<const UEdGraph*>& Visited)
{
	if (!Node)
	{
		return nullptr;
	}
	const FString FullTitle = Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString();
	// Worked out and not shown: the JSON stays small, and a reader of this code who needs the class finds the place for
	// it.
	FString TargetClass;
	ExtractTitleTargetClass(FullTitle, TargetClass);
	if (TargetClass.IsEmpty())
	{
		ExtractTitleTargetClass(Node->GetTooltipText().ToString(), TargetClass);
	}
	const TSharedPtr<FJsonObject> Info = MakeShared<FJsonObject>();
	const ReadNode::FContext Context{Command, Depth, Visited};
	const bool bLean = Context.IsLean();
	ReadNode::SetTitles(*Info, *Node, FullTitle, bLean);
	// Most nodes are calls and getters, as their function_name or variable_name tells.
	const UClass* const Class = Node->GetClass();
	const bool bCommon = Class == UK2Node_CallFunction::StaticClass() || Class == UK2Node_VariableGet::StaticClass();
	if (!bLean || !bCommon)
	{
		Info->SetStringField(TEXT("class_name"), Node->GetClass()->GetName());
	}
	Info->SetStringField(TEXT("node_guid"), FBlueprintNodeUtils::GetShortNodeId(Node));
	if (!bLean)
	{
		Info->SetNumberField(TEXT("pos_x"), Node->NodePosX);
		Info->SetNumberField(TEXT("pos_y"), Node->NodePosY);
	}
	if (!Node->NodeComment.IsEmpty())
	{
		Info->SetStringField(TEXT("comment"), Node->NodeComment);
	}
	ReadNode::SetEnabledState(*Info, *Node);
	ReadUnresolved::SetPaths(*Info, *Node);
	const TSharedPtr<FJsonObject> Properties = MakeShared<FJsonObject>();
	ReadNode::SetProperties(*Properties, *Node, Context);
	if (bLean)
	{
		Properties->RemoveField(TEXT("is_pure"));
		Properties->RemoveField(TEXT("node_title"));
	}
	if (!bLean || !Properties->Values.IsEmpty())
	{
		Info->SetObjectField(TEXT("properties"), Properties);
	}
	return Info;
}

TSharedPtr<FJsonObject> FBlueprintReadUtils::ReadPinInfo(const UEdGraphPin* Pin, const TSet<const UEdGraphNode*>*)
{
	return Pin ? FPinReader().Read(*Pin) : nullptr;
}
