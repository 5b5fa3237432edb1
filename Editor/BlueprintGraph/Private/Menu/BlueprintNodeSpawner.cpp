#include "BlueprintNodeSpawner.h"

#include "EdGraphSchema_K2.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace NodeSpawners
{
/** Where template nodes stand: a graph of no Blueprint. */
UEdGraph* TemplateGraph()
{
	static TWeakObjectPtr<UEdGraph> Graph;
	if (!Graph.Get())
	{
		UEdGraph* const Made = NewObject<UEdGraph>(
			GetTransientPackageAsObject(), FName(TEXT("NodeTemplates")), RF_Transient);
		Made->Schema = UEdGraphSchema_K2::StaticClass();
		Graph = Made;
	}
	return Graph.Get();
}
} // namespace NodeSpawners

UBlueprintNodeSpawner* UBlueprintNodeSpawner::Create(
	const UClass* InNodeClass, UObject* Outer, FCustomizeNodeDelegate PostSpawnDelegate)
{
	if (!InNodeClass)
	{
		return nullptr;
	}
	UBlueprintNodeSpawner* const Spawner = NewObject<UBlueprintNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = const_cast<UClass*>(InNodeClass);
	Spawner->CustomizeNodeDelegate = MoveTemp(PostSpawnDelegate);
	return Spawner;
}

UEdGraphNode* UBlueprintNodeSpawner::SpawnEdGraphNode(const UClass* InNodeClass, UEdGraph* ParentGraph,
	const FBindingSet&, FVector2D Location, const FCustomizeNodeDelegate& PostSpawnDelegate) const
{
	if (!InNodeClass || !ParentGraph)
	{
		return nullptr;
	}
	const bool bIsTemplate = ParentGraph == NodeSpawners::TemplateGraph();
	const UEdGraphNode* const Default = InNodeClass->GetDefaultObject<UEdGraphNode>();
	if (!bIsTemplate && !Default->IsCompatibleWithGraph(ParentGraph))
	{
		return nullptr;
	}
	ParentGraph->Modify();
	UEdGraphNode* const Node = ParentGraph->CreateNode(InNodeClass);
	Node->CreateNewGuid();
	Node->NodePosX = static_cast<int32>(Location.X);
	Node->NodePosY = static_cast<int32>(Location.Y);
	if (PostSpawnDelegate)
	{
		PostSpawnDelegate(Node, bIsTemplate);
	}
	if (CustomizeNodeDelegate)
	{
		CustomizeNodeDelegate(Node, bIsTemplate);
	}
	// A template must leave no trace, and what is placed with a node (a graph, another node, a timeline) would be one.
	if (!bIsTemplate)
	{
		Node->PostPlacedNewNode();
	}
	if (Node->Pins.IsEmpty())
	{
		Node->AllocateDefaultPins();
	}
	return Node;
}

UEdGraphNode* UBlueprintNodeSpawner::Invoke(
	UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const
{
	return SpawnEdGraphNode(NodeClass.Get(), ParentGraph, Bindings, Location, nullptr);
}

UEdGraphNode* UBlueprintNodeSpawner::GetTemplateNode(UEdGraph* TargetGraph) const
{
	if (!TemplateNode.Get())
	{
		TemplateNode = Invoke(
			TargetGraph ? TargetGraph : NodeSpawners::TemplateGraph(), FBindingSet(), FVector2D(0.0, 0.0));
	}
	return TemplateNode.Get();
}

void UBlueprintNodeSpawner::Discard()
{
	if (UEdGraphNode* const Template = TemplateNode.Get())
	{
		Template->DestroyNode();
	}
	MarkAsGarbage();
}

FBlueprintActionUiSpec UBlueprintNodeSpawner::GetUiSpec() const
{
	if (!DefaultMenuSignature.MenuName.IsEmpty())
	{
		return DefaultMenuSignature;
	}
	if (const UEdGraphNode* const Node = GetTemplateNode())
	{
		FBlueprintActionUiSpec& Words = DefaultMenuSignature;
		Words.MenuName = Node->GetNodeTitle(ENodeTitleType::MenuTitle);
		Words.Category = Words.Category.IsEmpty() ? Node->GetMenuCategory() : Words.Category;
		Words.Tooltip = Words.Tooltip.IsEmpty() ? Node->GetTooltipText() : Words.Tooltip;
		Words.Keywords = Words.Keywords.IsEmpty() ? Node->GetKeywords() : Words.Keywords;
	}
	return DefaultMenuSignature;
}
