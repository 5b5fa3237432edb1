#include "GameplayTagsK2Node_SwitchGameplayTag.h"

#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTag, "/Script/GameplayTagsEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTagContainer, "/Script/GameplayTagsEditor", CLASS_None)

void UGameplayTagsK2Node_SwitchGameplayTag::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PinTags"), &UGameplayTagsK2Node_SwitchGameplayTag::PinTags);
	Class.Property(TEXT("PinNames"), &UGameplayTagsK2Node_SwitchGameplayTag::PinNames);
}

void UGameplayTagsK2Node_SwitchGameplayTagContainer::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PinContainers"), &UGameplayTagsK2Node_SwitchGameplayTagContainer::PinContainers);
	Class.Property(TEXT("PinNames"), &UGameplayTagsK2Node_SwitchGameplayTagContainer::PinNames);
}

namespace GameplayTagSwitches
{
const TCHAR* const Library = TEXT("/Script/GameplayTags.BlueprintGameplayTagLibrary");

static FEdGraphPinType StructType(UScriptStruct* Struct)
{
	FEdGraphPinType Type;
	Type.PinCategory = UEdGraphSchema_K2::PC_Struct;
	Type.PinSubCategoryObject = Struct;
	return Type;
}

static FString NameOf(const FGameplayTag& Tag)
{
	return Tag.IsValid() ? Tag.ToString() : FString();
}

static FString NameOf(const FGameplayTagContainer& Tags)
{
	return Tags.ToStringSimple();
}

/** Brings the names in line with the cases: a case that is told by something is called after it. */
template <class TCase>
void NameCases(const TArray<TCase>& Cases, TArray<FName>& Names)
{
	Names.SetNum(Cases.Num());
	for (int32 Index = 0; Index < Cases.Num(); ++Index)
	{
		const FString Name = NameOf(Cases[Index]);
		for (int32 Number = Index; Names[Index].IsNone() && Name.IsEmpty(); ++Number)
		{
			const FName Candidate(FString::Printf(TEXT("Case_%d"), Number));
			Names[Index] = Names.Contains(Candidate) ? FName() : Candidate;
		}
		Names[Index] = Name.IsEmpty() ? Names[Index] : FName(Name);
	}
}

template <class TCase>
void RemoveCase(const UEdGraphPin* Pin, const TArray<FName>& Names, TArray<TCase>& Cases)
{
	const int32 Index = Pin ? Names.Find(Pin->PinName) : INDEX_NONE;
	if (Cases.IsValidIndex(Index))
	{
		Cases.RemoveAt(Index);
	}
}
} // namespace GameplayTagSwitches

UGameplayTagsK2Node_SwitchGameplayTag::UGameplayTagsK2Node_SwitchGameplayTag()
{
	SetFunction(GameplayTagSwitches::Library, TEXT("NotEqual_TagTag"));
}

UGameplayTagsK2Node_SwitchGameplayTagContainer::UGameplayTagsK2Node_SwitchGameplayTagContainer()
{
	SetFunction(GameplayTagSwitches::Library, TEXT("NotEqual_TagContainerTagContainer"));
}

FEdGraphPinType UGameplayTagsK2Node_SwitchGameplayTag::GetPinType() const
{
	return GameplayTagSwitches::StructType(FGameplayTag::StaticStruct());
}

FEdGraphPinType UGameplayTagsK2Node_SwitchGameplayTagContainer::GetPinType() const
{
	return GameplayTagSwitches::StructType(FGameplayTagContainer::StaticStruct());
}

void UGameplayTagsK2Node_SwitchGameplayTag::AllocateDefaultPins()
{
	GameplayTagSwitches::NameCases(PinTags, PinNames);
	Super::AllocateDefaultPins();
}

void UGameplayTagsK2Node_SwitchGameplayTagContainer::AllocateDefaultPins()
{
	GameplayTagSwitches::NameCases(PinContainers, PinNames);
	Super::AllocateDefaultPins();
}

void UGameplayTagsK2Node_SwitchGameplayTag::AddPinToSwitchNode()
{
	PinTags.SetNum(PinNames.Num());
	Super::AddPinToSwitchNode();
	PinTags.Add(FGameplayTag());
}

void UGameplayTagsK2Node_SwitchGameplayTagContainer::AddPinToSwitchNode()
{
	PinContainers.SetNum(PinNames.Num());
	Super::AddPinToSwitchNode();
	PinContainers.Add(FGameplayTagContainer());
}

void UGameplayTagsK2Node_SwitchGameplayTag::RemovePinFromSwitchNode(UEdGraphPin* TargetPin)
{
	GameplayTagSwitches::RemoveCase(TargetPin, PinNames, PinTags);
	Super::RemovePinFromSwitchNode(TargetPin);
}

void UGameplayTagsK2Node_SwitchGameplayTagContainer::RemovePinFromSwitchNode(UEdGraphPin* TargetPin)
{
	GameplayTagSwitches::RemoveCase(TargetPin, PinNames, PinContainers);
	Super::RemovePinFromSwitchNode(TargetPin);
}

void UGameplayTagsK2Node_SwitchGameplayTag::PostEditChangeProperty(FPropertyChangedEvent& Event)
{
	Super::PostEditChangeProperty(Event);
	ReconstructNode();
}

void UGameplayTagsK2Node_SwitchGameplayTagContainer::PostEditChangeProperty(FPropertyChangedEvent& Event)
{
	Super::PostEditChangeProperty(Event);
	ReconstructNode();
}

void UGameplayTagsK2Node_SwitchGameplayTag::CreateSelectionPin()
{
	CreatePin(EGPD_Input, GetPinType(), GetSelectionPinName());
}

void UGameplayTagsK2Node_SwitchGameplayTagContainer::CreateSelectionPin()
{
	CreatePin(EGPD_Input, GetPinType(), GetSelectionPinName());
}

FText UGameplayTagsK2Node_SwitchGameplayTag::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("GameplayTagsK2Node", "Switch_Tag", "Switch on Gameplay Tag");
}

FText UGameplayTagsK2Node_SwitchGameplayTagContainer::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("GameplayTagsK2Node", "Switch_TagContainer", "Switch on Gameplay Tag Container");
}

FText UGameplayTagsK2Node_SwitchGameplayTag::GetTooltipText() const
{
	return NSLOCTEXT("GameplayTagsK2Node", "SwitchTag_ToolTip", "Goes on at the output with the tag of the selection");
}

FText UGameplayTagsK2Node_SwitchGameplayTagContainer::GetTooltipText() const
{
	return NSLOCTEXT(
		"GameplayTagsK2Node", "SwitchTagContainer_ToolTip", "Goes on at the output with the tags of the selection");
}
