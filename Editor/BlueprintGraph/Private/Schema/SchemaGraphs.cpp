// Graphs as wholes: what kind one is, what it starts with, how it is named, and the flags of the function that it
// makes.

#include "EdGraphSchema_K2.h"

#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Tunnel.h"
#include "Standalone/BlueprintClassProvider.h"
#include "UObject/UnrealType.h"

namespace SchemaGraphs
{
/** Room between the ends of a new graph. */
constexpr int32 EndsGap = 256;
/** A node that was never drawn, in the units of the graph: its title and each row of pins. */
constexpr float TitleHeight = 48.0f;
constexpr float PinHeight = 24.0f;

static const UBlueprint* BlueprintOf(const UEdGraph& Graph)
{
	return Graph.GetTypedOuter<UBlueprint>();
}

static bool IsOf(const TArray<TObjectPtr<UEdGraph>>& Graphs, const UEdGraph* Graph)
{
	return Graphs.ContainsByPredicate([Graph](const TObjectPtr<UEdGraph>& Each) { return Each == Graph; });
}

template <class T>
T* FindFirst(const UEdGraph& Graph)
{
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (T* const Typed = Cast<T>(Node))
		{
			return Typed;
		}
	}
	return nullptr;
}

template <class T>
T* Place(UEdGraph& Graph, const FMemberReference& Reference)
{
	FGraphNodeCreator<T> Creator(Graph);
	T* const Node = Creator.CreateNode();
	Node->FunctionReference = Reference;
	Creator.Finalize();
	return Node;
}

static bool IsParameter(const FProperty& Property)
{
	return Property.HasAnyPropertyFlags(CPF_Parm);
}

static bool IsInput(const FProperty& Property)
{
	return !Property.HasAnyPropertyFlags(CPF_OutParm) || Property.HasAnyPropertyFlags(CPF_ReferenceParm);
}

/** Gives an end pins of its own after the parameters of a signature. */
static void CopyParameters(UK2Node_EditablePinBase& End, const UFunction& Signature, bool bInputs)
{
	for (TFieldIterator<FProperty> It(&Signature, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		FEdGraphPinType Type;
		if (IsParameter(**It) && IsInput(**It) == bInputs && !End.UserDefinedPinExists(It->GetFName())
			&& UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(*It, Type))
		{
			End.CreateUserDefinedPin(It->GetFName(), Type, bInputs ? EGPD_Output : EGPD_Input, false);
		}
	}
}

static void LinkEnds(const UEdGraphSchema_K2& Schema, UK2Node& Entry, UK2Node& Result)
{
	Result.NodePosX = Entry.NodePosX + EndsGap + Entry.NodeWidth;
	Result.NodePosY = Entry.NodePosY;
	UEdGraphPin* const Then = UEdGraphSchema_K2::FindExecutionPin(Entry, EGPD_Output);
	UEdGraphPin* const Execute = UEdGraphSchema_K2::FindExecutionPin(Result, EGPD_Input);
	if (Then && Execute && Then->LinkedTo.IsEmpty())
	{
		Schema.TryCreateConnection(Then, Execute);
	}
}

/** Removes the node whose inner graph this is. Null outcome: the graph belongs to no node. */
static UEdGraphNode* FindOwner(const UEdGraph& Graph)
{
	const UEdGraph* const Parent = Graph.GetParentGraph();
	UEdGraphNode* const Direct = Cast<UEdGraphNode>(Graph.GetOuter());
	if (Direct || !Parent)
	{
		return Direct;
	}
	for (UEdGraphNode* const Node : Parent->Nodes)
	{
		if (Node->GetSubGraphs().Contains(const_cast<UEdGraph*>(&Graph)))
		{
			return Node;
		}
	}
	return nullptr;
}

static FText NameOfFunctionGraph(const UEdGraph& Graph)
{
	const UBlueprint* const Blueprint = BlueprintOf(Graph);
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	const UFunction* const Overridden = Parent ? Parent->FindFunctionByName(Graph.GetFName()) : nullptr;
	return Overridden ? UEdGraphSchema_K2::GetFriendlySignatureName(Overridden)
					  : FText::FromString(FName::NameToDisplayString(Graph.GetName(), false));
}
} // namespace SchemaGraphs

