#include "PopulatePins.h"

#include "AssetOperationBase.h"
#include "BlueprintNodeUtils.h"
#include "Dom/JsonObject.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_AddPinInterface.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionTerminator.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Graph/AuthoredValues.h"
#include "Utils/Graph/PinConnections.h"

namespace PopulatePins
{
/** Unset for words that no type can be made of. */
static TOptional<FEdGraphPinType> ToPinType(const FBPPinType& Words)
{
	const TSharedRef<FJsonObject> Json = MakeShared<FJsonObject>();
	Json->SetStringField(TEXT("category"), Words.Category);
	const TPair<const TCHAR*, FString> Others[] = {{TEXT("sub_category"), Words.SubCategory},
		{TEXT("sub_category_object"), Words.SubCategoryObject}, {TEXT("container_type"), Words.ContainerType}};
	for (const auto& Other : Others)
	{
		if (!Other.Value.IsEmpty())
		{
			Json->SetStringField(Other.Key, Other.Value);
		}
	}
	FEdGraphPinType Type;
	return FAssetOperationBase::ConvertJsonToEdGraphPinType(*Json, Type) ? TOptional<FEdGraphPinType>(Type)
																		 : TOptional<FEdGraphPinType>();
}

/** Pins that a value may stay on: inputs, and the outputs of nodes that declare parameters with defaults. */
static bool HoldsValue(const UEdGraphPin& Pin)
{
	return Pin.Direction == EGPD_Input || Pin.GetOwningNode()->IsA<UK2Node_EditablePinBase>();
}

static TArray<FName> NamesOf(const UEdGraphNode& Node)
{
	TArray<FName> Names;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Names.Add(Pin->PinName);
	}
	return Names;
}

/** Whether pins of that kind may come to the name asked for when they are counted on: letters, or a stem with a number.
 */
static bool MayCome(FName Added, const FString& Asked)
{
	const auto Stem = [](const FString& Name)
	{
		FString Letters;
		for (const TCHAR Char : Name)
		{
			if (!FChar::IsDigit(Char))
			{
				Letters.AppendChar(Char);
			}
		}
		return Letters;
	};
	const FString Name = Added.ToString();
	return (Name.Len() == 1 && Asked.Len() == 1) || (Stem(Name) == Stem(Asked) && Asked.Len() > Stem(Asked).Len());
}
} // namespace PopulatePins

void FPopulatePins::Apply(UBlueprint& Blueprint, UEdGraphNode& Node, const FBPNodeModification& Record)
{
	TArray<FValue> Values;
	for (const FBPPinModification& Pin : Record.Pins)
	{
		if (Pin.Action == EBPNodeAction::Add)
		{
			AddPin(Blueprint, Node, Record.NodeGuid, Pin);
			const bool bTakesPins = Cast<IK2Node_AddPinInterface>(&Node) || Node.IsA<UK2Node_EditablePinBase>();
			if (!Pin.Value.IsEmpty() && bTakesPins && Node.FindPin(Pin.Name))
			{
				Values.Add(FValue{&Node, Record.NodeGuid, Pin.Name, Pin.Value, FString()});
			}
		}
		else if (Pin.Action == EBPNodeAction::Remove)
		{
			Warn(TEXT("[Warning]"), Node, Record.NodeGuid, Pin.Name,
				TEXT("'remove' does nothing here; bp_modify_graph_nodes removes pins."));
		}
		else if (Pin.Value.IsEmpty())
		{
			Warn(TEXT("[Warning]"), Node, Record.NodeGuid, Pin.Name,
				TEXT("the record has no value, so nothing was set."));
		}
		else
		{
			Values.Add(FValue{&Node, Record.NodeGuid, Pin.Name, Pin.Value, FString()});
		}
	}
	SetValues(Values);
	Missing.Append(Values);
}

void FPopulatePins::Finish()
{
	SetValues(Missing);
	for (const FValue& Value : Missing)
	{
		TellMissing(Value);
	}
	for (const FValue& Value : Set)
	{
		CheckKept(Value);
	}
}

