#include "Utils/Graph/NodePins.h"

#include "BlueprintGraphUtils.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "GameplayTagsK2Node_SwitchGameplayTag.h"
#include "K2Node_AddPinInterface.h"
#include "K2Node_Composite.h"
#include "K2Node_Event.h"
#include "K2Node_FormatText.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_MathExpression.h"
#include "K2Node_SwitchName.h"
#include "K2Node_SwitchString.h"
#include "ToolResult.h"
#include "Utils/Graph/TagSwitchPins.h"

// New pins: parameters of a signature, and one more of what a node has several of.

namespace NodePinsAdd
{
static bool HasPin(const UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	if (!Node.FindPin(Record.Name))
	{
		return false;
	}
	Result.AddWarningMessage(FString::Printf(
		TEXT("Found existing pin '%s' on node '%s'"), *Record.Name, *FBlueprintNodeUtils::GetFullTitle(&Node)));
	return true;
}

/** The way that parameters of the node face when the request does not say. */
static EEdGraphPinDirection GetOwnDirection(const UK2Node_EditablePinBase& Node)
{
	const UK2Node_Tunnel* const Tunnel = Cast<UK2Node_Tunnel>(&Node);
	const bool bTakesInputs = Node.IsA<UK2Node_FunctionResult>() || (Tunnel && !Tunnel->bCanHaveOutputs);
	return bTakesInputs ? EGPD_Input : EGPD_Output;
}

/** A parameter and a local variable of one name would be one property of the function. */
static bool IsLocalVariable(const UK2Node_EditablePinBase& Node, FName Name)
{
	const UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionTerminator>(&Node)
		? FBlueprintGraphUtils::FindFunctionEntry(Node.GetGraph())
		: nullptr;
	return Entry
		&& Entry->LocalVariables.ContainsByPredicate(
			[Name](const FBPVariableDescription& Variable) { return Variable.VarName == Name; });
}

/** Why the parameter cannot be; empty when it can. */
static FString FindObstacle(UK2Node_EditablePinBase& Node, const FBPPinModification& Record,
	const FEdGraphPinType& Type, EEdGraphPinDirection Direction)
{
	if (Record.Name.TrimStartAndEnd().IsEmpty() || FName(*Record.Name).IsNone())
	{
		return TEXT("It needs a name.");
	}
	if (!NodePins::HasOwnParameters(Node))
	{
		return TEXT("The node's parameters are declared elsewhere.");
	}
	if (IsLocalVariable(Node, FName(*Record.Name)))
	{
		return TEXT("A local variable has that name.");
	}
	// A result node of an author's own function is as good as its entry, told or not.
	const bool bWasEditable = Node.bIsEditable;
	Node.bIsEditable = true;
	FText Reason;
	const bool bMayBe = Node.CanCreateUserDefinedPin(Type, Direction, Reason);
	Node.bIsEditable = bWasEditable;
	return bMayBe ? FString() : Reason.ToString();
}

/** The value of a parameter is the same on every node that shows it. */
static void ShareValue(const UEdGraphPin& Pin, const TArray<UK2Node_EditablePinBase*>& Nodes)
{
	for (UK2Node_EditablePinBase* const Node : Nodes)
	{
		for (const TSharedPtr<FUserPinInfo>& Info : Node->UserDefinedPins)
		{
			if (Info->PinName == Pin.PinName && Node != Pin.GetOwningNode())
			{
				Node->ModifyUserDefinedPinDefaultValue(Info, Pin.GetDefaultAsString());
			}
		}
	}
}

/** A value that cannot be is told, and the parameter stands without one. */
static void MakeParameter(UK2Node_EditablePinBase& Node, const FBPPinModification& Record, const FEdGraphPinType& Type,
	EEdGraphPinDirection Direction, Morvane::FToolResult& Result)
{
	const TArray<UK2Node_EditablePinBase*> Nodes = NodePins::GetNodesOfSameParameters(Node);
	for (UK2Node_EditablePinBase* const Each : Nodes)
	{
		if (!Each->FindPin(Record.Name))
		{
			Each->CreateUserDefinedPin(FName(*Record.Name), Type, Direction, true);
		}
	}
	UEdGraphPin* const Made = Node.FindPin(Record.Name);
	if (Made && Record.bHasValue && NodePins::SetValue(*Made, Record, Result))
	{
		ShareValue(*Made, Nodes);
	}
}

static bool AddParameter(UK2Node_EditablePinBase& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	if (HasPin(Node, Record, Result))
	{
		return false;
	}
	const TOptional<EEdGraphPinDirection> Asked = Record.Direction.IsEmpty()
		? GetOwnDirection(Node)
		: NodePins::ParsePinDirection(Record.Direction);
	if (!Asked)
	{
		NodePins::WarnNotAdded(Node, Record,
			FString::Printf(TEXT("The direction '%s' is neither input nor output."), *Record.Direction), Result);
		return false;
	}
	const TOptional<FEdGraphPinType> Type = NodePins::ReadType(Node, Record, Result);
	if (!Type)
	{
		return false;
	}
	const FString Obstacle = FindObstacle(Node, Record, *Type, *Asked);
	if (!Obstacle.IsEmpty())
	{
		NodePins::WarnNotAdded(Node, Record, Obstacle, Result);
		return false;
	}
	MakeParameter(Node, Record, *Type, *Asked, Result);
	return true;
}

/** The pins of a collapsed graph are those of the two ends inside it. */
static bool AddToComposite(UK2Node_Composite& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	if (HasPin(Node, Record, Result))
	{
		return false;
	}
	const bool bOutput = NodePins::ParsePinDirection(Record.Direction).Get(EGPD_Input) == EGPD_Output;
	UK2Node_Tunnel* const End = bOutput ? Node.GetExitNode() : Node.GetEntryNode();
	if (!End)
	{
		NodePins::WarnNotAdded(Node, Record, TEXT("The collapsed graph has no such end."), Result);
		return false;
	}
	FBPPinModification Inside = Record;
	Inside.Direction = bOutput ? TEXT("input") : TEXT("output");
	if (!AddParameter(*End, Inside, Result))
	{
		return false;
	}
	Node.ReconstructNode();
	return true;
}

/** Lists of names that are the node's cases or arguments; null for a node that names its pins itself. */
static TArray<FName>* GetNameList(UEdGraphNode& Node)
{
	if (UK2Node_SwitchString* const Strings = Cast<UK2Node_SwitchString>(&Node))
	{
		return &Strings->PinNames;
	}
	if (UK2Node_SwitchName* const Names = Cast<UK2Node_SwitchName>(&Node))
	{
		return &Names->PinNames;
	}
	UK2Node_FormatText* const Format = Cast<UK2Node_FormatText>(&Node);
	return Format ? &Format->PinNames : nullptr;
}

static TSet<FName> GetPinNames(const UEdGraphNode& Node)
{
	TSet<FName> Names;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Names.Add(Pin->PinName);
	}
	return Names;
}

