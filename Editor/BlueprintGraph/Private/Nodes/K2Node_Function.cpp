// The ends of a function graph: entry and result.

#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "FunctionTips.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_FunctionTerminator, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_FunctionEntry, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_FunctionResult, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_FunctionTerminator::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("FunctionReference"), &UK2Node_FunctionTerminator::FunctionReference);
}

void UK2Node_FunctionEntry::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("CustomGeneratedFunctionName"), &UK2Node_FunctionEntry::CustomGeneratedFunctionName);
	Class.Property(TEXT("MetaData"), &UK2Node_FunctionEntry::MetaData);
	Class.Property(TEXT("LocalVariables"), &UK2Node_FunctionEntry::LocalVariables);
	Class.Property(TEXT("bEnforceConstCorrectness"), &UK2Node_FunctionEntry::bEnforceConstCorrectness);
	Class.Property(TEXT("ExtraFlags"), &UK2Node_FunctionEntry::ExtraFlags);
}

void UK2Node_FunctionResult::DescribeClass(FClassDescriber&) {}

UFunction* UK2Node_FunctionTerminator::FindSignatureFunction() const
{
	const UClass* const FoundClass = FunctionReference.GetMemberParentClass();
	if (FoundClass)
	{
		return FunctionReference.ResolveFunction();
	}
	// A function of the Blueprint itself has its signature from the nodes' own pins, never from the class that is made
	// of them.
	return nullptr;
}

bool UK2Node_FunctionTerminator::CanCreateUserDefinedPin(
	const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage)
{
	if (!bIsEditable)
	{
		OutErrorMessage = FText::FromString(TEXT("Cannot add pins to an uneditable node"));
		return false;
	}
	if (InPinType.PinCategory == UEdGraphSchema_K2::PC_Exec)
	{
		OutErrorMessage = FText::FromString(TEXT("Cannot add exec pins to a function!"));
		return false;
	}
	// What comes into the function leaves its entry, and the other way round at its end.
	if (DrawNodeAsEntry() && InDesiredDirection == EGPD_Input)
	{
		OutErrorMessage = NSLOCTEXT("K2Node", "AddInputPinError", "Cannot add input pins to function entry node!");
		return false;
	}
	if (DrawNodeAsExit() && InDesiredDirection == EGPD_Output)
	{
		OutErrorMessage = NSLOCTEXT("K2Node", "AddOutputPinError", "Cannot add output pins to function result node!");
		return false;
	}
	return true;
}

void UK2Node_FunctionTerminator::PromoteFromInterfaceOverride(bool)
{
	Modify();
	const FName Name = FunctionReference.GetMemberName();
	FunctionReference.SetSelfMember(Name);
	// The parameters came from the interface; from now on they are the author's own.
	for (const UEdGraphPin* const Pin : Pins)
	{
		if (UEdGraphSchema_K2::IsExecPin(*Pin) || Pin->ParentPin || Pin->bOrphanedPin
			|| UserDefinedPinExists(Pin->PinName))
		{
			continue;
		}
		const TSharedPtr<FUserPinInfo> Info = MakeShared<FUserPinInfo>();
		Info->PinName = Pin->PinName;
		Info->PinType = Pin->PinType;
		Info->DesiredPinDirection = Pin->Direction;
		Info->PinDefaultValue = Pin->DefaultValue;
		UserDefinedPins.Add(Info);
	}
	bIsEditable = true;
}

int32 UK2Node_FunctionEntry::GetFunctionFlags() const
{
	int32 Flags = ExtraFlags;
	if (const UFunction* const Signature = FindSignatureFunction())
	{
		Flags |= static_cast<int32>(Signature->FunctionFlags & FUNC_FuncInherit);
	}
	return Flags;
}

namespace FunctionNodes
{
const FName WorldContext(TEXT("__WorldContext"));

/** Functions of a library are static: they have no object that could tell them its world. */
static bool NeedsWorldContext(const UK2Node_FunctionEntry& Entry)
{
	const UBlueprint* const Blueprint = Entry.GetTypedOuter<UBlueprint>();
	return Blueprint && Blueprint->BlueprintType == BPTYPE_FunctionLibrary;
}
} // namespace FunctionNodes

UEdGraphPin* UK2Node_FunctionEntry::GetAutoWorldContextPin() const
{
	return FindPin(FunctionNodes::WorldContext, EGPD_Output);
}

