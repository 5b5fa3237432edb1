#include "UnsavedRuns.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "UObject/ObjectSaveContext.h"
#include "UObject/Package.h"

namespace UnsavedRuns
{
struct FTable
{
	FTable()
	{
		UPackage::PackageSavedWithContextEvent.AddLambda(
			[this](const FString&, UPackage* Package, const FObjectPostSaveContext&)
			{
				Runs.RemoveAll(
					[Package](const FRecorder& Run)
					{
						const UEdGraph* const Graph = Run.Graph.Get();
						return !Graph || Graph->GetOutermost() == Package;
					});
			});
	}

	static FTable& Get()
	{
		static FTable Table;
		return Table;
	}

	TArray<FRecorder> Runs;
};

/** What a request asks for, but for what may be mended in a second try: values and places. Empty without an id. */
static FString KeyOf(const FBPNodeModification& Record)
{
	if (Record.NodeGuid.IsEmpty())
	{
		return FString();
	}
	FString Key = FString::Join(TArray<FString>{Record.NodeGuid, Record.ClassName, Record.MenuTitle, Record.TargetClass,
									Record.TargetFunction, Record.MenuCategory},
		TEXT("\n"));
	for (const auto& [Name, Value] : Record.Metadata)
	{
		Key += TEXT("\n") + Name + TEXT("=") + Value;
	}
	return Key.ToLower();
}

static bool LeadsSomewhere(const UEdGraphNode& Node)
{
	return Node.Pins.ContainsByPredicate(
		[](const UEdGraphPin* Pin) { return Pin && Pin->Direction == EGPD_Output && !Pin->LinkedTo.IsEmpty(); });
}

static void Remove(UBlueprint& Blueprint, UEdGraphNode* Node)
{
	if (Node && IsValid(Node))
	{
		FBlueprintEditorUtils::RemoveNode(&Blueprint, Node, true);
	}
}

/** What nothing uses any more goes: a conversion whose target was taken back, though its source stands. Last ones
 * first, so that what fed them is idle in its turn. */
static void RemoveIdle(UBlueprint& Blueprint, const TArray<TWeakObjectPtr<UEdGraphNode>>& Companions)
{
	for (int32 Index = Companions.Num() - 1; Index >= 0; --Index)
	{
		UEdGraphNode* const Node = Companions[Index].Get();
		if (Node && !LeadsSomewhere(*Node))
		{
			Remove(Blueprint, Node);
		}
	}
}

static UK2Node_FunctionEntry* FindEntry(const UEdGraph& Graph)
{
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			return Entry;
		}
	}
	return nullptr;
}

static bool IsCalled(const FBPVariableDescription& Variable, const FString& Name)
{
	return Variable.VarName == *Name;
}

static void RemoveLocalVariable(const UEdGraph& Graph, const FString& Name)
{
	if (UK2Node_FunctionEntry* const Entry = FindEntry(Graph))
	{
		Entry->LocalVariables.RemoveAll(
			[&Name](const FBPVariableDescription& Variable) { return IsCalled(Variable, Name); });
	}
}

void FRecorder::Begin(UEdGraph& InGraph)
{
	Graph = &InGraph;
	for (const UEdGraphNode* const Node : InGraph.Nodes)
	{
		Before.Add(Node);
	}
	FTable::Get();
}

void FRecorder::AddLocalVariables(const TArray<FBPLocalVariableModification>& Records)
{
	const UEdGraph* const Made = Graph.Get();
	const UK2Node_FunctionEntry* const Entry = Made ? FindEntry(*Made) : nullptr;
	for (const FBPLocalVariableModification& Record : Records)
	{
		const bool bIsNew = Entry
			&& !Entry->LocalVariables.ContainsByPredicate(
				[&Record](const FBPVariableDescription& Variable) { return IsCalled(Variable, Record.Name); });
		if (Record.Action == EBPNodeAction::Add && bIsNew)
		{
			LocalVariables.Add(Record.Name.ToLower());
		}
	}
}

void FRecorder::AddNode(const FBPNodeModification& Record, UEdGraphNode& Node)
{
	const FString Key = Before.Contains(&Node) ? FString() : KeyOf(Record);
	if (!Key.IsEmpty())
	{
		Nodes.Add({Key, &Node});
	}
}

void FRecorder::Keep()
{
	UEdGraph* const Made = Graph.Get();
	if (!Made || (Nodes.IsEmpty() && LocalVariables.IsEmpty()))
	{
		return;
	}
	TSet<const UEdGraphNode*> Known = Before;
	for (const FMadeNode& Entry : Nodes)
	{
		Known.Add(Entry.Node.Get());
	}
	for (UEdGraphNode* const Node : Made->Nodes)
	{
		if (!Known.Contains(Node))
		{
			Companions.Add(Node);
		}
	}
	Before.Empty();
	FTable::Get().Runs.Add(MoveTemp(*this));
}

void TakeBack(UBlueprint& Blueprint, UEdGraph& Graph, const TArray<FBPNodeModification>& Nodes,
	const TArray<FBPLocalVariableModification>& LocalVariables)
{
	if (FTable::Get().Runs.IsEmpty())
	{
		return;
	}
	TSet<FString> Wanted;
	for (const FBPNodeModification& Record : Nodes)
	{
		Wanted.Add(KeyOf(Record));
	}
	for (FRecorder& Run : FTable::Get().Runs)
	{
		if (Run.Graph.Get() != &Graph)
		{
			continue;
		}
		for (const FRecorder::FMadeNode& Entry : Run.Nodes)
		{
			if (Wanted.Contains(Entry.Key))
			{
				Remove(Blueprint, Entry.Node.Get());
			}
		}
		RemoveIdle(Blueprint, Run.Companions);
		for (const FBPLocalVariableModification& Record : LocalVariables)
		{
			if (Record.Action == EBPNodeAction::Add && Run.LocalVariables.Remove(Record.Name.ToLower()) > 0)
			{
				RemoveLocalVariable(Graph, Record.Name);
			}
		}
	}
}
} // namespace UnsavedRuns
