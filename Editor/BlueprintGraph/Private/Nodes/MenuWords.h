#pragma once

#include "CoreMinimal.h"

class FProperty;
class UBlueprint;
class UClass;
class UField;

/** The words of menu entries, in one place so that actions of a kind read alike. */
namespace MenuWords
{
/** A category with each part made readable: "Utilities|FlowControl" gives "Utilities|Flow Control". */
FString ReadableCategory(const FString& Category);
/** A text of the words, shared by all who ask for the same ones: members are many, categories few. */
const FText& SharedText(const FString& Words);
/** "Variables|Transform": where a variable stands among those of its own class. */
const FText& MemberCategory(const FString* Category);
/** "Class|Scene Component": where it stands in the menus of others. */
const FText& ForeignCategory(const UClass& Class);
/** Category of a field's metadata made readable, or the fallback. */
FString CategoryOf(const FString* Category, const FString& Fallback);
/** The class as people call it: a Blueprint's name without "_C". */
FString ClassName(const UClass& Class);
/** Whether the class is of a module that only the editor has. */
bool IsOfEditor(const UClass& Class);
/** The class to which members declared in the given one belong for good: a skeleton class is thrown away. */
UClass* LastingClass(UClass* Class);
/** Whether a member that the lasting class declares is the Blueprint's own or inherited. False without one of them. */
bool IsMemberOf(const UClass* LastingClass, const UBlueprint* Blueprint);
/** Where members of the lasting class are looked up now: a Blueprint's class brought up to date. */
UClass* LookupClass(UClass* LastingClass);
} // namespace MenuWords
