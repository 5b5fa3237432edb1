#include "K2Node_CreateDelegate.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_BaseMCDelegate.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CreateDelegate, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_CreateDelegate::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("SelectedFunctionName"), &UK2Node_CreateDelegate::SelectedFunctionName);
	Class.Property(TEXT("SelectedFunctionGuid"), &UK2Node_CreateDelegate::SelectedFunctionGuid);
}

namespace CreateDelegates
{
const FName OutputPin(TEXT("OutputDelegate"));
} // namespace CreateDelegates

UEdGraphPin* UK2Node_CreateDelegate::GetDelegateOutPin() const
{
	return FindPin(CreateDelegates::OutputPin, EGPD_Output);
}

UEdGraphPin* UK2Node_CreateDelegate::GetObjectInPin() const
{
	return FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input);
}

void UK2Node_CreateDelegate::AllocateDefaultPins()
{
	UEdGraphPin* const ObjectPin = CreatePin(
		EGPD_Input, UEdGraphSchema_K2::PC_Object, UObject::StaticClass(), UEdGraphSchema_K2::PN_Self);
	ObjectPin->PinFriendlyName = NSLOCTEXT("K2Node", "PinFriendlyNameObject", "Object");
	UEdGraphPin* const EventPin = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Delegate, CreateDelegates::OutputPin);
	EventPin->PinFriendlyName = NSLOCTEXT("K2Node", "PinFriendlyNameEvent", "Event");
	Super::AllocateDefaultPins();
}

UFunction* UK2Node_CreateDelegate::GetDelegateSignature() const
{
	const UEdGraphPin* const Output = GetDelegateOutPin();
	if (!Output || Output->LinkedTo.IsEmpty())
	{
		return nullptr;
	}
	const UEdGraphPin* const Asker = Output->LinkedTo[0];
	if (const UK2Node_BaseMCDelegate* const Node = Cast<UK2Node_BaseMCDelegate>(Asker->GetOwningNode()))
	{
		return Node->GetDelegateSignature();
	}
	const FSimpleMemberReference& Reference = Asker->PinType.PinSubCategoryMemberReference;
	return Reference.MemberName.IsNone()
		? nullptr
		: FMemberReference::ResolveSimpleMemberReference(Reference, GetBlueprintClassFromNode());
}

UClass* UK2Node_CreateDelegate::GetScopeClass(bool) const
{
	const UEdGraphPin* const ObjectPin = GetObjectInPin();
	if (!ObjectPin || ObjectPin->LinkedTo.IsEmpty())
	{
		return GetBlueprintClassFromNode();
	}
	const FEdGraphPinType& Type = ObjectPin->LinkedTo[0]->PinType;
	if (Type.PinSubCategory == UEdGraphSchema_K2::PSC_Self)
	{
		return GetBlueprintClassFromNode();
	}
	UClass* const Linked = Cast<UClass>(Type.PinSubCategoryObject.Get());
	UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Linked);
	return Blueprint ? FMemberReference::GetBlueprintSelfClass(Blueprint) : Linked;
}

void UK2Node_CreateDelegate::SetFunction(FName Name)
{
	SelectedFunctionName = Name;
	SelectedFunctionGuid.Invalidate();
}

bool UK2Node_CreateDelegate::IsValid(FString* OutMsg, bool bDontUseSkeletalClassForSelf) const
{
	const auto Refuse = [OutMsg](const TCHAR* Reason)
	{
		if (OutMsg)
		{
			*OutMsg = Reason;
		}
		return false;
	};
	if (SelectedFunctionName.IsNone())
	{
		return Refuse(TEXT("No function or event is selected."));
	}
	if (!GetDelegateOutPin())
	{
		return Refuse(TEXT("The event pin is missing."));
	}
	const UFunction* const Signature = GetDelegateSignature();
	if (!Signature)
	{
		return Refuse(TEXT("The event is not connected to anything that says which parameters it has."));
	}
	const UClass* const Scope = GetScopeClass(bDontUseSkeletalClassForSelf);
	const UFunction* const Function = Scope ? Scope->FindFunctionByName(SelectedFunctionName) : nullptr;
	if (!Function)
	{
		return Refuse(*FString::Printf(TEXT("The function or event '%s' could not be found in '%s'."),
			*SelectedFunctionName.ToString(), Scope ? *Scope->GetName() : TEXT("None")));
	}
	if (!Signature->IsSignatureCompatibleWith(Function))
	{
		return Refuse(*FString::Printf(TEXT("The parameters of '%s' do not fit the event '%s'."),
			*SelectedFunctionName.ToString(), *Signature->GetName()));
	}
	if (!UEdGraphSchema_K2::FunctionCanBeUsedInDelegate(Function))
	{
		return Refuse(*FString::Printf(TEXT("'%s' cannot be bound to an event: it is pure, latent or not callable."),
			*SelectedFunctionName.ToString()));
	}
	return true;
}

void UK2Node_CreateDelegate::HandleAnyChangeWithoutNotifying()
{
	UEdGraphPin* const Output = GetDelegateOutPin();
	if (!Output)
	{
		return;
	}
	FSimpleMemberReference Signature;
	FMemberReference::FillSimpleMemberReference(GetDelegateSignature(), Signature);
	Output->PinType.PinSubCategoryMemberReference = Signature;
}

void UK2Node_CreateDelegate::HandleAnyChange(bool bForceModify)
{
	HandleAnyChangeWithoutNotifying();
	if (bForceModify)
	{
		Modify();
	}
	if (UEdGraph* const Graph = GetGraph())
	{
		Graph->NotifyNodeChanged(this);
	}
}

void UK2Node_CreateDelegate::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	HandleAnyChangeWithoutNotifying();
}

void UK2Node_CreateDelegate::PinTypeChanged(UEdGraphPin* Pin)
{
	Super::PinTypeChanged(Pin);
	HandleAnyChangeWithoutNotifying();
}

void UK2Node_CreateDelegate::PostReconstructNode()
{
	Super::PostReconstructNode();
	HandleAnyChangeWithoutNotifying();
}

FText UK2Node_CreateDelegate::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "CreateDelegate", "Create Event");
}

FText UK2Node_CreateDelegate::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "CreateDelegate_Tooltip",
		"Makes an event out of a function of the object, to be bound to a dispatcher");
}

FText UK2Node_CreateDelegate::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "DelegateCategory", "Event Dispatchers");
}

void UK2Node_CreateDelegate::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_CreateDelegate::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	FString Reason;
	if (!IsValid(&Reason))
	{
		MessageLog.Error(*FString::Printf(TEXT("@@ Error: %s"), *Reason), this);
	}
}
