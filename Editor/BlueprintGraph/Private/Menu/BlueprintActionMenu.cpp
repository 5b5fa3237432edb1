// A menu: what of the database a graph may have, and what a chosen entry does.

#include "BlueprintActionMenuBuilder.h"
#include "BlueprintActionMenuItem.h"
#include "BlueprintActionMenuUtils.h"

#include "BlueprintActionDatabase.h"
#include "BlueprintNodeSpawner.h"
#include "Engine/Blueprint.h"
#include "K2Node.h"
#include "Menu/ActionAudience.h"

void FBlueprintActionMenuBuilder::AddMenuSection(const FBlueprintActionFilter& Filter, const FText&, int32, uint32)
{
	Sections.Add(Filter);
}

void FBlueprintActionMenuBuilder::RebuildActionList()
{
	Entries.Empty();
	FBlueprintActionDatabase& Database = FBlueprintActionDatabase::Get();
	for (const FBlueprintActionFilter& Filter : Sections)
	{
		FActionAudience Audience(Filter);
		Entries.Reserve(Entries.Num() + Database.Num());
		Database.ForEachAction(
			[this, &Audience](const FBlueprintAction& Action)
			{
				if (Audience.IsOffered(Action))
				{
					Entries.Add(Audience.GetItem(Action));
				}
			});
	}
}

void FBlueprintActionMenuUtils::MakeContextMenu(const FBlueprintActionContext& Context, bool bIsContextSensitive,
	uint32 ClassTargetMask, FBlueprintActionMenuBuilder& MenuOut)
{
	FBlueprintActionFilter Filter(ClassTargetMask & EContextTargetFlags::TARGET_NonImportedTypes
			? FBlueprintActionFilter::BPFILTER_NoFlags
			: FBlueprintActionFilter::BPFILTER_RejectNonImportedFields);
	Filter.Context = Context;
	Filter.bContextSensitive = bIsContextSensitive;
	MenuOut.AddMenuSection(Filter);
	MenuOut.RebuildActionList();
}

const FText& FBlueprintActionMenuItem::GetTooltipDescription() const
{
	if (Tooltip.IsEmpty() && Action)
	{
		Tooltip = Action->GetTooltip();
	}
	return Tooltip;
}

UEdGraphNode* FBlueprintActionMenuItem::PerformAction(
	UEdGraph* ParentGraph, UEdGraphPin* FromPin, const FVector2f& Location, bool)
{
	if (!ParentGraph || !Action)
	{
		return nullptr;
	}
	const int32 NumBefore = ParentGraph->Nodes.Num();
	UEdGraphNode* const Node = Action->Invoke(ParentGraph, UBlueprintNodeSpawner::FBindingSet(), FVector2D(Location));
	if (!Node)
	{
		return nullptr;
	}
	// An event that stood already is given as it is, wherever it stands.
	const bool bIsNew = ParentGraph->Nodes.Num() > NumBefore;
	if (bIsNew && FromPin)
	{
		Node->AutowireNewNode(FromPin);
	}
	UBlueprint* const Blueprint = ParentGraph->GetTypedOuter<UBlueprint>();
	const UK2Node* const K2Node = Cast<UK2Node>(Node);
	if (Blueprint && bIsNew)
	{
		Blueprint->Status = BS_Dirty;
		Blueprint->bSkeletonIsStale |= K2Node && K2Node->NodeCausesStructuralBlueprintChange();
	}
	return Node;
}
