#include "Compiler/GraphFlow.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_EventNodeInterface.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Timeline.h"
#include "K2Node_Tunnel.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/EdGraphNode_Placeholder.h"

namespace GraphFlow
{
bool IsCompiled(const UEdGraphNode* Node)
{
	return Node && Node->IsNodeEnabled() && !Node->IsA<UEdGraphNode_Comment>();
}

UEdGraphPin* FindExecInput(const UEdGraphNode& Node)
{
	return Node.FindPinByPredicate([](const UEdGraphPin* Pin)
		{ return Pin && Pin->Direction == EGPD_Input && UEdGraphSchema_K2::IsExecPin(*Pin); });
}

namespace
{
using FSchema = UEdGraphSchema_K2;

bool IsPure(const UEdGraphNode& Node)
{
	const UK2Node* const K2Node = Cast<UK2Node>(&Node);
	return K2Node && K2Node->IsNodePure();
}

bool StartsExecution(const UEdGraphNode& Node)
{
	if (Node.IsA<UK2Node_FunctionEntry>() || Cast<IK2Node_EventNodeInterface>(&Node))
	{
		return true;
	}
	if (const UK2Node_Tunnel* const Tunnel = ExactCast<UK2Node_Tunnel>(const_cast<UEdGraphNode*>(&Node)))
	{
		return Tunnel->bCanHaveOutputs;
	}
	if (const UK2Node_Timeline* const Timeline = Cast<UK2Node_Timeline>(&Node))
	{
		const UTimelineTemplate* const Template = Timeline->GetTimelineTemplate();
		return Template && Template->bAutoPlay;
	}
	// A node with execution outputs and no input of that kind starts by itself, as input nodes do.
	bool bHasOutput = false;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (FSchema::IsExecPin(*Pin))
		{
			if (Pin->Direction == EGPD_Input)
			{
				return false;
			}
			bHasOutput = true;
		}
	}
	return bHasOutput;
}

bool HasLinkedExecInput(const UEdGraphNode& Node)
{
	return Node.Pins.ContainsByPredicate([](const UEdGraphPin* Pin)
		{ return Pin->Direction == EGPD_Input && FSchema::IsExecPin(*Pin) && !Pin->LinkedTo.IsEmpty(); });
}

/** Follows execution from the nodes given, adding what is reached. */
void Spread(TArray<const UEdGraphNode*> Queue, TSet<const UEdGraphNode*>& InOutReached)
{
	for (int32 Next = 0; Next < Queue.Num(); ++Next)
	{
		for (const UEdGraphPin* const Pin : Queue[Next]->Pins)
		{
			if (Pin->Direction != EGPD_Output || !FSchema::IsExecPin(*Pin))
			{
				continue;
			}
			for (const UEdGraphPin* const Linked : Pin->LinkedTo)
			{
				const UEdGraphNode* const Node = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
				if (Node && !InOutReached.Contains(Node))
				{
					InOutReached.Add(Node);
					Queue.Add(Node);
				}
			}
		}
	}
}

/** Whether a return node gives a value that an author connected, or any value where the function does something. */
bool IsMissed(const UEdGraphNode& Result, bool bFunctionActs)
{
	return Result.Pins.ContainsByPredicate([bFunctionActs](const UEdGraphPin* Pin)
		{ return Pin && !FSchema::IsExecPin(*Pin) && (bFunctionActs || !Pin->LinkedTo.IsEmpty()); });
}

bool IsGraphEnd(const UEdGraphNode& Node)
{
	return ExactCast<UK2Node_Tunnel>(const_cast<UEdGraphNode*>(&Node)) != nullptr;
}

bool HasLinkedOutput(const UEdGraphNode& Node)
{
	return Node.Pins.ContainsByPredicate(
		[](const UEdGraphPin* Pin) { return Pin && Pin->Direction == EGPD_Output && !Pin->LinkedTo.IsEmpty(); });
}

/** A node that takes part only when somebody executes it or, having takers, one of them takes part. */
bool WaitsForUse(const UEdGraphNode& Node)
{
	return !IsGraphEnd(Node) && (FindExecInput(Node) || (IsPure(Node) && HasLinkedOutput(Node)));
}

/** A node that somebody has to execute. */
bool WaitsForExecution(const UEdGraphNode* Node, bool bGraphActs)
{
	return IsCompiled(Node) && !IsGraphEnd(*Node) && FindExecInput(*Node)
		&& (!Node->IsA<UK2Node_FunctionResult>() || IsMissed(*Node, bGraphActs));
}

/** Depth-first walk over the pure nodes that a node takes its values from; finds nodes that depend on themselves. */
class FCycleFinder
{
public:
	/** Iterative, since chains of pure nodes may be long. True when a node on the way needs its own value. */
	const UEdGraphNode* Find(const UEdGraphNode* Root)
	{
		TArray<FFrame> Stack;
		Push(Stack, Root);
		while (!Stack.IsEmpty())
		{
			FFrame& Frame = Stack.Last();
			if (Frame.Next == Frame.Sources.Num())
			{
				State.Add(Frame.Node, EState::Done);
				Stack.Pop();
				continue;
			}
			const UEdGraphNode* const Source = Frame.Sources[Frame.Next++];
			const EState* const Known = State.Find(Source);
			if (!Known)
			{
				Push(Stack, Source);
			}
			else if (*Known == EState::OnPath)
			{
				return Source;
			}
		}
		return nullptr;
	}

private:
	enum class EState
	{
		OnPath,
		Done,
	};
	struct FFrame
	{
		const UEdGraphNode* Node;
		TArray<const UEdGraphNode*> Sources;
		int32 Next = 0;
	};

