// The switches: on an integer, a name, a string, an enum.

#include "K2Node_SwitchEnum.h"
#include "K2Node_SwitchInteger.h"
#include "K2Node_SwitchName.h"
#include "K2Node_SwitchString.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "EnumPins.h"
#include "Kismet2/CompilerResultsLog.h"
#include "PinNames.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UNodeDependingOnEnumInterface, "/Script/BlueprintGraph", CLASS_Interface | CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_Switch, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_SwitchInteger, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_SwitchName, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_SwitchString, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_SwitchEnum, "/Script/BlueprintGraph", CLASS_None)

void UNodeDependingOnEnumInterface::DescribeClass(FClassDescriber&) {}

void UK2Node_Switch::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UK2Node_AddPinInterface::StaticClass());
	Class.Property(TEXT("bHasDefaultPin"), &UK2Node_Switch::bHasDefaultPin);
	Class.Property(TEXT("FunctionName"), &UK2Node_Switch::FunctionName);
	Class.Property(TEXT("FunctionClass"), &UK2Node_Switch::FunctionClass);
}

void UK2Node_SwitchInteger::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("StartIndex"), &UK2Node_SwitchInteger::StartIndex);
}

void UK2Node_SwitchName::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PinNames"), &UK2Node_SwitchName::PinNames);
}

void UK2Node_SwitchString::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PinNames"), &UK2Node_SwitchString::PinNames);
	Class.Property(TEXT("bIsCaseSensitive"), &UK2Node_SwitchString::bIsCaseSensitive);
}

void UK2Node_SwitchEnum::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UNodeDependingOnEnumInterface::StaticClass());
	Class.Property(TEXT("Enum"), &UK2Node_SwitchEnum::Enum);
	Class.Property(TEXT("EnumEntries"), &UK2Node_SwitchEnum::EnumEntries);
}

namespace Switches
{
const FName SelectionPin(TEXT("Selection"));
const FName DefaultPin(TEXT("Default"));

static FEdGraphPinType TypeOf(FName Category)
{
	FEdGraphPinType Type;
	Type.PinCategory = Category;
	return Type;
}

static FName CaseName(int32 Index)
{
	return FName(FString::Printf(TEXT("Case_%d"), Index));
}

} // namespace Switches

FName UK2Node_Switch::GetSelectionPinName()
{
	return Switches::SelectionPin;
}

UEdGraphPin* UK2Node_Switch::GetSelectionPin() const
{
	return FindPin(Switches::SelectionPin, EGPD_Input);
}

UEdGraphPin* UK2Node_Switch::GetDefaultPin() const
{
	return FindPin(Switches::DefaultPin, EGPD_Output);
}

void UK2Node_Switch::SetFunction(const TCHAR* ClassPath, const TCHAR* Name)
{
	FunctionName = FName(Name);
	FunctionClass = TSubclassOf<UObject>(FindObject<UClass>(nullptr, ClassPath));
}

void UK2Node_Switch::CreateFunctionPin()
{
	UClass* const Class = FunctionClass.Get();
	UEdGraphPin* const Pin = CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object, Class, FunctionName);
	Pin->bDefaultValueIsReadOnly = true;
	Pin->bNotConnectable = true;
	Pin->bHidden = true;
	Pin->DefaultObject = Class ? Class->GetDefaultObject() : nullptr;
}

void UK2Node_Switch::AllocateDefaultPins()
{
	if (bHasDefaultPin)
	{
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, Switches::DefaultPin);
	}
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	CreateSelectionPin();
	CreateFunctionPin();
	CreateCasePins();
	Super::AllocateDefaultPins();
}

void UK2Node_Switch::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	RestoreSplitPins(OldPins);
}

bool UK2Node_Switch::IsCasePin(const UEdGraphPin& Pin) const
{
	return Pin.Direction == EGPD_Output && UEdGraphSchema_K2::IsExecPin(Pin) && &Pin != GetDefaultPin();
}

FName UK2Node_Switch::GetUniquePinName()
{
	int32 Index = 0;
	while (FindPin(Switches::CaseName(Index), EGPD_Output))
	{
		++Index;
	}
	return Switches::CaseName(Index);
}

void UK2Node_Switch::CreateCasePins()
{
	if (const TArray<FName>* const Names = GetCaseNames())
	{
		for (const FName Name : *Names)
		{
			CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, Name);
		}
	}
}

void UK2Node_Switch::AddPinToSwitchNode()
{
	const FName Name = GetUniquePinName();
	Modify();
	if (TArray<FName>* const Names = GetCaseNames())
	{
		Names->Add(Name);
	}
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, Name);
}

