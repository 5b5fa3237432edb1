#pragma once

#include "CoreMinimal.h"

class INameValidatorInterface;
class UBlueprint;
class UClass;
class UEdGraph;

/**
 * What the lower modules ask of the compiler, which lives above them: the classes of a Blueprint, brought up to date.
 * The editor module sets the functions at start-up; without them a Blueprint's classes are taken as they stand.
 */
namespace BlueprintClassProvider
{
struct FFunctions
{
	/** Rebuilds the skeleton class when declarations changed since. */
	void (*EnsureSkeletonIsUpToDate)(UBlueprint* Blueprint) = nullptr;
	/** Builds both classes of a Blueprint that was just read from its package. */
	void (*RegenerateOnLoad)(UBlueprint* Blueprint) = nullptr;
	/** Takes a graph out of the Blueprint, with all that depends on it. */
	void (*RemoveGraph)(UBlueprint* Blueprint, UEdGraph* Graph) = nullptr;
	/** Lets what refers to a function of the Blueprint by its old name go with it to the new one. */
	void (*ReplaceFunctionReferences)(UBlueprint* Blueprint, FName OldName, FName NewName) = nullptr;
	/** Gives a timeline another name, with its node and all that refers to it; false when the name is taken. */
	bool (*RenameTimeline)(UBlueprint* Blueprint, FName OldName, FName NewName) = nullptr;
	/** A judge of names for a member of the Blueprint that has the given name now. */
	TSharedPtr<INameValidatorInterface> (*MakeNameValidator)(const UBlueprint* Blueprint, FName ExistingName) = nullptr;
};

void Set(const FFunctions& Functions);
const FFunctions& Get();
/** The skeleton class, up to date, or the generated or parent class when there is no skeleton. Null for null. */
UClass* GetSelfClass(const UBlueprint* Blueprint);
/** Null without a Blueprint, or before the editor module has started. */
TSharedPtr<INameValidatorInterface> MakeNameValidator(const UBlueprint* Blueprint, FName ExistingName);
} // namespace BlueprintClassProvider
