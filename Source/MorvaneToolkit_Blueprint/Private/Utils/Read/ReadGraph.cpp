// Whole graphs as JSON: any graph as a list of nodes, an event graph as flows.

#include "BlueprintReadUtils.h"

#include "AnimationStateMachineGraph.h"
#include "AnimStateEntryNode.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "JsonReading.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_EventNodeInterface.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolInfo.h"
#include "Utils/Read/ReadBudget.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Read/ReadItems.h"
#include "Utils/Read/ReadPins.h"

namespace ReadGraph
{
constexpr int32 MaxDepth = 10;

static TSharedPtr<FJsonObject> MakeError(const FString& Text)
{
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("error"), Text);
	return Object;
}

static TSharedPtr<FJsonObject> MakeDepthError(const FString& Text, int32 Depth)
{
	const TSharedPtr<FJsonObject> Object = MakeError(Text);
	Object->SetNumberField(TEXT("recursion_depth"), Depth);
	return Object;
}

static bool IsTool(const FString& ReadTool, const TCHAR* Tool)
{
	return ReadTool.Equals(Tool, ESearchCase::IgnoreCase);
}

/** A lean read has no word of what all ordinary graphs are. */
static void SetHead(FJsonObject& Object, const UEdGraph& Graph, bool bLean)
{
	const UEdGraphSchema* const Schema = Graph.GetSchema();
	Object.SetStringField(TEXT("name"), Graph.GetName());
	if (!bLean || Graph.GetClass() != UEdGraph::StaticClass())
	{
		Object.SetStringField(TEXT("class"), Graph.GetClass()->GetName());
	}
	if (!bLean)
	{
		Object.SetStringField(TEXT("schema"), Schema ? Schema->GetClass()->GetName() : FString(TEXT("Unknown")));
	}
}

/** The nodes in their order, until the call has shown as much as it may. */
static void AddNodes(const TArray<const UEdGraphNode*>& Nodes,
	TFunctionRef<TSharedPtr<FJsonObject>(const UEdGraphNode&)> Read, TArray<TSharedPtr<FJsonValue>>& OutValues)
{
	for (const UEdGraphNode* const Node : Nodes)
	{
		if (!FReadBudget::Take(*Node))
		{
			OutValues.Add(MakeShared<FJsonValueObject>(MakeError(
				TEXT("Maximum answer size exceeded; the other nodes are left out. Read single functions or events."))));
			return;
		}
		OutValues.Add(MakeShared<FJsonValueObject>(Read(*Node)));
	}
}

static TSharedPtr<FJsonObject> ReadNodeWithPins(const UEdGraphNode& Node, const TSharedPtr<FJsonObject>& Command,
	int32 Depth, TSet<const UEdGraph*>& Visited, FPinReader& PinReader)
{
	const TSharedPtr<FJsonObject> Info = FBlueprintReadUtils::ReadNodeInfo(&Node, Command, Depth, Visited);
	TArray<TSharedPtr<FJsonValue>> Pins;
	Pins.Reserve(Node.Pins.Num());
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (const TSharedPtr<FJsonObject> Object = Pin ? PinReader.Read(*Pin) : nullptr)
		{
			Pins.Add(MakeShared<FJsonValueObject>(Object));
		}
	}
	Info->SetArrayField(TEXT("pins"), MoveTemp(Pins));
	return Info;
}

/** Says of a list that was narrowed how many nodes it has not. */
static void SetLeftOut(FJsonObject& Object, int32 NumAll, int32 NumShown)
{
	if (NumShown < NumAll)
	{
		Object.SetNumberField(TEXT("nodes_left_out"), NumAll - NumShown);
	}
}

static TSharedPtr<FJsonObject> MakeStateMachineInfo(const UAnimationStateMachineGraph& Graph)
{
	const TSharedPtr<FJsonObject> Info = MakeShared<FJsonObject>();
	if (const UAnimStateEntryNode* const Entry = Graph.EntryNode)
	{
		Info->SetStringField(TEXT("entry_node_title"), Entry->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
	}
	return Info;
}
} // namespace ReadGraph

TSharedPtr<FJsonObject> FBlueprintReadUtils::ReadEdGraph(const UEdGraph* Graph, const TSharedPtr<FJsonObject>& Command)
{
	TSet<const UEdGraph*> Visited;
	return ReadEdGraph(Graph, Command, 0, Visited);
}

