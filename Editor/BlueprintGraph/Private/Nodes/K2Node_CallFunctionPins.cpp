// The pins of a call: exec pins, target, parameters in the order of the C++ declaration, with what is hidden, advanced,
// by reference or of a type that follows another pin.

#include "K2Node_CallFunction.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "EnumPins.h"
#include "FunctionPins.h"

namespace CallPins
{
/** A function that is meant for the calling object alone. */
const FName HideSelfPin(TEXT("HideSelfPin"));

static UEnum* EnumOf(const FProperty* Param)
{
	if (const FByteProperty* const Byte = CastField<FByteProperty>(Param))
	{
		return Byte->Enum;
	}
	const FEnumProperty* const Enum = CastField<FEnumProperty>(Param);
	return Enum ? Enum->GetEnum() : nullptr;
}

/** What only makes a value of the object that asks, and is not promised to leave it alone, has the asker for target. */
static bool IsAskedOfItself(const UFunction& Function, const UBlueprint* Blueprint)
{
	const UClass* const Asker = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	return Asker && Function.HasAnyFunctionFlags(FUNC_BlueprintPure) && !Function.HasAnyFunctionFlags(FUNC_Const)
		&& Function.GetOwnerClass() && Asker->IsChildOf(Function.GetOwnerClass());
}

static bool IsInput(const FProperty* Param)
{
	return !Param->HasAnyPropertyFlags(CPF_ReturnParm)
		&& (!Param->HasAnyPropertyFlags(CPF_OutParm) || Param->HasAnyPropertyFlags(CPF_ReferenceParm));
}
} // namespace CallPins

TSet<FName> UK2Node_CallFunction::GetHiddenParameters(const UFunction* Function) const
{
	const FFunctionPinFacts& Facts = FunctionPins::Get(*Function);
	TSet<FName> Hidden = Facts.HiddenByMetaData;
	if (FunctionPins::IsWorldContextHidden(*Function, GetBlueprint()))
	{
		Hidden.Add(Facts.WorldContext);
	}
	return Hidden;
}

bool UK2Node_CallFunction::CreateEnumExecPins(const UFunction* Function, EEdGraphPinDirection Direction)
{
	const FProperty* const Param = FunctionPins::Get(*Function).Expanded;
	if (!Param || (CallPins::IsInput(Param) ? EGPD_Input : EGPD_Output) != Direction)
	{
		return false;
	}
	if (Param->IsA<FBoolProperty>())
	{
		for (const TCHAR* const Name : {TEXT("True"), TEXT("False")})
		{
			CreatePin(Direction, UEdGraphSchema_K2::PC_Exec, FName(Name));
		}
		return true;
	}
	const UEnum* const Enum = CallPins::EnumOf(Param);
	if (!Enum)
	{
		return false;
	}
	for (const int32 Index : EnumPins::VisibleEntries(*Enum))
	{
		UEdGraphPin* const Pin = CreatePin(
			Direction, UEdGraphSchema_K2::PC_Exec, FName(Enum->GetNameStringByIndex(Index)));
		Pin->PinFriendlyName = Enum->GetDisplayNameTextByIndex(Index);
	}
	return true;
}

void UK2Node_CallFunction::CreateExecPinsForFunctionCall(const UFunction* Function)
{
	if (IsNodePure())
	{
		return;
	}
	bool bInputExpanded = false;
	bool bOutputExpanded = false;
	if (bWantsEnumToExecExpansion)
	{
		bOutputExpanded = CreateEnumExecPins(Function, EGPD_Output);
		bInputExpanded = CreateEnumExecPins(Function, EGPD_Input);
	}
	if (!bInputExpanded)
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	}
	if (!bOutputExpanded)
	{
		UEdGraphPin* const Then = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
		if (FunctionPins::Get(*Function).bLatent)
		{
			Then->PinFriendlyName = FText::FromString(UEdGraphSchema_K2::PN_Completed.ToString());
		}
	}
}

