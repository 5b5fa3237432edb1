// The nodes about event dispatchers: bind, unbind, unbind all, call, assign.

#include "K2Node_AddDelegate.h"
#include "K2Node_AssignDelegate.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_ClearDelegate.h"
#include "K2Node_RemoveDelegate.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_BaseMCDelegate, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_AddDelegate, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_RemoveDelegate, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_ClearDelegate, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_CallDelegate, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_AssignDelegate, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_BaseMCDelegate::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("DelegateReference"), &UK2Node_BaseMCDelegate::DelegateReference);
}

void UK2Node_AddDelegate::DescribeClass(FClassDescriber&) {}
void UK2Node_RemoveDelegate::DescribeClass(FClassDescriber&) {}
void UK2Node_ClearDelegate::DescribeClass(FClassDescriber&) {}
void UK2Node_CallDelegate::DescribeClass(FClassDescriber&) {}
void UK2Node_AssignDelegate::DescribeClass(FClassDescriber&) {}

namespace DispatcherNodes
{
const FName DelegatePin(TEXT("Delegate"));
} // namespace DispatcherNodes

void UK2Node_BaseMCDelegate::SetFromProperty(const FProperty* Property, bool bSelfContext, UClass*)
{
	DelegateReference.SetFromField(Property, bSelfContext);
}

FProperty* UK2Node_BaseMCDelegate::GetProperty() const
{
	return ResolveProperty(DelegateReference);
}

FText UK2Node_BaseMCDelegate::GetPropertyDisplayName() const
{
	const FProperty* const Property = GetProperty();
	const FString* const Display = Property ? Property->FindMetaData(FBlueprintMetadata::MD_DisplayName) : nullptr;
	return FText::FromString(Display ? *Display : FName::NameToDisplayString(GetPropertyName().ToString(), false));
}

UFunction* UK2Node_BaseMCDelegate::GetDelegateSignature(bool) const
{
	const FMulticastDelegateProperty* const Property = CastField<FMulticastDelegateProperty>(GetProperty());
	return Property ? Property->SignatureFunction : nullptr;
}

UEdGraphPin* UK2Node_BaseMCDelegate::GetDelegatePin() const
{
	return FindPin(DispatcherNodes::DelegatePin);
}

void UK2Node_BaseMCDelegate::AllocateDefaultPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	UClass* Owner = DelegateReference.GetMemberParentClass();
	if (DelegateReference.IsSelfContext())
	{
		const FProperty* const Property = GetProperty();
		Owner = Property ? Property->GetOwnerClass() : GetBlueprintClassFromNode();
	}
	UEdGraphPin* const SelfPin = CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object,
		Owner ? Owner->GetAuthoritativeClass() : nullptr, UEdGraphSchema_K2::PN_Self);
	SelfPin->PinFriendlyName = NSLOCTEXT("K2Node", "BaseMCDelegateSelfPinName", "Target");
	Super::AllocateDefaultPins();
}

void UK2Node_BaseMCDelegate::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	Super::ReallocatePinsDuringReconstruction(OldPins);
	if (!GetProperty())
	{
		KeepOldPins(OldPins);
	}
}

UEdGraphPin* UK2Node_BaseMCDelegate::CreateEventPin()
{
	FCreatePinParams Params;
	Params.bIsConst = true;
	Params.bIsReference = true;
	UEdGraphPin* const Pin = CreatePin(
		EGPD_Input, UEdGraphSchema_K2::PC_Delegate, DispatcherNodes::DelegatePin, Params);
	FMemberReference::FillSimpleMemberReference(GetDelegateSignature(), Pin->PinType.PinSubCategoryMemberReference);
	Pin->PinFriendlyName = NSLOCTEXT("K2Node", "PinFriendlyDelegatetName", "Event");
	return Pin;
}

FText UK2Node_BaseMCDelegate::GetMenuCategory() const
{
	const FProperty* const Property = GetProperty();
	const FString* const Category = Property ? Property->FindMetaData(FBlueprintMetadata::MD_FunctionCategory)
											 : nullptr;
	return Category && !Category->IsEmpty() ? FText::FromString(*Category)
											: NSLOCTEXT("K2Node", "EventDispatchers", "Event Dispatchers");
}

bool UK2Node_BaseMCDelegate::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	if (!Graph || !Graph->GetSchema())
	{
		return false;
	}
	const EGraphType Type = Graph->GetSchema()->GetGraphType(Graph);
	return (Type == GT_Ubergraph || Type == GT_Function || Type == GT_Macro) && Super::IsCompatibleWithGraph(Graph);
}

void UK2Node_BaseMCDelegate::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const FProperty* const Property = GetProperty();
	if (!CastField<FMulticastDelegateProperty>(Property))
	{
		MessageLog.Error(*FString::Printf(TEXT("Could not find an event dispatcher named \"%s\" in @@"),
							 *GetPropertyName().ToString()),
			this);
		return;
	}
	const UEdGraphPin* const SelfPin = FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input);
	if (SelfPin && SelfPin->LinkedTo.IsEmpty() && !IsSelfOrParentClass(Property->GetOwnerClass()))
	{
		MessageLog.Error(
			*FString::Printf(TEXT("This blueprint (self) is not a '%s', therefore @@ must have a connection."),
				*Property->GetOwnerClass()->GetDisplayNameText().ToString()),
			SelfPin);
	}
}

