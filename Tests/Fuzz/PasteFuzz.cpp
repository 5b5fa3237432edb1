// Any bytes pasted into a Blueprint's event graph: either nothing comes of it, or nodes whose pins agree about their
// links, and whose copy can be pasted again for as many nodes.

#include "Containers/StringConv.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphUtilities.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/FeedbackContext.h"
#include "Session/EditorModules.h"
#include "UObject/Package.h"

#include <cstdint>
#include <cstdlib>

namespace PasteFuzz
{
void Require(const bool bCondition)
{
	if (!bCondition)
	{
		std::abort();
	}
}

class FSilence final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR*, ELogVerbosity::Type, const FName&) override {}
};

UBlueprint* MakeBlueprint()
{
	EditorModules::StartEditor();
	static FSilence Silence;
	GWarn = &Silence;
	UClass* const Parent = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	UPackage* const Package = CreatePackage(TEXT("/Temp/Fuzz"));
	return FKismetEditorUtilities::CreateBlueprint(Parent, Package, TEXT("Fuzz"), BPTYPE_Normal);
}

TSet<UEdGraphNode*> Paste(UEdGraph& Graph, const FString& Text)
{
	FSilence Silence;
	TSet<UEdGraphNode*> Nodes;
	FEdGraphUtilities::ImportNodesFromText(&Graph, Text, Nodes, &Silence);
	FEdGraphUtilities::PostProcessPastedNodes(Nodes, &Silence);
	return Nodes;
}

void RequireSoundPins(const UEdGraphNode& Node)
{
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Require(Pin->GetOwningNode() == &Node);
		for (const UEdGraphPin* const Other : Pin->LinkedTo)
		{
			Require(Other->LinkedTo.Contains(const_cast<UEdGraphPin*>(Pin)));
			Require(Other->GetOwningNode()->Pins.Contains(const_cast<UEdGraphPin*>(Other)));
		}
		for (const UEdGraphPin* const SubPin : Pin->SubPins)
		{
			Require(SubPin->ParentPin == Pin && SubPin->GetOwningNode() == &Node);
		}
	}
}

FString Copy(const TSet<UEdGraphNode*>& Nodes)
{
	TSet<UObject*> Objects;
	for (UEdGraphNode* const Node : Nodes)
	{
		Objects.Add(Node);
	}
	FString Text;
	FEdGraphUtilities::ExportNodesToText(Objects, Text);
	return Text;
}

void Drop(UBlueprint& Blueprint, UEdGraph& Graph)
{
	while (!Graph.Nodes.IsEmpty())
	{
		Graph.Nodes.Last()->DestroyNode();
	}
	Graph.SubGraphs.Empty();
	Blueprint.Timelines.Empty();
	CollectGarbage();
}
} // namespace PasteFuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, const std::size_t Size)
{
	static UBlueprint* const Blueprint = PasteFuzz::MakeBlueprint();
	UEdGraph& Graph = *FBlueprintEditorUtils::FindEventGraph(Blueprint);
	const FString Text = FromUtf8(std::string_view(reinterpret_cast<const char*>(Data), Size));
	const TSet<UEdGraphNode*> Nodes = PasteFuzz::Paste(Graph, Text);
	for (const UEdGraphNode* const Node : Nodes)
	{
		PasteFuzz::RequireSoundPins(*Node);
	}
	if (!Nodes.IsEmpty())
	{
		const TSet<UEdGraphNode*> Again = PasteFuzz::Paste(Graph, PasteFuzz::Copy(Nodes));
		PasteFuzz::Require(Again.Num() == Nodes.Num());
	}
	PasteFuzz::Drop(*Blueprint, Graph);
	return 0;
}
