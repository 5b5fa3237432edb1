#pragma once

#include "CoreMinimal.h"

class FJsonObject;
class FJsonValue;

/**
 * JSON read by its own types. The JSON library's TryGet functions turn text, numbers and flags into one another, so
 * that a name given as 5 would be a name and a flag given as "no" would be true. A member of another type is a missing
 * one for a tool, so all of this module's reading of texts, numbers and flags goes through here. What fails leaves its
 * output as it was.
 */
namespace MorvaneJson
{
MORVANECORE_API bool TryGetString(const FJsonValue& Value, FString& OutString);
MORVANECORE_API bool TryGetNumber(const FJsonValue& Value, double& OutNumber);
MORVANECORE_API bool TryGetBool(const FJsonValue& Value, bool& bOutBool);
/** Null for a value of another type: FJsonValue's own answers an empty object then, and complains in the log. */
MORVANECORE_API const TSharedPtr<FJsonObject>& AsObject(const FJsonValue& Value);
/** Empty for a value of another type. */
MORVANECORE_API const TArray<TSharedPtr<FJsonValue>>& AsArray(const FJsonValue& Value);

MORVANECORE_API bool TryGetStringField(const FJsonObject& Object, const TCHAR* FieldName, FString& OutString);
MORVANECORE_API bool TryGetNumberField(const FJsonObject& Object, const TCHAR* FieldName, double& OutNumber);
/** Rounds; a number outside of the type's range fails. */
MORVANECORE_API bool TryGetNumberField(const FJsonObject& Object, const TCHAR* FieldName, int32& OutNumber);
MORVANECORE_API bool TryGetBoolField(const FJsonObject& Object, const TCHAR* FieldName, bool& bOutBool);
} // namespace MorvaneJson
