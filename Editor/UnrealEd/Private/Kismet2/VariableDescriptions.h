#pragma once

#include "Engine/Blueprint.h"

/** The records in which Blueprints and functions keep their variables. */
namespace VariableDescriptions
{
/** A record with a guid of its own. Object types are completed: "self" becomes the Blueprint's class. */
FBPVariableDescription Make(
	const UBlueprint& Blueprint, FName Name, const FEdGraphPinType& Type, const FString& DefaultValue);
/** Gives a variable another type. What cannot be replicated stops being so; the default stays where it can be read. */
void ChangeType(const UBlueprint& Blueprint, FBPVariableDescription& Variable, const FEdGraphPinType& NewType);
void Rename(FBPVariableDescription& Variable, FName NewName);

/** A member of the Blueprint, or with a scope a local variable of that function; null when there is none. */
FBPVariableDescription* Find(UBlueprint* Blueprint, FName Name, const UStruct* LocalScope = nullptr);
} // namespace VariableDescriptions