TSharedPtr<FJsonObject> FBlueprintReadUtils::ReadEdGraph(
	const UEdGraph* Graph, const TSharedPtr<FJsonObject>& Command, int32 Depth, TSet<const UEdGraph*>& Visited)
{
	if (!Graph)
	{
		return ReadGraph::MakeError(TEXT("Invalid graph provided"));
	}
	FString ReadTool;
	if (!Command || !MorvaneJson::TryGetStringField(*Command, Morvane::ToolInfo::FieldName_ReadTool, ReadTool))
	{
		return ReadGraph::MakeError(
			FString::Printf(TEXT("Missing required field '%s'"), Morvane::ToolInfo::FieldName_ReadTool));
	}
	if (Depth > ReadGraph::MaxDepth)
	{
		return ReadGraph::MakeDepthError(TEXT("Maximum recursion depth exceeded"), Depth);
	}
	if (Visited.Contains(Graph))
	{
		return ReadGraph::MakeDepthError(TEXT("Graph already visited"), Depth);
	}
	Visited.Add(Graph);
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	const bool bLean = ReadDetail::IsLean(*Command);
	ReadGraph::SetHead(*Object, *Graph, bLean);
	if (!bLean)
	{
		Object->SetNumberField(TEXT("hierarchy_depth"), Depth);
		Object->SetStringField(TEXT("graph_path"), Graph->GetPathName());
	}
	if (!ReadGraph::IsTool(ReadTool, Morvane::ToolInfo::ToolName_ReadBlueprintSchema))
	{
		const FNodeChoice Choice(*Command);
		TArray<const UEdGraphNode*> Present;
		Present.Reserve(Graph->Nodes.Num());
		int32 NumNodes = 0;
		for (const UEdGraphNode* const Node : Graph->Nodes)
		{
			NumNodes += Node ? 1 : 0;
			if (Node && Choice.Holds(*Node))
			{
				Present.Add(Node);
			}
		}
		TArray<TSharedPtr<FJsonValue>> Nodes;
		FPinReader PinReader(bLean);
		ReadGraph::AddNodes(
			Present,
			[&](const UEdGraphNode& Node)
			{ return ReadGraph::ReadNodeWithPins(Node, Command, Depth, Visited, PinReader); },
			Nodes);
		Object->SetArrayField(TEXT("nodes"), MoveTemp(Nodes));
		ReadGraph::SetLeftOut(*Object, NumNodes, Present.Num());
		if (const UAnimationStateMachineGraph* const Machine = Cast<UAnimationStateMachineGraph>(Graph))
		{
			Object->SetObjectField(TEXT("state_machine_info"), ReadGraph::MakeStateMachineInfo(*Machine));
		}
	}
	// A guard of the path from the top, not a memory: a graph that two siblings reach is read for both.
	Visited.Remove(Graph);
	return Object;
}

namespace ReadGraph
{
const TCHAR* const FloatingName = TEXT("nodes_not_attached_to_an_event");

static bool IsEvent(const UEdGraphNode* Node)
{
	return Cast<IK2Node_EventNodeInterface>(Node) || Node->IsA<UK2Node_ComponentBoundEvent>();
}

/** One event and the nodes that belong to it, the event first. */
struct FFlow
{
	const UEdGraphNode* Event;
	TArray<const UEdGraphNode*> Nodes;
};

/**
 * Breadth first along every link but those that come into an execution input: what runs after a node, what takes its
 * values, and what gives it values. Other events end the walk.
 */
static FFlow WalkFlow(const UEdGraphNode* Event)
{
	FFlow Flow{Event, {Event}};
	TSet<const UEdGraphNode*> Seen;
	Seen.Add(Event);
	for (int32 Next = 0; Next < Flow.Nodes.Num(); ++Next)
	{
		for (const UEdGraphPin* const Pin : Flow.Nodes[Next]->Pins)
		{
			if (!Pin || (Pin->Direction == EGPD_Input && Pin->PinType.PinCategory == UEdGraphSchema_K2::PC_Exec))
			{
				continue;
			}
			for (const UEdGraphPin* const Linked : Pin->LinkedTo)
			{
				const UEdGraphNode* const Owner = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
				if (Owner && !Seen.Contains(Owner) && !IsEvent(Owner))
				{
					Seen.Add(Owner);
					Flow.Nodes.Add(Owner);
				}
			}
		}
	}
	return Flow;
}

/** The events that a command asks for, each with how often it was found. */
class FRequestedEvents
{
public:
	FRequestedEvents(const FJsonObject& Command, const UEdGraph& InGraph)
		: Graph(InGraph)
	{
		const TArray<TSharedPtr<FJsonValue>>* Entries = nullptr;
		if (!Command.TryGetArrayField(Morvane::ToolInfo::FieldName_Events, Entries))
		{
			return;
		}
		for (const TSharedPtr<FJsonValue>& Entry : *Entries)
		{
			const TSharedPtr<FJsonObject>* Object = nullptr;
			FString Name;
			if (Entry && Entry->TryGetObject(Object)
				&& MorvaneJson::TryGetStringField(**Object, Morvane::ToolInfo::FieldName_EventName, Name))
			{
				// A name that is asked for twice is found once, for both.
				Counts.FindOrAdd(Name);
			}
		}
	}