EGraphType UEdGraphSchema_K2::GetGraphType(const UEdGraph* TestEdGraph) const
{
	using namespace SchemaGraphs;
	const UBlueprint* const Blueprint = TestEdGraph ? BlueprintOf(*TestEdGraph) : nullptr;
	// A collapsed graph is of the kind of the graph that it stands in.
	for (const UEdGraph* Graph = TestEdGraph; Blueprint && Graph; Graph = Graph->GetTypedOuter<UEdGraph>())
	{
		if (IsOf(Blueprint->UbergraphPages, Graph) || IsOf(Blueprint->EventGraphs, Graph))
		{
			return GT_Ubergraph;
		}
		if (IsOf(Blueprint->MacroGraphs, Graph))
		{
			return GT_Macro;
		}
		if (IsOf(Blueprint->FunctionGraphs, Graph) || IsOf(Blueprint->DelegateSignatureGraphs, Graph))
		{
			return GT_Function;
		}
	}
	return Super::GetGraphType(TestEdGraph);
}

bool UEdGraphSchema_K2::IsConstructionScript(const UEdGraph* TestEdGraph)
{
	return TestEdGraph && TestEdGraph->GetFName() == FN_UserConstructionScript;
}

bool UEdGraphSchema_K2::DoesGraphSupportImpureFunctions(const UEdGraph* InGraph) const
{
	const EGraphType Type = GetGraphType(InGraph);
	return Type == GT_Function || Type == GT_Ubergraph || Type == GT_Macro;
}

void UEdGraphSchema_K2::CreateDefaultNodesForGraph(UEdGraph& Graph) const
{
	FMemberReference Reference;
	Reference.SetMemberName(Graph.GetFName());
	SchemaGraphs::Place<UK2Node_FunctionEntry>(Graph, Reference);
}

void UEdGraphSchema_K2::CreateFunctionGraphTerminators(UEdGraph& Graph, UClass* Class) const
{
	using namespace SchemaGraphs;
	const UFunction* const Signature = Class ? Class->FindFunctionByName(Graph.GetFName()) : nullptr;
	FMemberReference Reference;
	if (Signature)
	{
		Reference.SetExternalMember(Graph.GetFName(), Class);
	}
	else
	{
		Reference.SetMemberName(Graph.GetFName());
	}
	UK2Node_FunctionEntry* Entry = FindFirst<UK2Node_FunctionEntry>(Graph);
	if (!Entry)
	{
		Entry = Place<UK2Node_FunctionEntry>(Graph, Reference);
	}
	else if (Signature)
	{
		Entry->FunctionReference = Reference;
		Entry->ReconstructNode();
	}
	if (Signature && HasFunctionAnyOutputParameter(Signature) && !FindFirst<UK2Node_FunctionResult>(Graph))
	{
		LinkEnds(*this, *Entry, *Place<UK2Node_FunctionResult>(Graph, Reference));
	}
}

void UEdGraphSchema_K2::CreateFunctionGraphTerminators(UEdGraph& Graph, const UFunction* FunctionSignature) const
{
	using namespace SchemaGraphs;
	check(FunctionSignature);
	FMemberReference Reference;
	Reference.SetMemberName(Graph.GetFName());
	UK2Node_FunctionEntry* Entry = FindFirst<UK2Node_FunctionEntry>(Graph);
	if (!Entry)
	{
		Entry = Place<UK2Node_FunctionEntry>(Graph, Reference);
	}
	CopyParameters(*Entry, *FunctionSignature, true);
	if (HasFunctionAnyOutputParameter(FunctionSignature) && !FindFirst<UK2Node_FunctionResult>(Graph))
	{
		UK2Node_FunctionResult* const Result = Place<UK2Node_FunctionResult>(Graph, Reference);
		CopyParameters(*Result, *FunctionSignature, false);
		LinkEnds(*this, *Entry, *Result);
	}
}

void UEdGraphSchema_K2::CreateMacroGraphTerminators(UEdGraph& Graph, UClass*) const
{
	for (const bool bEntry : {true, false})
	{
		FGraphNodeCreator<UK2Node_Tunnel> Creator(Graph);
		UK2Node_Tunnel* const Tunnel = Creator.CreateNode();
		Tunnel->bCanHaveOutputs = bEntry;
		Tunnel->bCanHaveInputs = !bEntry;
		Tunnel->bIsEditable = true;
		Tunnel->NodePosX = bEntry ? 0 : 2 * SchemaGraphs::EndsGap;
		Creator.Finalize();
	}
}

