#include "Kismet2/BlueprintEvents.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"

namespace BlueprintEvents
{
namespace
{
/** The parameters as the event shows them, since the function that declared them may be gone already. */
void CopyParameters(const UK2Node_Event& From, UK2Node_CustomEvent& To)
{
	for (const UEdGraphPin* const Pin : From.Pins)
	{
		if (Pin->Direction != EGPD_Output || Pin->ParentPin || Pin->bOrphanedPin || UEdGraphSchema_K2::IsExecPin(*Pin)
			|| Pin->PinName == UK2Node_Event::DelegateOutputName)
		{
			continue;
		}
		const TSharedPtr<FUserPinInfo> Info = MakeShared<FUserPinInfo>();
		Info->PinName = Pin->PinName;
		Info->PinType = Pin->PinType;
		Info->DesiredPinDirection = EGPD_Output;
		To.UserDefinedPins.Add(Info);
	}
}
} // namespace

void ReplaceWithCustomEvent(UBlueprint& Blueprint, UK2Node_Event& Event)
{
	UEdGraph& Graph = *Event.GetGraph();
	Graph.Modify();
	UK2Node_CustomEvent* const Custom = NewObject<UK2Node_CustomEvent>(&Graph, NAME_None, RF_Transactional);
	Custom->CustomFunctionName = Event.GetFunctionName();
	Custom->bIsEditable = true;
	CopyParameters(Event, *Custom);
	Custom->NodePosX = Event.NodePosX;
	Custom->NodePosY = Event.NodePosY;
	Custom->NodeComment = Event.NodeComment;
	Graph.AddNode(Custom);
	Custom->CreateNewGuid();
	Custom->AllocateDefaultPins();
	for (UEdGraphPin* const Pin : Event.Pins)
	{
		UEdGraphPin* const Heir = Pin->ParentPin ? nullptr : Custom->FindPin(Pin->PinName, Pin->Direction);
		if (Heir)
		{
			Heir->MovePersistentDataFromOldPin(*Pin);
		}
	}
	FBlueprintEditorUtils::RemoveNode(&Blueprint, &Event, true);
}
} // namespace BlueprintEvents
