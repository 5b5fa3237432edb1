#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Utils/Request/GraphRecords.h"

/** Words and small readings that the two request parsers share. The parsers themselves differ by design. */
namespace RecordWords
{
/** "add", "modify", "remove", ignoring case; unset for any other text. */
TOptional<EBPNodeAction> ToNodeAction(const FString& Word);
/** "add", "create", "remove", ignoring case; unset for any other text. */
TOptional<EBPConnectionAction> ToConnectionAction(const FString& Word);
/** "array", "set", "map", ignoring case; any other text is no container. */
EPinContainerType ToContainerType(const FString& Word);

/** The string under the key; a missing key or one of another type leaves the default. */
void ReadString(const FJsonObject& Json, const TCHAR* Key, FString& InOutValue);
/** The same for two names of one thing: the first key wins when it is there. */
void ReadString(const FJsonObject& Json, const TCHAR* Key, const TCHAR* OtherKey, FString& InOutValue);
/** The value as text: a string as it is, a number, "true" or "false". False, and nothing changed, for any other. */
bool ReadText(const TSharedPtr<FJsonValue>& Value, FString& OutText);
/** The same, with lists and objects as the rows and structs that object text writes: "(1,2,3)", "(X=1,Y=2)". */
bool ReadValue(const TSharedPtr<FJsonValue>& Value, FString& OutText);
/** All string members of an object; members of other types are left out. */
TMap<FString, FString> ReadStringMap(const FJsonObject& Json, const TCHAR* Key);
/** "position" with "x" and "y", each for itself. */
void ReadPosition(const FJsonObject& Json, FBPNodeModification& OutRecord);

/** The four text fields of a pin type record. */
FBPPinType ReadPinTypeWords(const FJsonObject& Type);
/** All of a pin type record: its flags and the value type of a map too, which may be an object or a category word. */
FBPPinType ReadPinType(const FJsonObject& Type);
} // namespace RecordWords
