#include "RequestCompletion.h"

#include "UObject/UnrealType.h"
#include "Utils/Graph/LooseNames.h"
#include "Utils/Request/PopulateRecords.h"

namespace RequestCompletionPrivate
{
/** What the menu calls an event that has no name yet. */
static bool IsGenericTitle(const FString& Title)
{
	const FString Squeezed = LooseNames::Squeeze(Title);
	return Squeezed.IsEmpty() || Squeezed == TEXT("event") || Squeezed.StartsWith(TEXT("customevent"))
		|| Squeezed.StartsWith(TEXT("addcustomevent")) || Squeezed.StartsWith(TEXT("addevent"));
}

/** "Fire", "Custom Event: Fire", "Event Tick": an event request that carries its name in its title alone. */
static void NameEvent(FBPNodeModification& Record)
{
	const bool bCustom = Record.ClassName.Equals(TEXT("K2Node_CustomEvent"), ESearchCase::IgnoreCase);
	const bool bEvent = bCustom || Record.ClassName.Equals(TEXT("K2Node_Event"), ESearchCase::CaseSensitive);
	if (!bEvent || Record.FindMetadata(TEXT("event_name")))
	{
		return;
	}
	FString Title = Record.MenuTitle.TrimStartAndEnd();
	int32 Colon = INDEX_NONE;
	if (bCustom && IsGenericTitle(Title) && Title.FindChar(TEXT(':'), Colon))
	{
		Title = Title.Mid(Colon + 1).TrimStartAndEnd();
	}
	if (!IsGenericTitle(Title))
	{
		Record.Metadata.Add(TEXT("event_name"), Title);
	}
}

/** A component's event that is told by two names is the menu's action of both: "On Component Hit (Body)". */
static void TitleBoundEvent(FBPNodeModification& Record)
{
	const FString Event = Record.GetMetadata(TEXT("event_name"));
	FString Component = Record.GetMetadata(TEXT("component_name"));
	Component = Component.IsEmpty() ? Record.GetMetadata(TEXT("component")) : Component;
	const bool bBound = Record.ClassName.Equals(TEXT("K2Node_ComponentBoundEvent"), ESearchCase::IgnoreCase);
	if (!bBound || Event.IsEmpty() || Component.IsEmpty())
	{
		return;
	}
	Record.MenuTitle = FName::NameToDisplayString(Event, false) + TEXT(" (") + Component + TEXT(")");
	Record.Metadata.Remove(TEXT("event_name"));
}

static bool IsTargetPin(const FString& PinName)
{
	return PinName.Equals(TEXT("self"), ESearchCase::IgnoreCase)
		|| PinName.Equals(TEXT("target"), ESearchCase::IgnoreCase);
}

/** The variable that a record's node reads, by its metadata or its title; empty for other requests. */
static FString GetVariableRead(const FBPNodeModification& Record)
{
	const FString Named = Record.GetMetadata(TEXT("variable_name"));
	FString Title = Record.MenuTitle.TrimStartAndEnd();
	return !Named.IsEmpty() || !Title.RemoveFromStart(TEXT("Get "), ESearchCase::IgnoreCase) ? Named : Title;
}

/** The wires that the request asks for. */
static TArray<FBPConnectionModification> ReadWires(const TArray<TSharedPtr<FJsonValue>>* Connections)
{
	TArray<FBPConnectionModification> Wires;
	for (const TSharedPtr<FJsonValue>& Value : Connections ? *Connections : TArray<TSharedPtr<FJsonValue>>())
	{
		FBPConnectionModification Wire;
		if (PopulateRecords::ParseConnection(Value, Wire) && Wire.Action == EBPConnectionAction::Add)
		{
			Wires.Add(MoveTemp(Wire));
		}
	}
	return Wires;
}

/** Each wire is told to the records at its ends. */
static void TellWires(TArray<FBPNodeModification>& Nodes, const TArray<FBPConnectionModification>& Wires)
{
	TMap<FString, int32> Indices;
	for (int32 Index = 0; Index < Nodes.Num(); ++Index)
	{
		Indices.Add(Nodes[Index].NodeGuid, Index);
	}
	for (const FBPConnectionModification& Wire : Wires)
	{
		if (const int32* const Source = Indices.Find(Wire.SourceNodeGuid))
		{
			Nodes[*Source].AskedPins.Add(
				{Wire.SourcePinName, true, Wire.TargetNodeGuid, Wire.TargetPinName, FString()});
		}
		if (const int32* const Target = Indices.Find(Wire.TargetNodeGuid))
		{
			const int32* const From = Indices.Find(Wire.SourceNodeGuid);
			Nodes[*Target].AskedPins.Add({Wire.TargetPinName, false, Wire.SourceNodeGuid, Wire.SourcePinName,
				From ? GetVariableRead(Nodes[*From]) : FString()});
			Nodes[*Target].bTargetIsWired |= IsTargetPin(Wire.TargetPinName);
		}
	}
}
} // namespace RequestCompletionPrivate

void RequestCompletion::Complete(TArray<FBPNodeModification>& Nodes, const TArray<TSharedPtr<FJsonValue>>* Connections)
{
	for (FBPNodeModification& Record : Nodes)
	{
		RequestCompletionPrivate::NameEvent(Record);
		RequestCompletionPrivate::TitleBoundEvent(Record);
		for (const FBPPinModification& Pin : Record.Pins)
		{
			if (Pin.Action == EBPNodeAction::Modify)
			{
				Record.AskedPins.Add({Pin.Name, false, FString(), FString(), FString()});
			}
		}
	}
	RequestCompletionPrivate::TellWires(Nodes, RequestCompletionPrivate::ReadWires(Connections));
}
