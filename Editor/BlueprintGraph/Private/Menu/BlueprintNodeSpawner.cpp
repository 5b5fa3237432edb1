#include "BlueprintNodeSpawner.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Menu/SpawnerPins.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace NodeSpawners
{
/** What template nodes lie in, without being listed: a graph of an actor that nobody saves, so that members that nodes
 * call on self are known. */
static UEdGraph* TemplateGraph()
{
	static TWeakObjectPtr<UEdGraph> Graph;
	if (!Graph.Get())
	{
		UBlueprint* const Blueprint = NewObject<UBlueprint>(
			GetTransientPackageAsObject(), FName(TEXT("NodeTemplates")), RF_Transient);
		Blueprint->ParentClass = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
		UEdGraph* const Made = NewObject<UEdGraph>(Blueprint, UEdGraphSchema_K2::GN_EventGraph, RF_Transient);
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

void UBlueprintNodeSpawner::Customize(UEdGraphNode& Node, bool bIsTemplate) const
{
	Bind(Node, bIsTemplate);
	if (CustomizeNodeDelegate)
	{
		CustomizeNodeDelegate(&Node, bIsTemplate);
	}
}

UEdGraphNode* UBlueprintNodeSpawner::Invoke(UEdGraph* ParentGraph, const FBindingSet&, const FVector2D Location) const
{
	if (!NodeClass.Get() || !ParentGraph || !IsBindable()
		|| !NodeClass->GetDefaultObject<UEdGraphNode>()->IsCompatibleWithGraph(ParentGraph))
	{
		return nullptr;
	}
	ParentGraph->Modify();
	UEdGraphNode* const Node = ParentGraph->CreateNode(NodeClass.Get());
	Node->CreateNewGuid();
	Node->NodePosX = static_cast<int32>(Location.X);
	Node->NodePosY = static_cast<int32>(Location.Y);
	Customize(*Node, false);
	Node->PostPlacedNewNode();
	if (Node->Pins.IsEmpty())
	{
		Node->AllocateDefaultPins();
	}
	return Node;
}

UEdGraphNode* UBlueprintNodeSpawner::GetTemplateNode() const
{
	if (!TemplateNode.Get())
	{
		UEdGraphNode* const Made = MakeUnplacedNode();
		if (Made)
		{
			Made->AllocateDefaultPins();
		}
		TemplateNode = Made;
	}
	return TemplateNode.Get();
}

UEdGraphNode* UBlueprintNodeSpawner::MakeUnplacedNode() const
{
	if (!NodeClass.Get() || !IsBindable())
	{
		return nullptr;
	}
	UEdGraphNode* const Node = NewObject<UEdGraphNode>(
		NodeSpawners::TemplateGraph(), NodeClass.Get(), NAME_None, RF_Transient);
	Customize(*Node, true);
	return Node;
}

void UBlueprintNodeSpawner::Discard()
{
	if (UEdGraphNode* const Template = TemplateNode.Get())
	{
		Template->MarkAsGarbage();
	}
	MarkAsGarbage();
}

bool UBlueprintNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	const UEdGraphNode* const Template = GetTemplateNode();
	return Template && SpawnerPins::AnyOf(*Template, Visit);
}

FText UBlueprintNodeSpawner::GetTooltip() const
{
	if (!DefaultMenuSignature.Tooltip.IsEmpty())
	{
		return DefaultMenuSignature.Tooltip;
	}
	UEdGraphNode* const Node = MakeUnplacedNode();
	const FText Tooltip = Node ? Node->GetTooltipText() : FText::GetEmpty();
	if (Node)
	{
		Node->MarkAsGarbage();
	}
	return Tooltip;
}

FBlueprintActionUiSpec UBlueprintNodeSpawner::GetUiSpec() const
{
	FBlueprintActionUiSpec& Words = DefaultMenuSignature;
	UEdGraphNode* const Node = Words.MenuName.IsEmpty() ? MakeUnplacedNode() : nullptr;
	if (Node)
	{
		Words.MenuName = Node->GetNodeTitle(ENodeTitleType::MenuTitle);
		Words.Category = Words.Category.IsEmpty() ? Node->GetMenuCategory() : Words.Category;
		Words.Keywords = Words.Keywords.IsEmpty() ? Node->GetKeywords() : Words.Keywords;
		Node->MarkAsGarbage();
	}
	return Words;
}
