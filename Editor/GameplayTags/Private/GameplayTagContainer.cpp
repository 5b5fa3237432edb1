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

FString FGameplayTagContainer::ToStringSimple() const
{
	FString Text;
	for (const FGameplayTag& Tag : GameplayTags)
	{
		Text += (Text.IsEmpty() ? FString() : FString(TEXT(", "))) + Tag.ToString();
	}
	return Text;
}