void UK2Node_Switch::RemovePinFromSwitchNode(UEdGraphPin* TargetPin)
{
	if (!TargetPin || TargetPin->GetOwningNode() != this)
	{
		return;
	}
	if (TargetPin == GetDefaultPin())
	{
		bHasDefaultPin = false;
	}
	else if (TArray<FName>* const Names = GetCaseNames())
	{
		Names->Remove(TargetPin->PinName);
	}
	RemovePin(TargetPin);
}

bool UK2Node_Switch::CanRemoveExecutionPin(UEdGraphPin* TargetPin) const
{
	int32 NumOutputs = 0;
	for (const UEdGraphPin* const Pin : Pins)
	{
		NumOutputs += Pin->Direction == EGPD_Output && UEdGraphSchema_K2::IsExecPin(*Pin) ? 1 : 0;
	}
	return TargetPin && NumOutputs > 1 && (TargetPin == GetDefaultPin() || IsCasePin(*TargetPin));
}

FText UK2Node_Switch::GetKeywords() const
{
	return NSLOCTEXT("K2Node", "SwitchKeywords", "case");
}

FText UK2Node_Switch::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node_Switch", "ActionMenuCategory", "Utilities|Flow Control|Switch");
}

void UK2Node_Switch::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

UK2Node_SwitchInteger::UK2Node_SwitchInteger()
{
	SetFunction(TEXT("/Script/Engine.KismetMathLibrary"), TEXT("NotEqual_IntInt"));
}

FEdGraphPinType UK2Node_SwitchInteger::GetPinType() const
{
	return Switches::TypeOf(UEdGraphSchema_K2::PC_Int);
}

void UK2Node_SwitchInteger::CreateSelectionPin()
{
	UEdGraphPin* const Pin = CreatePin(EGPD_Input, GetPinType(), GetSelectionPinName());
	GetK2Schema()->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
}

FName UK2Node_SwitchInteger::GetUniquePinName()
{
	int32 Value = StartIndex;
	while (FindPin(FName(FString::FromInt(Value)), EGPD_Output))
	{
		++Value;
	}
	return FName(FString::FromInt(Value));
}

void UK2Node_SwitchInteger::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	TArray<UEdGraphPin*> OldCases = OldPins;
	OldCases.RemoveAll([](const UEdGraphPin* Old)
		{ return Old->Direction != EGPD_Output || Old->PinName == Switches::DefaultPin || Old->bOrphanedPin; });
	// A case is known by its place: when counting starts elsewhere, links stay with their cases.
	const auto NumberAt = [this](int32 Index) { return FName(FString::FromInt(StartIndex + Index)); };
	PinNames::RenameInOrder(OldCases, NumberAt);
	for (int32 Index = 0; Index < OldCases.Num(); ++Index)
	{
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, NumberAt(Index));
	}
}

void UK2Node_SwitchInteger::RemovePinFromSwitchNode(UEdGraphPin* TargetPin)
{
	Super::RemovePinFromSwitchNode(TargetPin);
	TArray<UEdGraphPin*> Cases = Pins;
	Cases.RemoveAll([this](const UEdGraphPin* Pin) { return !IsCasePin(*Pin) || Pin->bOrphanedPin; });
	PinNames::RenameInOrder(Cases, [this](int32 Index) { return FName(FString::FromInt(StartIndex + Index)); });
}

FText UK2Node_SwitchInteger::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node_Switch", "Switch_Interger", "Switch on Int");
}

FText UK2Node_SwitchInteger::GetTooltipText() const
{
	return NSLOCTEXT("K2Node_Switch", "SwitchInt_ToolTip", "Goes on at the output with the number of the selection");
}

UK2Node_SwitchName::UK2Node_SwitchName()
{
	SetFunction(TEXT("/Script/Engine.KismetMathLibrary"), TEXT("NotEqual_NameName"));
}

FEdGraphPinType UK2Node_SwitchName::GetPinType() const
{
	return Switches::TypeOf(UEdGraphSchema_K2::PC_Name);
}

void UK2Node_SwitchName::CreateSelectionPin()
{
	UEdGraphPin* const Pin = CreatePin(EGPD_Input, GetPinType(), GetSelectionPinName());
	GetK2Schema()->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
}

FText UK2Node_SwitchName::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node_Switch", "Switch_Name", "Switch on Name");
}

FText UK2Node_SwitchName::GetTooltipText() const
{
	return NSLOCTEXT("K2Node_Switch", "SwitchName_ToolTip", "Goes on at the output with the name of the selection");
}

