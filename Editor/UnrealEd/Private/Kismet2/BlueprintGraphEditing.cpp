// Adding, removing and renaming of graphs and nodes, and telling that a Blueprint changed.

#include "Kismet2/BlueprintEditorUtils.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintClassProvider.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Variable.h"
#include "UObject/UObjectIterator.h"

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

void FBlueprintEditorUtils::RefreshVariables(UBlueprint* Blueprint)
{
	TArray<UK2Node_Variable*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node_Variable* const Node : Nodes)
	{
		Node->ReconstructNode();
	}
}

void FBlueprintEditorUtils::GetDependentBlueprints(UBlueprint* Blueprint, TArray<UBlueprint*>& DependentBlueprints)
{
	const UClass* const Class = Blueprint->GeneratedClass.Get();
	for (TObjectIterator<UBlueprint> It; It; ++It)
	{
		const UClass* const Parent = It->ParentClass.Get();
		if (*It != Blueprint && Class && Parent && Parent->IsChildOf(Class))
		{
			DependentBlueprints.AddUnique(*It);
		}
	}
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
void FinishFunctionGraph(UBlueprint& Blueprint, UEdGraph& Graph, const UEdGraphSchema_K2& Schema, bool bIsUserCreated)
{
	if (bIsUserCreated)
	{
		int32 Flags = FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public;
		if (Blueprint.BlueprintType == BPTYPE_FunctionLibrary)
		{
			Flags |= FUNC_Static;
		}
		Schema.AddExtraFunctionFlags(&Graph, Flags);
		Schema.MarkFunctionEntryAsEditable(&Graph, true);
	}
	Blueprint.FunctionGraphs.Add(&Graph);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}

const UEdGraphSchema_K2& SchemaOf(const UEdGraph& Graph)
{
	const UEdGraphSchema_K2* const Schema = Cast<UEdGraphSchema_K2>(Graph.GetSchema());
	return Schema ? *Schema : *GetDefault<UEdGraphSchema_K2>();
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
	const UEdGraphSchema_K2& Schema = GraphEditing::SchemaOf(*Graph);
	if (Signature)
	{
		Schema.CreateFunctionGraphTerminators(*Graph, Signature);
	}
	else
	{
		Schema.CreateDefaultNodesForGraph(*Graph);
	}
	GraphEditing::FinishFunctionGraph(*Blueprint, *Graph, Schema, bIsUserCreated);
}

void FBlueprintEditorUtils::AddFunctionGraphFromFunction(
	UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, const UFunction* Signature)
{
	const UEdGraphSchema_K2& Schema = GraphEditing::SchemaOf(*Graph);
	if (Signature)
	{
		Schema.CreateFunctionGraphTerminators(*Graph, Signature);
	}
	else
	{
		Schema.CreateDefaultNodesForGraph(*Graph);
	}
	GraphEditing::FinishFunctionGraph(*Blueprint, *Graph, Schema, bIsUserCreated);
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
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::RemoveGraph(UBlueprint* Blueprint, UEdGraph* GraphToRemove, EGraphRemoveFlags::Type Flags)
{
	if (!GraphToRemove)
	{
		return;
	}
	GraphToRemove->Modify();
	const TArray<TObjectPtr<UEdGraphNode>> Nodes = GraphToRemove->Nodes;
	for (UEdGraphNode* const Node : Nodes)
	{
		Node->BreakAllNodeLinks();
	}
	const TObjectPtr<UEdGraph> Graph = GraphToRemove;
	if (UEdGraph* const Parent = GraphToRemove->GetParentGraph())
	{
		Parent->SubGraphs.Remove(Graph);
	}
	Blueprint->DelegateSignatureGraphs.Remove(Graph);
	Blueprint->FunctionGraphs.Remove(Graph);
	Blueprint->UbergraphPages.Remove(Graph);
	Blueprint->MacroGraphs.Remove(Graph);
	Blueprint->EventGraphs.Remove(Graph);
	for (FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
	{
		Interface.Graphs.Remove(Graph);
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
	const FName OldName = Graph->GetFName();
	if (!Blueprint || NewNameStr.Equals(Graph->GetName()) || !Graph->Rename(*NewNameStr, nullptr))
	{
		return;
	}
	const FName NewName(NewNameStr);
	for (UEdGraphNode* const Node : Graph->Nodes)
	{
		UK2Node_FunctionTerminator* const End = Cast<UK2Node_FunctionTerminator>(Node);
		if (End && End->FunctionReference.GetMemberName() == OldName)
		{
			End->FunctionReference.SetMemberName(NewName);
		}
	}
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