UEdGraphPin* UK2Node_CallFunction::CreateSelfPin(const UFunction* Function)
{
	return CreateSelfPin(this, Function);
}

namespace CallPins
{
/** The class that declared the function first: it can be called on whatever is at least that. */
static UClass* FindDeclarer(const UFunction& Function)
{
	UClass* Declarer = Function.GetOwnerClass();
	for (const UClass* Class = Declarer ? Declarer->GetSuperClass() : nullptr; Class;)
	{
		const UFunction* const Above = Class->FindFunctionByName(Function.GetFName());
		Declarer = Above ? Above->GetOwnerClass() : Declarer;
		Class = Above ? Declarer->GetSuperClass() : nullptr;
	}
	return Declarer;
}
} // namespace CallPins

UEdGraphPin* UK2Node_CallFunction::CreateSelfPin(UEdGraphNode* Node, const UFunction* Function)
{
	UClass* const Owner = CallPins::FindDeclarer(*Function);
	UK2Node* const K2Node = Cast<UK2Node>(Node);
	const UBlueprint* const Blueprint = K2Node ? K2Node->GetBlueprint() : nullptr;
	const bool bOwnedByBlueprint = Blueprint && Owner && Owner->ClassGeneratedBy == Blueprint;
	UEdGraphPin* const Pin = bOwnedByBlueprint
		? Node->CreatePin(
			EGPD_Input, UEdGraphSchema_K2::PC_Object, UEdGraphSchema_K2::PSC_Self, nullptr, UEdGraphSchema_K2::PN_Self)
		: Node->CreatePin(EGPD_Input,
			Owner && Owner->HasAnyClassFlags(CLASS_Interface) ? UEdGraphSchema_K2::PC_Interface
															  : UEdGraphSchema_K2::PC_Object,
			Owner ? Owner->GetAuthoritativeClass() : nullptr, UEdGraphSchema_K2::PN_Self);
	Pin->PinFriendlyName = NSLOCTEXT("K2Node", "Target", "Target");
	if (Function->HasAnyFunctionFlags(FUNC_Static))
	{
		Pin->bHidden = true;
		Pin->DefaultObject = Owner ? Owner->GetAuthoritativeClass()->GetDefaultObject() : nullptr;
	}
	else if (Function->HasMetaData(CallPins::HideSelfPin))
	{
		Pin->bHidden = true;
		Pin->bNotConnectable = true;
	}
	else if (CallPins::IsAskedOfItself(*Function, Blueprint))
	{
		Pin->bHidden = true;
	}
	else if (bOwnedByBlueprint)
	{
		Pin->bHidden = !Function->HasMetaData(FBlueprintMetadata::MD_ShowHiddenSelfPins);
	}
	return Pin;
}

