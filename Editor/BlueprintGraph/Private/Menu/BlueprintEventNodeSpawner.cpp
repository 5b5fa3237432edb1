#include "BlueprintEventNodeSpawner.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Event.h"
#include "Menu/SpawnerPins.h"
#include "Nodes/MenuWords.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintEventNodeSpawner, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UBlueprintBoundEventNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintEventNodeSpawner::DescribeClass(FClassDescriber&) {}
void UBlueprintBoundEventNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace EventSpawners
{
/** The first event node of the graph's Blueprint that the predicate takes. */
template <class T, class TPredicate>
T* FindEvent(const UEdGraph* Graph, TPredicate&& Predicate)
{
	const UBlueprint* const Blueprint = Graph ? Graph->GetTypedOuter<UBlueprint>() : nullptr;
	if (!Blueprint)
	{
		return nullptr;
	}
	for (const UEdGraph* const Page : Blueprint->UbergraphPages)
	{
		for (UEdGraphNode* const Node : Page->Nodes)
		{
			T* const Event = Cast<T>(Node);
			if (Event && Predicate(*Event))
			{
				return Event;
			}
		}
	}
	return nullptr;
}

/** A ghost is an event that the editor placed as a hint; to ask for it makes it count. */
static UEdGraphNode* Wake(UEdGraphNode* Node)
{
	if (Node && Node->IsAutomaticallyPlacedGhostNode())
	{
		Node->Modify();
		Node->SetEnabledState(ENodeEnabledState::Enabled);
		Node->NodeComment.Empty();
		Node->bCommentBubbleVisible = false;
		Node->bCommentBubblePinned = false;
	}
	return Node;
}
} // namespace EventSpawners

UBlueprintEventNodeSpawner* UBlueprintEventNodeSpawner::Create(const UFunction* EventFunc, UObject* Outer)
{
	if (!EventFunc || !EventFunc->GetOwnerClass() || !UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(EventFunc))
	{
		return nullptr;
	}
	UBlueprintEventNodeSpawner* const Spawner = NewObject<UBlueprintEventNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = UK2Node_Event::StaticClass();
	Spawner->EventOwner = MenuWords::LastingClass(EventFunc->GetOwnerClass());
	Spawner->EventName = EventFunc->GetFName();
	FBlueprintActionUiSpec& Words = Spawner->DefaultMenuSignature;
	const FString Name = UEdGraphSchema_K2::GetFriendlySignatureName(EventFunc).ToString();
	Words.MenuName = FText::FromString(TEXT("Event ") + Name);
	const FString Category = MenuWords::CategoryOf(
		EventFunc->FindMetaData(FBlueprintMetadata::MD_FunctionCategory), FString());
	Words.Category = MenuWords::SharedText(
		Category.IsEmpty() ? FString(TEXT("Add Event")) : TEXT("Add Event|") + Category);
	Words.Keywords = FText::FromName(Spawner->EventName);
	return Spawner;
}

const UFunction* UBlueprintEventNodeSpawner::GetEventFunction() const
{
	const UClass* const Class = MenuWords::LookupClass(EventOwner.Get());
	return Class ? Class->FindFunctionByName(EventName) : nullptr;
}

UEdGraphNode* UBlueprintEventNodeSpawner::FindPreExistingEvent(UEdGraph* ParentGraph) const
{
	return EventSpawners::FindEvent<UK2Node_Event>(ParentGraph,
		[this](const UK2Node_Event& Event)
		{ return Event.bOverrideFunction && Event.EventReference.GetMemberName() == EventName; });
}

UEdGraphNode* UBlueprintEventNodeSpawner::Invoke(
	UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const
{
	if (!IsBindable())
	{
		return nullptr;
	}
	UEdGraphNode* const Standing = EventSpawners::Wake(FindPreExistingEvent(ParentGraph));
	return Standing ? Standing : Super::Invoke(ParentGraph, Bindings, Location);
}

bool UBlueprintEventNodeSpawner::IsBindable() const
{
	return GetEventFunction() != nullptr;
}

void UBlueprintEventNodeSpawner::Bind(UEdGraphNode& Node, bool) const
{
	UK2Node_Event* const Event = CastChecked<UK2Node_Event>(&Node);
	Event->EventReference.SetExternalMember(EventName, EventOwner.Get());
	Event->bOverrideFunction = true;
}

bool UBlueprintEventNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	const UFunction* const Function = GetEventFunction();
	return Function && SpawnerPins::AnyOfEvent(*Function, Visit);
}

