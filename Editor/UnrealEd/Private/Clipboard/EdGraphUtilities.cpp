#include "EdGraphUtilities.h"

#include "Clipboard/PastedNodes.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "Engine/Blueprint.h"
#include "K2Node.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/FeedbackContext.h"
#include "Standalone/ObjectText.h"

namespace GraphClipboard
{
/** Whether the graph's rules allow a node of the class at all. */
static bool IsClassAllowed(const UClass& Class, const UEdGraph& Graph)
{
	if (!Class.IsChildOf(UEdGraphNode::StaticClass()) || Class.HasAnyClassFlags(CLASS_Abstract))
	{
		return false;
	}
	return static_cast<const UEdGraphNode*>(Class.GetDefaultObject())->CanCreateUnderSpecifiedSchema(Graph.GetSchema());
}

/** Makes a node of the text; names that are taken in the graph give way to new ones. */
static UObject* MakeNode(const FObjectTextRecord& Record, UEdGraph& Graph, FFeedbackContext& Warn)
{
	const UClass* const Class = FObjectTextImport::FindClass(Record.ClassPath);
	if (!Class)
	{
		return FObjectTextImport::DefaultFactory(Record, &Graph);
	}
	if (!IsClassAllowed(*Class, Graph))
	{
		Warn.Logf(TEXT("line %d: '%s' is left out, since the graph '%s' takes no '%s'"), Record.LineNumber,
			*Record.GetName(), *Graph.GetName(), *Class->GetName());
		return nullptr;
	}
	FName Name(Record.GetName());
	if (Name.IsNone() || !IsUniqueObjectName(Name, &Graph))
	{
		Name = MakeUniqueObjectName(&Graph, Class);
	}
	return NewObject<UEdGraphNode>(&Graph, Class, Name, RF_Transactional);
}

/** Pins name the nodes that they are linked to as the text does; the nodes have other names by now. */
static void RenameReferences(UEdGraphNode& Node, const FObjectTextImport& Import, const UObject* TextOuter)
{
	const auto Rename = [&Import, TextOuter](UEdGraphPin::FPendingReference& Reference)
	{
		const UObject* const Made = Import.FindMade(ToUtf8(Reference.NodeName), TextOuter);
		Reference.NodeName = Made ? Made->GetName() : FString();
	};
	for (UEdGraphPin* const Pin : Node.Pins)
	{
		UEdGraphPin::FPendingReferences* const Pending = Pin->Pending.Get();
		if (!Pending)
		{
			continue;
		}
		for (TArray<UEdGraphPin::FPendingReference>* const List : {&Pending->LinkedTo, &Pending->SubPins})
		{
			for (UEdGraphPin::FPendingReference& Reference : *List)
			{
				Rename(Reference);
			}
		}
		for (TOptional<UEdGraphPin::FPendingReference>* const Single : {&Pending->ParentPin, &Pending->PassThrough})
		{
			if (Single->IsSet())
			{
				Rename(**Single);
			}
		}
	}
}

static void RenewIds(UEdGraphNode& Node)
{
	Node.CreateNewGuid();
	for (UEdGraphPin* const Pin : Node.Pins)
	{
		Pin->PinId = FGuid::NewGuid();
	}
}

/** Links the nodes of one graph of the text among themselves. */
static void FinishNodes(const TArray<UEdGraphNode*>& Nodes, const FObjectTextImport& Import, const UObject* TextOuter)
{
	for (UEdGraphNode* const Node : Nodes)
	{
		RenameReferences(*Node, Import, TextOuter);
	}
	UEdGraphNode::ResolvePinReferences(Nodes);
	for (UEdGraphNode* const Node : Nodes)
	{
		RenewIds(*Node);
	}
}

static void FinishInnerGraphs(const FObjectTextImport& Import)
{
	for (const FObjectTextImport::FMade& Made : Import.GetMade())
	{
		UEdGraph* const Graph = Cast<UEdGraph>(Made.Object);
		if (!Graph)
		{
			continue;
		}
		Graph->GraphGuid = FGuid::NewGuid();
		TArray<UEdGraphNode*> Nodes;
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			if (Node)
			{
				Nodes.Add(Node);
			}
		}
		FinishNodes(Nodes, Import, Graph);
	}
}

static bool Parse(const FString& Text, FObjectTextTree& OutTree, FFeedbackContext& Warn)
{
	FObjectTextError Error;
	FObjectTextTree::FPassedOver Other;
	if (!OutTree.ParseAmidOtherText(ToUtf8(Text), Error, Other))
	{
		Warn.Logf(TEXT("%s"), *Error.ToString());
		return false;
	}
	if (Other.NumLines > 0)
	{
		Warn.Logf(TEXT("line %d: %d line(s) that belong to no object are passed over, the first is '%s'"),
			Other.FirstLineNumber, Other.NumLines, *Other.FirstLine);
	}
	return true;
}

/** The nodes and all that live in graphs below them, each before those below it. */
static void AddWithInnerNodes(TConstArrayView<UEdGraphNode*> Nodes, TArray<UEdGraphNode*>& OutNodes)
{
	for (UEdGraphNode* const Node : Nodes)
	{
		OutNodes.Add(Node);
		for (const UEdGraph* const Inner : Node->GetSubGraphs())
		{
			TArray<UEdGraphNode*> Below;
			if (Inner)
			{
				Inner->GetNodesOfClass(Below);
			}
			AddWithInnerNodes(Below, OutNodes);
		}
	}
}

