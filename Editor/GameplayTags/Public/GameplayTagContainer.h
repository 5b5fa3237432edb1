#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

/** A name of the project's tag tree, such as "Ability.Melee.Slash". Empty when it is none. */
struct FGameplayTag
{
	EDITOR_STRUCT(FGameplayTag)

	FGameplayTag() = default;
	/** The tag of that name, or the empty one when the project does not know it; bErrorIfNotFound logs that. */
	static FGameplayTag RequestGameplayTag(const FName& TagName, bool bErrorIfNotFound = true);

	bool IsValid() const { return !TagName.IsNone(); }
	FName GetTagName() const { return TagName; }
	FString ToString() const { return TagName.ToString(); }
	/** Whether this is the other tag or one below it; never for an empty one. */
	bool MatchesTag(const FGameplayTag& TagToCheck) const;
	bool MatchesTagExact(const FGameplayTag& TagToCheck) const { return IsValid() && *this == TagToCheck; }
	bool operator==(const FGameplayTag& Other) const = default;

private:
	/** Of a name that is known: the manager alone can tell. */
	explicit FGameplayTag(FName InTagName)
		: TagName(InTagName)
	{
	}
	friend class UGameplayTagsManager;

	FName TagName;
};

/** Several tags, each once, in the order in which they came. */
struct FGameplayTagContainer
{
	EDITOR_STRUCT(FGameplayTagContainer)

	/** An empty tag is not added. */
	void AddTag(const FGameplayTag& TagToAdd);
	void Reset() { GameplayTags.Empty(); }
	int32 Num() const { return GameplayTags.Num(); }
	bool IsEmpty() const { return GameplayTags.IsEmpty(); }
	/** Names with a comma and a blank between. */
	FString ToStringSimple() const;
	bool operator==(const FGameplayTagContainer& Other) const = default;

private:
	TArray<FGameplayTag> GameplayTags;
};
