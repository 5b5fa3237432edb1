#include "Utils/Graph/EventNodes.h"

#include "Blueprint/WidgetTree.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintNodeUtils.h"
#include "Components/Widget.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Graph/LooseNames.h"
#include "Utils/Graph/MemberNames.h"
#include "WidgetBlueprint.h"

#include <algorithm>

namespace EventNodes
{
/** More known variables than this are counted and not listed: an agent gets a short list or a pointer, never a dump. */
constexpr int32 MaxListedVariables = 10;

static FVector2D GetPosition(UEdGraph& Graph, const FBPNodeModification& Record)
{
	const FVector2D Good = Graph.GetGoodPlaceForNewNode();
	return FVector2D(Record.PositionX ? *Record.PositionX : Good.X, Record.PositionY ? *Record.PositionY : Good.Y);
}

static void Place(UEdGraphNode& Node, const FVector2D& Position)
{
	Node.NodePosX = static_cast<int32>(Position.X);
	Node.NodePosY = static_cast<int32>(Position.Y);
}

static bool AllowsDuplicate(const FBPNodeModification& Record)
{
	const FString Word = Record.GetMetadata(TEXT("allow_duplicate"));
	return Word.Equals(TEXT("true"), ESearchCase::IgnoreCase) || Word.Equals(TEXT("1"), ESearchCase::IgnoreCase)
		|| Word.Equals(TEXT("yes"), ESearchCase::IgnoreCase);
}

static UK2Node_CustomEvent* FindCustomEvent(const UEdGraph& Graph, const FString& EventName)
{
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (!Node || !Node->IsA(UK2Node_CustomEvent::StaticClass()))
		{
			continue;
		}
		UK2Node_CustomEvent* const Event = CastChecked<UK2Node_CustomEvent>(Node);
		if (Event->GetFunctionName() == *EventName)
		{
			return Event;
		}
	}
	return nullptr;
}

static UK2Node_CustomEvent* SpawnCustomEvent(UEdGraph& Graph, const FString& EventName, const FVector2D& Position)
{
	FGraphNodeCreator<UK2Node_CustomEvent> Creator(Graph);
	UK2Node_CustomEvent* const Event = Creator.CreateNode(false);
	if (!Event)
	{
		return nullptr;
	}
	Event->CustomFunctionName = FName(*EventName);
	Event->bIsEditable = true;
	Place(*Event, Position);
	Creator.Finalize();
	return Event;
}

/** What the event does over the network, where the request says so; what it does not say stays as it is. */
static void ApplyReplication(
	UBlueprint& Blueprint, UK2Node_CustomEvent& Event, const FBPNodeModification& Record, Morvane::FToolResult& Result)
{
	static constexpr struct
	{
		const TCHAR* Word;
		uint32 Flags;
	} Rows[] = {
		{TEXT("server"), FUNC_Net | FUNC_NetServer},
		{TEXT("client"), FUNC_Net | FUNC_NetClient},
		{TEXT("multicast"), FUNC_Net | FUNC_NetMulticast},
		{TEXT("none"), 0},
	};
	constexpr uint32 AllNet = FUNC_Net | FUNC_NetServer | FUNC_NetClient | FUNC_NetMulticast;
	const uint32 Before = Event.FunctionFlags;
	if (const FString* const Word = Record.FindMetadata(TEXT("replicates")))
	{
		const auto* const Row = std::find_if(std::begin(Rows), std::end(Rows),
			[Word](const auto& Candidate) { return Word->Equals(Candidate.Word, ESearchCase::IgnoreCase); });
		if (Row != std::end(Rows))
		{
			Event.FunctionFlags = (Event.FunctionFlags & ~AllNet) | Row->Flags;
		}
		else
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"[Failure] Custom event '%s' does not replicate: '%s' is none of server, client, multicast and none"),
				*Event.CustomFunctionName.ToString(), **Word));
		}
	}
	if (const FString* const Word = Record.FindMetadata(TEXT("reliable")))
	{
		Event.FunctionFlags = Word->ToBool() ? Event.FunctionFlags | FUNC_NetReliable
											 : Event.FunctionFlags & ~static_cast<uint32>(FUNC_NetReliable);
	}
	if (Event.FunctionFlags != Before)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	}
}

/** Why the event cannot have its name; empty when it can. What is to be a duplicate shares it with another event. */
static FString DescribeObstacle(
	const UBlueprint& Blueprint, const FString& EventName, const FBPNodeModification& Record)
{
	const bool bDuplicates = AllowsDuplicate(Record)
		&& FBlueprintEditorUtils::FindCustomEventNode(&Blueprint, FName(*EventName));
	return bDuplicates ? FString() : MemberNames::DescribeObstacle(Blueprint, EventName);
}

