#include "Utils/Graph/NodePins.h"

#include "AssetOperationBase.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_EditablePinBase.h"
#include "Misc/PackageName.h"
#include "ToolResult.h"
#include "UObject/Class.h"
#include "Utils/Asset/SafeObjectLoad.h"
#include "Utils/Graph/NodeRefresh.h"
#include "Utils/Graph/PinConnections.h"

// Values of pins that are there, and types of parameters.

namespace NodePinsModify
{
/** The value of a chosen delegate is a function of the object, whatever pin it is said to be for. */
static bool ChooseFunction(UK2Node_CreateDelegate& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	const UClass* const Scope = Node.GetScopeClass();
	if (!Scope)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Could not modify pin '%s'. Node's Scope Class is invalid"), *Record.Name));
		return false;
	}
	const UFunction* const Function = Scope->FindFunctionByName(FName(*Record.Value));
	if (!Function || !UEdGraphSchema_K2::FunctionCanBeUsedInDelegate(Function))
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Could not modify pin '%s'"), *Record.Name));
		return false;
	}
	Node.Modify();
	Node.SetFunction(Function->GetFName());
	Node.HandleAnyChange(true);
	return true;
}

static bool HoldsObject(const FEdGraphPinType& Type)
{
	return !Type.IsContainer()
		&& (Type.PinCategory == UEdGraphSchema_K2::PC_Object || Type.PinCategory == UEdGraphSchema_K2::PC_Class);
}

/** The value of a pin that holds an object as the path of one that is there; false after a warning. */
static bool FindObject(const UEdGraphPin& Pin, FString& InOutValue, Morvane::FToolResult& Result)
{
	const FString Path = FPackageName::ExportTextPathToObjectPath(InOutValue.TrimStartAndEnd());
	if (!HoldsObject(Pin.PinType) || Path.IsEmpty() || Path.Equals(TEXT("None"), ESearchCase::IgnoreCase))
	{
		return true;
	}
	const bool bClass = Pin.PinType.PinCategory == UEdGraphSchema_K2::PC_Class;
	// Classes go by short names, too.
	const UObject* Object = bClass && !Path.Contains(TEXT("/")) ? FAssetOperationBase::GetAssetClassFromAssetName(Path)
																: nullptr;
	Object = Object ? Object : SafeObjectLoad::LoadObjectSafe(Path, Result);
	InOutValue = Object ? Object->GetPathName() : InOutValue;
	return Object != nullptr;
}

static void TakeType(UK2Node_EditablePinBase& Node, FName Name, const FEdGraphPinType& Type)
{
	for (const TSharedPtr<FUserPinInfo>& Info : Node.UserDefinedPins)
	{
		if (Info->PinName == Name)
		{
			Node.Modify();
			Info->PinType = Type;
			FString Ignored;
			const bool bKept = GetDefault<UEdGraphSchema_K2>()->DefaultValueSimpleValidation(
				Type, Name, Info->PinDefaultValue, nullptr, FText(), &Ignored);
			Info->PinDefaultValue = bKept ? Info->PinDefaultValue : FString();
		}
	}
}

/** Gives a parameter that the author made another type; links that do not fit it are told. */
static bool ChangeType(UEdGraphNode& Node, FName Name, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	UK2Node_EditablePinBase* const Editable = Cast<UK2Node_EditablePinBase>(&Node);
	if (!Editable || !Editable->UserDefinedPinExists(Name) || !NodePins::HasOwnParameters(*Editable))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Could not change the type of pin '%s' on node '%s'. It is no parameter that was made in this graph."),
			*Record.Name, *FBlueprintNodeUtils::GetFullTitle(&Node)));
		return false;
	}
	const TOptional<FEdGraphPinType> Type = NodePins::ReadType(Node, Record, Result);
	if (!Type)
	{
		return false;
	}
	TArray<UK2Node*> Changed;
	for (UK2Node_EditablePinBase* const Each : NodePins::GetNodesOfSameParameters(*Editable))
	{
		TakeType(*Each, Name, *Type);
		Changed.Add(Each);
	}
	const TArray<FString> Lost = NodeRefresh::Reconstruct(Changed);
	if (!Lost.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Pin '%s' has another type now. These links do not fit it: %s"),
			*Record.Name, *FString::Join(Lost, TEXT(", "))));
	}
	return true;
}
} // namespace NodePinsModify

bool NodePins::SetValue(UEdGraphPin& Pin, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	const UK2Node_EditablePinBase* const Parameters = Cast<UK2Node_EditablePinBase>(Pin.GetOwningNode());
	const bool bParameter = Parameters && Parameters->UserDefinedPinExists(Pin.PinName);
	if (Pin.Direction == EGPD_Output && !bParameter)
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Failed to set value of pin '%s' to '%s'. Pin is an output, and its node gives it its value."),
			*Pin.GetName(), *Record.Value));
		return false;
	}
	FString Value = Record.Value;
	// A linked pin is refused by the setter, before anything is loaded for it.
	const bool bLinked = !Pin.LinkedTo.IsEmpty();
	return (bLinked || NodePinsModify::FindObject(Pin, Value, Result))
		&& FBlueprintPinUtils::SetPinDefaultValue(&Pin, Value, Result);
}

bool NodePins::Modify(UEdGraphNode& Node, const FBPPinModification& Record, Morvane::FToolResult& Result)
{
	using namespace NodePinsModify;
	if (UK2Node_CreateDelegate* const Delegate = Cast<UK2Node_CreateDelegate>(&Node))
	{
		return ChooseFunction(*Delegate, Record, Result);
	}
	const UEdGraphPin* const Pin = FindOrWarn(Node, Record.Name, Result);
	if (!Pin)
	{
		return false;
	}
	if (!Record.bHasValue && !Record.Type)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Could not modify pin '%s'. Neither a value nor a type is given"), *Record.Name));
		return false;
	}
	// A new type makes the pins anew, so the value looks for its pin again.
	if (Record.Type && !ChangeType(Node, Pin->PinName, Record, Result))
	{
		return false;
	}
	UEdGraphPin* const Target = Record.bHasValue ? FindOrWarn(Node, Record.Name, Result) : nullptr;
	return !Record.bHasValue || (Target && SetValue(*Target, Record, Result));
}
