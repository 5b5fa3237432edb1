#include "GameplayTagsK2Node_SwitchGameplayTag.h"

#include "EdGraphSchema_K2.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTag, "/Script/GameplayTagsEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UGameplayTagsK2Node_SwitchGameplayTagContainer, "/Script/GameplayTagsEditor", CLASS_None)

void UGameplayTagsK2Node_SwitchGameplayTag::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PinNames"), &UGameplayTagsK2Node_SwitchGameplayTag::PinNames);
}

void UGameplayTagsK2Node_SwitchGameplayTagContainer::DescribeClass(FClassDescriber&) {}

namespace GameplayTagSwitches
{
const TCHAR* const Library = TEXT("/Script/GameplayTags.BlueprintGameplayTagLibrary");

FEdGraphPinType StructType(const TCHAR* Path)
{
	FEdGraphPinType Type;
	Type.PinCategory = UEdGraphSchema_K2::PC_Struct;
	Type.PinSubCategoryObject = FindObject<UScriptStruct>(nullptr, Path);
	return Type;
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
	return GameplayTagSwitches::StructType(TEXT("/Script/GameplayTags.GameplayTag"));
}

FEdGraphPinType UGameplayTagsK2Node_SwitchGameplayTagContainer::GetPinType() const
{
	return GameplayTagSwitches::StructType(TEXT("/Script/GameplayTags.GameplayTagContainer"));
}

void UGameplayTagsK2Node_SwitchGameplayTag::CreateSelectionPin()
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
