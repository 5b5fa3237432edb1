#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

class FProperty;

/** Memory for one value of a property, for as long as it is looked at. */
class FPropertyScratch
{
public:
	/** Starts as a copy of a value, or as what the type starts with. */
	explicit FPropertyScratch(const FProperty& InProperty, const void* CopyOf = nullptr);
	~FPropertyScratch();
	FPropertyScratch(const FPropertyScratch&) = delete;
	FPropertyScratch& operator=(const FPropertyScratch&) = delete;
	void* Get() const { return Memory; }

private:
	const FProperty& Property;
	void* Memory;
};

/**
 * JSON as values of properties, taken as an agent plainly means it: numbers as text, enums by any of their names,
 * classes without their path, structs as objects, lists of numbers or text, containers as arrays and objects.
 */
namespace PropertyJson
{
/**
 * Writes the JSON into a value of the property. An object changes those members of a struct that it names; everything
 * else replaces the value. False with what is wrong, behind which a message can end; the value may be half written
 * then.
 */
bool Write(
	const FProperty& Property, const TSharedPtr<FJsonValue>& Json, void* Value, UObject* Owner, FString& OutFault);
/** The value as text that reads back as the same value. */
FString ToText(const FProperty& Property, const void* Value, UObject* Owner);
/** Reads a text that is a value of the property as a whole. */
bool Import(const FProperty& Property, const FString& Text, void* Value, UObject* Owner, FString& OutFault);
/** The type in words: "Integer", "Array of Names". */
FString TypeText(const FProperty& Property);
/** Whether a name, as an agent writes it, means the property: "relative_location", "Relative Location", "visible". */
bool MeansProperty(const FString& Name, const FProperty& Property);
} // namespace PropertyJson

/** The part of it that is about structs. */
namespace PropertyJsonStructs
{
bool Write(const class FStructProperty& Property, const TSharedPtr<FJsonValue>& Json, void* Value, UObject* Owner,
	FString& OutFault);
}
