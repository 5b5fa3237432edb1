// Events of components and of actors of the level.

#include "K2Node_ActorBoundEvent.h"
#include "K2Node_ComponentBoundEvent.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "FunctionTips.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_ComponentBoundEvent, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_ActorBoundEvent, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_ComponentBoundEvent::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("DelegatePropertyName"), &UK2Node_ComponentBoundEvent::DelegatePropertyName);
	Class.Property(TEXT("DelegatePropertyDisplayName"), &UK2Node_ComponentBoundEvent::DelegatePropertyDisplayName);
	Class.Property(TEXT("DelegateOwnerClass"), &UK2Node_ComponentBoundEvent::DelegateOwnerClass);
	Class.Property(TEXT("ComponentPropertyName"), &UK2Node_ComponentBoundEvent::ComponentPropertyName);
}

void UK2Node_ActorBoundEvent::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("DelegatePropertyName"), &UK2Node_ActorBoundEvent::DelegatePropertyName);
	Class.Property(TEXT("DelegateOwnerClass"), &UK2Node_ActorBoundEvent::DelegateOwnerClass);
	Class.Property(TEXT("EventOwner"), &UK2Node_ActorBoundEvent::EventOwner);
}

namespace BoundEvents
{
/** Refers to the signature: by its class, or by its package where it stands outside classes. */
static void SetSignature(FMemberReference& Reference, const UFunction* Signature)
{
	if (Signature)
	{
		Reference.SetFromField(Signature, false);
	}
}

static FMulticastDelegateProperty* FindDelegate(const UClass* Owner, FName Name)
{
	return Owner ? CastField<FMulticastDelegateProperty>(Owner->FindPropertyByName(Name)) : nullptr;
}

/** The delegate's own words, else its name and what the signature brings. */
static FText Tooltip(const FMulticastDelegateProperty* Property, const FText& Name)
{
	static const FName ToolTipKey(TEXT("ToolTip"));
	if (Property && Property->FindMetaData(ToolTipKey))
	{
		return Property->GetToolTipText();
	}
	const UFunction* const Signature = Property ? Property->SignatureFunction : nullptr;
	return FText::FromString(Name.ToString() + (Signature ? FunctionTips::DescribeParameters(*Signature) : FString()));
}

static FText DisplayName(const FMulticastDelegateProperty* Property, FName Name)
{
	const FString* const Display = Property ? Property->FindMetaData(FBlueprintMetadata::MD_DisplayName) : nullptr;
	return FText::FromString(Display ? *Display : FName::NameToDisplayString(Name.ToString(), false));
}
} // namespace BoundEvents

void UK2Node_ComponentBoundEvent::InitializeComponentBoundEventParams(
	const FObjectProperty* InComponentProperty, const FMulticastDelegateProperty* InDelegateProperty)
{
	if (!InComponentProperty || !InDelegateProperty)
	{
		return;
	}
	ComponentPropertyName = InComponentProperty->GetFName();
	DelegatePropertyName = InDelegateProperty->GetFName();
	UClass* const Owner = InDelegateProperty->GetOwnerClass();
	DelegateOwnerClass = TSubclassOf<UObject>(Owner ? Owner->GetAuthoritativeClass() : nullptr);
	BoundEvents::SetSignature(EventReference, InDelegateProperty->SignatureFunction);
	const UBlueprint* const Blueprint = GetBlueprint();
	CustomFunctionName = FName(
		FString::Printf(TEXT("BndEvt__%s_%s_%s_%s"), Blueprint ? *Blueprint->GetName() : TEXT(""),
			*InComponentProperty->GetName(), *GetName(), *EventReference.GetMemberName().ToString()));
	bOverrideFunction = false;
	bInternalEvent = true;
}

FMulticastDelegateProperty* UK2Node_ComponentBoundEvent::GetTargetDelegateProperty() const
{
	return BoundEvents::FindDelegate(DelegateOwnerClass.Get(), DelegatePropertyName);
}

FText UK2Node_ComponentBoundEvent::GetTargetDelegateDisplayName() const
{
	return BoundEvents::DisplayName(GetTargetDelegateProperty(), DelegatePropertyName);
}

void UK2Node_ComponentBoundEvent::ReconstructNode()
{
	if (const FMulticastDelegateProperty* const Property = GetTargetDelegateProperty())
	{
		BoundEvents::SetSignature(EventReference, Property->SignatureFunction);
	}
	Super::ReconstructNode();
}

FText UK2Node_ComponentBoundEvent::GetNodeTitle(ENodeTitleType::Type) const
{
	return FText::FromString(FString::Printf(
		TEXT("%s (%s)"), *GetTargetDelegateDisplayName().ToString(), *ComponentPropertyName.ToString()));
}

FText UK2Node_ComponentBoundEvent::GetTooltipText() const
{
	return BoundEvents::Tooltip(GetTargetDelegateProperty(), GetTargetDelegateDisplayName());
}

void UK2Node_ComponentBoundEvent::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UClass* const Self = GetBlueprintClassFromNode();
	if (Self && !CastField<FObjectPropertyBase>(Self->FindPropertyByName(ComponentPropertyName)))
	{
		MessageLog.Warning(*FString::Printf(TEXT("@@ does not have a valid matching component: there is no '%s'."),
							   *ComponentPropertyName.ToString()),
			this);
	}
	if (!GetTargetDelegateProperty())
	{
		MessageLog.Warning(
			*FString::Printf(TEXT("Could not find event '%s' for @@"), *DelegatePropertyName.ToString()), this);
	}
}

FMulticastDelegateProperty* UK2Node_ActorBoundEvent::GetTargetDelegateProperty() const
{
	return BoundEvents::FindDelegate(DelegateOwnerClass.Get(), DelegatePropertyName);
}

FText UK2Node_ActorBoundEvent::GetTargetDelegateDisplayName() const
{
	return BoundEvents::DisplayName(GetTargetDelegateProperty(), DelegatePropertyName);
}

FText UK2Node_ActorBoundEvent::GetNodeTitle(ENodeTitleType::Type) const
{
	const FString Owner = EventOwner ? EventOwner->GetName() : FString(TEXT("None"));
	return FText::FromString(FString::Printf(TEXT("%s (%s)"), *GetTargetDelegateDisplayName().ToString(), *Owner));
}

FText UK2Node_ActorBoundEvent::GetTooltipText() const
{
	return BoundEvents::Tooltip(GetTargetDelegateProperty(), GetTargetDelegateDisplayName());
}

void UK2Node_ActorBoundEvent::ReconstructNode()
{
	if (const FMulticastDelegateProperty* const Property = GetTargetDelegateProperty())
	{
		BoundEvents::SetSignature(EventReference, Property->SignatureFunction);
	}
	Super::ReconstructNode();
}

void UK2Node_ActorBoundEvent::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (!EventOwner)
	{
		MessageLog.Warning(TEXT("@@ refers to an actor that is not in the level any more."), this);
	}
}
