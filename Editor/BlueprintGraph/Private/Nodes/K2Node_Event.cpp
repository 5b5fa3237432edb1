#include "K2Node_Event.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "FunctionTips.h"
#include "K2Node_CallFunction.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_EventNodeInterface, "/Script/BlueprintGraph", CLASS_Interface | CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_Event, "/Script/BlueprintGraph", CLASS_None)

const FName UK2Node_Event::DelegateOutputName(TEXT("OutputDelegate"));

void UK2Node_EventNodeInterface::DescribeClass(FClassDescriber&) {}

void UK2Node_Event::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UK2Node_EventNodeInterface::StaticClass());
	Class.Property(TEXT("EventReference"), &UK2Node_Event::EventReference);
	Class.Property(TEXT("bOverrideFunction"), &UK2Node_Event::bOverrideFunction);
	Class.Property(TEXT("bInternalEvent"), &UK2Node_Event::bInternalEvent);
	Class.Property(TEXT("CustomFunctionName"), &UK2Node_Event::CustomFunctionName);
	Class.Property(TEXT("FunctionFlags"), &UK2Node_Event::FunctionFlags);
}

FName UK2Node_Event::GetFunctionName() const
{
	return bOverrideFunction ? EventReference.GetMemberName() : CustomFunctionName;
}

UFunction* UK2Node_Event::FindEventSignatureFunction() const
{
	if (EventReference.GetMemberName().IsNone())
	{
		return nullptr;
	}
	return ResolveFunction(EventReference);
}

bool UK2Node_Event::IsInterfaceEventNode() const
{
	const UFunction* const Function = FindEventSignatureFunction();
	const UClass* const Owner = Function ? Function->GetOwnerClass() : nullptr;
	return Owner && Owner->HasAnyClassFlags(CLASS_Interface);
}

namespace EventNodes
{
/** Where a replicated event runs, or where its call goes. */
static const TCHAR* NetWords(uint32 FunctionFlags, bool bCalling)
{
	if (FunctionFlags & FUNC_NetMulticast)
	{
		return bCalling ? TEXT("Replicated To All (if server)") : TEXT("Executes On All");
	}
	if (FunctionFlags & FUNC_NetServer)
	{
		return bCalling ? TEXT("Replicated To Server (if owning client)") : TEXT("Executes On Server");
	}
	if (FunctionFlags & FUNC_NetClient)
	{
		return bCalling ? TEXT("Replicated To Owning Client (if server)") : TEXT("Executes On Owning Client");
	}
	return TEXT("");
}
} // namespace EventNodes

FText UK2Node_Event::GetLocalizedNetString(uint32 FunctionFlags, bool bCalling)
{
	if (!(FunctionFlags & FUNC_Net))
	{
		return FText::GetEmpty();
	}
	const FString Words = EventNodes::NetWords(FunctionFlags, bCalling);
	return FText::FromString(FunctionFlags & FUNC_NetReliable ? TEXT("RELIABLE ") + Words : Words);
}

void UK2Node_Event::UpdateDelegatePin(bool)
{
	UEdGraphPin* const Pin = FindPin(DelegateOutputName, EGPD_Output);
	if (!Pin)
	{
		return;
	}
	FSimpleMemberReference Signature;
	if (bOverrideFunction)
	{
		FMemberReference::FillSimpleMemberReference(FindEventSignatureFunction(), Signature);
	}
	else if (const UBlueprint* const Blueprint = CustomFunctionName.IsNone() ? nullptr : GetBlueprint())
	{
		// The event is its own signature. It is named, not looked up: the class that will hold it need not be built
		// yet.
		UClass* const Class = Blueprint->GeneratedClass.Get() ? Blueprint->GeneratedClass.Get()
															  : Blueprint->SkeletonGeneratedClass.Get();
		Signature.MemberParent = Class;
		Signature.MemberName = CustomFunctionName;
		Signature.MemberGuid = bInternalEvent ? FGuid() : NodeGuid;
	}
	if (!(Pin->PinType.PinSubCategoryMemberReference == Signature))
	{
		Pin->PinType.PinSubCategoryMemberReference = Signature;
		PinTypeChanged(Pin);
	}
}

void UK2Node_Event::AllocateDefaultPins()
{
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Delegate, DelegateOutputName);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	if (const UFunction* const Function = FindEventSignatureFunction())
	{
		CreatePinsForFunctionEntryExit(Function, true);
	}
	Super::AllocateDefaultPins();
	UpdateDelegatePin(true);
}

void UK2Node_Event::PostReconstructNode()
{
	Super::PostReconstructNode();
	UpdateDelegatePin();
}

