#include "K2Node_GetClassDefaults.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "ClassPins.h"
#include "EdGraphSchema_K2.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_GetClassDefaults, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_GetClassDefaults::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ShowPinForProperties"), &UK2Node_GetClassDefaults::ShowPinForProperties);
	Class.Property(TEXT("bExcludeObjectContainers"), &UK2Node_GetClassDefaults::bExcludeObjectContainers);
}

namespace ClassDefaults
{
const FName ClassPin(TEXT("Class"));

static bool IsObjectType(FName Category)
{
	return Category == UEdGraphSchema_K2::PC_Object || Category == UEdGraphSchema_K2::PC_Interface;
}

/** A value may be read from a class; an object that it holds belongs to that class and must not leak. */
static bool IsReadable(const FProperty& Property, bool bExcludeObjectContainers)
{
	FEdGraphPinType Type;
	if (!Property.HasAnyPropertyFlags(CPF_BlueprintVisible) || Property.HasAnyPropertyFlags(CPF_Parm)
		|| !UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(&Property, Type))
	{
		return false;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Delegate || Type.PinCategory == UEdGraphSchema_K2::PC_MCDelegate)
	{
		return false;
	}
	const bool bHoldsObjects = IsObjectType(Type.PinCategory) || IsObjectType(Type.PinValueType.TerminalCategory);
	return !bHoldsObjects || (Type.IsContainer() && !bExcludeObjectContainers);
}
} // namespace ClassDefaults

UEdGraphPin* UK2Node_GetClassDefaults::FindClassPin() const
{
	return FindPin(ClassDefaults::ClassPin, EGPD_Input);
}

UClass* UK2Node_GetClassDefaults::GetInputClass() const
{
	return ClassPins::GetChosen(FindClassPin());
}

void UK2Node_GetClassDefaults::AllocateDefaultPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Class, UObject::StaticClass(), ClassDefaults::ClassPin);
	Super::AllocateDefaultPins();
}

void UK2Node_GetClassDefaults::CreateOutputPins(UClass* InClass)
{
	TArray<FOptionalPinFromProperty> Old = MoveTemp(ShowPinForProperties);
	ShowPinForProperties.Empty();
	for (TFieldIterator<FProperty> It(InClass, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		if (!ClassDefaults::IsReadable(**It, bExcludeObjectContainers))
		{
			continue;
		}
		const FName Name = It->GetFName();
		const FOptionalPinFromProperty* const Before = Old.FindByPredicate(
			[Name](const FOptionalPinFromProperty& Candidate) { return Candidate.PropertyName == Name; });
		FOptionalPinFromProperty Record;
		Record.PropertyName = Name;
		Record.PropertyFriendlyName = It->GetDisplayNameText().ToString();
		Record.PropertyTooltip = It->GetToolTipText();
		const FString* const Category = It->FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
		Record.CategoryName = Category ? FName(*Category) : FName();
		Record.bCanToggleVisibility = true;
		// What the class inherits is there when an author asks for it.
		Record.bShowPin = Before ? Before->bShowPin : It->GetOwnerClass() == InClass;
		if (UEdGraphPin* const Pin = Record.bShowPin ? CreatePinFromProperty(*It, EGPD_Output, Name) : nullptr)
		{
			Pin->PinFriendlyName = FText::FromString(Record.PropertyFriendlyName);
			Pin->bAdvancedView = It->HasAnyPropertyFlags(CPF_AdvancedDisplay);
		}
		ShowPinForProperties.Add(MoveTemp(Record));
	}
}

void UK2Node_GetClassDefaults::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	if (UClass* const Class = ClassPins::GetChosen(ClassPins::FindInput(*this, &OldPins, ClassDefaults::ClassPin)))
	{
		CreateOutputPins(Class);
	}
	RestoreSplitPins(OldPins);
}

void UK2Node_GetClassDefaults::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	bExcludeObjectContainers = true;
}

void UK2Node_GetClassDefaults::PinDefaultValueChanged(UEdGraphPin* Pin)
{
	Super::PinDefaultValueChanged(Pin);
	if (Pin == FindClassPin())
	{
		ReconstructNode();
	}
}

void UK2Node_GetClassDefaults::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	if (Pin == FindClassPin())
	{
		ReconstructNode();
	}
}

FText UK2Node_GetClassDefaults::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const UClass* const Class = TitleType == ENodeTitleType::FullTitle ? GetInputClass() : nullptr;
	if (Class)
	{
		return FText::FromString(
			FString::Printf(TEXT("Get %s Class Defaults"), *Class->GetDisplayNameText().ToString()));
	}
	return NSLOCTEXT("K2Node_GetClassDefaults", "NodeTitle", "Get Class Defaults");
}

FText UK2Node_GetClassDefaults::GetTooltipText() const
{
	return NSLOCTEXT("K2Node_GetClassDefaults", "NodeTooltip", "Values that objects of the class start with");
}

FText UK2Node_GetClassDefaults::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node_GetClassDefaults", "MenuCategory", "Utilities");
}

void UK2Node_GetClassDefaults::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_GetClassDefaults::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (!GetInputClass())
	{
		MessageLog.Warning(TEXT("No input class was given to @@"), this);
	}
}
