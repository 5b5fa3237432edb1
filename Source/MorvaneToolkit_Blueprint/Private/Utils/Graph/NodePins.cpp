#include "Utils/Graph/NodePins.h"

#include "AssetOperationBase.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "ToolResult.h"
#include "Utils/Graph/LocalVariables.h"
#include "Utils/Graph/PinConnections.h"

namespace NodePinsImpl
{
static void SetTerminal(const FBPPinType& Record, FJsonObject& OutJson)
{
	OutJson.SetStringField(TEXT("category"), Record.Category);
	OutJson.SetStringField(TEXT("sub_category"), Record.SubCategory);
	OutJson.SetStringField(TEXT("sub_category_object"), Record.SubCategoryObject);
}

/** The record as the asset helpers read pin types, which understand more words than the pins themselves have. */
static TSharedPtr<FJsonObject> ToJson(const FBPPinType& Record)
{
	const TSharedPtr<FJsonObject> Json = MakeShared<FJsonObject>();
	SetTerminal(Record, *Json);
	Json->SetStringField(TEXT("container_type"), Record.ContainerType);
	Json->SetBoolField(TEXT("is_reference"), Record.bIsReference);
	Json->SetBoolField(TEXT("is_const"), Record.bIsConst);
	Json->SetBoolField(TEXT("is_weak_pointer"), Record.bIsWeakPointer);
	Json->SetBoolField(TEXT("is_u_object_wrapper"), Record.bIsUObjectWrapper);
	if (Record.ValueType)
	{
		const TSharedPtr<FJsonObject> Value = MakeShared<FJsonObject>();
		SetTerminal(*Record.ValueType, *Value);
		Json->SetObjectField(TEXT("value_type"), Value);
	}
	return Json;
}
} // namespace NodePinsImpl

TOptional<EEdGraphPinDirection> NodePins::ParsePinDirection(const FString& Text)
{
	if (Text.Equals(TEXT("input"), ESearchCase::IgnoreCase) || Text.Equals(TEXT("in"), ESearchCase::IgnoreCase))
	{
		return EGPD_Input;
	}
	if (Text.Equals(TEXT("output"), ESearchCase::IgnoreCase) || Text.Equals(TEXT("out"), ESearchCase::IgnoreCase))
	{
		return EGPD_Output;
	}
	return {};
}

UEdGraphPin* NodePins::FindOrWarn(const UEdGraphNode& Node, const FString& Name, Morvane::FToolResult& Result)
{
	// A pin's own name means that pin, whichever way it faces; only then what the name may mean loosely.
	UEdGraphPin* Pin = nullptr;
	for (const bool bLoosely : {false, true})
	{
		for (const EEdGraphPinDirection Direction : {EGPD_Input, EGPD_Output})
		{
			Pin = Pin	   ? Pin
				: bLoosely ? FBlueprintPinUtils::FindPinWithAliases(&Node, Name, Direction, nullptr)
						   : Node.FindPin(Name, Direction);
		}
	}
	if (!Pin)
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Could not find pin '%s' on node '%s'"), *Name, *FBlueprintNodeUtils::GetFullTitle(&Node)));
	}
	return Pin;
}

bool NodePins::HasOwnParameters(const UK2Node_EditablePinBase& Node)
{
	if (Node.IsEditable())
	{
		return true;
	}
	// A result that was added by itself may not know yet that its function is the author's own.
	const UK2Node_FunctionEntry* const Entry = Node.IsA<UK2Node_FunctionResult>()
		? FBlueprintGraphUtils::FindFunctionEntry(Node.GetGraph())
		: nullptr;
	return Entry && Entry->IsEditable();
}

TArray<UK2Node_EditablePinBase*> NodePins::GetNodesOfSameParameters(UK2Node_EditablePinBase& Node)
{
	TArray<UK2Node_EditablePinBase*> Nodes;
	if (const UK2Node_FunctionResult* const ResultNode = Cast<UK2Node_FunctionResult>(&Node))
	{
		for (UK2Node_FunctionResult* const Each : ResultNode->GetAllResultNodes())
		{
			Nodes.Add(Each);
		}
	}
	Nodes.AddUnique(&Node);
	return Nodes;
}

void NodePins::WarnNotAdded(
	const UEdGraphNode& Node, const FBPPinModification& Record, const FString& Reason, Morvane::FToolResult& Result)
{
	Result.AddWarningMessage(FString::Printf(TEXT("Failed to add new pin '%s' to node '%s': %s"), *Record.Name,
		*FBlueprintNodeUtils::GetFullTitle(&Node), *Reason));
}

TOptional<FEdGraphPinType> NodePins::ReadType(
	const UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	if (!Record.Type)
	{
		WarnNotAdded(Node, Record, TEXT("It needs a 'type'."), Result);
		return {};
	}
	FEdGraphPinType Type;
	if (FBlueprintLocalVariableUtils::NormalizeType(*NodePinsImpl::ToJson(*Record.Type), Type))
	{
		return Type;
	}
	WarnNotAdded(Node, Record,
		FString::Printf(TEXT("The type '%s' (sub_category '%s', sub_category_object '%s') means nothing."),
			*Record.Type->Category, *Record.Type->SubCategory, *Record.Type->SubCategoryObject),
		Result);
	return {};
}
