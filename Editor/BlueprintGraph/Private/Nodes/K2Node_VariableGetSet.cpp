#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_VariableGet, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_VariableSet, "/Script/BlueprintGraph", CLASS_None)

template <>
UEnum* StaticEnum<EGetNodeVariation>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EGetNodeVariation"), TEXT("/Script/BlueprintGraph"),
		UEnum::ECppForm::EnumClass, {{TEXT("Pure"), 0}, {TEXT("ValidatedObject"), 1}, {TEXT("Branch"), 2}});
	return Enum;
}

void UK2Node_VariableGet::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("CurrentVariation"), &UK2Node_VariableGet::CurrentVariation);
	Class.Property(TEXT("bIsPureGet"), &UK2Node_VariableGet::bIsPureGet, CPF_TextExportTransient | CPF_Deprecated);
}

void UK2Node_VariableSet::DescribeClass(FClassDescriber&) {}

namespace VariableTitles
{
/** "Get Health", and for another object "Get Health" with "Target is Door" below in the full title. */
static FText Make(const UK2Node_Variable& Node, const TCHAR* Verb, ENodeTitleType::Type TitleType)
{
	const FProperty* const Property = Node.GetPropertyForVariable();
	const FString* const Display = Property ? Property->FindMetaData(FBlueprintMetadata::MD_DisplayName) : nullptr;
	const bool bIsBool = Property && Property->IsA<FBoolProperty>();
	const FString Name = Display ? *Display : FName::NameToDisplayString(Node.GetVarNameString(), bIsBool);
	FString Title = FString::Printf(TEXT("%s %s"), Verb, *Name);
	if (TitleType == ENodeTitleType::FullTitle && !Node.VariableReference.IsSelfContext()
		&& !Node.VariableReference.IsLocalScope())
	{
		if (const UClass* const Source = Node.GetVariableSourceClass())
		{
			Title += FString::Printf(TEXT("\nTarget is %s"), *Source->GetDisplayNameText().ToString());
		}
	}
	return FText::FromString(Title);
}

/** What the node does, how the variable is replicated, and what its author says of it. */
static FText MakeTooltip(const UK2Node_Variable& Node, const TCHAR* Verb)
{
	static const FName ToolTipKey(TEXT("ToolTip"));
	FString Text = FString::Printf(TEXT("%s the value of variable %s"), Verb, *Node.GetVarNameString());
	const FProperty* const Property = Node.GetPropertyForVariable();
	if (Property && Property->HasAnyPropertyFlags(CPF_Net))
	{
		Text += Property->HasAnyPropertyFlags(CPF_RepNotify) ? TEXT("\nReplicated, with a notification")
															 : TEXT("\nReplicated");
	}
	if (Property && Property->FindMetaData(ToolTipKey))
	{
		Text += TEXT("\n\n") + Property->GetToolTipText().ToString();
	}
	return FText::FromString(Text);
}
} // namespace VariableTitles

namespace GetVariations
{
/** The impure variation for values of a type; Pure when there is none. */
static EGetNodeVariation FindImpure(const FEdGraphPinType& Type)
{
	static const TSet<FName> ObjectCategories = {UEdGraphSchema_K2::PC_Object, UEdGraphSchema_K2::PC_Class,
		UEdGraphSchema_K2::PC_SoftObject, UEdGraphSchema_K2::PC_SoftClass};
	if (Type.IsContainer())
	{
		return EGetNodeVariation::Pure;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Boolean)
	{
		return EGetNodeVariation::Branch;
	}
	return ObjectCategories.Contains(Type.PinCategory) ? EGetNodeVariation::ValidatedObject : EGetNodeVariation::Pure;
}
} // namespace GetVariations

