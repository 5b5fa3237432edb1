// Make, break and change structs by their members.

#include "K2Node_BreakStruct.h"
#include "K2Node_SetFieldsInStruct.h"

#include "EdGraphSchema_K2.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"
#include "Standalone/PinDefaultText.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_StructOperation, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_StructMemberGet, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_StructMemberSet, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_BreakStruct, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_MakeStruct, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_SetFieldsInStruct, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_StructOperation::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ShowPinForProperties"), &UK2Node_StructOperation::ShowPinForProperties);
	Class.Property(TEXT("StructType"), &UK2Node_StructOperation::StructType);
}

void UK2Node_StructMemberGet::DescribeClass(FClassDescriber&) {}
void UK2Node_StructMemberSet::DescribeClass(FClassDescriber&) {}
void UK2Node_SetFieldsInStruct::DescribeClass(FClassDescriber&) {}

void UK2Node_BreakStruct::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bMadeAfterOverridePinRemoval"), &UK2Node_BreakStruct::bMadeAfterOverridePinRemoval);
}

void UK2Node_MakeStruct::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bMadeAfterOverridePinRemoval"), &UK2Node_MakeStruct::bMadeAfterOverridePinRemoval);
}

bool UK2Node_StructMemberGet::IsMemberUsable(const FProperty& Property) const
{
	FEdGraphPinType Type;
	return Property.HasAnyPropertyFlags(CPF_BlueprintVisible)
		&& UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(&Property, Type);
}

bool UK2Node_StructMemberSet::IsMemberUsable(const FProperty& Property) const
{
	FEdGraphPinType Type;
	return Property.HasAnyPropertyFlags(CPF_BlueprintVisible) && !Property.HasAnyPropertyFlags(CPF_BlueprintReadOnly)
		&& UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(&Property, Type);
}

namespace StructNodes
{
/** A field of a user's struct is called by its shown name, a number and its guid, and stays the same field under
 * another name. */
static bool FindFieldGuid(FName FieldName, FGuid& OutGuid)
{
	static constexpr int32 NumGuidDigits = 32;
	const FString Name = FieldName.ToString();
	return Name.Len() > NumGuidDigits && Name[Name.Len() - NumGuidDigits - 1] == TEXT('_')
		&& FGuid::ParseExact(Name.Right(NumGuidDigits), EGuidFormats::Digits, OutGuid);
}

/** Members stand as the node listed them before; those that it did not list come behind. */
static void KeepOrder(const TArray<FOptionalPinFromProperty>& Before, TArray<FOptionalPinFromProperty>& Records)
{
	TMap<FName, int32> Places;
	for (const FOptionalPinFromProperty& Record : Before)
	{
		Places.Add(Record.PropertyName, Places.Num());
	}
	const auto PlaceOf = [&Places](const FOptionalPinFromProperty& Record)
	{
		const int32* const Place = Places.Find(Record.PropertyName);
		return Place ? *Place : Places.Num();
	};
	Records.StableSort([&PlaceOf](const FOptionalPinFromProperty& A, const FOptionalPinFromProperty& B)
		{ return PlaceOf(A) < PlaceOf(B); });
}
} // namespace StructNodes

bool UK2Node_StructOperation::HasExternalDependencies(TArray<UStruct*>* OptionalOutput) const
{
	if (StructType && OptionalOutput)
	{
		OptionalOutput->AddUnique(StructType.Get());
	}
	return StructType != nullptr || Super::HasExternalDependencies(OptionalOutput);
}

FString UK2Node_StructOperation::GetStructDisplayName() const
{
	return StructType ? StructType->GetDisplayNameText().ToString() : FString(TEXT("<unknown struct>"));
}