UEdGraphPin* UK2Node_CallFunction::CreateParameterPin(
	const UFunction* Function, const FProperty* Param, const TSet<FName>& Hidden)
{
	static const FName ReturnDisplayName(TEXT("ReturnDisplayName"));
	const bool bIsInput = CallPins::IsInput(Param);
	UEdGraphPin* const Pin = CreatePinFromProperty(Param, bIsInput ? EGPD_Input : EGPD_Output, Param->GetFName());
	if (!Pin)
	{
		return nullptr;
	}
	// By-reference is a way of passing an input; an output that C++ writes through a reference is a plain output pin.
	const bool bReturnsReference = Param->HasAnyPropertyFlags(CPF_ReturnParm)
		&& Param->HasAnyPropertyFlags(CPF_ReferenceParm);
	Pin->PinType.bIsReference = bReturnsReference || (bIsInput && Param->HasAnyPropertyFlags(CPF_ReferenceParm));
	if (IsWildcardProperty(Function, Param))
	{
		Pin->PinType.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
		Pin->PinType.PinSubCategory = NAME_None;
		Pin->PinType.PinSubCategoryObject = nullptr;
	}
	const bool bAutoCreated = FunctionPins::Get(*Function).AutoCreated.Contains(Param->GetFName());
	// What the function changes is there to be linked; what it only looks at by reference has no value of its own.
	const bool bLooksAt = Param->HasAnyPropertyFlags(CPF_ReferenceParm)
		&& (Param->HasAnyPropertyFlags(CPF_ConstParm) || Pin->PinType.IsContainer());
	Pin->bDefaultValueIsIgnored = bReturnsReference
		|| (bIsInput && bLooksAt && (!bAutoCreated || Pin->PinType.IsContainer()));
	Pin->bAdvancedView = Param->HasAnyPropertyFlags(CPF_AdvancedDisplay)
		|| FunctionPins::Get(*Function).Advanced.Contains(Param->GetFName());
	if (Pin->bAdvancedView && AdvancedPinDisplay == ENodeAdvancedPins::NoPins)
	{
		AdvancedPinDisplay = ENodeAdvancedPins::Hidden;
	}
	if (const FString* const Display = Param->FindMetaData(FBlueprintMetadata::MD_DisplayName))
	{
		Pin->PinFriendlyName = FText::FromString(*Display);
	}
	else if (const FString* const Return = Param->HasAnyPropertyFlags(CPF_ReturnParm)
			? Function->FindMetaData(ReturnDisplayName)
			: nullptr)
	{
		Pin->PinFriendlyName = FText::FromString(*Return);
	}
	const UEdGraphSchema_K2* const Schema = GetK2Schema();
	FString Default;
	if (Pin->PinType.PinCategory == UEdGraphSchema_K2::PC_Wildcard
		|| FunctionPins::Get(*Function).ContainerParams.Contains(Param->GetFName()))
	{
		// What has no type yet has no value either, and a link that gives it one is its value.
	}
	else if (Schema->FindFunctionParameterDefaultValue(Function, Param, Default))
	{
		Schema->SetPinAutogeneratedDefaultValue(Pin, Default);
	}
	else
	{
		Schema->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
	}
	Pin->bHidden = Hidden.Contains(Param->GetFName());
	return Pin;
}

bool UK2Node_CallFunction::CreatePinsForFunctionCall(const UFunction* Function)
{
	const FFunctionPinFacts& Facts = FunctionPins::Get(*Function);
	bWantsEnumToExecExpansion = Facts.bWantsExpansion;
	CreateExecPinsForFunctionCall(Function);
	CreateSelfPin(Function);
	TSet<FName> Hidden = GetHiddenParameters(Function);
	if (bWantsEnumToExecExpansion && !IsNodePure() && Facts.Expanded)
	{
		Hidden.Add(Facts.Expanded->GetFName());
	}
	bool bAllPinsGood = true;
	for (TFieldIterator<FProperty> It(Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (!It->HasAnyPropertyFlags(CPF_Parm))
		{
			continue;
		}
		UEdGraphPin* const Pin = CreateParameterPin(Function, *It, Hidden);
		bAllPinsGood &= Pin != nullptr;
		if (Pin)
		{
			PostParameterPinCreated(Pin);
		}
	}
	return bAllPinsGood;
}

void UK2Node_CallFunction::AllocateDefaultPins()
{
	if (const UFunction* const Function = GetTargetFunction())
	{
		CreatePinsForFunctionCall(Function);
		ConformContainerPins();
		ConformDynamicOutputs();
	}
	else if (!IsNodePure())
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	}
}

void UK2Node_CallFunction::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	if (!GetTargetFunction())
	{
		KeepOldPins(OldPins);
		return;
	}
	AllocateDefaultPins();
	RestoreSplitPins(OldPins);
	ReconnectPureExecPins(OldPins);
}

void UK2Node_CallFunction::PostReconstructNode()
{
	Super::PostReconstructNode();
	ConformCustomStructures();
	ConformContainerPins();
	ConformDynamicOutputs();
}