	/** Containment in either direction, ignoring case. Counts the first name that fits. */
	bool Match(const FString& Title)
	{
		for (auto& Pair : Counts)
		{
			const FString& Name = Pair.Key;
			if (Fits(Name, Title))
			{
				++Pair.Value;
				return true;
			}
		}
		return false;
	}

	/** Whether another event graph of the Blueprint has the event: every graph is asked for all names. */
	bool IsElsewhere(const FString& Name) const
	{
		const UBlueprint* const Blueprint = FBlueprintEditorUtils::FindBlueprintForGraph(&Graph);
		if (!Blueprint)
		{
			return false;
		}
		for (const UEdGraph* const Page : Blueprint->UbergraphPages)
		{
			const bool bHasEvent = Page && Page != &Graph
				&& Page->Nodes.ContainsByPredicate(
					[&Name](const UEdGraphNode* Node) {
						return Node && IsEvent(Node)
							&& Fits(Name, Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
					});
			if (bHasEvent)
			{
				return true;
			}
		}
		return false;
	}

	TArray<FString> GetMissing() const
	{
		TArray<FString> Missing;
		for (const auto& Pair : Counts)
		{
			if (Pair.Value < 1 && !Pair.Key.Equals(FloatingName, ESearchCase::IgnoreCase))
			{
				Missing.Add(Pair.Key);
			}
		}
		return Missing;
	}

private:
	static bool Fits(const FString& Name, const FString& Title)
	{
		return Name.Contains(Title, ESearchCase::IgnoreCase) || Title.Contains(Name, ESearchCase::IgnoreCase);
	}

	const UEdGraph& Graph;
	TMap<FString, int32> Counts;
};

/** One read of one event graph. */
class FEventGraphRead
{
public:
	FEventGraphRead(const UEdGraph& InGraph, const TSharedPtr<FJsonObject>& InCommand, const FString& ReadTool)
		: Graph(InGraph)
		, Command(InCommand)
		, bFull(IsTool(ReadTool, Morvane::ToolInfo::ToolName_ReadBlueprintEvent))
		, bLean(ReadDetail::IsLean(*InCommand))
		, Choice(*InCommand)
		, Requested(*InCommand, InGraph)
		, PinReader(bLean)
	{
		MorvaneJson::TryGetBoolField(*Command, TEXT("finalize_modifications"), bFinalize);
	}

	TArray<TSharedPtr<FJsonValue>> Read(bool bRestrict, const TSet<FString>& ShortNodeIds)
	{
		for (const UEdGraphNode* const Node : Graph.Nodes)
		{
			if (Node && IsEvent(Node))
			{
				AddFlow(WalkFlow(Node), bRestrict, ShortNodeIds);
			}
		}
		if (bFull)
		{
			AddMissing();
		}
		AddFloating();
		if (bLean)
		{
			ReadSections::ReduceToNames(Entries, TEXT("event_title"));
		}
		return MoveTemp(Entries);
	}

private:
	void AddFlow(const FFlow& Flow, bool bRestrict, const TSet<FString>& ShortNodeIds)
	{
		// Before all filters: a node of an event that is not shown is attached all the same.
		for (const UEdGraphNode* const Node : Flow.Nodes)
		{
			Attached.Add(Node);
		}
		const auto IsWanted = [&ShortNodeIds](const UEdGraphNode* Node)
		{ return ShortNodeIds.Contains(FBlueprintNodeUtils::GetShortNodeId(Node)); };
		if (bRestrict && !Flow.Nodes.ContainsByPredicate(IsWanted))
		{
			return;
		}
		const FString Title = Flow.Event->GetNodeTitle(ENodeTitleType::FullTitle).ToString();
		if (bFull && !Requested.Match(Title))
		{
			return;
		}
		const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		if (!bLean)
		{
			Entry->SetStringField(TEXT("event_type"), Flow.Event->GetClass()->GetName());
		}
		Entry->SetStringField(TEXT("event_title"), Title);
		if (bFull)
		{
			SetNodes(*Entry, Flow.Nodes);
		}
		Entries.Add(MakeShared<FJsonValueObject>(Entry));
	}

