#pragma once

#include "CoreMinimal.h"

class UObject;
class UClass;
class UScriptStruct;
class FProperty;
struct FSoftObjectPath;

/** Reading and writing the pieces that property texts are made of. Readers answer the first character behind, or null.
 */
namespace PropertyText
{
template <typename... ArgTypes>
void Report(FOutputDevice* ErrorText, const TCHAR* Format, const ArgTypes&... Args)
{
	if (ErrorText)
	{
		ErrorText->Logf(ELogVerbosity::Warning, Format, Args...);
	}
}

const TCHAR* SkipBlanks(const TCHAR* Buffer);
/** Letters, digits and any of "_-+./:": what names, enum entries and numbers are written in. At least one. */
const TCHAR* ReadWord(const TCHAR* Buffer, FStringView& OutWord);
/** A word, or a text in quotes with its escapes resolved. */
const TCHAR* ReadToken(const TCHAR* Buffer, FString& OutToken);
/** A whole value of whatever kind: up to the ',' or ')' that ends it, or the end of the text. Null when quotes or
 * brackets do not close. */
const TCHAR* SkipValue(const TCHAR* Buffer);
/** In quotes, with escapes. */
void AppendQuoted(FString& Out, FStringView Text);

/**
 * The path in an object reference: bare, Class'Path', Class'"Path"' or "Class'Path'", the class short or with its path.
 * With bToEnd a bare path may hold blanks and goes to the end of the line.
 */
const TCHAR* ReadReference(const TCHAR* Buffer, bool bToEnd, FString& OutPath);
/** The object of a path from ReadReference, loaded when it must be. A path without '/' is looked for below the owner
 * and its outers first. */
UObject* FindReferenced(const FString& Path, const UClass* Class, const UObject* Owner);

/** A soft path as a value: None when null, in quotes when delimited. */
void AppendSoftPath(FString& Out, const FSoftObjectPath& Path, int32 PortFlags);
/** What a struct in a container is written against; null for other elements, which are written whole. */
const void* ElementDefault(const FProperty& Element);
/** The C++ type of a container's element, its own parameters included. */
FString NestedCppType(const FProperty& Element);

/**
 * Reads a value that stands in a list or struct. A reference to what does not exist is reported, reads as null and does
 * not end the reading: it must not cost its neighbours.
 */
const TCHAR* ImportNested(const FProperty& Property, const TCHAR* Buffer, void* Value, UObject* Owner, int32 PortFlags,
	FOutputDevice* ErrorText);
/** Reads "Name=Value" into a struct's member. Unknown members are skipped with a word to ErrorText. */
const TCHAR* ImportMember(const UScriptStruct& Struct, const TCHAR* Buffer, void* StructMemory, UObject* Owner,
	int32 PortFlags, FOutputDevice* ErrorText);
} // namespace PropertyText