/** Says what a node that names its pins itself called the new ones, unless that is what was asked for. */
static void TellNames(
	const UEdGraphNode& Node, const TSet<FName>& Before, const FString& Asked, Morvane::FToolResult& Result)
{
	TArray<FString> Made;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (!Before.Contains(Pin->PinName))
		{
			Made.Add(Pin->PinName.ToString());
		}
	}
	if (Made.Num() != 1 || !Made[0].Equals(Asked, ESearchCase::IgnoreCase))
	{
		Result.AddSuccessMessage(FString::Printf(TEXT("Node '%s' names its pins itself: '%s' became '%s'"),
			*FBlueprintNodeUtils::GetFullTitle(&Node), *Asked, *FString::Join(Made, TEXT("', '"))));
	}
}

static bool AddOneMore(
	UEdGraphNode& Node, IK2Node_AddPinInterface& Adder, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	if (HasPin(Node, Record, Result))
	{
		return false;
	}
	if (!Adder.CanAddPin())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Add pin not allowed for node '%s'"), *FBlueprintNodeUtils::GetFullTitle(&Node)));
		return false;
	}
	TArray<FName>* const Names = GetNameList(Node);
	if (Names && !FName(*Record.Name).IsNone())
	{
		Node.Modify();
		Names->Add(FName(*Record.Name));
		Node.ReconstructNode();
		return true;
	}
	const TSet<FName> Before = GetPinNames(Node);
	Adder.AddInputPin();
	TellNames(Node, Before, Record.Name, Result);
	return true;
}
} // namespace NodePinsAdd

bool NodePins::Add(UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	if (TagSwitchPins::IsTagSwitch(Node))
	{
		return TagSwitchPins::Add(Node, Record.Name, Result);
	}
	if (UK2Node_Composite* const Composite = ExactCast<UK2Node_Composite>(&Node))
	{
		return NodePinsAdd::AddToComposite(*Composite, Record, Result);
	}
	// A formula's pins follow from the formula.
	UK2Node_EditablePinBase* const Editable = Node.IsA<UK2Node_MathExpression>() ? nullptr
																				 : Cast<UK2Node_EditablePinBase>(&Node);
	if (Editable)
	{
		return NodePinsAdd::AddParameter(*Editable, Record, Result);
	}
	if (IK2Node_AddPinInterface* const Adder = Cast<IK2Node_AddPinInterface>(&Node))
	{
		return NodePinsAdd::AddOneMore(Node, *Adder, Record, Result);
	}
	Result.AddWarningMessage(FString::Printf(TEXT("unsupported pin type '%s'"), *Record.Name));
	return false;
}