void UK2Node_Event::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	if (Pin && Pin->PinName == DelegateOutputName)
	{
		UpdateDelegatePin();
	}
	// What an author links is meant to run.
	if (Pin && !Pin->LinkedTo.IsEmpty() && IsAutomaticallyPlacedGhostNode())
	{
		SetEnabledState(ENodeEnabledState::Enabled, false);
		NodeComment.Empty();
		bCommentBubbleVisible = false;
		bCommentBubblePinned = false;
	}
}

FText UK2Node_Event::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (!bOverrideFunction && !CustomFunctionName.IsNone())
	{
		return FText::FromName(CustomFunctionName);
	}
	const UFunction* const Function = FindEventSignatureFunction();
	const FString Name = Function ? UEdGraphSchema_K2::GetFriendlySignatureName(Function).ToString()
								  : EventReference.GetMemberName().ToString();
	FString Title = FString::Printf(TEXT("Event %s"), *Name);
	if (TitleType == ENodeTitleType::FullTitle && Function && IsInterfaceEventNode())
	{
		Title += FString::Printf(TEXT("\nFrom %s"), *Function->GetOwnerClass()->GetName());
	}
	return FText::FromString(Title);
}

FText UK2Node_Event::GetTooltipText() const
{
	const UFunction* const Function = FindEventSignatureFunction();
	if (!Function)
	{
		return FText::FromString(FString::Printf(TEXT("Event %s"), *GetFunctionName().ToString()));
	}
	FString Tooltip = FunctionTips::Describe(*Function) + FunctionTips::WhereItRuns(*Function);
	if (IsInterfaceEventNode())
	{
		Tooltip += FString::Printf(TEXT("\n\nDeclared by interface %s"), *Function->GetOwnerClass()->GetName());
	}
	return FText::FromString(Tooltip);
}

FText UK2Node_Event::GetMenuCategory() const
{
	const FText Root = NSLOCTEXT("K2Node", "AddEventCategory", "Add Event");
	const UFunction* const Function = FindEventSignatureFunction();
	return Function ? UK2Node_CallFunction::GetDefaultCategoryForFunction(Function, Root) : Root;
}

FText UK2Node_Event::GetKeywords() const
{
	const UFunction* const Function = FindEventSignatureFunction();
	const FString* const Words = Function ? Function->FindMetaData(FBlueprintMetadata::MD_FunctionKeywords) : nullptr;
	return Words ? FText::FromString(*Words) : FText::GetEmpty();
}

void UK2Node_Event::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (!bOverrideFunction)
	{
		return;
	}
	const UFunction* const Function = FindEventSignatureFunction();
	if (!Function)
	{
		const UClass* const Parent = EventReference.GetMemberParentClass();
		MessageLog.Error(*FString::Printf(TEXT("Missing Event '%s' in '%s' for @@"),
							 *EventReference.GetMemberName().ToString(), Parent ? *Parent->GetName() : TEXT("None")),
			this);
		return;
	}
	const UBlueprint* const Blueprint = GetBlueprint();
	const UClass* const Self = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	const UClass* const Owner = Function->GetOwnerClass();
	// A parent that is not here may well descend from it.
	if (Self && Owner && !Owner->HasAnyClassFlags(CLASS_Interface) && !Self->IsChildOf(Owner)
		&& !FMissingObjects::FindMissingParent(Self))
	{
		MessageLog.Error(
			*FString::Printf(TEXT("Event '%s' is declared in '%s', which is no parent of this Blueprint: @@"),
				*EventReference.GetMemberName().ToString(), *Owner->GetName()),
			this);
	}
}

bool UK2Node_Event::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	return Super::IsCompatibleWithGraph(Graph) && Graph && Graph->GetSchema()
		&& Graph->GetSchema()->GetGraphType(Graph) == GT_Ubergraph;
}

bool UK2Node_Event::CanPasteHere(const UEdGraph* TargetGraph) const
{
	if (!IsCompatibleWithGraph(TargetGraph))
	{
		return false;
	}
	const UBlueprint* const Blueprint = TargetGraph->GetTypedOuter<UBlueprint>();
	const UFunction* const Function = bOverrideFunction ? FindEventSignatureFunction() : nullptr;
	const UClass* const Owner = Function ? Function->GetOwnerClass() : nullptr;
	if (!Blueprint || !Owner || Owner->HasAnyClassFlags(CLASS_Interface))
	{
		return true;
	}
	return Blueprint->ParentClass.Get() && Blueprint->ParentClass.Get()->IsChildOf(Owner);
}
