// A struct pin shown as one pin for each of its parts, and put together again.

#include "EdGraphSchema_K2.h"

#include "K2Node.h"
#include "Schema/SchemaStructText.h"
#include "Standalone/PinDefaultText.h"
#include "UObject/UnrealType.h"

namespace SplitPins
{
using FSchema = UEdGraphSchema_K2;

/** One part that a split gives: a parameter of the make or break function, or a member of the struct. */
struct FPart
{
	FName Name;
	FEdGraphPinType Type;
	FString Default;
	FText ShownName;
};

static UFunction* FindNative(const UScriptStruct& Struct, FName Key)
{
	const FString* const Path = Struct.FindMetaData(Key);
	FString Class;
	FString Function;
	// The engine writes the owner and the function parted by a point or a colon.
	if (!Path
		|| (!Path->Split(TEXT(":"), &Class, &Function)
			&& !Path->Split(TEXT("."), &Class, &Function, ESearchCase::IgnoreCase, ESearchDir::FromEnd)))
	{
		return nullptr;
	}
	const UClass* const Owner = FindObject<UClass>(nullptr, Class);
	return Owner ? Owner->FindFunctionByName(FName(*Function)) : nullptr;
}

static void AddPart(const FProperty& Property, const FString& Default, TArray<FPart>& Out)
{
	FPart Part;
	Part.Name = Property.GetFName();
	Part.ShownName = Property.GetDisplayNameText();
	if (!FSchema::ConvertPropertyToPinTypeStatic(&Property, Part.Type))
	{
		return;
	}
	// A part is a value of its own, however a function takes or gives it.
	Part.Type.bIsReference = false;
	Part.Type.bIsConst = false;
	const bool bHasLiteral = !Part.Type.IsContainer() && Part.Type.PinCategory != FSchema::PC_Delegate
		&& Part.Type.PinCategory != FSchema::PC_MCDelegate;
	Part.Default = bHasLiteral ? Default : FString();
	Out.Add(Part);
}

/** Inputs of a make function, outputs of a break function. */
static TArray<FPart> PartsOfFunction(const UFunction& Function, bool bMake)
{
	TArray<FPart> Parts;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bOutput = It->HasAnyPropertyFlags(CPF_OutParm) && !It->HasAnyPropertyFlags(CPF_ReferenceParm);
		if (It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm) && bOutput == !bMake)
		{
			FString Default;
			if (bMake)
			{
				GetDefault<FSchema>()->FindFunctionParameterDefaultValue(&Function, *It, Default);
			}
			AddPart(**It, Default, Parts);
		}
	}
	return Parts;
}

/** Members that graphs may read, or for an input write, with the values that a new struct has. */
static TArray<FPart> PartsOfStruct(const UScriptStruct& Struct, bool bMake)
{
	TArray<FPart> Parts;
	const void* const Initial = Struct.GetDefaultValue();
	for (TFieldIterator<FProperty> It(FSchema::IsAllowableBlueprintVariableType(&Struct) ? &Struct : nullptr); It; ++It)
	{
		const bool bUsable = It->HasAnyPropertyFlags(CPF_BlueprintVisible) && !It->HasAnyPropertyFlags(CPF_Deprecated)
			&& !(bMake && It->HasAnyPropertyFlags(CPF_BlueprintReadOnly));
		if (!bUsable)
		{
			continue;
		}
		FString Default;
		if (bMake && Initial)
		{
			Default = PinDefaultText::Of(**It, It->ContainerPtrToValuePtr<void>(Initial));
		}
		AddPart(**It, Default, Parts);
	}
	return Parts;
}

