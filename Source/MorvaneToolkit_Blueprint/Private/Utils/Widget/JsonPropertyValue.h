#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

class FProperty;
class UObject;

/** JSON values as values of properties, by reflection. Nothing here reports; a value that fails leaves the old one. */
namespace JsonPropertyValue
{
enum class EOutcome
{
	Done,
	/** A key of an object names no member that may be set. */
	UnknownField,
	/** A value does not fit its property. */
	BadValue,
};

/** The text form of a string, number or boolean; false for any other JSON type. */
bool ToText(const FJsonValue& Value, FString& OutText);

/** Whether an author may set the property. */
bool IsEditable(const FProperty& Property);

/**
 * Writes a text into an object's property, all of it or nothing. Beside the property's own text form, an enum takes the
 * shown name of an enumerator and the part of its name behind a common prefix.
 */
bool SetText(UObject& Object, const FProperty& Property, const FString& Text);

/** The same for a member of a struct that the object holds. */
bool SetMemberText(UObject& Object, const FProperty& Outer, const FProperty& Inner, const FString& Text);

/** Writes an object member by member, in any depth; members that it does not name keep their values. */
EOutcome SetObject(UObject& Object, const FProperty& Property, const FJsonObject& Value);
EOutcome SetMemberObject(UObject& Object, const FProperty& Outer, const FProperty& Inner, const FJsonObject& Value);
} // namespace JsonPropertyValue