/** The node in its place, or what stands there for it; null when nothing does. */
static UEdGraphNode* PutInPlace(UEdGraphNode& Pasted, FFeedbackContext& Warn)
{
	UEdGraphNode* const Node = PastedNodes::Settle(Pasted, Warn);
	if (Node != &Pasted)
	{
		Pasted.DestroyNode();
		return Node;
	}
	for (UEdGraph* const Inner : Pasted.GetSubGraphs())
	{
		if (Inner)
		{
			Pasted.GetGraph()->SubGraphs.AddUnique(Inner);
		}
	}
	Pasted.PostPasteNode();
	Pasted.SetFlags(RF_Transactional);
	return Node;
}

class FDroppedWarnings final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR*, ELogVerbosity::Type, const FName&) override {}
};
} // namespace GraphClipboard

void FEdGraphUtilities::ExportNodesToText(const TSet<UObject*>& NodesToExport, FString& ExportedText)
{
	TArray<UObject*> Nodes;
	UObject* Scope = nullptr;
	for (UObject* const Object : NodesToExport)
	{
		if (UEdGraphNode* const Node = Cast<UEdGraphNode>(Object))
		{
			Node->PrepareForCopying();
			Scope = Node->GetOuter();
			Nodes.Add(Node);
		}
	}
	ExportedText = FObjectTextExport::Clipboard(Scope).ToString(Nodes);
}

void FEdGraphUtilities::ImportNodesFromText(UEdGraph* DestinationGraph, const FString& TextToImport,
	TSet<UEdGraphNode*>& ImportedNodeSet, FFeedbackContext* Warn)
{
	FFeedbackContext& Warnings = Warn ? *Warn : *GWarn;
	FObjectTextTree Tree;
	if (!DestinationGraph || !GraphClipboard::Parse(TextToImport, Tree, Warnings))
	{
		return;
	}
	DestinationGraph->Modify();
	FObjectTextImport Import(Warnings);
	TArray<UEdGraphNode*> Nodes;
	for (const FObjectTextRecord& Record : Tree.Objects)
	{
		UObject* const Made = Import.Create(Record, DestinationGraph,
			[&](const FObjectTextRecord& Wanted, UObject* Outer) -> UObject*
			{
				if (Outer == DestinationGraph)
				{
					return GraphClipboard::MakeNode(Wanted, *DestinationGraph, Warnings);
				}
				UObject* const Inner = FObjectTextImport::DefaultFactory(Wanted, Outer);
				if (!Inner)
				{
					FKeptObjectText::KeepRecord(Wanted, Outer, Warnings);
				}
				return Inner;
			});
		if (UEdGraphNode* const Node = Cast<UEdGraphNode>(Made))
		{
			DestinationGraph->AddNode(Node, true);
			Nodes.Add(Node);
			ImportedNodeSet.Add(Node);
		}
	}
	Import.ImportProperties();
	GraphClipboard::FinishNodes(Nodes, Import, nullptr);
	GraphClipboard::FinishInnerGraphs(Import);
	for (UEdGraphNode* const Node : Nodes)
	{
		Node->PostEditImport();
		// What another compiler said about the node is not known to be true here.
		Node->ErrorType = 0;
		Node->ErrorMsg.Empty();
	}
	DestinationGraph->NotifyGraphChanged();
}

bool FEdGraphUtilities::CanImportNodesFromText(const UEdGraph* DestinationGraph, const FString& TextToImport)
{
	GraphClipboard::FDroppedWarnings Dropped;
	FObjectTextTree Tree;
	if (!DestinationGraph || !GraphClipboard::Parse(TextToImport, Tree, Dropped))
	{
		return false;
	}
	for (const FObjectTextRecord& Record : Tree.Objects)
	{
		const UClass* const Class = FObjectTextImport::FindClass(Record.ClassPath);
		if (!Class || GraphClipboard::IsClassAllowed(*Class, *DestinationGraph))
		{
			return true;
		}
	}
	return false;
}

void FEdGraphUtilities::PostProcessPastedNodes(TSet<UEdGraphNode*>& SpawnedNodes, FFeedbackContext* Warn)
{
	FFeedbackContext& Warnings = Warn ? *Warn : *GWarn;
	TArray<UEdGraphNode*> Nodes;
	GraphClipboard::AddWithInnerNodes(SpawnedNodes.Array(), Nodes);
	for (UEdGraphNode* const Node : Nodes)
	{
		PastedNodes::RepairTypes(*Node);
	}
	for (UEdGraphNode*& Node : Nodes)
	{
		UEdGraphNode* const InPlace = GraphClipboard::PutInPlace(*Node, Warnings);
		if (InPlace != Node && SpawnedNodes.Remove(Node) > 0 && InPlace)
		{
			SpawnedNodes.Add(InPlace);
		}
		Node = InPlace;
	}
	// Calls may be of events that came with them.
	for (const UEdGraphNode* const Node : SpawnedNodes)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Node->GetTypedOuter<UBlueprint>());
		break;
	}
	// What is inside of a node decides on its pins, so it goes first.
	for (int32 Index = Nodes.Num() - 1; Index >= 0; --Index)
	{
		if (Nodes[Index])
		{
			PastedNodes::Renew(*Nodes[Index], Warnings);
		}
	}
}