void UK2Node_VariableGet::SetPurity(bool bNewPurity)
{
	const UEdGraphPin* const ValuePin = GetValuePin();
	FEdGraphPinType Type = ValuePin ? ValuePin->PinType : FEdGraphPinType();
	if (!ValuePin)
	{
		UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(GetPropertyForVariable(), Type);
	}
	const EGetNodeVariation Wanted = bNewPurity ? EGetNodeVariation::Pure : GetVariations::FindImpure(Type);
	if (Wanted != CurrentVariation)
	{
		CurrentVariation = Wanted;
		if (!Pins.IsEmpty())
		{
			ReconstructNode();
		}
	}
}

void UK2Node_VariableGet::TakeOldPurity()
{
	const UEdGraphPin* const ValuePin = GetValuePin();
	if (!bIsPureGet && ValuePin && CurrentVariation == EGetNodeVariation::Pure)
	{
		CurrentVariation = GetVariations::FindImpure(ValuePin->PinType);
	}
	bIsPureGet = true;
}

void UK2Node_VariableGet::PostEditImport()
{
	Super::PostEditImport();
	TakeOldPurity();
}

void UK2Node_VariableGet::PostLoad()
{
	Super::PostLoad();
	TakeOldPurity();
}

void UK2Node_VariableGet::AllocateDefaultPins()
{
	if (CurrentVariation != EGetNodeVariation::Pure)
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
		UEdGraphPin* const Valid = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
		UEdGraphPin* const Invalid = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Else);
		const bool bBranch = CurrentVariation == EGetNodeVariation::Branch;
		Valid->PinFriendlyName = bBranch ? NSLOCTEXT("K2Node", "True", "True")
										 : NSLOCTEXT("K2Node", "IsValid", "Is Valid");
		Invalid->PinFriendlyName = bBranch ? NSLOCTEXT("K2Node", "False", "False")
										   : NSLOCTEXT("K2Node", "IsNotValid", "Is Not Valid");
	}
	if (CreatePinForVariable(EGPD_Output))
	{
		CreatePinForSelf();
	}
	else if (!VariableReference.IsLocalScope())
	{
		CreatePinForSelf();
	}
}

void UK2Node_VariableGet::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	Super::ReallocatePinsDuringReconstruction(OldPins);
	ReconnectPureExecPins(OldPins);
}

FText UK2Node_VariableGet::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return VariableTitles::Make(*this, TEXT("Get"), TitleType);
}

FText UK2Node_VariableGet::GetTooltipText() const
{
	return VariableTitles::MakeTooltip(*this, TEXT("Read"));
}

void UK2Node_VariableGet::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
}

FName UK2Node_VariableSet::GetVariableOutputPinName() const
{
	static const FName OutputGet(TEXT("Output_Get"));
	return OutputGet;
}

bool UK2Node_VariableSet::HasLocalRepNotify() const
{
	const FProperty* const Property = GetPropertyForVariable();
	return Property && Property->HasAnyPropertyFlags(CPF_RepNotify) && VariableReference.IsSelfContext();
}

void UK2Node_VariableSet::AllocateDefaultPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	if (CreatePinForVariable(EGPD_Input))
	{
		CreatePinForVariable(EGPD_Output, GetVariableOutputPinName());
	}
	CreatePinForSelf();
}

void UK2Node_VariableSet::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	Super::ReallocatePinsDuringReconstruction(OldPins);
}

FText UK2Node_VariableSet::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const TCHAR* const Verb = HasLocalRepNotify() ? TEXT("Set with Notify") : TEXT("Set");
	return VariableTitles::Make(*this, Verb, TitleType);
}

FText UK2Node_VariableSet::GetTooltipText() const
{
	return VariableTitles::MakeTooltip(*this, TEXT("Set"));
}

void UK2Node_VariableSet::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const FProperty* const Property = GetPropertyForVariable();
	if (Property && Property->HasAnyPropertyFlags(CPF_BlueprintReadOnly))
	{
		const UBlueprint* const Owner = UBlueprint::GetBlueprintFromClass(Property->GetOwnerClass());
		if (Owner != GetBlueprint())
		{
			MessageLog.Warning(TEXT("BlueprintReadOnly variable cannot be written to from @@"), this);
		}
	}
}
