#include "K2Node_DynamicCast.h"
#include "K2Node_ClassDynamicCast.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_DynamicCast, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_ClassDynamicCast, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_DynamicCast::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("TargetType"), &UK2Node_DynamicCast::TargetType);
	Class.Property(TEXT("bIsPureCast"), &UK2Node_DynamicCast::bIsPureCast);
}

void UK2Node_ClassDynamicCast::DescribeClass(FClassDescriber&) {}

namespace DynamicCasts
{
const FName SuccessPin(TEXT("bSuccess"));
const FName ClassPin(TEXT("Class"));

static bool IsInterface(const UClass* Class)
{
	return Class && Class->HasAnyClassFlags(CLASS_Interface);
}

/** The class of the objects that come in, or null while nothing typed is linked. */
static UClass* SourceClass(const UEdGraphPin& SourcePin)
{
	for (const UEdGraphPin* const Linked : SourcePin.LinkedTo)
	{
		if (Linked->PinType.PinSubCategory == UEdGraphSchema_K2::PSC_Self)
		{
			const UK2Node* const Node = Cast<UK2Node>(Linked->GetOwningNode());
			return Node ? Node->GetBlueprintClassFromNode() : nullptr;
		}
		if (UClass* const Class = Cast<UClass>(Linked->PinType.PinSubCategoryObject.Get()))
		{
			return Class;
		}
	}
	return nullptr;
}
} // namespace DynamicCasts

void UK2Node_DynamicCast::SetPurity(bool bNewPurity)
{
	if (bNewPurity == bIsPureCast)
	{
		return;
	}
	bIsPureCast = bNewPurity;
	if (!Pins.IsEmpty())
	{
		ReconstructNode();
	}
}

UEdGraphPin* UK2Node_DynamicCast::GetCastResultPin() const
{
	const FString Prefix = UEdGraphSchema_K2::PN_CastedValuePrefix.ToString();
	return FindPinByPredicate(
		[&Prefix](const UEdGraphPin* Pin)
		{
			return Pin->Direction == EGPD_Output && !UEdGraphSchema_K2::IsExecPin(*Pin)
				&& Pin->PinName != DynamicCasts::SuccessPin && Pin->PinName.ToString().StartsWith(Prefix);
		});
}

UEdGraphPin* UK2Node_DynamicCast::GetCastSourcePin() const
{
	return FindPin(UEdGraphSchema_K2::PN_ObjectToCast, EGPD_Input);
}

UEdGraphPin* UK2Node_ClassDynamicCast::GetCastSourcePin() const
{
	return FindPin(DynamicCasts::ClassPin, EGPD_Input);
}

UEdGraphPin* UK2Node_DynamicCast::GetBoolSuccessPin() const
{
	return FindPin(DynamicCasts::SuccessPin, EGPD_Output);
}

void UK2Node_DynamicCast::CreateExecPins()
{
	if (!bIsPureCast)
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_CastSucceeded);
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_CastFailed);
	}
}

void UK2Node_DynamicCast::CreateSuccessPin()
{
	UEdGraphPin* const Success = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Boolean, DynamicCasts::SuccessPin);
	Success->bHidden = !bIsPureCast;
}

void UK2Node_DynamicCast::AllocateDefaultPins()
{
	CreateExecPins();
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object, UObject::StaticClass(), UEdGraphSchema_K2::PN_ObjectToCast);
	if (UClass* const Target = TargetType.Get())
	{
		const FName ResultName(
			UEdGraphSchema_K2::PN_CastedValuePrefix.ToString() + Target->GetDisplayNameText().ToString());
		const FName Category = DynamicCasts::IsInterface(Target) ? UEdGraphSchema_K2::PC_Interface
																 : UEdGraphSchema_K2::PC_Object;
		CreatePin(EGPD_Output, Category, Target, ResultName);
	}
	CreateSuccessPin();
	Super::AllocateDefaultPins();
}

void UK2Node_ClassDynamicCast::AllocateDefaultPins()
{
	CreateExecPins();
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Class, UObject::StaticClass(), DynamicCasts::ClassPin);
	if (UClass* const Target = TargetType.Get())
	{
		const FString Prefix = UEdGraphSchema_K2::PN_CastedValuePrefix.ToString() + TEXT("Class ");
		CreatePin(
			EGPD_Output, UEdGraphSchema_K2::PC_Class, Target, FName(Prefix + Target->GetDisplayNameText().ToString()));
	}
	CreateSuccessPin();
}

FText UK2Node_DynamicCast::GetCastTypeName() const
{
	const UClass* const Target = TargetType.Get();
	if (!Target)
	{
		return FText::GetEmpty();
	}
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Target);
	return FText::FromString(Blueprint ? Blueprint->GetName() : Target->GetName());
}

FText UK2Node_DynamicCast::GetNodeTitle(ENodeTitleType::Type) const
{
	if (!TargetType.Get())
	{
		return NSLOCTEXT("K2Node_DynamicCast", "BadCastNode", "Bad cast node");
	}
	return FText::FromString(FString::Printf(TEXT("Cast To %s"), *GetCastTypeName().ToString()));
}

