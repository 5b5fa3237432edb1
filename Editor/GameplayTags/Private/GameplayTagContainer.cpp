#include "GameplayTagContainer.h"

#include "GameplayTagsManager.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_STRUCT(FGameplayTag, "/Script/GameplayTags")
IMPLEMENT_EDITOR_STRUCT(FGameplayTagContainer, "/Script/GameplayTags")

void FGameplayTag::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("TagName"), &FGameplayTag::TagName);
}

void FGameplayTagContainer::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("GameplayTags"), &FGameplayTagContainer::GameplayTags);
}

FGameplayTag FGameplayTag::RequestGameplayTag(const FName& TagName, bool bErrorIfNotFound)
{
	return UGameplayTagsManager::Get().RequestGameplayTag(TagName, bErrorIfNotFound);
}

bool FGameplayTag::MatchesTag(const FGameplayTag& TagToCheck) const
{
	return MatchesTagExact(TagToCheck)
		|| (TagToCheck.IsValid() && ToString().StartsWith(TagToCheck.ToString() + TEXT("."), ESearchCase::IgnoreCase));
}

void FGameplayTagContainer::AddTag(const FGameplayTag& TagToAdd)
{
	if (TagToAdd.IsValid())
	{
		GameplayTags.AddUnique(TagToAdd);
	}
}

bool FGameplayTagContainer::RemoveTag(const FGameplayTag& TagToRemove)
{
	return GameplayTags.Remove(TagToRemove) > 0;
}

bool FGameplayTagContainer::HasTag(const FGameplayTag& TagToCheck) const
{
	return GameplayTags.ContainsByPredicate(
		[&TagToCheck](const FGameplayTag& Tag) { return Tag.MatchesTag(TagToCheck); });
}

bool FGameplayTagContainer::HasTagExact(const FGameplayTag& TagToCheck) const
{
	return TagToCheck.IsValid() && GameplayTags.Contains(TagToCheck);
}

FString FGameplayTagContainer::ToStringSimple() const
{
	FString Text;
	for (const FGameplayTag& Tag : GameplayTags)
	{
		Text += (Text.IsEmpty() ? FString() : FString(TEXT(", "))) + Tag.ToString();
	}
	return Text;
}