void UK2Node_CallFunction::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	ConformCustomStructures();
	ConformContainerPins();
	ConformDynamicOutputs();
}

void UK2Node_CallFunction::PinDefaultValueChanged(UEdGraphPin* Pin)
{
	Super::PinDefaultValueChanged(Pin);
	ConformDynamicOutputs();
}

namespace CallPins
{
/** The class that a class pin chooses: its default, or the class of what is linked. */
static UClass* ChosenClass(const UEdGraphPin& Pin)
{
	if (Pin.LinkedTo.IsEmpty())
	{
		return Cast<UClass>(Pin.DefaultObject.Get());
	}
	UClass* Common = nullptr;
	for (const UEdGraphPin* const Linked : Pin.LinkedTo)
	{
		UClass* const Class = Cast<UClass>(Linked->PinType.PinSubCategoryObject.Get());
		Common = Common && Class && Class->IsChildOf(Common) ? Common : Class;
	}
	return Common;
}

static bool IsObjectLike(const UEdGraphPin& Pin)
{
	using FSchema = UEdGraphSchema_K2;
	const FName Category = Pin.PinType.PinCategory;
	return Category == FSchema::PC_Object || Category == FSchema::PC_Interface || Category == FSchema::PC_Class
		|| Category == FSchema::PC_SoftObject || Category == FSchema::PC_SoftClass;
}
} // namespace CallPins

void UK2Node_CallFunction::ConformCustomStructures()
{
	// Nodes of data tables and arrays know more of their structs than a link tells.
	const UFunction* const Function = GetClass() == UK2Node_CallFunction::StaticClass() ? GetTargetFunction() : nullptr;
	if (!Function)
	{
		return;
	}
	for (const FName Name : FunctionPins::Get(*Function).CustomStructures)
	{
		UEdGraphPin* const Pin = FindPin(Name);
		if (!Pin || Pin->bOrphanedPin || !Pin->SubPins.IsEmpty())
		{
			continue;
		}
		if (!Pin->LinkedTo.IsEmpty())
		{
			Pin->PinType = Pin->LinkedTo[0]->PinType;
			continue;
		}
		FEdGraphPinType Open;
		Open.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
		Open.ContainerType = Pin->PinType.ContainerType;
		Open.bIsReference = Pin->PinType.bIsReference;
		Open.bIsConst = Pin->PinType.bIsConst;
		Pin->PinType = Open;
	}
}

void UK2Node_CallFunction::ConformDynamicOutputs()
{
	const UFunction* const Function = GetTargetFunction();
	if (!Function || FunctionPins::Get(*Function).DynamicTypePicker.IsNone())
	{
		return;
	}
	const FFunctionPinFacts& Facts = FunctionPins::Get(*Function);
	const UEdGraphPin* const PickerPin = FindPin(Facts.DynamicTypePicker, EGPD_Input);
	if (!PickerPin || !CallPins::IsObjectLike(*PickerPin))
	{
		return;
	}
	UClass* const Chosen = CallPins::ChosenClass(*PickerPin);
	for (const FName Name : Facts.DynamicOutputs)
	{
		UEdGraphPin* const Output = FindPin(Name, EGPD_Output);
		FEdGraphPinType Declared;
		if (Output && CallPins::IsObjectLike(*Output)
			&& UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(Function->FindPropertyByName(Name), Declared))
		{
			UClass* const Base = Cast<UClass>(Declared.PinSubCategoryObject.Get());
			Output->PinType.PinSubCategoryObject = Chosen && Base && Chosen->IsChildOf(Base) ? Chosen : Base;
		}
	}
}