FText UK2Node_ClassDynamicCast::GetNodeTitle(ENodeTitleType::Type) const
{
	if (!TargetType.Get())
	{
		return NSLOCTEXT("K2Node_ClassDynamicCast", "BadClassCastNode", "Bad Class cast node");
	}
	return FText::FromString(FString::Printf(TEXT("Cast To %s Class"), *GetCastTypeName().ToString()));
}

FText UK2Node_DynamicCast::GetTooltipText() const
{
	if (!TargetType.Get())
	{
		return GetNodeTitle(ENodeTitleType::FullTitle);
	}
	const TCHAR* const Kind = DynamicCasts::IsInterface(TargetType.Get()) ? TEXT("implements the interface")
																		  : TEXT("is of the class");
	return FText::FromString(
		FString::Printf(TEXT("Gives access to the object as %s when it %s"), *GetCastTypeName().ToString(), Kind));
}

FText UK2Node_ClassDynamicCast::GetTooltipText() const
{
	return FText::FromString(FString::Printf(
		TEXT("Gives the class as %s when it is that class or below it"), *GetCastTypeName().ToString()));
}

FText UK2Node_DynamicCast::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node_DynamicCast", "ActionMenuCategory", "Utilities|Casting");
}

void UK2Node_DynamicCast::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
}

void UK2Node_DynamicCast::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	Super::ReallocatePinsDuringReconstruction(OldPins);
	ReconnectPureExecPins(OldPins);
	// The class may be gone for now; what was linked to its pin stays linked to one that is like it.
	if (TargetType.Get())
	{
		return;
	}
	const FString Prefix = UEdGraphSchema_K2::PN_CastedValuePrefix.ToString();
	for (const UEdGraphPin* const Old : OldPins)
	{
		if (Old->Direction == EGPD_Output && !UEdGraphSchema_K2::IsExecPin(*Old)
			&& Old->PinName.ToString().StartsWith(Prefix))
		{
			CreatePin(EGPD_Output, Old->PinType, Old->PinName);
		}
	}
}

UK2Node::ERedirectType UK2Node_DynamicCast::DoPinsMatchForReconstruction(
	const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const
{
	const ERedirectType Base = Super::DoPinsMatchForReconstruction(NewPin, NewPinIndex, OldPin, OldPinIndex);
	if (Base != ERedirectType_None || NewPin->Direction != EGPD_Output || OldPin->Direction != EGPD_Output)
	{
		return Base;
	}
	// The result's name follows the class's; there is one such pin, so any old one with the prefix was it.
	const FString Prefix = UEdGraphSchema_K2::PN_CastedValuePrefix.ToString();
	const auto IsResult = [&Prefix](const UEdGraphPin* Pin)
	{ return !UEdGraphSchema_K2::IsExecPin(*Pin) && Pin->PinName.ToString().StartsWith(Prefix); };
	return IsResult(NewPin) && IsResult(OldPin) ? ERedirectType_Name : ERedirectType_None;
}

void UK2Node_DynamicCast::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	const UEdGraphSchema_K2* const Schema = GetK2Schema();
	if (GetGraph() && !Schema->DoesGraphSupportImpureFunctions(GetGraph()))
	{
		SetPurity(true);
	}
}

bool UK2Node_DynamicCast::IsConnectionDisallowed(
	const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const
{
	if (MyPin != GetCastSourcePin())
	{
		return false;
	}
	const FName Category = OtherPin->PinType.PinCategory;
	if (OtherPin->PinType.IsContainer())
	{
		OutReason = TEXT("Casts take single objects, not containers of them.");
		return true;
	}
	const bool bObject = Category == UEdGraphSchema_K2::PC_Object || Category == UEdGraphSchema_K2::PC_Interface
		|| Category == UEdGraphSchema_K2::PC_Class || Category == UEdGraphSchema_K2::PC_Wildcard;
	if (!bObject)
	{
		OutReason = FString::Printf(TEXT("A cast takes an object or an interface, not %s."),
			*UEdGraphSchema_K2::TypeToText(OtherPin->PinType).ToString());
	}
	return !bObject;
}

void UK2Node_DynamicCast::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UClass* const Target = TargetType.Get();
	if (!Target)
	{
		MessageLog.Error(TEXT("Node @@ has an invalid target type, please delete and recreate it"), this);
		return;
	}
	const UEdGraphPin* const SourcePin = GetCastSourcePin();
	if (!SourcePin)
	{
		return;
	}
	if (SourcePin->LinkedTo.IsEmpty())
	{
		MessageLog.Warning(TEXT("@@ has nothing to cast: connect something to @@"), this, SourcePin);
		return;
	}
	const UClass* const Source = DynamicCasts::SourceClass(*SourcePin);
	if (!Source || DynamicCasts::IsInterface(Source) || DynamicCasts::IsInterface(Target))
	{
		return;
	}
	if (Source->IsChildOf(Target))
	{
		MessageLog.Note(*FString::Printf(TEXT("'%s' is already a '%s', so you don't need @@."),
							*Source->GetDisplayNameText().ToString(), *Target->GetDisplayNameText().ToString()),
			this);
	}
	else if (!Target->IsChildOf(Source))
	{
		MessageLog.Warning(*FString::Printf(TEXT("'%s' does not inherit from '%s' (@@ would always fail)."),
							   *Target->GetDisplayNameText().ToString(), *Source->GetDisplayNameText().ToString()),
			this);
	}
}