	void AddMissing()
	{
		for (const FString& Name : Requested.GetMissing())
		{
			// "Not found" is said of this graph; "deleted" is said of the event, which may stand beside it.
			if (bFinalize && Requested.IsElsewhere(Name))
			{
				continue;
			}
			const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
			Entry->SetStringField(TEXT("event_title"), Name);
			Entry->SetStringField(TEXT("status"), bFinalize ? TEXT("deleted") : TEXT("not_found"));
			Entries.Add(MakeShared<FJsonValueObject>(Entry));
		}
	}

	void AddFloating()
	{
		TArray<const UEdGraphNode*> Floating;
		for (const UEdGraphNode* const Node : Graph.Nodes)
		{
			if (Node && !Node->IsA<UEdGraphNode_Comment>() && !Attached.Contains(Node))
			{
				Floating.Add(Node);
			}
		}
		if (bLean && Floating.IsEmpty())
		{
			return;
		}
		const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		if (!bLean)
		{
			Entry->SetStringField(TEXT("event_type"), FloatingName);
		}
		Entry->SetStringField(TEXT("event_title"), FloatingName);
		SetNodes(*Entry, Floating);
		Entries.Add(MakeShared<FJsonValueObject>(Entry));
	}

	void SetNodes(FJsonObject& Entry, const TArray<const UEdGraphNode*>& Nodes)
	{
		TArray<TSharedPtr<FJsonValue>> Values;
		const TArray<const UEdGraphNode*> Chosen = Nodes.FilterByPredicate(
			[this](const UEdGraphNode* Node) { return Choice.Holds(*Node); });
		AddNodes(
			Chosen, [this](const UEdGraphNode& Node) { return ReadNode(Node); }, Values);
		Entry.SetArrayField(TEXT("nodes"), MoveTemp(Values));
		SetLeftOut(Entry, Nodes.Num(), Chosen.Num());
	}

	static TSharedPtr<FJsonObject> NameNode(const UEdGraphNode& Node)
	{
		const TSharedPtr<FJsonObject> Named = MakeShared<FJsonObject>();
		Named->SetStringField(TEXT("menu_title"), Node.GetNodeTitle(ENodeTitleType::MenuTitle).ToString());
		Named->SetStringField(TEXT("node_guid"), FBlueprintNodeUtils::GetShortNodeId(&Node));
		return Named;
	}

	/**
	 * A node of several flows: a lean read shows it in the first of them and names it in the others. A lean overview
	 * names all that it has.
	 */
	TSharedPtr<FJsonObject> ReadNode(const UEdGraphNode& Node)
	{
		if (bLean && !bFull)
		{
			return NameNode(Node);
		}
		if (bLean && Shown.Contains(&Node))
		{
			const TSharedPtr<FJsonObject> Named = NameNode(Node);
			Named->SetBoolField(TEXT("shown_above"), true);
			return Named;
		}
		Shown.Add(&Node);
		TSet<const UEdGraph*> Visited;
		return ReadNodeWithPins(Node, Command, 0, Visited, PinReader);
	}

	const UEdGraph& Graph;
	const TSharedPtr<FJsonObject>& Command;
	bool bFull;
	bool bLean;
	bool bFinalize = false;
	FNodeChoice Choice;
	FRequestedEvents Requested;
	FPinReader PinReader;
	TSet<const UEdGraphNode*> Attached;
	TSet<const UEdGraphNode*> Shown;
	TArray<TSharedPtr<FJsonValue>> Entries;
};
} // namespace ReadGraph

TSharedPtr<FJsonObject> FBlueprintReadUtils::ReadEventGraph(
	const UEdGraph* Graph, const TSharedPtr<FJsonObject>& Command, bool bRestrict, const TSet<FString>& ShortNodeIds)
{
	if (!Graph)
	{
		return ReadGraph::MakeError(TEXT("Invalid graph provided"));
	}
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	FString ReadTool;
	if (!Command || !MorvaneJson::TryGetStringField(*Command, Morvane::ToolInfo::FieldName_ReadTool, ReadTool))
	{
		return Object;
	}
	ReadGraph::SetHead(*Object, *Graph, ReadDetail::IsLean(*Command));
	TArray<TSharedPtr<FJsonValue>> Flows =
		ReadGraph::FEventGraphRead(*Graph, Command, ReadTool).Read(bRestrict, ShortNodeIds);
	if (!Flows.IsEmpty())
	{
		Object->SetArrayField(TEXT("event_flows"), MoveTemp(Flows));
	}
	return Object;
}
