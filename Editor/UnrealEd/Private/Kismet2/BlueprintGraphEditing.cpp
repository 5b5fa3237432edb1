// Adding, removing and renaming of graphs and nodes, and telling that a Blueprint changed.

#include "Kismet2/BlueprintEditorUtils.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_Timeline.h"
#include "Standalone/BlueprintClassProvider.h"

void FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(UBlueprint* Blueprint)
{
	if (!Blueprint)
	{
		return;
	}
	Blueprint->bSkeletonIsStale = true;
	if (Blueprint->Status != BS_BeingCreated)
	{
		Blueprint->Status = BS_Dirty;
	}
	Blueprint->MarkPackageDirty();
}

void FBlueprintEditorUtils::MarkBlueprintAsModified(UBlueprint* Blueprint, FPropertyChangedEvent)
{
	if (!Blueprint)
	{
		return;
	}
	if (Blueprint->Status != BS_BeingCreated)
	{
		Blueprint->Status = BS_Dirty;
	}
	Blueprint->MarkPackageDirty();
}

void FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(UBlueprint* Blueprint)
{
	if (Blueprint && Blueprint->bSkeletonIsStale)
	{
		FBlueprintClassBuilder::Build(*Blueprint);
	}
}

void FBlueprintEditorUtils::RefreshAllNodes(UBlueprint* Blueprint)
{
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	for (UEdGraph* const Graph : Graphs)
	{
		const TArray<TObjectPtr<UEdGraphNode>> Nodes = Graph->Nodes;
		for (UEdGraphNode* const Node : Nodes)
		{
			Node->ReconstructNode();
		}
	}
	MarkBlueprintAsStructurallyModified(Blueprint);
}

UEdGraph* FBlueprintEditorUtils::CreateNewGraph(UObject* ParentScope, const FName& GraphName,
	TSubclassOf<UEdGraph> GraphClass, TSubclassOf<UEdGraphSchema> SchemaClass)
{
	const FName Name = !GraphName.IsNone() && IsUniqueObjectName(GraphName, ParentScope)
		? GraphName
		: MakeUniqueObjectName(ParentScope, GraphClass.Get(), GraphName);
	UEdGraph* const Graph = NewObject<UEdGraph>(ParentScope, GraphClass.Get(), Name, RF_Transactional);
	Graph->Schema = SchemaClass;
	Graph->GraphGuid = FGuid::NewGuid();
	return Graph;
}

namespace GraphEditing
{
static const UEdGraphSchema_K2& SchemaOf(const UEdGraph& Graph)
{
	const UEdGraphSchema_K2* const Schema = Cast<UEdGraphSchema_K2>(Graph.GetSchema());
	return Schema ? *Schema : *GetDefault<UEdGraphSchema_K2>();
}

template <class TSignature>
void AddFunctionGraph(UBlueprint& Blueprint, UEdGraph& Graph, bool bIsUserCreated, TSignature* Signature)
{
	const UEdGraphSchema_K2& Schema = SchemaOf(Graph);
	if (Signature)
	{
		Schema.CreateFunctionGraphTerminators(Graph, Signature);
	}
	else
	{
		Schema.CreateDefaultNodesForGraph(Graph);
	}
	if (bIsUserCreated)
	{
		const bool bLibrary = Blueprint.BlueprintType == BPTYPE_FunctionLibrary;
		const int32 Flags = FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public;
		Schema.AddExtraFunctionFlags(&Graph, bLibrary ? Flags | FUNC_Static : Flags);
		Schema.MarkFunctionEntryAsEditable(&Graph, true);
	}
	Blueprint.FunctionGraphs.Add(&Graph);
	FBlueprintEditorUtils::ValidateBlueprintChildVariables(&Blueprint, Graph.GetFName());
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}
} // namespace GraphEditing

void FBlueprintEditorUtils::CreateFunctionGraphTerminators(UEdGraph* Graph, UClass* SignatureClass)
{
	const UEdGraphSchema_K2& Schema = GraphEditing::SchemaOf(*Graph);
	if (Graph->Nodes.IsEmpty())
	{
		Schema.CreateDefaultNodesForGraph(*Graph);
	}
	if (GetEntryNode(Graph) == nullptr || SignatureClass)
	{
		Schema.CreateFunctionGraphTerminators(*Graph, SignatureClass);
	}
}

void FBlueprintEditorUtils::AddFunctionGraphFromClass(
	UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UClass* Signature)
{
	GraphEditing::AddFunctionGraph(*Blueprint, *Graph, bIsUserCreated, Signature);
}

void FBlueprintEditorUtils::AddFunctionGraphFromFunction(
	UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, const UFunction* Signature)
{
	GraphEditing::AddFunctionGraph(*Blueprint, *Graph, bIsUserCreated, Signature);
}