void UK2Node_StructOperation::RebuildPropertyList()
{
	if (!StructType)
	{
		return;
	}
	static const FName PinHiddenByDefault(TEXT("PinHiddenByDefault"));
	TArray<FOptionalPinFromProperty> Old = MoveTemp(ShowPinForProperties);
	ShowPinForProperties.Empty();
	for (TFieldIterator<FProperty> It(StructType.Get(), EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		if (!IsMemberUsable(**It))
		{
			continue;
		}
		const FName Name = It->GetFName();
		FOptionalPinFromProperty Record;
		const FOptionalPinFromProperty* const Before = Old.FindByPredicate(
			[Name](const FOptionalPinFromProperty& Candidate) { return Candidate.PropertyName == Name; });
		Record.PropertyName = Name;
		Record.PropertyFriendlyName = It->GetDisplayNameText().ToString();
		Record.PropertyTooltip = It->GetToolTipText();
		const FString* const Category = It->FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
		Record.CategoryName = Category ? FName(*Category) : FName();
		// Switches that say whether another member counts are many and seldom set, and so start out of sight.
		Record.bShowPin = Before ? Before->bShowPin : IsMemberShownAtFirst() && !It->HasMetaData(PinHiddenByDefault);
		Record.bCanToggleVisibility = true;
		Record.bIsMarkedForAdvancedDisplay = It->HasAnyPropertyFlags(CPF_AdvancedDisplay);
		ShowPinForProperties.Add(MoveTemp(Record));
	}
	StructNodes::KeepOrder(Old, ShowPinForProperties);
}

FString UK2Node_StructOperation::GetMemberDefault(const FProperty& Property) const
{
	static const FName DefaultKey(TEXT("MakeStructureDefaultValue"));
	if (const FString* const Given = Property.FindMetaData(DefaultKey))
	{
		return *Given;
	}
	const uint8* const Sample = static_cast<const uint8*>(StructType->GetDefaultValue());
	return Sample ? PinDefaultText::Of(Property, Property.ContainerPtrToValuePtr<void>(Sample)) : FString();
}

void UK2Node_StructOperation::CreateMemberPins(EEdGraphPinDirection Direction)
{
	const UEdGraphSchema_K2* const Schema = GetK2Schema();
	for (const FOptionalPinFromProperty& Record : ShowPinForProperties)
	{
		const FProperty* const Property = Record.bShowPin ? StructType->FindPropertyByName(Record.PropertyName)
														  : nullptr;
		UEdGraphPin* const Pin = Property ? CreatePinFromProperty(Property, Direction, Record.PropertyName) : nullptr;
		if (!Pin)
		{
			continue;
		}
		// The member itself is not passed by reference, whatever its own declaration says.
		Pin->PinType.bIsReference = false;
		Pin->PinType.bIsConst = false;
		Pin->PinFriendlyName = FText::FromString(Record.PropertyFriendlyName);
		StructNodes::FindFieldGuid(Record.PropertyName, Pin->PersistentGuid);
		Pin->bAdvancedView = Property->HasAnyPropertyFlags(CPF_AdvancedDisplay);
		if (Direction == EGPD_Output)
		{
			continue;
		}
		Pin->bDefaultValueIsIgnored = Pin->PinType.IsContainer();
		const FString Default = Pin->PinType.IsContainer() ? FString() : GetMemberDefault(*Property);
		if (!Default.IsEmpty() && Schema->IsPinDefaultValid(Pin, Default, nullptr, FText::GetEmpty()).IsEmpty())
		{
			Schema->SetPinAutogeneratedDefaultValue(Pin, Default);
		}
		else
		{
			Schema->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
		}
	}
}

void UK2Node_StructOperation::FoldManyMembers()
{
	static constexpr int32 MostPinsUnfolded = 5;
	static constexpr int32 FirstFolded = 3;
	bool bAnyFolded = Pins.ContainsByPredicate([](const UEdGraphPin* Pin) { return Pin->bAdvancedView; });
	for (int32 Index = FirstFolded; Pins.Num() > MostPinsUnfolded && Index < Pins.Num(); ++Index)
	{
		Pins[Index]->bAdvancedView = true;
		bAnyFolded = true;
	}
	if (bAnyFolded && AdvancedPinDisplay == ENodeAdvancedPins::NoPins)
	{
		AdvancedPinDisplay = ENodeAdvancedPins::Hidden;
	}
}

void UK2Node_StructOperation::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	if (StructType)
	{
		RestoreSplitPins(OldPins);
		return;
	}
	KeepOldPins(OldPins);
}

UK2Node::ERedirectType UK2Node_StructOperation::DoPinsMatchForReconstruction(
	const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const
{
	// The rules of a variable's pins, which the base class has, are not those of members.
	// NOLINTNEXTLINE(bugprone-parent-virtual-call)
	const ERedirectType Base = UK2Node::DoPinsMatchForReconstruction(NewPin, NewPinIndex, OldPin, OldPinIndex);
	if (Base != ERedirectType_None || NewPin->Direction != OldPin->Direction || NewPin->PinName == OldPin->PinName
		|| !GetK2Schema()->ArePinTypesCompatible(OldPin->PinType, NewPin->PinType))
	{
		return Base;
	}
	FGuid OldField;
	if (NewPin->PersistentGuid.IsValid() && StructNodes::FindFieldGuid(OldPin->PinName, OldField))
	{
		return NewPin->PersistentGuid == OldField ? ERedirectType_Name : ERedirectType_None;
	}
	// The struct's own pin is called after the struct, which may have been renamed.
	const bool bBothTheStruct = StructType && NewPin->PinType.PinSubCategoryObject.Get() == StructType.Get()
		&& OldPin->PinType.PinSubCategoryObject.Get() == StructType.Get() && NewPinIndex == OldPinIndex;
	return bBothTheStruct ? ERedirectType_Name : ERedirectType_None;
}

void UK2Node_StructOperation::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	// There is no variable to be missed.
	UK2Node::ValidateNodeDuringCompilation(MessageLog); // NOLINT(bugprone-parent-virtual-call)
	if (!StructType)
	{
		MessageLog.Error(TEXT("Unknown structure at @@ "), this);
	}
}