static UEdGraphNode* CreateCustomEvent(UBlueprint& Blueprint, UEdGraph& Graph, const FString& EventName,
	const FBPNodeModification& Record, Morvane::FToolResult& Result, FString& OutError)
{
	UK2Node_CustomEvent* const Existing = AllowsDuplicate(Record) ? nullptr : FindCustomEvent(Graph, EventName);
	if (Existing)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("[Warning] Custom Event '%s' already exists; reusing node %s"),
			*EventName, *FBlueprintNodeUtils::GetShortNodeId(Existing)));
		ApplyReplication(Blueprint, *Existing, Record, Result);
		return Existing;
	}
	const FString Obstacle = DescribeObstacle(Blueprint, EventName, Record);
	UK2Node_CustomEvent* const Event = Obstacle.IsEmpty()
		? SpawnCustomEvent(Graph, EventName, GetPosition(Graph, Record))
		: nullptr;
	if (!Event)
	{
		OutError = FString::Printf(TEXT("Failed to create custom event '%s' (%s)"), *EventName,
			Obstacle.IsEmpty() ? TEXT("the graph took no node") : *Obstacle);
		Result.AddWarningMessage(OutError);
		return nullptr;
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	Result.AddSuccessMessage(
		FString::Printf(TEXT("Created custom event '%s' in EventGraph '%s'"), *EventName, *Graph.GetName()));
	ApplyReplication(Blueprint, *Event, Record, Result);
	return Event;
}

/** A default event that nobody has used is disabled and says so; who asks for it wants it to run. */
static void Enable(UBlueprint& Blueprint, UK2Node_Event& Event)
{
	if (!Event.IsAutomaticallyPlacedGhostNode())
	{
		return;
	}
	Event.Modify();
	Event.SetEnabledState(ENodeEnabledState::Enabled, false);
	Event.NodeComment.Empty();
	Event.bCommentBubblePinned = false;
	Event.bCommentBubbleVisible = false;
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}

/** The function that the event overrides: by its own name, else by the one that the editor shows for it. */
static UClass* FindOverridden(UBlueprint& Blueprint, const FString& EventName, UFunction*& OutFunction)
{
	UClass* const Exact = FBlueprintEditorUtils::GetOverrideFunctionClass(&Blueprint, FName(*EventName), &OutFunction);
	if (Exact && OutFunction)
	{
		return Exact;
	}
	const UFunction* Shown = LooseNames::FindFunction(Blueprint.ParentClass, EventName);
	for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
	{
		Shown = Shown ? Shown : LooseNames::FindFunction(Interface.Interface.Get(), EventName);
	}
	return Shown ? FBlueprintEditorUtils::GetOverrideFunctionClass(&Blueprint, Shown->GetFName(), &OutFunction)
				 : nullptr;
}

static UEdGraphNode* CreateOverride(UBlueprint& Blueprint, UEdGraph& Graph, const FString& EventName,
	const FBPNodeModification& Record, Morvane::FToolResult& Result)
{
	UFunction* Function = nullptr;
	UClass* const SignatureClass = FindOverridden(Blueprint, EventName, Function);
	if (!SignatureClass || !Function || !UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(Function))
	{
		const UClass* const ParentClass = Blueprint.ParentClass;
		Result.AddErrorMessage(FString::Printf(TEXT("Event '%s' not found on class '%s'"), *EventName,
			ParentClass ? *ParentClass->GetName() : TEXT("Unknown")));
		return nullptr;
	}
	if (UK2Node_Event* const Existing = FBlueprintEditorUtils::FindOverrideForFunction(
			&Blueprint, SignatureClass, Function->GetFName()))
	{
		Enable(Blueprint, *Existing);
		Result.AddWarningMessage(
			FString::Printf(TEXT("[Warning] Event '%s' already exists in EventGraph; reusing node %s"), *EventName,
				*FBlueprintNodeUtils::GetShortNodeId(Existing)));
		return Existing;
	}
	UK2Node_Event* const Event = FBlueprintEventNodeUtils::SpawnEventOverride(
		Graph, *Function, SignatureClass, GetPosition(Graph, Record));
	if (!Event)
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Failed to create event override '%s' (the graph '%s' took no node)"), *EventName, *Graph.GetName()));
		return nullptr;
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	Result.AddSuccessMessage(FString::Printf(
		TEXT("Created override for Event %s in parent class %s"), *EventName, *SignatureClass->GetName()));
	return Event;
}

/** The class as it is declared now, whatever was declared since the last compile. */
static const UClass* GetKnownClass(const UBlueprint& Blueprint)
{
	const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint.GeneratedClass);
	return Class ? Class : Blueprint.ParentClass.Get();
}