void FPopulatePins::SetValues(TArray<FValue>& Values)
{
	int32 Before = 0;
	do
	{
		Before = Values.Num();
		Values.RemoveAll([this](const FValue& Value) { return SetValue(Value); });
	} while (!Values.IsEmpty() && Values.Num() < Before);
}

bool FPopulatePins::SetValue(const FValue& Value)
{
	UEdGraphNode* const Node = Value.Node.Get();
	UEdGraphPin* const Pin = Node ? FBlueprintPinUtils::FindPinWithAliases(Node, Value.PinName, EGPD_Input, &Session)
								  : nullptr;
	if (!Pin)
	{
		return false;
	}
	if (!PopulatePins::HoldsValue(*Pin))
	{
		Warn(TEXT("[Warning]"), *Node, Value.RequestId, Value.PinName,
			FString::Printf(TEXT("it is an output, so the value '%s' has no effect."), *Value.Value));
	}
	const FString PinName = Pin->GetName();
	const FString Form = Pin->bDefaultValueIsIgnored ? FString() : AuthoredValues::DescribeForm(*Pin);
	if (FBlueprintPinUtils::SetPinDefaultValue(Pin, Value.Value, Result))
	{
		// Setting it may have made the pins anew.
		const UEdGraphPin* const Now = Node->FindPin(PinName);
		Set.Add(FValue{Value.Node, Value.RequestId, PinName, Value.Value, Now ? Now->GetDefaultAsString() : FString()});
		return true;
	}
	// The reason has just been told, by one who knows the pin's type and not who asked for the value.
	Warn(TEXT("[Failure]"), *Node, Value.RequestId, PinName,
		FString::Printf(TEXT("the value '%s' was not set.%s"), *Value.Value,
			Form.IsEmpty() ? TEXT("") : *FString::Printf(TEXT(" It is written %s."), *Form)));
	return true;
}

void FPopulatePins::CheckKept(const FValue& Value)
{
	UEdGraphNode* const Node = Value.Node.Get();
	const UEdGraphPin* const Pin = Node ? Node->FindPin(Value.PinName) : nullptr;
	if (!Node || (Pin && (!Pin->LinkedTo.IsEmpty() || !Pin->SubPins.IsEmpty())))
	{
		return;
	}
	if (!Pin)
	{
		Warn(TEXT("[Warning]"), *Node, Value.RequestId, Value.PinName,
			FString::Printf(
				TEXT("it is gone since its value '%s' was set: the node has other pins now."), *Value.Value));
		return;
	}
	const bool bEmptied = Pin->DefaultValue.IsEmpty() && !Pin->DefaultObject && Pin->DefaultTextValue.IsEmpty();
	const bool bLost = bEmptied || Pin->DoesDefaultValueMatchAutogenerated();
	if (bLost && !GetDefault<UEdGraphSchema_K2>()->DoesDefaultValueMatch(*Pin, Value.Held))
	{
		Warn(TEXT("[Warning]"), *Node, Value.RequestId, Value.PinName,
			FString::Printf(TEXT("its value '%s' was lost when a link or another value made the pin a %s."),
				*Value.Value, *UEdGraphSchema_K2::TypeToText(Pin->PinType).ToString()));
	}
}

void FPopulatePins::TellMissing(const FValue& Value)
{
	if (UEdGraphNode* const Node = Value.Node.Get())
	{
		const TArray<FString> Available = FBlueprintPinUtils::RecordLookupFailure(
			*Node, Value.PinName, EGPD_Input, Result);
		Warn(TEXT("[Failure]"), *Node, Value.RequestId, Value.PinName,
			FString::Printf(TEXT("it was not found, so the value '%s' was not set. The inputs are: %s."), *Value.Value,
				Available.IsEmpty() ? TEXT("none") : *FString::Join(Available, TEXT(", "))));
	}
}

