#include "StandardMacroBodies.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_AssignmentStatement.h"
#include "K2Node_CallArrayFunction.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_GetArrayItem.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_TemporaryVariable.h"
#include "K2Node_Tunnel.h"

namespace StandardMacroBodies
{
namespace
{
const TCHAR* const Math = TEXT("/Script/Engine.KismetMathLibrary");

/** Places nodes one beside the other and links them. */
class FBody
{
public:
	FBody(UEdGraph& InGraph, UK2Node_Tunnel& InEntry, UK2Node_Tunnel& InExit)
		: Graph(InGraph)
		, Entry(InEntry)
		, Exit(InExit)
	{
	}

	template <class TNode>
	TNode& Add(TFunctionRef<void(TNode&)> Bind)
	{
		FGraphNodeCreator<TNode> Creator(Graph);
		TNode* const Node = Creator.CreateNode();
		Node->NodePosX = NextX;
		NextX += 200;
		Bind(*Node);
		Creator.Finalize();
		return *Node;
	}
	template <class TNode>
	TNode& Add()
	{
		return Add<TNode>([](TNode&) {});
	}
	template <class TNode = UK2Node_CallFunction>
	TNode& Call(const TCHAR* ClassPath, const TCHAR* Function)
	{
		return Add<TNode>(
			[&](TNode& Node)
			{
				const UClass* const Class = FindObject<UClass>(nullptr, ClassPath);
				Node.SetFromFunction(Class ? Class->FindFunctionByName(FName(Function)) : nullptr);
			});
	}
	UK2Node_TemporaryVariable& Local(FName Category, bool bPersistent = false)
	{
		return Add<UK2Node_TemporaryVariable>(
			[&](UK2Node_TemporaryVariable& Node)
			{
				Node.VariableType.PinCategory = Category;
				Node.bIsPersistent = bPersistent;
			});
	}
	/** Sets a variable: to what is linked, or to the text. */
	UK2Node_AssignmentStatement& Assign(UEdGraphPin* Variable, UEdGraphPin* Value, const TCHAR* Text = TEXT(""))
	{
		UK2Node_AssignmentStatement& Node = Add<UK2Node_AssignmentStatement>();
		Link(Variable, Node.GetVariablePin());
		if (Value)
		{
			Link(Value, Node.GetValuePin());
		}
		else
		{
			Node.GetValuePin()->DefaultValue = Text;
		}
		return Node;
	}
	UK2Node_IfThenElse& Branch(UEdGraphPin* Condition)
	{
		UK2Node_IfThenElse& Node = Add<UK2Node_IfThenElse>();
		Link(Condition, Node.GetConditionPin());
		return Node;
	}
	static void Link(UEdGraphPin* A, UEdGraphPin* B)
	{
		if (A && B)
		{
			A->MakeLinkTo(B);
			A->GetOwningNode()->PinConnectionListChanged(A);
			B->GetOwningNode()->PinConnectionListChanged(B);
		}
	}
	static void Run(UEdGraphPin* From, UK2Node& Node) { Link(From, Node.GetExecPin()); }
	UEdGraphPin* In(const TCHAR* Name) const { return Entry.FindPin(Name, EGPD_Output); }
	UEdGraphPin* Out(const TCHAR* Name) const { return Exit.FindPin(Name, EGPD_Input); }

private:
	UEdGraph& Graph;
	UK2Node_Tunnel& Entry;
	UK2Node_Tunnel& Exit;
	int32 NextX = -200;
};

void SetDefault(UK2Node& Node, const TCHAR* Pin, const TCHAR* Value)
{
	if (UEdGraphPin* const Found = Node.FindPin(Pin, EGPD_Input))
	{
		Found->DefaultValue = Value;
	}
}

/** A branch that is taken while the counter stands to the limit as the comparison says. */
UK2Node_IfThenElse& BranchOn(FBody& Body, const TCHAR* Comparison, UEdGraphPin* Counter, UEdGraphPin* Limit)
{
	UK2Node_CallFunction& Compare = Body.Call(Math, Comparison);
	FBody::Link(Counter, Compare.FindPin(TEXT("A"), EGPD_Input));
	FBody::Link(Limit, Compare.FindPin(TEXT("B"), EGPD_Input));
	return Body.Branch(Compare.GetReturnValuePin());
}

/** Sets the counter to one more. */
UK2Node_AssignmentStatement& Increment(FBody& Body, UEdGraphPin* Counter)
{
	UK2Node_CallFunction& Next = Body.Call(Math, TEXT("Add_IntInt"));
	FBody::Link(Counter, Next.FindPin(TEXT("A"), EGPD_Input));
	SetDefault(Next, TEXT("B"), TEXT("1"));
	return Body.Assign(Counter, Next.GetReturnValuePin());
}

/** Runs the body as long as the branch is taken. The second output is what comes between two rounds. */
UK2Node_ExecutionSequence& Loop(FBody& Body, UK2Node_IfThenElse& Branch)
{
	UK2Node_ExecutionSequence& Sequence = Body.Add<UK2Node_ExecutionSequence>();
	FBody::Run(Branch.GetThenPin(), Sequence);
	FBody::Link(Sequence.GetThenPinGivenIndex(0), Body.Out(TEXT("LoopBody")));
	FBody::Link(Branch.GetElsePin(), Body.Out(TEXT("Completed")));
	return Sequence;
}

/** Counts from the first value on, running the body each time. Answers the counter's pin. */
UEdGraphPin* LoopOver(FBody& Body, UEdGraphPin* Start, UEdGraphPin* First, UEdGraphPin* Last, const TCHAR* Comparison)
{
	UEdGraphPin* const Counter = Body.Local(UEdGraphSchema_K2::PC_Int).GetVariablePin();
	UK2Node_AssignmentStatement& Init = Body.Assign(Counter, First, TEXT("0"));
	FBody::Run(Start, Init);
	UK2Node_IfThenElse& Branch = BranchOn(Body, Comparison, Counter, Last);
	FBody::Run(Init.GetThenPin(), Branch);
	UK2Node_ExecutionSequence& Sequence = Loop(Body, Branch);
	UK2Node_AssignmentStatement& Step = Increment(Body, Counter);
	FBody::Run(Sequence.GetThenPinGivenIndex(1), Step);
	FBody::Run(Step.GetThenPin(), Branch);
	if (UEdGraphPin* const Break = Body.In(TEXT("Break")))
	{
		UK2Node_AssignmentStatement& Leave = Body.Assign(Counter, Last);
		FBody::Run(Break, Leave);
	}
	return Counter;
}

/** A variable that flips between two states, kept from one run to the next. */
UEdGraphPin* State(FBody& Body)
{
	return Body.Local(UEdGraphSchema_K2::PC_Boolean, true).GetVariablePin();
}

/** A branch on whether the way is closed. Before it is asked the first time, the pin of that name says so. */
UK2Node_IfThenElse& BranchOnClosed(
	FBody& Body, UEdGraphPin* Start, UEdGraphPin* Initialized, UEdGraphPin* Closed, const TCHAR* StartClosed)
{
	UK2Node_IfThenElse& First = Body.Branch(Initialized);
	FBody::Run(Start, First);
	UK2Node_AssignmentStatement& SetInitialized = Body.Assign(Initialized, nullptr, TEXT("true"));
	FBody::Run(First.GetElsePin(), SetInitialized);
	UK2Node_AssignmentStatement& TakeStart = Body.Assign(Closed, Body.In(StartClosed));
	FBody::Run(SetInitialized.GetThenPin(), TakeStart);
	UK2Node_IfThenElse& IsClosed = Body.Branch(Closed);
	FBody::Run(First.GetThenPin(), IsClosed);
	FBody::Run(TakeStart.GetThenPin(), IsClosed);
	return IsClosed;
}

void ChangeByOne(FBody& Body, const TCHAR* Function, const TCHAR* One)
{
	UK2Node_CallFunction& Changed = Body.Call(Math, Function);
	FBody::Link(Body.In(TEXT("Value")), Changed.FindPin(TEXT("A"), EGPD_Input));
	SetDefault(Changed, TEXT("B"), One);
	UK2Node_AssignmentStatement& Store = Body.Assign(Body.In(TEXT("Value")), Changed.GetReturnValuePin());
	FBody::Run(Body.In(TEXT(" ")), Store);
	FBody::Link(Store.GetThenPin(), Body.Out(TEXT("  ")));
	FBody::Link(Body.In(TEXT("Value")), Body.Out(TEXT("Result")));
}

UK2Node_CallArrayFunction& ArrayLength(FBody& Body)
{
	UK2Node_CallArrayFunction& Length = Body.Call<UK2Node_CallArrayFunction>(
		TEXT("/Script/Engine.KismetArrayLibrary"), TEXT("Array_Length"));
	FBody::Link(Body.In(TEXT("Array")), Length.FindPin(TEXT("TargetArray"), EGPD_Input));
	return Length;
}

void GetElement(FBody& Body, UEdGraphPin* Index, const TCHAR* ElementName)
{
	UK2Node_GetArrayItem& Item = Body.Add<UK2Node_GetArrayItem>();
	FBody::Link(Body.In(TEXT("Array")), Item.GetTargetArrayPin());
	FBody::Link(Index, Item.GetIndexPin());
	FBody::Link(Item.GetResultPin(), Body.Out(ElementName));
}
} // namespace

void ForLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UEdGraphPin* const Counter = LoopOver(Body, Body.In(TEXT("execute")), Body.In(TEXT("FirstIndex")),
		Body.In(TEXT("LastIndex")), TEXT("LessEqual_IntInt"));
	FBody::Link(Counter, Body.Out(TEXT("Index")));
}

void ForEachLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UK2Node_CallArrayFunction& Length = ArrayLength(Body);
	UEdGraphPin* const Counter = LoopOver(
		Body, Body.In(TEXT("Exec")), nullptr, Length.GetReturnValuePin(), TEXT("Less_IntInt"));
	FBody::Link(Counter, Body.Out(TEXT("Array Index")));
	GetElement(Body, Counter, TEXT("Array Element"));
}

void ReverseForEachLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UK2Node_CallArrayFunction& Length = ArrayLength(Body);
	UEdGraphPin* const Counter = LoopOver(
		Body, Body.In(TEXT("Exec")), nullptr, Length.GetReturnValuePin(), TEXT("Less_IntInt"));
	UK2Node_CallFunction& FromEnd = Body.Call(Math, TEXT("Subtract_IntInt"));
	FBody::Link(Length.GetReturnValuePin(), FromEnd.FindPin(TEXT("A"), EGPD_Input));
	FBody::Link(Counter, FromEnd.FindPin(TEXT("B"), EGPD_Input));
	UK2Node_CallFunction& Index = Body.Call(Math, TEXT("Subtract_IntInt"));
	FBody::Link(FromEnd.GetReturnValuePin(), Index.FindPin(TEXT("A"), EGPD_Input));
	SetDefault(Index, TEXT("B"), TEXT("1"));
	FBody::Link(Index.GetReturnValuePin(), Body.Out(TEXT("ArrayIndex")));
	GetElement(Body, Index.GetReturnValuePin(), TEXT("ArrayElement"));
}

