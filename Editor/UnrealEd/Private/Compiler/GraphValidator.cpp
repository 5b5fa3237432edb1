#include "Compiler/GraphValidator.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_EventNodeInterface.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Tunnel.h"
#include "K2Node_Variable.h"
#include "Kismet2/CompilerResultsLog.h"

namespace GraphValidation
{
using FSchema = UEdGraphSchema_K2;

bool IsChecked(const UEdGraphNode* Node)
{
	return Node && Node->IsNodeEnabled() && !Node->IsA<UEdGraphNode_Comment>();
}

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
	const UK2Node_Tunnel* const Tunnel = ExactCast<UK2Node_Tunnel>(const_cast<UEdGraphNode*>(&Node));
	if (Tunnel)
	{
		return Tunnel->bCanHaveOutputs;
	}
	// A node with execution outputs and no input of that kind starts by itself, as timelines and input nodes do.
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

UEdGraphPin* FirstExecInput(const UEdGraphNode& Node)
{
	for (UEdGraphPin* const Pin : Node.Pins)
	{
		if (Pin->Direction == EGPD_Input && FSchema::IsExecPin(*Pin))
		{
			return Pin;
		}
	}
	return nullptr;
}

bool HasLinkedExecInput(const UEdGraphNode& Node)
{
	return Node.Pins.ContainsByPredicate([](const UEdGraphPin* Pin)
		{ return Pin->Direction == EGPD_Input && FSchema::IsExecPin(*Pin) && !Pin->LinkedTo.IsEmpty(); });
}

/** A function that calls back needs somebody to call, unless it says that nobody is fine too. */
bool NeedsDelegate(const UEdGraphNode& Node, const UEdGraphPin& Pin)
{
	static const FName AutoCreate(TEXT("AutoCreateRefTerm"));
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node);
	const UFunction* const Function = Call ? Call->GetTargetFunction() : nullptr;
	if (!Function)
	{
		return false;
	}
	TArray<FString> Optional;
	Function->GetMetaData(AutoCreate).ParseIntoArray(Optional, TEXT(","));
	return !Optional.ContainsByPredicate(
		[&Pin](const FString& Name) { return Name.TrimStartAndEnd() == Pin.PinName.ToString(); });
}
} // namespace GraphValidation

FGraphValidator::FGraphValidator(UBlueprint& InBlueprint, UEdGraph& InGraph, FCompilerResultsLog& InLog)
	: Blueprint(InBlueprint)
	, Graph(InGraph)
	, Log(InLog)
	, Schema(InGraph.GetSchema())
{
}

void FGraphValidator::Validate()
{
	if (!Schema)
	{
		Log.Error(*FString::Printf(TEXT("Graph '%s' has no schema, so it cannot be compiled"), *Graph.GetName()));
		return;
	}
	CheckEntry();
	for (int32 Index = 0; Index < Graph.Nodes.Num(); ++Index)
	{
		UEdGraphNode* const Node = Graph.Nodes[Index];
		if (GraphValidation::IsChecked(Node))
		{
			CheckNode(*Node);
		}
	}
	CheckReachability();
	CheckDataCycles();
}

void FGraphValidator::CheckEntry()
{
	if (!Blueprint.FunctionGraphs.Contains(&Graph))
	{
		return;
	}
	TArray<UK2Node_FunctionEntry*> Entries;
	Graph.GetNodesOfClass(Entries);
	if (Entries.IsEmpty() && Schema->GetGraphType(&Graph) == GT_Function)
	{
		Log.Error(*FString::Printf(TEXT("Could not find a function entry node in the graph '%s'"), *Graph.GetName()));
	}
	for (int32 Index = 1; Index < Entries.Num(); ++Index)
	{
		Log.Error(TEXT("Expected only one function entry node in the graph, but found both @@ and @@"), Entries[0],
			Entries[Index]);
	}
}

void FGraphValidator::CheckNode(UEdGraphNode& Node)
{
	const int32 ErrorsBefore = Log.NumErrors;
	Node.ValidateNodeDuringCompilation(Log);
	// What the node knows to be wrong is not told once more for its pins.
	bNodeComplained = Log.NumErrors > ErrorsBefore;
	CheckPlacement(Node);
	for (int32 Index = 0; Index < Node.Pins.Num(); ++Index)
	{
		CheckPin(Node, *Node.Pins[Index]);
	}
}

void FGraphValidator::CheckPlacement(UEdGraphNode& Node)
{
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node);
	if (Node.IsA<UK2Node_FunctionEntry>() && Schema->GetGraphType(&Graph) != GT_Function)
	{
		Log.Error(TEXT("@@ starts a function and can only stand in the graph of one"), &Node);
	}
	if (Call && Call->IsLatentFunction() && Schema->GetGraphType(&Graph) == GT_Function)
	{
		Log.Error(TEXT("@@ is a latent action, which can only be used in an event graph or a macro, not in a function"),
			&Node);
	}
}