namespace CallPins
{
static void CopyTerminal(const FEdGraphPinType& From, FEdGraphPinType& To)
{
	To.PinCategory = From.PinCategory;
	To.PinSubCategory = From.PinSubCategory;
	To.PinSubCategoryObject = From.PinSubCategoryObject;
}

/** The pin of the list whose type is known: linked to something typed, or typed itself. */
static const FEdGraphPinType* KnownType(const TArray<UEdGraphPin*>& Pins)
{
	for (const UEdGraphPin* const Pin : Pins)
	{
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			if (Linked->PinType.PinCategory != UEdGraphSchema_K2::PC_Wildcard)
			{
				return &Linked->PinType;
			}
		}
	}
	return nullptr;
}

static void CollectPins(const UK2Node& Node, const UFunction& Function, FName Key, TArray<UEdGraphPin*>& Out)
{
	TSet<FName> Names;
	const FString* const List = Function.FindMetaData(Key);
	if (!List)
	{
		return;
	}
	TArray<FString> Parts;
	FString Flat = *List;
	Flat.ReplaceInline(TEXT("|"), TEXT(","));
	Flat.ParseIntoArray(Parts, TEXT(","));
	for (const FString& Part : Parts)
	{
		if (UEdGraphPin* const Pin = Node.FindPin(FName(Part.TrimStartAndEnd())))
		{
			Out.Add(Pin);
		}
	}
}

/** All pins of one element type follow whichever of them is linked; with no link left they are wildcards again. */
static void ConformElements(const TArray<UEdGraphPin*>& Pins, const FEdGraphPinType* Known)
{
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Known)
		{
			CopyTerminal(*Known, Pin->PinType);
		}
		else if (Pin->LinkedTo.IsEmpty())
		{
			Pin->PinType.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
			Pin->PinType.PinSubCategory = NAME_None;
			Pin->PinType.PinSubCategoryObject = nullptr;
		}
	}
}
} // namespace CallPins

void UK2Node_CallFunction::ConformContainerPins()
{
	const UFunction* const Function = GetTargetFunction();
	if (!Function || !FunctionPins::Get(*Function).bHasContainerParams)
	{
		return;
	}
	if (Function->HasMetaData(FBlueprintMetadata::MD_SetParam))
	{
		TArray<UEdGraphPin*> Elements;
		CallPins::CollectPins(*this, *Function, FBlueprintMetadata::MD_SetParam, Elements);
		CallPins::ConformElements(Elements, CallPins::KnownType(Elements));
	}
	TArray<UEdGraphPin*> Maps;
	CallPins::CollectPins(*this, *Function, FBlueprintMetadata::MD_MapParam, Maps);
	if (Maps.IsEmpty())
	{
		return;
	}
	TArray<UEdGraphPin*> Keys;
	TArray<UEdGraphPin*> Values;
	CallPins::CollectPins(*this, *Function, FBlueprintMetadata::MD_MapKeyParam, Keys);
	CallPins::CollectPins(*this, *Function, FBlueprintMetadata::MD_MapValueParam, Values);
	const FEdGraphPinType* const MapType = CallPins::KnownType(Maps);
	const FEdGraphPinType* const KeyType = MapType ? MapType : CallPins::KnownType(Keys);
	FEdGraphPinType ValueType;
	const FEdGraphPinType* KnownValue = CallPins::KnownType(Values);
	if (MapType)
	{
		ValueType = FEdGraphPinType::GetPinTypeForTerminalType(MapType->PinValueType);
		KnownValue = &ValueType;
	}
	CallPins::ConformElements(Keys, KeyType);
	CallPins::ConformElements(Values, KnownValue);
	CallPins::ConformElements(Maps, KeyType);
	for (UEdGraphPin* const Map : Maps)
	{
		Map->PinType.PinValueType = FEdGraphTerminalType();
		Map->PinType.PinValueType.TerminalCategory = UEdGraphSchema_K2::PC_Wildcard;
		if (KnownValue)
		{
			Map->PinType.PinValueType = FEdGraphTerminalType::FromPinType(*KnownValue);
		}
	}
}
