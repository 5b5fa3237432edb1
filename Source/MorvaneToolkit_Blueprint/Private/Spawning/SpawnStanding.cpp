#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_InputAction.h"
#include "K2Node_InputAxisEvent.h"
#include "K2Node_Timeline.h"
#include "Spawning/SpawnAttempt.h"
#include "ToolResult.h"
#include "Utils/Graph/LooseNames.h"
#include "Utils/Graph/PinConnections.h"

namespace SpawnStanding
{
static bool IsClass(const FBPNodeModification& Record, const TCHAR* ClassName)
{
	return Record.ClassName.Equals(ClassName, ESearchCase::IgnoreCase);
}

/** A function has one entry, and as many ends as its author likes: only one that nothing enters is the one asked for.
 */
static UEdGraphNode* FindTerminator(const UEdGraph& Graph, bool bEntry)
{
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (bEntry ? Node->IsA<UK2Node_FunctionEntry>() : Node->IsA<UK2Node_FunctionResult>())
		{
			const UEdGraphPin* const Exec = Node->FindPin(UEdGraphSchema_K2::PN_Execute, EGPD_Input);
			if (bEntry || !Exec || Exec->LinkedTo.IsEmpty())
			{
				return Node;
			}
		}
	}
	return nullptr;
}

static UEdGraphNode* FindTimeline(const UEdGraph& Graph, const FString& Name)
{
	const FString Wanted = LooseNames::Squeeze(Name);
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		const UK2Node_Timeline* const Timeline = Cast<UK2Node_Timeline>(Node);
		if (Timeline && LooseNames::Squeeze(Timeline->TimelineName.ToString()) == Wanted)
		{
			return Node;
		}
	}
	return nullptr;
}

/** The pins that the request adds and that are not there, as when the node is made. */
static void AddPins(UEdGraphNode& Node, const FBPNodeModification& Record, bool bEntry)
{
	UK2Node_EditablePinBase* const Terminator = Cast<UK2Node_EditablePinBase>(&Node);
	for (const FBPPinModification& Pin : Record.Pins)
	{
		if (Terminator && Pin.Action == EBPNodeAction::Add && Pin.Type && !Node.FindPin(Pin.Name))
		{
			Terminator->CreateUserDefinedPin(FName(*Pin.Name), FBlueprintPinUtils::ConvertPinType(*Pin.Type),
				bEntry ? EGPD_Output : EGPD_Input, true);
		}
	}
}

/** The name behind a kind's word in a title: "InputAxis MoveForward". Empty where the title does not begin so. */
static FString NameBehind(const FString& Title, const TCHAR* Kind)
{
	FString Name = Title.TrimStartAndEnd();
	const bool bBegins = Name.RemoveFromStart(Kind, ESearchCase::IgnoreCase) && !Name.IsEmpty();
	return bBegins && FChar::IsWhitespace(Name[0]) ? Name.TrimStartAndEnd() : FString();
}

/** By class, the name alone will do; without one, the title has to say what it is. */
static FString FindInputName(
	const FBPNodeModification& Record, const TCHAR* ClassName, const TCHAR* Key, const TCHAR* Kind)
{
	const FString Titled = NameBehind(Record.MenuTitle, Kind);
	if (!IsClass(Record, ClassName))
	{
		return Record.ClassName.IsEmpty() ? Titled : FString();
	}
	const FString Given = Record.GetMetadata(Key);
	return !Given.IsEmpty() ? Given : !Titled.IsEmpty() ? Titled : Record.MenuTitle.TrimStartAndEnd();
}
} // namespace SpawnStanding

UEdGraphNode* FSpawnAttempt::FindStandingNode()
{
	using namespace SpawnStanding;
	const bool bEntry = IsClass(Record, TEXT("K2Node_FunctionEntry"));
	const bool bResult = IsClass(Record, TEXT("K2Node_FunctionResult"));
	UEdGraphNode* Node = nullptr;
	if (bEntry || bResult)
	{
		Node = FindTerminator(Graph, bEntry);
	}
	else if (IsClass(Record, TEXT("K2Node_Timeline")))
	{
		const FString Named = Record.GetMetadata(TEXT("timeline_name"));
		Node = FindTimeline(Graph, Named.IsEmpty() ? Record.MenuTitle : Named);
	}
	// What an earlier record of the request has taken is not this one's.
	bool bTaken = false;
	for (const auto& Pair : bResult&& CreatedNodes ? *CreatedNodes : FBPGraphSession::FNodeByRequestId())
	{
		bTaken |= Pair.Value.Get() == Node;
	}
	if (!Node || bTaken)
	{
		return nullptr;
	}
	AddPins(*Node, Record, bEntry);
	Result.AddSuccessMessage(FString::Printf(TEXT("'%s' stands in the graph already; using node %s"),
		*FBlueprintNodeUtils::GetFullTitle(Node), *FBlueprintNodeUtils::GetShortNodeId(Node)));
	return Node;
}

UEdGraphNode* FSpawnAttempt::SpawnInputEvent()
{
	using namespace SpawnStanding;
	const FString Axis = FindInputName(
		Record, TEXT("K2Node_InputAxisEvent"), TEXT("input_axis_name"), TEXT("InputAxis"));
	const FString Action = FindInputName(
		Record, TEXT("K2Node_InputAction"), TEXT("input_action_name"), TEXT("InputAction"));
	if ((Axis.IsEmpty() && Action.IsEmpty()) || !Blueprint.UbergraphPages.Contains(&Graph))
	{
		return nullptr;
	}
	const FVector2D Place = GetRequestedPosition();
	UEdGraphNode* Made = nullptr;
	if (!Axis.IsEmpty())
	{
		FGraphNodeCreator<UK2Node_InputAxisEvent> Creator(Graph);
		UK2Node_InputAxisEvent* const Node = Creator.CreateNode(false);
		Node->Initialize(FName(*Axis));
		Creator.Finalize();
		Made = Node;
	}
	else
	{
		FGraphNodeCreator<UK2Node_InputAction> Creator(Graph);
		UK2Node_InputAction* const Node = Creator.CreateNode(false);
		Node->InputActionName = FName(*Action);
		Creator.Finalize();
		Made = Node;
	}
	Made->NodePosX = static_cast<int32>(Place.X);
	Made->NodePosY = static_cast<int32>(Place.Y);
	return Made;
}