void FGraphValidator::CheckPin(UEdGraphNode& Node, UEdGraphPin& Pin)
{
	if (Pin.bOrphanedPin)
	{
		if (!Pin.LinkedTo.IsEmpty())
		{
			Log.Error(
				TEXT("In use pin @@ no longer exists on node @@. Please refresh node or break links to remove pin."),
				&Pin, &Node);
		}
		else
		{
			Log.Warning(
				TEXT(
					"Input pin @@ specifying non-default value no longer exists on node @@. Please refresh node or reset pin to default value to remove pin."),
				&Pin, &Node);
		}
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
	const bool bWildcard = Pin.PinType.PinCategory == GraphValidation::FSchema::PC_Wildcard;
	if (bWildcard && !bNodeComplained && !Pin.bHidden && !Node.IsA<UK2Node_Tunnel>())
	{
		Log.Error(
			TEXT("The type of @@ is undetermined. Connect something to @@ to imply a specific type."), &Pin, &Node);
	}
}

void FGraphValidator::CheckLinks(UEdGraphPin& Pin)
{
	// Each link once, told from its output end.
	if (Pin.Direction != EGPD_Output)
	{
		return;
	}
	const UEdGraphSchema_K2* const K2 = Cast<UEdGraphSchema_K2>(Schema);
	for (UEdGraphPin* const Other : Pin.LinkedTo)
	{
		const UEdGraphNode* const OtherNode = Other->GetOwningNode();
		if (!OtherNode || OtherNode->GetGraph() != &Graph)
		{
			Log.Error(TEXT("@@ is connected to a node outside its graph"), &Pin);
			continue;
		}
		if (K2 && !Other->bOrphanedPin && !K2->ArePinsCompatible(&Pin, Other, Blueprint.GeneratedClass.Get()))
		{
			const FString From = UEdGraphSchema_K2::TypeToText(Pin.PinType).ToString();
			const FString To = UEdGraphSchema_K2::TypeToText(Other->PinType).ToString();
			Log.Error(
				*FString::Printf(TEXT("@@ can't be connected to @@ since %s is not compatible with %s."), *From, *To),
				&Pin, Other);
		}
	}
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
	if (Pin.bHidden || bSubPinsSpeak || Pin.PinType.PinCategory == FSchema::PC_Wildcard || Node.IsA<UK2Node_Tunnel>())
	{
		return;
	}
	if (Pin.PinType.PinCategory == FSchema::PC_Delegate && GraphValidation::NeedsDelegate(Node, Pin))
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

void FGraphValidator::CheckTarget(UEdGraphNode& Node, UEdGraphPin& Self)
{
	if (Self.bHidden || Self.DefaultObject)
	{
		return;
	}
	const bool bNeedsTarget = Node.IsA<UK2Node_CallFunction>() || Node.IsA<UK2Node_Variable>();
	const UClass* const Wanted = Cast<UClass>(Self.PinType.PinSubCategoryObject.Get());
	const UClass* const Own = Blueprint.GeneratedClass.Get();
	if (!bNeedsTarget || !Wanted || !Own || Own->IsChildOf(Wanted) || Own->ImplementsInterface(Wanted))
	{
		return;
	}
	Log.Error(*FString::Printf(TEXT("This blueprint (self) is not a %s, therefore ' @@ ' must have a connection."),
				  *Wanted->GetDisplayNameText().ToString()),
		&Self);
}

namespace GraphValidation
{
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
				const UEdGraphNode* const Node = Linked->GetOwningNode();
				if (!InOutReached.Contains(Node))
				{
					InOutReached.Add(Node);
					Queue.Add(Node);
				}
			}
		}
	}
}

/** A node that somebody has to execute, and that is not wrong already. */
bool WaitsForExecution(const UEdGraphNode* Node)
{
	if (!IsChecked(Node) || Node->IsA<UK2Node_FunctionResult>() || Node->IsA<UK2Node_Tunnel>()
		|| !FirstExecInput(*Node))
	{
		return false;
	}
	return !Node->bHasCompilerMessage || Node->ErrorType != EMessageSeverity::Error;
}
} // namespace GraphValidation

void FGraphValidator::CheckReachability()
{
	using namespace GraphValidation;
	TSet<const UEdGraphNode*> Reached;
	TArray<const UEdGraphNode*> Starts;
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		if (IsChecked(Node) && StartsExecution(*Node))
		{
			Reached.Add(Node);
			Starts.Add(Node);
		}
	}
	Spread(MoveTemp(Starts), Reached);
	// First those that nothing leads to; what is left then goes round in rings or hangs on what is
	// disabled, each told once.
	for (const bool bRings : {false, true})
	{
		for (const UEdGraphNode* const Node : Graph.Nodes)
		{
			if (Reached.Contains(Node) || !WaitsForExecution(Node) || (!bRings && HasLinkedExecInput(*Node)))
			{
				continue;
			}
			Log.Warning(bRings ? TEXT("@@ is never executed: nothing that is executed leads to @@")
							   : TEXT("@@ is never executed: nothing is connected to @@"),
				Node, FirstExecInput(*Node));
			Reached.Add(Node);
			Spread({Node}, Reached);
		}
	}
}

namespace GraphValidation
{
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
				const UEdGraphNode* const Source = Linked->GetOwningNode();
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
} // namespace GraphValidation

void FGraphValidator::CheckDataCycles()
{
	GraphValidation::FCycleFinder Finder;
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		if (!GraphValidation::IsChecked(Node) || !GraphValidation::IsPure(*Node))
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