void UEdGraphSchema_K2::AddExtraFunctionFlags(const UEdGraph* CurrentGraph, int32 ExtraFlags) const
{
	for (UEdGraphNode* const Node : CurrentGraph->Nodes)
	{
		if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			Entry->Modify();
			Entry->AddExtraFlags(ExtraFlags);
		}
	}
}

void UEdGraphSchema_K2::ClearExtraFunctionFlags(const UEdGraph* CurrentGraph, int32 ExtraFlags) const
{
	for (UEdGraphNode* const Node : CurrentGraph->Nodes)
	{
		if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			Entry->Modify();
			Entry->ClearExtraFlags(ExtraFlags);
		}
	}
}

void UEdGraphSchema_K2::MarkFunctionEntryAsEditable(const UEdGraph* CurrentGraph, bool bNewEditable) const
{
	for (UEdGraphNode* const Node : CurrentGraph->Nodes)
	{
		if (UK2Node_EditablePinBase* const End = Cast<UK2Node_EditablePinBase>(Node))
		{
			End->Modify();
			End->bIsEditable = bNewEditable;
		}
	}
}

void UEdGraphSchema_K2::GetGraphDisplayInformation(const UEdGraph& Graph, FGraphDisplayInfo& DisplayInfo) const
{
	Super::GetGraphDisplayInformation(Graph, DisplayInfo);
	const UEdGraphNode* const Owner = SchemaGraphs::FindOwner(Graph);
	if (Owner)
	{
		DisplayInfo.DisplayName = DisplayInfo.PlainName;
		return;
	}
	if (IsConstructionScript(&Graph))
	{
		DisplayInfo.PlainName = FText::FromString(TEXT("ConstructionScript"));
		DisplayInfo.DisplayName = FText::FromString(TEXT("Construction Script"));
		return;
	}
	switch (GetGraphType(&Graph))
	{
	case GT_Function:
		DisplayInfo.DisplayName = SchemaGraphs::NameOfFunctionGraph(Graph);
		break;
	case GT_Macro:
		break;
	default:
		DisplayInfo.DisplayName = FText::FromString(FName::NameToDisplayString(Graph.GetName(), false));
		break;
	}
}

bool UEdGraphSchema_K2::TryDeleteGraph(UEdGraph* GraphToDelete) const
{
	if (!GraphToDelete || !GraphToDelete->bAllowDeletion)
	{
		return false;
	}
	if (UEdGraphNode* const Owner = SchemaGraphs::FindOwner(*GraphToDelete))
	{
		Owner->Modify();
		Owner->DestroyNode();
		return true;
	}
	UBlueprint* const Blueprint = GraphToDelete->GetTypedOuter<UBlueprint>();
	const auto RemoveGraph = BlueprintClassProvider::Get().RemoveGraph;
	if (!Blueprint || !RemoveGraph)
	{
		return false;
	}
	Blueprint->Modify();
	RemoveGraph(Blueprint, GraphToDelete);
	return true;
}

FText UEdGraphSchema_K2::GetPinDisplayName(const UEdGraphPin* Pin) const
{
	const FText Name = Super::GetPinDisplayName(Pin);
	const bool bIsPlainExec = Pin->PinType.PinCategory == PC_Exec && Pin->PinFriendlyName.IsEmpty()
		&& (Pin->PinName == PN_Execute || Pin->PinName == PN_Then);
	if (bIsPlainExec)
	{
		// The arrow says it all.
		return FText::GetEmpty();
	}
	if (!Pin->bAllowFriendlyName)
	{
		return Name;
	}
	return FText::FromString(FName::NameToDisplayString(Name.ToString(), Pin->PinType.PinCategory == PC_Boolean));
}

float UEdGraphSchema_K2::EstimateNodeHeight(UEdGraphNode* Node)
{
	if (!Node)
	{
		return 0.0f;
	}
	int32 Inputs = 0;
	int32 Outputs = 0;
	for (const UEdGraphPin* const Pin : Node->Pins)
	{
		const bool bFolded = Pin->bAdvancedView && Node->AdvancedPinDisplay == ENodeAdvancedPins::Hidden
			&& Pin->LinkedTo.IsEmpty();
		if (!Pin->bHidden && !bFolded)
		{
			++(Pin->Direction == EGPD_Input ? Inputs : Outputs);
		}
	}
	return SchemaGraphs::TitleHeight + SchemaGraphs::PinHeight * static_cast<float>(FMath::Max(Inputs, Outputs));
}