void WhileLoop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UK2Node_IfThenElse& Branch = Body.Branch(Body.In(TEXT("Condition")));
	FBody::Run(Body.In(TEXT("execute")), Branch);
	FBody::Run(Loop(Body, Branch).GetThenPinGivenIndex(1), Branch);
}

void DoOnce(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UEdGraphPin* const Initialized = State(Body);
	UEdGraphPin* const Closed = State(Body);
	UK2Node_IfThenElse& IsClosed = BranchOnClosed(
		Body, Body.In(TEXT("execute")), Initialized, Closed, TEXT("Start Closed"));
	UK2Node_AssignmentStatement& Close = Body.Assign(Closed, nullptr, TEXT("true"));
	FBody::Run(IsClosed.GetElsePin(), Close);
	FBody::Link(Close.GetThenPin(), Body.Out(TEXT("Completed")));
	UK2Node_AssignmentStatement& Reset = Body.Assign(Closed, nullptr, TEXT("false"));
	FBody::Run(Body.In(TEXT("Reset")), Reset);
}

void DoN(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UEdGraphPin* const Counter = Body.Local(UEdGraphSchema_K2::PC_Int, true).GetVariablePin();
	UK2Node_IfThenElse& Branch = BranchOn(Body, TEXT("Less_IntInt"), Counter, Body.In(TEXT("n")));
	FBody::Run(Body.In(TEXT("Enter")), Branch);
	UK2Node_AssignmentStatement& Step = Increment(Body, Counter);
	FBody::Run(Branch.GetThenPin(), Step);
	FBody::Link(Step.GetThenPin(), Body.Out(TEXT("Exit")));
	FBody::Link(Counter, Body.Out(TEXT("Counter")));
	UK2Node_AssignmentStatement& Reset = Body.Assign(Counter, nullptr, TEXT("0"));
	FBody::Run(Body.In(TEXT("Reset")), Reset);
}

void Gate(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UEdGraphPin* const Initialized = State(Body);
	UEdGraphPin* const Closed = State(Body);
	UK2Node_IfThenElse& IsClosed = BranchOnClosed(
		Body, Body.In(TEXT("Enter")), Initialized, Closed, TEXT("bStartClosed"));
	FBody::Link(IsClosed.GetElsePin(), Body.Out(TEXT("Exit")));
	UK2Node_CallFunction& Not = Body.Call(Math, TEXT("Not_PreBool"));
	FBody::Link(Closed, Not.FindPin(TEXT("A"), EGPD_Input));
	FBody::Run(Body.In(TEXT("Open")), Body.Assign(Closed, nullptr, TEXT("false")));
	FBody::Run(Body.In(TEXT("Close")), Body.Assign(Closed, nullptr, TEXT("true")));
	FBody::Run(Body.In(TEXT("Toggle")), Body.Assign(Closed, Not.GetReturnValuePin()));
}