void UK2Node_FunctionEntry::AllocateDefaultPins()
{
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	if (const UFunction* const Signature = FindSignatureFunction())
	{
		CreatePinsForFunctionEntryExit(Signature, true);
	}
	for (const TSharedPtr<FUserPinInfo>& Info : UserDefinedPins)
	{
		if (!FindPin(Info->PinName))
		{
			CreatePinFromUserDefinition(Info);
		}
	}
	if (FunctionNodes::NeedsWorldContext(*this))
	{
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, UObject::StaticClass(), FunctionNodes::WorldContext)
			->bHidden = true;
	}
}

UEdGraphPin* UK2Node_FunctionEntry::CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo)
{
	return CreatePin(EGPD_Output, NewPinInfo->PinType, NewPinInfo->PinName);
}

FText UK2Node_FunctionEntry::GetNodeTitle(ENodeTitleType::Type) const
{
	const UEdGraph* const Graph = GetGraph();
	FGraphDisplayInfo Info;
	if (Graph && Graph->GetSchema())
	{
		Graph->GetSchema()->GetGraphDisplayInformation(*Graph, Info);
	}
	FText Title = Info.DisplayName;
	if (Title.IsEmpty())
	{
		Title = FText::FromString(FName::NameToDisplayString(
			(CustomGeneratedFunctionName.IsNone() ? FunctionReference.GetMemberName() : CustomGeneratedFunctionName)
				.ToString(),
			false));
	}
	return Title;
}

FText UK2Node_FunctionEntry::GetTooltipText() const
{
	if (!MetaData.ToolTip.IsEmpty())
	{
		return MetaData.ToolTip;
	}
	const UFunction* const Signature = FindSignatureFunction();
	return Signature ? FText::FromString(FunctionTips::Describe(*Signature)) : GetNodeTitle(ENodeTitleType::FullTitle);
}

void UK2Node_FunctionEntry::PostReconstructNode()
{
	Super::PostReconstructNode();
}

bool UK2Node_FunctionEntry::ShouldUseConstRefParams() const
{
	return bEnforceConstCorrectness;
}

bool UK2Node_FunctionEntry::ModifyUserDefinedPinDefaultValue(
	TSharedPtr<FUserPinInfo> PinInfo, const FString& NewDefaultValue)
{
	return Super::ModifyUserDefinedPinDefaultValue(PinInfo, NewDefaultValue);
}

TArray<UK2Node_FunctionResult*> UK2Node_FunctionResult::GetAllResultNodes() const
{
	TArray<UK2Node_FunctionResult*> Results;
	if (const UEdGraph* const Graph = GetGraph())
	{
		Graph->GetNodesOfClass(Results);
	}
	return Results;
}

void UK2Node_FunctionResult::AllocateDefaultPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	if (const UFunction* const Signature = FindSignatureFunction())
	{
		CreatePinsForFunctionEntryExit(Signature, false);
	}
	for (const TSharedPtr<FUserPinInfo>& Info : UserDefinedPins)
	{
		if (!FindPin(Info->PinName))
		{
			CreatePinFromUserDefinition(Info);
		}
	}
}

UEdGraphPin* UK2Node_FunctionResult::CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo)
{
	return CreatePin(EGPD_Input, NewPinInfo->PinType, NewPinInfo->PinName);
}

FText UK2Node_FunctionResult::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::MenuTitle)
	{
		return NSLOCTEXT("K2Node", "ReturnNodeMenuTitle", "Add Return Node...");
	}
	return NSLOCTEXT("K2Node", "ReturnNode", "Return Node");
}

FText UK2Node_FunctionResult::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "ReturnNodeTooltip", "Ends the function and gives its results to the caller");
}

void UK2Node_FunctionResult::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	// A further result shows what the first one shows.
	for (const UK2Node_FunctionResult* const Other : GetAllResultNodes())
	{
		if (Other != this)
		{
			FunctionReference = Other->FunctionReference;
			bIsEditable = Other->bIsEditable;
			UserDefinedPins.Empty();
			for (const TSharedPtr<FUserPinInfo>& Info : Other->UserDefinedPins)
			{
				UserDefinedPins.Add(MakeShared<FUserPinInfo>(*Info));
			}
			return;
		}
	}
	if (const UEdGraph* const Graph = GetGraph())
	{
		TArray<UK2Node_FunctionEntry*> Entries;
		Graph->GetNodesOfClass(Entries);
		if (!Entries.IsEmpty() && FunctionReference.GetMemberName().IsNone())
		{
			FunctionReference = Entries[0]->FunctionReference;
			bIsEditable = Entries[0]->bIsEditable;
		}
	}
}

bool UK2Node_FunctionResult::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	return Graph && Graph->GetSchema() && Graph->GetSchema()->GetGraphType(Graph) == GT_Function
		&& !UEdGraphSchema_K2::IsConstructionScript(Graph);
}

void UK2Node_FunctionResult::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