void FBlueprintEditorUtils::AddInterfaceGraph(UBlueprint* Blueprint, UEdGraph* Graph, UClass* InterfaceClass)
{
	GraphEditing::SchemaOf(*Graph).CreateFunctionGraphTerminators(*Graph, InterfaceClass);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::AddUbergraphPage(UBlueprint* Blueprint, UEdGraph* Graph)
{
	Blueprint->UbergraphPages.Add(Graph);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::AddMacroGraph(
	UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UClass* SignatureFromClass)
{
	const UEdGraphSchema_K2& Schema = GraphEditing::SchemaOf(*Graph);
	Schema.CreateMacroGraphTerminators(*Graph, SignatureFromClass);
	if (bIsUserCreated)
	{
		Schema.MarkFunctionEntryAsEditable(Graph, true);
	}
	Blueprint->MacroGraphs.Add(Graph);
	ValidateBlueprintChildVariables(Blueprint, Graph->GetFName());
	MarkBlueprintAsStructurallyModified(Blueprint);
}

namespace GraphEditing
{
/** Links that leave the graph and timelines that are shown in it do not outlive it. */
static void EmptyGraph(UEdGraph& Graph)
{
	TArray<UEdGraph*> Graphs = {&Graph};
	Graph.GetAllChildrenGraphs(Graphs);
	for (UEdGraph* const Each : Graphs)
	{
		const TArray<TObjectPtr<UEdGraphNode>> Nodes = Each->Nodes;
		for (UEdGraphNode* const Node : Nodes)
		{
			if (Node->IsA<UK2Node_Timeline>())
			{
				Node->DestroyNode();
			}
			else
			{
				Node->BreakAllNodeLinks();
			}
		}
	}
}

static void TakeOutOfLists(UBlueprint& Blueprint, UEdGraph* Graph)
{
	for (TArray<TObjectPtr<UEdGraph>>* const List : {&Blueprint.DelegateSignatureGraphs, &Blueprint.FunctionGraphs,
			 &Blueprint.UbergraphPages, &Blueprint.MacroGraphs, &Blueprint.EventGraphs})
	{
		List->Remove(Graph);
	}
	for (FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
	{
		Interface.Graphs.Remove(Graph);
	}
}

/** The node whose inside the graph is: a collapsed graph, a state machine, a state, a transition. Null for others. */
static UEdGraphNode* FindOwner(UEdGraph& Graph)
{
	if (UEdGraphNode* const Direct = Cast<UEdGraphNode>(Graph.GetOuter()))
	{
		return Direct;
	}
	const UEdGraph* const Parent = Graph.GetParentGraph();
	const TObjectPtr<UEdGraphNode>* const Found = !Parent
		? nullptr
		: Parent->Nodes.FindByPredicate(
			[&Graph](const UEdGraphNode* Node) { return Node && Node->GetSubGraphs().Contains(&Graph); });
	return Found ? Found->Get() : nullptr;
}
} // namespace GraphEditing

void FBlueprintEditorUtils::RemoveGraph(UBlueprint* Blueprint, UEdGraph* GraphToRemove, EGraphRemoveFlags::Type Flags)
{
	if (!GraphToRemove)
	{
		return;
	}
	GraphToRemove->Modify();
	GraphEditing::EmptyGraph(*GraphToRemove);
	if (UEdGraph* const Parent = GraphToRemove->GetParentGraph())
	{
		Parent->SubGraphs.Remove(GraphToRemove);
	}
	GraphEditing::TakeOutOfLists(*Blueprint, GraphToRemove);
	if (UEdGraphNode* const Owner = GraphEditing::FindOwner(*GraphToRemove))
	{
		// A node without its inside would be a broken one.
		Owner->Modify();
		Owner->DestroyNode();
	}
	GraphToRemove->MarkAsGarbage();
	if (Flags & EGraphRemoveFlags::Recompile)
	{
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

void FBlueprintEditorUtils::RemoveGraphs(UBlueprint* Blueprint, const TArray<UEdGraph*>& GraphsToRemove)
{
	for (UEdGraph* const Graph : GraphsToRemove)
	{
		RemoveGraph(Blueprint, Graph, EGraphRemoveFlags::MarkTransient);
	}
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::RenameGraph(UEdGraph* Graph, const FString& NewNameStr)
{
	UBlueprint* const Blueprint = FindBlueprintForGraph(Graph);
	if (!Blueprint || NewNameStr.Equals(Graph->GetName(), ESearchCase::CaseSensitive))
	{
		return;
	}
	const FName OldName = Graph->GetFName();
	Graph->Modify();
	if (!Graph->Rename(*NewNameStr, nullptr))
	{
		return;
	}
	ReplaceFunctionReferences(Blueprint, OldName, Graph->GetFName());
	ValidateBlueprintChildVariables(Blueprint, Graph->GetFName());
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::RemoveNode(UBlueprint* Blueprint, UEdGraphNode* Node, bool bDontRecompile)
{
	if (!Node)
	{
		return;
	}
	const UK2Node* const K2Node = Cast<UK2Node>(Node);
	const bool bStructural = K2Node && K2Node->NodeCausesStructuralBlueprintChange();
	Node->Modify();
	if (const UEdGraphSchema* const Schema = Node->GetSchema())
	{
		Schema->BreakNodeLinks(*Node);
	}
	Node->DestroyNode();
	if (bDontRecompile)
	{
		return;
	}
	if (bStructural)
	{
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
	else
	{
		MarkBlueprintAsModified(Blueprint);
	}
}
