#pragma once

#include "Containers/UnrealString.h"
#include "Templates/SharedPointer.h"

#include <cstdint>
#include <string>
#include <string_view>

class FJsonObject;
class FJsonValue;

/**
 * JSON as bytes, for files and pipes: no detour over TCHAR text.
 *
 * Reading is strict: RFC 8259 to the letter, valid UTF-8, no lone surrogate escapes, no more than MaxDepth levels of
 * arrays and objects, no number beyond the range of a double. Integers of any length are read as the nearest double. A
 * name that an object holds twice keeps the place of the first and the value of the last. Errors are one sentence that
 * ends with the position.
 */
namespace JsonUtf8
{
constexpr int32 MaxDepth = 512;

/**
 * Whether Text is one JSON value of no more than MaxValues, each element and member counted; builds nothing. OutError,
 * in UTF-8, is set on failure only.
 */
bool Check(std::string_view Text, std::string& OutError, std::size_t MaxValues = SIZE_MAX);

/** On failure OutObject is null and OutError is set. A value that is not an object is a failure. */
bool Parse(std::string_view Text, TSharedPtr<FJsonObject>& OutObject, FString& OutError);
bool ParseValue(std::string_view Text, TSharedPtr<FJsonValue>& OutValue, FString& OutError);

/** Appends to OutText, on one line unless bPretty. The output is valid UTF-8 whatever the strings hold. */
void Write(const FJsonObject& Object, std::string& OutText, bool bPretty = false);
void WriteValue(const FJsonValue& Value, std::string& OutText, bool bPretty = false);
} // namespace JsonUtf8
