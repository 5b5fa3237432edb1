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
	/** False when it was not there. */
	bool RemoveTag(const FGameplayTag& TagToRemove);
	void Reset() { GameplayTags.Empty(); }
	/** Whether one of the tags is the given one or below it. */
	bool HasTag(const FGameplayTag& TagToCheck) const;
	bool HasTagExact(const FGameplayTag& TagToCheck) const;
	int32 Num() const { return GameplayTags.Num(); }
	bool IsEmpty() const { return GameplayTags.IsEmpty(); }
	/** Names with a comma and a blank between. */
	FString ToStringSimple() const;
	bool operator==(const FGameplayTagContainer& Other) const = default;

private:
	TArray<FGameplayTag> GameplayTags;
};
