#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Templates/UniquePtr.h"

namespace Morvane
{
class FToolResult;
}
class FProperty;
class UBlueprint;
struct FBPVariableDescription;
struct FEdGraphPinType;

/** Default values of variables and inherited properties, from JSON. */
namespace VariableDefaults
{
/** A property as the class would have it for the type, apart from any class; null when no property carries the type. */
TUniquePtr<FProperty> MakeProperty(UBlueprint& Blueprint, FName Name, const FEdGraphPinType& Type);

/**
 * Puts the value into the description of an own variable, and onto the class default object where the class has the
 * variable by now. False after warnings, with the old default kept, when it is no value of the type.
 */
bool Apply(UBlueprint& Blueprint, FBPVariableDescription& Variable, const TSharedPtr<FJsonValue>& Json,
	Morvane::FToolResult& Result);

/** Sets the class default of an inherited property, and says whether it holds the value now. */
bool ApplyInherited(UBlueprint& Blueprint, const FProperty& Property, const FString& Name,
	const TSharedPtr<FJsonValue>& Json, Morvane::FToolResult& Result);

/** The text that a JSON value is for a type, unchecked: numbers in the width of the type, flags as words. */
FString ToText(const TSharedPtr<FJsonValue>& Json, const FEdGraphPinType& Type);
} // namespace VariableDefaults
