#include "Utils/Graph/NodePins.h"

#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_AddPinInterface.h"
#include "K2Node_Composite.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_FormatText.h"
#include "K2Node_MathExpression.h"
#include "K2Node_Select.h"
#include "K2Node_Switch.h"
#include "ToolResult.h"
#include "Utils/Graph/TagSwitchPins.h"

// Pins taken away. Links and values of a pin go with it.

namespace NodePinsRemove
{
static bool Refuse(const UEdGraphNode& Node, Morvane::FToolResult& Result)
{
	Result.AddWarningMessage(
		FString::Printf(TEXT("Remove pin not allowed for node '%s'"), *FBlueprintNodeUtils::GetFullTitle(&Node)));
	return false;
}

static bool RefuseExec(const UEdGraphNode& Node, const UEdGraphPin& Pin, Morvane::FToolResult& Result)
{
	// The text ends as agents know it, without the closing quote.
	Result.AddWarningMessage(FString::Printf(
		TEXT("Can not remove exec pin '%s' from node '%s"), *Pin.GetName(), *FBlueprintNodeUtils::GetFullTitle(&Node)));
	return false;
}

/** Options are known by their number, so it is the last one that goes. */
static bool RemoveOption(UK2Node_Select& Select, const UEdGraphPin& Pin, Morvane::FToolResult& Result)
{
	TArray<UEdGraphPin*> Options;
	Select.GetOptionPins(Options);
	if (!Options.Contains(const_cast<UEdGraphPin*>(&Pin)) || !Select.CanRemovePin(&Pin))
	{
		return Refuse(Select, Result);
	}
	const FString Asked = Pin.GetName();
	const FString Last = Options.Last()->GetName();
	Select.RemoveOptionPinToNode();
	if (Asked != Last)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Node '%s' gives up its last option: '%s' was removed, not '%s'"),
			*FBlueprintNodeUtils::GetFullTitle(&Select), *Last, *Asked));
	}
	return true;
}

static bool RemoveOutput(UK2Node_ExecutionSequence& Sequence, UEdGraphPin& Pin, Morvane::FToolResult& Result)
{
	if (!UEdGraphSchema_K2::IsExecPin(Pin))
	{
		return Refuse(Sequence, Result);
	}
	if (Pin.Direction != EGPD_Output || !Sequence.CanRemoveExecutionPin())
	{
		return RefuseExec(Sequence, Pin, Result);
	}
	Sequence.RemovePinFromExecutionNode(&Pin);
	return true;
}

static bool RemoveParameter(UK2Node_EditablePinBase& Node, FName Name, Morvane::FToolResult& Result)
{
	if (!Node.UserDefinedPinExists(Name) || !NodePins::HasOwnParameters(Node))
	{
		return Refuse(Node, Result);
	}
	for (UK2Node_EditablePinBase* const Each : NodePins::GetNodesOfSameParameters(Node))
	{
		Each->RemoveUserDefinedPinByName(Name);
	}
	return true;
}

static bool RemoveFromComposite(UK2Node_Composite& Node, const UEdGraphPin& Pin, Morvane::FToolResult& Result)
{
	UK2Node_Tunnel* const End = Pin.Direction == EGPD_Output ? Node.GetExitNode() : Node.GetEntryNode();
	const FName Name = Pin.PinName;
	if (!End || !RemoveParameter(*End, Name, Result))
	{
		return End ? false : Refuse(Node, Result);
	}
	// By hand: a pin that is linked would stay for its links' sake.
	Node.RemovePin(Node.FindPin(Name));
	Node.ReconstructNode();
	return true;
}
} // namespace NodePinsRemove

bool NodePins::Remove(UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	using namespace NodePinsRemove;
	if (TagSwitchPins::IsTagSwitch(Node))
	{
		return TagSwitchPins::Remove(Node, Record.Name, Result);
	}
	UEdGraphPin* const Pin = FindOrWarn(Node, Record.Name, Result);
	if (!Pin)
	{
		return false;
	}
	if (UK2Node_Select* const Select = Cast<UK2Node_Select>(&Node))
	{
		return RemoveOption(*Select, *Pin, Result);
	}
	if (UK2Node_ExecutionSequence* const Sequence = Cast<UK2Node_ExecutionSequence>(&Node))
	{
		return RemoveOutput(*Sequence, *Pin, Result);
	}
	// A text pattern that is typed in says itself which arguments there are.
	const bool bFixed = Node.IsA<UK2Node_FormatText>() && !Cast<UK2Node_FormatText>(&Node)->CanAddPin();
	IK2Node_AddPinInterface* const Adder = Cast<IK2Node_AddPinInterface>(&Node);
	if (Adder && !bFixed && Adder->CanRemovePin(Pin))
	{
		Node.Modify();
		Adder->RemoveInputPin(Pin);
		return true;
	}
	UK2Node_EditablePinBase* const Editable = Node.IsA<UK2Node_MathExpression>() ? nullptr
																				 : Cast<UK2Node_EditablePinBase>(&Node);
	// The ends of macros and collapsed graphs may have execution pins that an author made.
	const bool bOwnExec = Editable && Editable->UserDefinedPinExists(Pin->PinName);
	UK2Node_Composite* const Composite = Editable ? ExactCast<UK2Node_Composite>(Editable) : nullptr;
	if (UEdGraphSchema_K2::IsExecPin(*Pin) && !bOwnExec && !Composite)
	{
		return RefuseExec(Node, *Pin, Result);
	}
	if (Composite)
	{
		return RemoveFromComposite(*Composite, *Pin, Result);
	}
	return Editable ? RemoveParameter(*Editable, Pin->PinName, Result) : Refuse(Node, Result);
}