UK2Node_SwitchString::UK2Node_SwitchString()
{
	SetFunction(TEXT("/Script/Engine.KismetStringLibrary"), TEXT("NotEqual_StriStri"));
}

FEdGraphPinType UK2Node_SwitchString::GetPinType() const
{
	return Switches::TypeOf(UEdGraphSchema_K2::PC_String);
}

void UK2Node_SwitchString::CreateSelectionPin()
{
	FunctionName = FName(bIsCaseSensitive ? TEXT("NotEqual_StrStr") : TEXT("NotEqual_StriStri"));
	UEdGraphPin* const Pin = CreatePin(EGPD_Input, GetPinType(), GetSelectionPinName());
	GetK2Schema()->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
}

FText UK2Node_SwitchString::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node_Switch", "Switch_String", "Switch on String");
}

FText UK2Node_SwitchString::GetTooltipText() const
{
	return NSLOCTEXT("K2Node_Switch", "SwitchString_ToolTip", "Goes on at the output with the text of the selection");
}

UK2Node_SwitchEnum::UK2Node_SwitchEnum()
{
	bHasDefaultPin = false;
	SetFunction(TEXT("/Script/Engine.KismetMathLibrary"), TEXT("NotEqual_ByteByte"));
}

void UK2Node_SwitchEnum::SetEnum(UEnum* InEnum)
{
	Enum = InEnum;
	EnumEntries.Empty();
	EnumFriendlyNames.Empty();
	if (!Enum)
	{
		return;
	}
	for (const int32 Index : EnumPins::VisibleEntries(*Enum))
	{
		EnumEntries.Add(FName(Enum->GetNameStringByIndex(Index)));
		EnumFriendlyNames.Add(Enum->GetDisplayNameTextByIndex(Index));
	}
}

void UK2Node_SwitchEnum::ReloadEnum(UEnum* InEnum)
{
	SetEnum(InEnum);
}

FEdGraphPinType UK2Node_SwitchEnum::GetPinType() const
{
	FEdGraphPinType Type = Switches::TypeOf(UEdGraphSchema_K2::PC_Byte);
	Type.PinSubCategoryObject = Enum.Get();
	return Type;
}

void UK2Node_SwitchEnum::CreateSelectionPin()
{
	UEdGraphPin* const Pin = CreatePin(EGPD_Input, GetPinType(), GetSelectionPinName());
	GetK2Schema()->SetPinDefaultValueAtConstruction(Pin, EnumEntries.IsEmpty() ? FString() : EnumEntries[0].ToString());
}

void UK2Node_SwitchEnum::CreateCasePins()
{
	static constexpr int32 MostCasesUnfolded = 5;
	static constexpr int32 FirstFolded = 3;
	for (int32 Index = 0; Index < EnumEntries.Num(); ++Index)
	{
		UEdGraphPin* const Pin = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, EnumEntries[Index]);
		if (EnumFriendlyNames.IsValidIndex(Index))
		{
			Pin->PinFriendlyName = EnumFriendlyNames[Index];
		}
		if (EnumEntries.Num() > MostCasesUnfolded && Index >= FirstFolded)
		{
			Pin->bAdvancedView = true;
		}
	}
	if (EnumEntries.Num() > MostCasesUnfolded && AdvancedPinDisplay == ENodeAdvancedPins::NoPins)
	{
		AdvancedPinDisplay = ENodeAdvancedPins::Hidden;
	}
}

void UK2Node_SwitchEnum::AllocateDefaultPins()
{
	if (Enum)
	{
		SetEnum(Enum);
	}
	Super::AllocateDefaultPins();
}

FText UK2Node_SwitchEnum::GetNodeTitle(ENodeTitleType::Type) const
{
	return FText::FromString(FString::Printf(TEXT("Switch on %s"), Enum ? *Enum->GetName() : TEXT("(bad enum)")));
}

FText UK2Node_SwitchEnum::GetTooltipText() const
{
	return FText::FromString(FString::Printf(
		TEXT("Goes on at the output of the entry of %s"), Enum ? *Enum->GetName() : TEXT("(bad enum)")));
}

void UK2Node_SwitchEnum::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (!Enum)
	{
		MessageLog.Error(TEXT("@@ must have a valid enum defined"), this);
	}
}

void UK2Node_SwitchEnum::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	EnumPins::AddActionForEachEnum(ActionRegistrar, GetClass(),
		[](UEdGraphNode* Node, UEnum* ForEnum) { CastChecked<UK2Node_SwitchEnum>(Node)->SetEnum(ForEnum); });
}