static TArray<UWidget*> GetWidgets(const UBlueprint& Blueprint)
{
	TArray<UWidget*> Widgets;
	const UWidgetBlueprint* const WidgetBlueprint = Cast<UWidgetBlueprint>(&Blueprint);
	if (WidgetBlueprint && WidgetBlueprint->WidgetTree)
	{
		WidgetBlueprint->WidgetTree->GetAllWidgets(Widgets);
	}
	return Widgets;
}

static bool IsKnownName(const UBlueprint& Blueprint, const FString& Name)
{
	const UClass* const Class = GetKnownClass(Blueprint);
	return Blueprint.NewVariables.ContainsByPredicate(
			   [&Name](const FBPVariableDescription& Variable) { return Variable.VarName == *Name; })
		|| (Class && Class->FindPropertyByName(FName(*Name, FNAME_Find)))
		|| GetWidgets(Blueprint).ContainsByPredicate(
			[&Name](const UWidget* Widget) { return Widget->GetFName() == *Name; });
}

/** Each name once, ignoring case, in the order in which the sources are asked. */
static TArray<FString> CollectKnownNames(const UBlueprint& Blueprint)
{
	TSet<FString> Names;
	for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
	{
		Names.FindOrAdd(Variable.VarName.ToString());
	}
	if (const UClass* const Class = GetKnownClass(Blueprint))
	{
		for (TFieldIterator<FProperty> It(Class); It; ++It)
		{
			Names.FindOrAdd(It->GetName());
		}
	}
	for (const UWidget* const Widget : GetWidgets(Blueprint))
	{
		Names.FindOrAdd(Widget->GetName());
	}
	return Names.Array();
}
} // namespace EventNodes

bool FBlueprintEventNodeUtils::CreateEventNode(UBlueprint* Blueprint, UEdGraph* Graph,
	const FBPNodeModification& Record, Morvane::FToolResult& Result, UEdGraphNode*& OutNode, FString& OutError)
{
	OutNode = nullptr;
	if (!Blueprint || !Graph)
	{
		OutError = TEXT("Cannot create event node without a valid Blueprint and EventGraph");
		Result.AddErrorMessage(OutError);
		return false;
	}
	if (!FBlueprintGraphUtils::IsUbergraphPage(Blueprint, Graph))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Cannot create event nodes outside EventGraph '%s'"), *Graph->GetName()));
		return false;
	}
	const FString EventName = Record.GetMetadata(TEXT("event_name"));
	if (EventName.IsEmpty())
	{
		OutError = TEXT("Event requests must include node_metadata.event_name");
		Result.AddErrorMessage(OutError);
		return false;
	}
	const bool bCustom = Record.ClassName.Equals(TEXT("K2Node_CustomEvent"), ESearchCase::IgnoreCase);
	OutNode = bCustom ? EventNodes::CreateCustomEvent(*Blueprint, *Graph, EventName, Record, Result, OutError)
					  : EventNodes::CreateOverride(*Blueprint, *Graph, EventName, Record, Result);
	return OutNode != nullptr;
}

UK2Node_Event* FBlueprintEventNodeUtils::SpawnEventOverride(
	UEdGraph& Graph, const UFunction& Function, UClass* SignatureClass, const FVector2D& Position)
{
	FGraphNodeCreator<UK2Node_Event> Creator(Graph);
	UK2Node_Event* const Event = Creator.CreateNode(false);
	if (!Event)
	{
		return nullptr;
	}
	Event->EventReference.SetExternalMember(Function.GetFName(), SignatureClass);
	Event->bOverrideFunction = true;
	EventNodes::Place(*Event, Position);
	Creator.Finalize();
	return Event;
}

bool FBlueprintEventNodeUtils::ValidateVariableExists(
	const UBlueprint* Blueprint, const FString& VariableName, FString& OutError)
{
	if (!Blueprint)
	{
		OutError = TEXT("Blueprint is null");
		return false;
	}
	if (EventNodes::IsKnownName(*Blueprint, VariableName))
	{
		return true;
	}

	const TArray<FString> Known = EventNodes::CollectKnownNames(*Blueprint);
	OutError = FString::Printf(
		TEXT("Variable '%s' does not exist in blueprint. Create the variable first and then try again."),
		*VariableName);
	if (Known.IsEmpty())
	{
		OutError += TEXT("\n\nNo variables exist in this blueprint yet.");
	}
	else if (Known.Num() <= EventNodes::MaxListedVariables)
	{
		OutError += FString::Printf(TEXT("\n\nAvailable variables: %s"), *FString::Join(Known, TEXT(", ")));
	}
	else
	{
		OutError += FString::Printf(
			TEXT("\n\n%d variables exist in this blueprint. Use read_blueprint_variables to list them."), Known.Num());
	}
	return false;
}
