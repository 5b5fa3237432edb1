#pragma once

#include "CoreMinimal.h"
#include "GameplayTagContainer.h"
#include "UObject/Object.h"

/**
 * The tags that the open project knows: those of Config/DefaultGameplayTags.ini and of the files in Config/Tags, and
 * those that were added by code. A tag brings those above it along. Read when first asked for, and again for another
 * project.
 */
class UGameplayTagsManager : public UObject
{
	EDITOR_CLASS(UGameplayTagsManager, UObject)

public:
	static UGameplayTagsManager& Get();

	/** The empty tag for a name that is not known. */
	FGameplayTag RequestGameplayTag(FName TagName, bool bErrorIfNotFound = true);
	/** All names, those above others included, in the order in which they were read. */
	const TArray<FName>& RequestAllTagNames();
	/** Makes a tag known for as long as the process runs. */
	void AddNativeGameplayTag(FName TagName);
	/** Reads the project's files again. */
	void EditorRefreshGameplayTagTree();

private:
	void EnsureProjectWasRead();
	void ReadFile(const FString& Path);
	void AddWithParents(const FString& Name);

	TSet<FName> Known;
	TArray<FName> Names;
	TArray<FName> NativeNames;
	/** The project that the names are of; empty when none was open. */
	FString ReadDirectory;
	bool bWasRead = false;
};