	void Push(TArray<FFrame>& Stack, const UEdGraphNode* Node)
	{
		State.Add(Node, EState::OnPath);
		FFrame Frame;
		Frame.Node = Node;
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			if (Pin->Direction != EGPD_Input || FSchema::IsExecPin(*Pin))
			{
				continue;
			}
			for (const UEdGraphPin* const Linked : Pin->LinkedTo)
			{
				const UEdGraphNode* const Source = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
				if (Source && IsPure(*Source))
				{
					Frame.Sources.Add(Source);
				}
			}
		}
		Stack.Add(MoveTemp(Frame));
	}

	TMap<const UEdGraphNode*, EState> State;
};
} // namespace

FGraphUse::FGraphUse(const UEdGraph& InGraph)
	: Graph(InGraph)
{
	TArray<const UEdGraphNode*> Starts;
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		if (IsCompiled(Node) && StartsExecution(*Node))
		{
			Used.Add(Node);
			Starts.Add(Node);
		}
	}
	const int32 NumStarts = Starts.Num();
	Spread(MoveTemp(Starts), Used);
	bActs = Used.Num() > NumStarts;
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		if (IsCompiled(Node) && !WaitsForUse(*Node))
		{
			Used.Add(Node);
		}
	}
	FollowValues();
}

void FGraphUse::FollowValues()
{
	TArray<const UEdGraphNode*> Queue;
	for (const UEdGraphNode* const Node : Used)
	{
		Queue.Add(Node);
	}
	for (int32 Next = 0; Next < Queue.Num(); ++Next)
	{
		for (const UEdGraphPin* const Pin : Queue[Next]->Pins)
		{
			if (!Pin || Pin->Direction != EGPD_Input || FSchema::IsExecPin(*Pin))
			{
				continue;
			}
			for (const UEdGraphPin* const Linked : Pin->LinkedTo)
			{
				const UEdGraphNode* const Source = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
				if (Source && !Used.Contains(Source) && IsPure(*Source))
				{
					Used.Add(Source);
					Queue.Add(Source);
				}
			}
		}
	}
}

void FGraphUse::Tell(FCompilerResultsLog& Log) const
{
	TellOfUnexecuted(Log);
	TellOfMissingValues(Log);
}

void FGraphUse::TellOfUnexecuted(FCompilerResultsLog& Log) const
{
	TSet<const UEdGraphNode*> Told;
	// First those that nothing leads to; what is left then goes round in rings or hangs on what is
	// disabled, each told once.
	for (const bool bRings : {false, true})
	{
		for (const UEdGraphNode* const Node : Graph.Nodes)
		{
			if (Used.Contains(Node) || Told.Contains(Node) || !WaitsForExecution(Node, bActs)
				|| (!bRings && HasLinkedExecInput(*Node)))
			{
				continue;
			}
			Log.Note(bRings ? TEXT("@@ is never executed: nothing that is executed leads to @@")
							: TEXT("@@ is never executed: nothing is connected to @@"),
				Node, FindExecInput(*Node));
			Told.Add(Node);
			Spread({Node}, Told);
		}
	}
}

void FGraphUse::TellOfMissingValues(FCompilerResultsLog& Log) const
{
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		if (!IsCompiled(Node) || !Used.Contains(Node))
		{
			continue;
		}
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			const bool bTakesValue = Pin && Pin->Direction == EGPD_Input && !FSchema::IsExecPin(*Pin)
				&& !Pin->LinkedTo.IsEmpty();
			const UEdGraphPin* const Linked = bTakesValue ? Pin->LinkedTo[0] : nullptr;
			const UEdGraphNode* const Source = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
			// Whether a node of an unknown class waits for execution at all, nobody here can say.
			if (Source && IsCompiled(Source) && Source->GetGraph() == &Graph && !Used.Contains(Source)
				&& !Source->IsA<UEdGraphNode_Placeholder>())
			{
				Log.Warning(
					TEXT("@@ is never executed, so @@ of @@ reads a default instead of its value"), Source, Pin, Node);
			}
		}
	}
}

void CheckDataCycles(const UEdGraph& Graph, FCompilerResultsLog& Log)
{
	FCycleFinder Finder;
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		if (!IsCompiled(Node) || !IsPure(*Node))
		{
			continue;
		}
		if (const UEdGraphNode* const Cyclic = Finder.Find(Node))
		{
			Log.Error(TEXT("Dependency cycle detected, preventing node @@ from being scheduled"), Cyclic);
			return;
		}
	}
}
} // namespace GraphFlow
