// A menu: what of the database a graph may have, and what a chosen entry does.

#include "BlueprintActionMenuBuilder.h"
#include "BlueprintActionMenuItem.h"
#include "BlueprintActionMenuUtils.h"

#include "BlueprintActionDatabase.h"
#include "BlueprintNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintClassProvider.h"
#include "K2Node.h"

namespace ActionMenu
{
/** Whom a menu is for, worked out once for all actions. */
struct FAudience
{
	const UBlueprint* Blueprint = nullptr;
	const UEdGraph* Graph = nullptr;
	EGraphType GraphType = GT_MAX;
	/** The Blueprint's class, those above it and the interfaces of all; with a pin dragged from, its classes too. */
	TSet<const UClass*> Classes;
	bool bContextSensitive = false;
	mutable TMap<const UClass*, bool> NodeClassFits;
};

void AddClassLine(const UClass* Class, FAudience& Audience)
{
	for (; Class; Class = Class->GetSuperClass())
	{
		Audience.Classes.Add(Class);
		Audience.Classes.Add(Class->GetAuthoritativeClass());
		for (const FImplementedInterface& Interface : Class->Interfaces)
		{
			Audience.Classes.Add(Interface.Class);
		}
	}
}

FAudience MakeAudience(const FBlueprintActionFilter& Filter)
{
	FAudience Audience;
	const FBlueprintActionContext& Context = Filter.Context;
	Audience.bContextSensitive = Filter.bContextSensitive;
	Audience.Graph = Context.Graphs.IsEmpty() ? nullptr : Context.Graphs[0];
	Audience.Blueprint = Context.Blueprints.IsEmpty() ? nullptr : Context.Blueprints[0];
	if (!Audience.Blueprint && Audience.Graph)
	{
		Audience.Blueprint = Audience.Graph->GetTypedOuter<UBlueprint>();
	}
	if (Audience.Graph && Audience.Graph->GetSchema())
	{
		Audience.GraphType = Audience.Graph->GetSchema()->GetGraphType(Audience.Graph);
	}
	if (Audience.Blueprint)
	{
		AddClassLine(BlueprintClassProvider::GetSelfClass(Audience.Blueprint), Audience);
		AddClassLine(Audience.Blueprint->ParentClass.Get(), Audience);
		for (const FBPInterfaceDescription& Interface : Audience.Blueprint->ImplementedInterfaces)
		{
			AddClassLine(Interface.Interface.Get(), Audience);
		}
	}
	for (const UEdGraphPin* const Pin : Context.Pins)
	{
		AddClassLine(Cast<UClass>(Pin->PinType.PinSubCategoryObject.Get()), Audience);
	}
	return Audience;
}

/** A node class speaks for its nodes as to the graphs that can have them; a process asks each class once a menu. */
bool FitsGraph(const UClass& NodeClass, const FAudience& Audience)
{
	if (!Audience.Graph)
	{
		return true;
	}
	if (const bool* const Known = Audience.NodeClassFits.Find(&NodeClass))
	{
		return *Known;
	}
	const UEdGraphNode* const Default = NodeClass.GetDefaultObject<UEdGraphNode>();
	const UEdGraphSchema* const Schema = Audience.Graph->GetSchema();
	const bool bFits = (!Schema || Default->CanCreateUnderSpecifiedSchema(Schema))
		&& Default->IsCompatibleWithGraph(Audience.Graph);
	Audience.NodeClassFits.Add(&NodeClass, bFits);
	return bFits;
}

bool IsFor(const FBlueprintAction& Action, const FAudience& Audience)
{
	// A menu for nobody lists everything there is.
	if (!Audience.Blueprint && !Audience.Graph)
	{
		return true;
	}
	const bool bOthers = (Action.OnlyInBlueprint && Action.OnlyInBlueprint != Audience.Blueprint)
		|| (Action.OnlyInGraph && Action.OnlyInGraph != Audience.Graph);
	if (bOthers || (Action.bIsLatent && Audience.GraphType == GT_Function))
	{
		return false;
	}
	if (Action.RequiredClass && !Audience.Classes.Contains(Action.RequiredClass))
	{
		return false;
	}
	if (Audience.bContextSensitive && Action.MemberOf && !Audience.Classes.Contains(Action.MemberOf))
	{
		return false;
	}
	return !Action.NodeClass || FitsGraph(*Action.NodeClass, Audience);
}
} // namespace ActionMenu

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
		const ActionMenu::FAudience Audience = ActionMenu::MakeAudience(Filter);
		Entries.Reserve(Entries.Num() + Database.Num());
		Database.ForEachAction(
			[this, &Audience](const FBlueprintAction& Action)
			{
				if (ActionMenu::IsFor(Action, Audience))
				{
					Entries.Add(Action.Item);
				}
			});
	}
}

void FBlueprintActionMenuBuilder::Empty()
{
	Entries.Empty();
	Sections.Empty();
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

UEdGraphNode* FBlueprintActionMenuItem::PerformAction(
	UEdGraph* ParentGraph, UEdGraphPin* FromPin, const FVector2D& Location, bool)
{
	if (!ParentGraph || !Action)
	{
		return nullptr;
	}
	const int32 NumBefore = ParentGraph->Nodes.Num();
	UEdGraphNode* const Node = Action->Invoke(ParentGraph, UBlueprintNodeSpawner::FBindingSet(), Location);
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
