#pragma once

#include "CoreMinimal.h"

class FProperty;
class UClass;
class UField;

/** The words of menu entries, in one place so that actions of a kind read alike. */
namespace MenuWords
{
/** A category with each part made readable: "Utilities|FlowControl" gives "Utilities|Flow Control". */
FString ReadableCategory(const FString& Category);
/** "Class|Scene Component|Transform" for members of classes; the author's own category below "Variables" for a
 * Blueprint's. */
FText VariableCategory(const FProperty& Property);
/** Category of a field's metadata made readable, or the fallback. */
FString CategoryOf(const FString* Category, const FString& Fallback);
/** The class as people call it: a Blueprint's name without "_C". */
FString ClassName(const UClass& Class);
/** The class to which members declared in the given one belong for good: a skeleton class is thrown away. */
UClass* LastingClass(UClass* Class);
/** Where members of the lasting class are looked up now: a Blueprint's class brought up to date. */
UClass* LookupClass(UClass* LastingClass);
} // namespace MenuWords