void FlipFlop(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UEdGraphPin* const IsA = State(Body);
	UK2Node_CallFunction& Not = Body.Call(Math, TEXT("Not_PreBool"));
	FBody::Link(IsA, Not.FindPin(TEXT("A"), EGPD_Input));
	UK2Node_AssignmentStatement& Flip = Body.Assign(IsA, Not.GetReturnValuePin());
	FBody::Run(Entry.Pins.IsEmpty() ? nullptr : Entry.Pins[0], Flip);
	UK2Node_IfThenElse& Branch = Body.Branch(IsA);
	FBody::Run(Flip.GetThenPin(), Branch);
	FBody::Link(Branch.GetThenPin(), Body.Out(TEXT("A")));
	FBody::Link(Branch.GetElsePin(), Body.Out(TEXT("B")));
	FBody::Link(IsA, Body.Out(TEXT("IsA")));
}

void IsValid(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UK2Node_CallFunction& Check = Body.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("IsValid"));
	FBody::Link(Body.In(TEXT("InputObject")), Check.FindPin(TEXT("Object"), EGPD_Input));
	UK2Node_IfThenElse& Branch = Body.Branch(Check.GetReturnValuePin());
	FBody::Run(Body.In(TEXT("exec")), Branch);
	FBody::Link(Branch.GetThenPin(), Body.Out(TEXT("Is Valid")));
	FBody::Link(Branch.GetElsePin(), Body.Out(TEXT("Is Not Valid")));
}

void IsValidClass(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UK2Node_CallFunction& Check = Body.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("IsValidClass"));
	FBody::Link(Body.In(TEXT("InputClass")), Check.FindPin(TEXT("Class"), EGPD_Input));
	UK2Node_IfThenElse& Branch = Body.Branch(Check.GetReturnValuePin());
	FBody::Run(Body.In(TEXT("exec")), Branch);
	FBody::Link(Branch.GetThenPin(), Body.Out(TEXT("Is Valid")));
	FBody::Link(Branch.GetElsePin(), Body.Out(TEXT("Is Not Valid")));
}

namespace
{
void Compare(FBody& Body, const TCHAR* Greater, const TCHAR* Equal)
{
	UEdGraphPin* const Input = Body.In(TEXT("Input"));
	UEdGraphPin* const With = Body.In(TEXT("CompareWith"));
	UK2Node_IfThenElse& IsGreater = BranchOn(Body, Greater, Input, With);
	FBody::Run(Body.In(TEXT("Exec")), IsGreater);
	FBody::Link(IsGreater.GetThenPin(), Body.Out(TEXT(">")));
	UK2Node_IfThenElse& IsEqual = BranchOn(Body, Equal, Input, With);
	FBody::Run(IsGreater.GetElsePin(), IsEqual);
	FBody::Link(IsEqual.GetThenPin(), Body.Out(TEXT("==")));
	FBody::Link(IsEqual.GetElsePin(), Body.Out(TEXT("<")));
}
} // namespace

void CompareInt(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	Compare(Body, TEXT("Greater_IntInt"), TEXT("EqualEqual_IntInt"));
}

void CompareFloat(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	Compare(Body, TEXT("Greater_DoubleDouble"), TEXT("EqualEqual_DoubleDouble"));
}

void IncrementInt(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	ChangeByOne(Body, TEXT("Add_IntInt"), TEXT("1"));
}

void DecrementInt(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	ChangeByOne(Body, TEXT("Subtract_IntInt"), TEXT("1"));
}

void IncrementFloat(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	ChangeByOne(Body, TEXT("Add_DoubleDouble"), TEXT("1.0"));
}

void DecrementFloat(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	ChangeByOne(Body, TEXT("Subtract_DoubleDouble"), TEXT("1.0"));
}

namespace
{
void BranchOnAuthority(FBody& Body, UK2Node_CallFunction& HasAuthority)
{
	UK2Node_IfThenElse& Branch = Body.Branch(HasAuthority.GetReturnValuePin());
	FBody::Run(Body.In(TEXT("execute")), Branch);
	FBody::Link(Branch.GetThenPin(), Body.Out(TEXT("Authority")));
	FBody::Link(Branch.GetElsePin(), Body.Out(TEXT("Remote")));
}
} // namespace

void SwitchHasAuthority(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	BranchOnAuthority(Body, Body.Call(TEXT("/Script/Engine.Actor"), TEXT("HasAuthority")));
}

void SwitchOwnerHasAuthority(UEdGraph& Graph, UK2Node_Tunnel& Entry, UK2Node_Tunnel& Exit)
{
	FBody Body(Graph, Entry, Exit);
	UK2Node_CallFunction& Owner = Body.Call(TEXT("/Script/Engine.ActorComponent"), TEXT("GetOwner"));
	UK2Node_CallFunction& HasAuthority = Body.Call(TEXT("/Script/Engine.Actor"), TEXT("HasAuthority"));
	FBody::Link(Owner.GetReturnValuePin(), HasAuthority.FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input));
	BranchOnAuthority(Body, HasAuthority);
}
} // namespace StandardMacroBodies
