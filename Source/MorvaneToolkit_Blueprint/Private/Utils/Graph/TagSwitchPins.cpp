#include "Utils/Graph/TagSwitchPins.h"

#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraphNode.h"
#include "GameplayTagContainer.h"
#include "GameplayTagsK2Node_SwitchGameplayTag.h"
#include "ToolResult.h"

namespace TagSwitchPinsImpl
{
static FGameplayTag FindTag(const FString& Name)
{
	const FName TagName(*Name);
	return TagName.IsNone() ? FGameplayTag() : FGameplayTag::RequestGameplayTag(TagName, false);
}

/** The names that the cases have follow their tags when the pins are made anew. */
static void AddCase(UEdGraphNode& Node, const FGameplayTag& Tag)
{
	Node.Modify();
	if (UGameplayTagsK2Node_SwitchGameplayTag* const Tags = Cast<UGameplayTagsK2Node_SwitchGameplayTag>(&Node))
	{
		Tags->PinTags.Add(Tag);
		Tags->PinNames.Add(Tag.GetTagName());
	}
	else if (UGameplayTagsK2Node_SwitchGameplayTagContainer* const Containers =
				 Cast<UGameplayTagsK2Node_SwitchGameplayTagContainer>(&Node))
	{
		FGameplayTagContainer Case;
		Case.AddTag(Tag);
		Containers->PinContainers.Add(Case);
		Containers->PinNames.Add(Tag.GetTagName());
	}
	Node.ReconstructNode();
}

static FString TitleOf(const UEdGraphNode& Node)
{
	return FBlueprintNodeUtils::GetFullTitle(&Node);
}
} // namespace TagSwitchPinsImpl

bool TagSwitchPins::IsTagSwitch(const UEdGraphNode& Node)
{
	return Node.IsA<UGameplayTagsK2Node_SwitchGameplayTag>()
		|| Node.IsA<UGameplayTagsK2Node_SwitchGameplayTagContainer>();
}

bool TagSwitchPins::Add(UEdGraphNode& Node, const FString& TagName, Morvane::FToolResult& Result)
{
	using namespace TagSwitchPinsImpl;
	if (Node.FindPin(TagName))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Found existing pin '%s' on node '%s'"), *TagName, *TitleOf(Node)));
		return false;
	}
	const FGameplayTag Tag = FindTag(TagName);
	if (!Tag.IsValid())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Failed to add new pin '%s'. GameplayTag is invalid"), *TagName));
		return false;
	}
	AddCase(Node, Tag);
	return true;
}

bool TagSwitchPins::Remove(UEdGraphNode& Node, const FString& TagName, Morvane::FToolResult& Result)
{
	using namespace TagSwitchPinsImpl;
	UEdGraphPin* const Pin = Node.FindPin(TagName, EGPD_Output);
	if (!FindTag(TagName).IsValid())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Failed to remove pin '%s'. GameplayTag is invalid"), *TagName));
		return false;
	}
	if (!Pin)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Could not find pin '%s' on node '%s'"), *TagName, *TitleOf(Node)));
		return false;
	}
	CastChecked<UK2Node_Switch>(&Node)->RemovePinFromSwitchNode(Pin);
	return true;
}