static TArray<FPart> PartsOf(const UEdGraphPin& Pin)
{
	const UScriptStruct* const Struct = Cast<UScriptStruct>(Pin.PinType.PinSubCategoryObject.Get());
	if (!Struct || Pin.PinType.PinCategory != FSchema::PC_Struct || Pin.PinType.IsContainer())
	{
		return {};
	}
	const bool bMake = Pin.Direction == EGPD_Input;
	const FName Key = bMake ? FBlueprintMetadata::MD_NativeMakeFunction : FBlueprintMetadata::MD_NativeBreakFunction;
	if (const UFunction* const Function = FindNative(*Struct, Key))
	{
		return PartsOfFunction(*Function, bMake);
	}
	return PartsOfStruct(*Struct, bMake);
}

static FText ShownName(const UEdGraphPin& Pin, const FPart& Part)
{
	const bool bUnnamedReturn = Pin.PinName == FSchema::PN_ReturnValue && Pin.PinFriendlyName.IsEmpty();
	FFormatNamedArguments Arguments;
	Arguments.Add(
		TEXT("PinDisplayName"), bUnnamedReturn ? FText::FromString(TEXT("Return Value")) : Pin.GetDisplayName());
	Arguments.Add(TEXT("ProtoPinDisplayName"), Part.ShownName);
	return FText::Format(
		NSLOCTEXT("KismetSchema", "SplitPinFriendlyNameFormat", "{PinDisplayName} {ProtoPinDisplayName}"), Arguments);
}

static UEdGraphPin* CreateSubPin(UEdGraphPin& Pin, const FPart& Part, int32 Index, const FSchema& Schema)
{
	UEdGraphNode* const Node = Pin.GetOwningNode();
	const FName Name(Pin.PinName.ToString() + TEXT("_") + Part.Name.ToString());
	UEdGraphPin* const SubPin = Node->CreatePin(Pin.Direction, Part.Type, Name, Index);
	SubPin->PinFriendlyName = ShownName(Pin, Part);
	SubPin->bAdvancedView = Pin.bAdvancedView;
	SubPin->ParentPin = &Pin;
	Pin.SubPins.Add(SubPin);
	Schema.SetPinDefaultValueAtConstruction(SubPin, Part.Default);
	return SubPin;
}

/** Name of the part that a sub pin stands for. */
static FName PartName(const UEdGraphPin& Parent, const UEdGraphPin& SubPin)
{
	return FName(SubPin.PinName.ToString().RightChop(Parent.PinName.ToString().Len() + 1));
}

static FString DefaultText(const UEdGraphPin& Pin)
{
	return Pin.DefaultObject ? Pin.DefaultObject->GetPathName()
							 : (Pin.DefaultTextValue.IsEmpty() ? Pin.DefaultValue : Pin.DefaultTextValue.ToString());
}

/** Hands the parent's default to the parts, where the struct names them alike. */
static void DistributeDefault(const UEdGraphPin& Pin, const FSchema& Schema)
{
	const UScriptStruct* const Struct = Cast<UScriptStruct>(Pin.PinType.PinSubCategoryObject.Get());
	TMap<FName, FString> Members;
	if (!Struct || Pin.DefaultValue.IsEmpty() || !SchemaStructText::ReadMembers(*Struct, Pin.DefaultValue, Members))
	{
		return;
	}
	for (UEdGraphPin* const SubPin : Pin.SubPins)
	{
		const FString* const Value = Members.Find(PartName(Pin, *SubPin));
		if (!Value)
		{
			continue;
		}
		// Parts that are numbers read as a person writes them: "1.0" of "1.000000".
		const bool bReal = SubPin->PinType.PinCategory == FSchema::PC_Real && !SubPin->PinType.IsContainer();
		FString UseValue;
		TObjectPtr<UObject> UseObject;
		FText UseText;
		Schema.GetPinDefaultValuesFromString(SubPin->PinType, SubPin->GetOwningNode(),
			bReal ? FString::SanitizeFloat(FCString::Atod(**Value)) : *Value, UseValue, UseObject, UseText);
		SubPin->DefaultValue = UseValue;
		SubPin->DefaultObject = UseObject;
		SubPin->DefaultTextValue = UseText;
	}
}