FText UK2Node_BaseMCDelegate::MakeTitle(const TCHAR* Before, ENodeTitleType::Type) const
{
	return FText::FromString(FString::Printf(TEXT("%s %s"), Before, *GetPropertyDisplayName().ToString()));
}

namespace DispatcherNodes
{
static void RequireEvent(const UK2Node_BaseMCDelegate& Node, FCompilerResultsLog& MessageLog)
{
	const UEdGraphPin* const Pin = Node.GetDelegatePin();
	if (Pin && Pin->LinkedTo.IsEmpty())
	{
		MessageLog.Error(TEXT("Event pin @@ of @@ must be connected to the event that is meant"), Pin, &Node);
	}
}
} // namespace DispatcherNodes

void UK2Node_AddDelegate::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	CreateEventPin();
}

FText UK2Node_AddDelegate::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return MakeTitle(TEXT("Bind Event to"), TitleType);
}

FText UK2Node_AddDelegate::GetTooltipText() const
{
	return FText::FromString(
		FString::Printf(TEXT("Has an event run whenever %s is called"), *GetPropertyDisplayName().ToString()));
}

void UK2Node_AddDelegate::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	DispatcherNodes::RequireEvent(*this, MessageLog);
}

void UK2Node_RemoveDelegate::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	CreateEventPin();
}

FText UK2Node_RemoveDelegate::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return MakeTitle(TEXT("Unbind Event from"), TitleType);
}

FText UK2Node_RemoveDelegate::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("Takes one event off %s"), *GetPropertyDisplayName().ToString()));
}

void UK2Node_RemoveDelegate::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	DispatcherNodes::RequireEvent(*this, MessageLog);
}

FText UK2Node_ClearDelegate::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return MakeTitle(TEXT("Unbind all Events from"), TitleType);
}

FText UK2Node_ClearDelegate::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("Takes all events off %s"), *GetPropertyDisplayName().ToString()));
}

bool UK2Node_CallDelegate::CreatePinsForFunctionInputs(const UFunction* Function)
{
	bool bAllPinsGood = true;
	for (TFieldIterator<FProperty> It(Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bIsInput = !It->HasAnyPropertyFlags(CPF_OutParm) || It->HasAnyPropertyFlags(CPF_ReferenceParm);
		if (!It->HasAnyPropertyFlags(CPF_Parm) || !bIsInput)
		{
			continue;
		}
		UEdGraphPin* const Pin = CreatePinFromProperty(*It, EGPD_Input, It->GetFName());
		bAllPinsGood &= Pin != nullptr;
		if (!Pin)
		{
			continue;
		}
		Pin->bDefaultValueIsIgnored = It->HasAnyPropertyFlags(CPF_ReferenceParm);
	}
	return bAllPinsGood;
}

void UK2Node_CallDelegate::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	if (const UFunction* const Signature = GetDelegateSignature())
	{
		CreatePinsForFunctionInputs(Signature);
	}
}

FText UK2Node_CallDelegate::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return MakeTitle(TEXT("Call"), TitleType);
}

FText UK2Node_CallDelegate::GetTooltipText() const
{
	return FText::FromString(
		FString::Printf(TEXT("Runs all events that are bound to %s"), *GetPropertyDisplayName().ToString()));
}

void UK2Node_AssignDelegate::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	const UFunction* const Signature = GetDelegateSignature();
	UEdGraph* const Graph = GetGraph();
	if (!Signature || !Graph || !GetBlueprint() || HasAnyFlags(RF_Transient))
	{
		return;
	}
	if (Pins.IsEmpty())
	{
		AllocateDefaultPins();
	}
	static const FVector2D Offset(-150.0, 150.0);
	const FString Name = FString::Printf(TEXT("%s_Event"), *GetPropertyName().ToString());
	const UK2Node_CustomEvent* const Event = UK2Node_CustomEvent::CreateFromFunction(
		FVector2D(NodePosX + Offset.X, NodePosY + Offset.Y), Graph, Name, Signature, false);
	UEdGraphPin* const EventPin = Event ? Event->FindPin(UK2Node_Event::DelegateOutputName, EGPD_Output) : nullptr;
	if (UEdGraphPin* const DelegatePin = EventPin ? GetDelegatePin() : nullptr)
	{
		EventPin->MakeLinkTo(DelegatePin);
	}
}

FText UK2Node_AssignDelegate::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::MenuTitle || TitleType == ENodeTitleType::ListView)
	{
		return MakeTitle(TEXT("Assign"), TitleType);
	}
	return Super::GetNodeTitle(TitleType);
}

FText UK2Node_AssignDelegate::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("Binds a new event to %s"), *GetPropertyDisplayName().ToString()));
}