void FPopulatePins::AddPin(
	UBlueprint& Blueprint, UEdGraphNode& Node, const FString& RequestId, const FBPPinModification& Pin)
{
	if (Node.IsA<UK2Node_FunctionTerminator>())
	{
		return; // added, or refused, when the node was made
	}
	if (Node.IsA<UK2Node_CustomEvent>())
	{
		AddEventParameter(Blueprint, Node, RequestId, Pin);
		return;
	}
	// A request sent again finds what it has added.
	const bool bGrows = Cast<IK2Node_AddPinInterface>(&Node) != nullptr;
	if (bGrows && (Node.FindPin(Pin.Name) || Grow(Node, Pin.Name)))
	{
		return;
	}
	Warn(TEXT("[Warning]"), Node, RequestId, Pin.Name,
		bGrows
			? TEXT("the node adds pins, but none of this name.")
			: TEXT(
				"'add' does nothing on this node. A value is set by action modify, or by a record without an action."));
}

bool FPopulatePins::Grow(UEdGraphNode& Node, const FString& PinName)
{
	IK2Node_AddPinInterface* const Growing = Cast<IK2Node_AddPinInterface>(&Node);
	TArray<FName> Added;
	while (Growing && Growing->CanAddPin() && Added.Num() < IK2Node_AddPinInterface::GetMaxInputPinsNum())
	{
		const TArray<FName> Before = PopulatePins::NamesOf(Node);
		Growing->AddInputPin();
		const TArray<FName> After = PopulatePins::NamesOf(Node);
		const FName* const Name = After.FindByPredicate(
			[&Before](const FName& Candidate) { return !Before.Contains(Candidate); });
		if (!Name)
		{
			break;
		}
		Added.Add(*Name);
		if (Node.FindPin(PinName))
		{
			return true;
		}
		if (!PopulatePins::MayCome(*Name, PinName))
		{
			break;
		}
	}
	for (int32 Index = Added.Num() - 1; Index >= 0; --Index)
	{
		Growing->RemoveInputPin(Node.FindPin(Added[Index].ToString()));
	}
	return false;
}

void FPopulatePins::AddEventParameter(
	UBlueprint& Blueprint, UEdGraphNode& Node, const FString& RequestId, const FBPPinModification& Pin)
{
	UK2Node_CustomEvent& Event = *CastChecked<UK2Node_CustomEvent>(&Node);
	const TOptional<FEdGraphPinType> Type = Pin.Type ? PopulatePins::ToPinType(*Pin.Type)
													 : TOptional<FEdGraphPinType>();
	FText Refusal;
	if (Pin.Name.IsEmpty() || !Type)
	{
		Warn(TEXT("[Failure]"), Node, RequestId, Pin.Name,
			TEXT("a parameter was not added: it needs a name and a type, such as {\"category\":\"float\"}."));
		return;
	}
	if (const UEdGraphPin* const Existing = Node.FindPin(Pin.Name))
	{
		// A request sent again finds what it has added.
		if (Existing->PinType.PinCategory != Type->PinCategory
			|| Existing->PinType.PinSubCategoryObject != Type->PinSubCategoryObject
			|| Existing->PinType.ContainerType != Type->ContainerType)
		{
			Warn(TEXT("[Failure]"), Node, RequestId, Pin.Name,
				FString::Printf(TEXT("a parameter was not added: the event has a pin of that name, a %s."),
					*UEdGraphSchema_K2::TypeToText(Existing->PinType).ToString()));
		}
		return;
	}
	if (!Event.CanCreateUserDefinedPin(*Type, EGPD_Output, Refusal))
	{
		Warn(TEXT("[Failure]"), Node, RequestId, Pin.Name,
			FString::Printf(TEXT("a parameter was not added: %s"), *Refusal.ToString()));
		return;
	}
	Event.CreateUserDefinedPin(FName(*Pin.Name), *Type, EGPD_Output, false);
	// Calls of the event that follow in this request have the parameter.
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
}

void FPopulatePins::Warn(const TCHAR* Mark, const UEdGraphNode& Node, const FString& RequestId, const FString& PinName,
	const FString& Reason)
{
	const FString Id = RequestId.IsEmpty() ? FBlueprintNodeUtils::GetShortNodeId(&Node) : RequestId;
	Result.AddWarningMessage(FString::Printf(TEXT("%s Pin '%s' of node '%s' (%s): %s"), Mark, *PinName,
		*Node.GetNodeTitle(ENodeTitleType::ListView).ToString(), *Id, *Reason));
}