static void CollectDefault(UEdGraphPin& Pin)
{
	const UScriptStruct* const Struct = Cast<UScriptStruct>(Pin.PinType.PinSubCategoryObject.Get());
	if (!Struct)
	{
		return;
	}
	bool bChanged = false;
	TMap<FName, FString> Members;
	for (const UEdGraphPin* const SubPin : Pin.SubPins)
	{
		const FName Name = PartName(Pin, *SubPin);
		// Parts of a make function that are no members cannot be told in the text of the struct.
		if (Struct->FindPropertyByName(Name))
		{
			Members.Add(Name, DefaultText(*SubPin));
			bChanged |= !SubPin->DoesDefaultValueMatchAutogenerated();
		}
	}
	if (bChanged || !Pin.DoesDefaultValueMatchAutogenerated())
	{
		Pin.DefaultValue = Members.IsEmpty() ? Pin.DefaultValue : SchemaStructText::WriteMembers(*Struct, Members);
	}
}
} // namespace SplitPins

bool UEdGraphSchema_K2::PinHasSplittableStructType(const UEdGraphPin* InGraphPin) const
{
	return InGraphPin && !SplitPins::PartsOf(*InGraphPin).IsEmpty();
}

bool UEdGraphSchema_K2::CanSplitStructPin(const UEdGraphPin& Pin) const
{
	const UK2Node* const Node = Cast<UK2Node>(Pin.GetOwningNode());
	return Node && Pin.SubPins.IsEmpty() && Pin.LinkedTo.IsEmpty() && !Pin.bOrphanedPin && Node->CanSplitPin(&Pin)
		&& PinHasSplittableStructType(&Pin);
}

bool UEdGraphSchema_K2::CanRecombineStructPin(const UEdGraphPin& Pin) const
{
	return Pin.ParentPin != nullptr && !Pin.ParentPin->bOrphanedPin;
}

void UEdGraphSchema_K2::SplitPin(UEdGraphPin* Pin, bool bNotify) const
{
	UEdGraphNode* const Node = Pin->GetOwningNode();
	const TArray<SplitPins::FPart> Parts = SplitPins::PartsOf(*Pin);
	if (Parts.IsEmpty() || !Pin->SubPins.IsEmpty())
	{
		return;
	}
	Node->Modify();
	Pin->bHidden = true;
	int32 Index = Node->Pins.Find(Pin) + 1;
	for (const SplitPins::FPart& Part : Parts)
	{
		SplitPins::CreateSubPin(*Pin, Part, Index++, *this);
	}
	if (Pin->Direction == EGPD_Input)
	{
		SplitPins::DistributeDefault(*Pin, *this);
	}
	if (bNotify)
	{
		Node->PinTypeChanged(Pin);
	}
}

void UEdGraphSchema_K2::RecombinePin(UEdGraphPin* Pin) const
{
	UEdGraphPin* const Parent = Pin->SubPins.IsEmpty() ? Pin->ParentPin : Pin;
	if (!Parent)
	{
		return;
	}
	UEdGraphNode* const Node = Parent->GetOwningNode();
	Node->Modify();
	const TArray<UEdGraphPin*> SubPins = Parent->SubPins;
	for (UEdGraphPin* const SubPin : SubPins)
	{
		if (!SubPin->SubPins.IsEmpty())
		{
			RecombinePin(SubPin);
		}
	}
	if (Parent->Direction == EGPD_Input)
	{
		SplitPins::CollectDefault(*Parent);
	}
	Parent->SubPins.Empty();
	for (UEdGraphPin* const SubPin : SubPins)
	{
		SubPin->ParentPin = nullptr;
		BreakPinLinks(*SubPin, true);
		Node->RemovePin(SubPin);
	}
	Parent->bHidden = false;
	Node->PinTypeChanged(Parent);
}