UBlueprintBoundEventNodeSpawner* UBlueprintBoundEventNodeSpawner::Create(
	const FObjectProperty* ComponentProperty, const FMulticastDelegateProperty* EventDelegate, UObject* Outer)
{
	if (!ComponentProperty || !EventDelegate || !EventDelegate->GetOwnerClass())
	{
		return nullptr;
	}
	UBlueprintBoundEventNodeSpawner* const Spawner = NewObject<UBlueprintBoundEventNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = UK2Node_ComponentBoundEvent::StaticClass();
	Spawner->ComponentName = ComponentProperty->GetFName();
	Spawner->DelegateOwner = MenuWords::LastingClass(EventDelegate->GetOwnerClass());
	Spawner->DelegateName = EventDelegate->GetFName();
	FBlueprintActionUiSpec& Words = Spawner->DefaultMenuSignature;
	Words.MenuName = FText::FromString(FString::Printf(
		TEXT("Add %s (%s)"), *EventDelegate->GetDisplayNameText().ToString(), *ComponentProperty->GetName()));
	const FString Root = TEXT("Add Event for ") + ComponentProperty->GetName();
	const FString Category = MenuWords::CategoryOf(
		EventDelegate->FindMetaData(FBlueprintMetadata::MD_FunctionCategory), FString());
	Words.Category = MenuWords::SharedText(Category.IsEmpty() ? Root : Root + TEXT("|") + Category);
	Words.Keywords = FText::FromName(Spawner->DelegateName);
	// The component is known inside its Blueprint alone, so no node in another place can say it.
	Words.Tooltip = FText::FromString(FString::Printf(TEXT("Runs when %s of %s happens"),
		*EventDelegate->GetDisplayNameText().ToString(), *ComponentProperty->GetName()));
	return Spawner;
}

UEdGraphNode* UBlueprintBoundEventNodeSpawner::FindPreExistingEvent(UEdGraph* ParentGraph) const
{
	return EventSpawners::FindEvent<UK2Node_ComponentBoundEvent>(ParentGraph,
		[this](const UK2Node_ComponentBoundEvent& Event)
		{ return Event.ComponentPropertyName == ComponentName && Event.DelegatePropertyName == DelegateName; });
}

const FMulticastDelegateProperty* UBlueprintBoundEventNodeSpawner::FindDelegate() const
{
	return FindFProperty<FMulticastDelegateProperty>(MenuWords::LookupClass(DelegateOwner.Get()), DelegateName);
}

UEdGraphNode* UBlueprintBoundEventNodeSpawner::Invoke(
	UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const
{
	if (UEdGraphNode* const Standing = EventSpawners::Wake(FindPreExistingEvent(ParentGraph)))
	{
		return Standing;
	}
	const UBlueprint* const Blueprint = ParentGraph ? ParentGraph->GetTypedOuter<UBlueprint>() : nullptr;
	const UClass* const Self = BlueprintClassProvider::GetSelfClass(Blueprint);
	const bool bStands = FindFProperty<FObjectProperty>(Self, ComponentName) && FindDelegate();
	return bStands ? Super::Invoke(ParentGraph, Bindings, Location) : nullptr;
}

void UBlueprintBoundEventNodeSpawner::Bind(UEdGraphNode& NewNode, bool) const
{
	UK2Node_ComponentBoundEvent* const Node = CastChecked<UK2Node_ComponentBoundEvent>(&NewNode);
	const FObjectProperty* const Component = FindFProperty<FObjectProperty>(
		BlueprintClassProvider::GetSelfClass(Node->GetBlueprint()), ComponentName);
	// A node that only describes the entry stands in no Blueprint, where no component is.
	if (Component)
	{
		Node->InitializeComponentBoundEventParams(Component, FindDelegate());
	}
}

bool UBlueprintBoundEventNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	const FMulticastDelegateProperty* const Delegate = FindDelegate();
	return Delegate && Delegate->SignatureFunction && SpawnerPins::AnyOfEvent(*Delegate->SignatureFunction, Visit);
}