FText UK2Node_StructOperation::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "StructCategory", "Utilities|Struct");
}

void UK2Node_BreakStruct::AllocateDefaultPins()
{
	if (!StructType)
	{
		return;
	}
	FCreatePinParams Params;
	Params.bIsConst = true;
	Params.bIsReference = true;
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Struct, StructType.Get(), StructType->GetFName(), Params);
	RebuildPropertyList();
	CreateMemberPins(EGPD_Output);
	FoldManyMembers();
}

void UK2Node_BreakStruct::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	bMadeAfterOverridePinRemoval = true;
}

FText UK2Node_BreakStruct::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (!StructType)
	{
		return NSLOCTEXT("K2Node", "BreakNullStruct_Title", "Break <unknown struct>");
	}
	return FText::FromString(FString::Printf(TEXT("Break %s"), *GetStructDisplayName()));
}

FText UK2Node_BreakStruct::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("Gives the members of a %s one by one"), *GetStructDisplayName()));
}

void UK2Node_MakeStruct::AllocateDefaultPins()
{
	if (!StructType)
	{
		return;
	}
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Struct, StructType.Get(), StructType->GetFName());
	RebuildPropertyList();
	CreateMemberPins(EGPD_Input);
	FoldManyMembers();
}

void UK2Node_MakeStruct::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	bMadeAfterOverridePinRemoval = true;
}

FText UK2Node_MakeStruct::GetNodeTitle(ENodeTitleType::Type) const
{
	if (!StructType)
	{
		return NSLOCTEXT("K2Node", "MakeNullStructTitle", "Make <unknown struct>");
	}
	return FText::FromString(FString::Printf(TEXT("Make %s"), *GetStructDisplayName()));
}

FText UK2Node_MakeStruct::GetTooltipText() const
{
	return FText::FromString(FString::Printf(TEXT("Puts a %s together from its members"), *GetStructDisplayName()));
}

void UK2Node_SetFieldsInStruct::AllocateDefaultPins()
{
	if (!StructType)
	{
		return;
	}
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	FCreatePinParams Params;
	Params.bIsReference = true;
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Struct, StructType.Get(), FName(TEXT("StructRef")), Params);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Struct, StructType.Get(), FName(TEXT("StructOut")), Params);
	RebuildPropertyList();
	CreateMemberPins(EGPD_Input);
}

bool UK2Node_SetFieldsInStruct::AllPinsAreShown() const
{
	return !ShowPinForProperties.ContainsByPredicate(
		[](const FOptionalPinFromProperty& Record) { return !Record.bShowPin; });
}

void UK2Node_SetFieldsInStruct::RemoveFieldPins(UEdGraphPin* Pin, EPinsToRemove Selection)
{
	if (!Pin || Pin->GetOwningNode() != this || Pin->Direction != EGPD_Input)
	{
		return;
	}
	const UEdGraphPin* Whole = Pin;
	while (Whole->ParentPin)
	{
		Whole = Whole->ParentPin;
	}
	const FName Given = Whole->PinName;
	Modify();
	for (FOptionalPinFromProperty& Record : ShowPinForProperties)
	{
		const bool bIsGiven = Record.PropertyName == Given;
		if (!Record.bShowPin || bIsGiven != (Selection == EPinsToRemove::GivenPin))
		{
			continue;
		}
		Record.bShowPin = false;
		// What is taken away on purpose leaves no orphan behind.
		RemovePin(FindPin(Record.PropertyName, EGPD_Input));
	}
	ReconstructNode();
}

void UK2Node_SetFieldsInStruct::RestoreAllPins()
{
	Modify();
	for (FOptionalPinFromProperty& Record : ShowPinForProperties)
	{
		Record.bShowPin = true;
	}
	ReconstructNode();
}

FText UK2Node_SetFieldsInStruct::GetNodeTitle(ENodeTitleType::Type) const
{
	return FText::FromString(FString::Printf(TEXT("Set members in %s"), *GetStructDisplayName()));
}

FText UK2Node_SetFieldsInStruct::GetTooltipText() const
{
	return FText::FromString(FString::Printf(
		TEXT("Changes the shown members of a %s that is passed by reference"), *GetStructDisplayName()));
}

void UK2Node_SetFieldsInStruct::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UEdGraphPin* const In = FindPin(TEXT("StructRef"), EGPD_Input);
	if (In && In->LinkedTo.IsEmpty())
	{
		MessageLog.Error(TEXT("@@ needs a struct to change: connect @@"), this, In);
	}
}
