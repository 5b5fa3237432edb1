#pragma once

#include "RequestReader.h"

/** What words of other tools, languages and of plain speech stand for. */
namespace RequestLexicon
{
/** "pushback" of "push_back" and "PushBack": letters and digits in lower case, the last plural s left out. */
FString Squeeze(const FString& Name);
/** "vector" of "FVector" and "Vector3", "array" of "TArray": the kind of thing; empty for any other name. */
FString GetFamily(const FString& Receiver);
/** Of a variable's kind; components are one, whatever their class. */
FString GetFamilyOfKind(const FString& Kind);

/** What a member of a family does; empty family for what is called on nothing. */
TArray<FRequestReading> FindVerb(const FString& Family, const FString& Member);
/** What a member does that is called on something of which nothing is known. */
TArray<FRequestReading> FindVerbOfAny(const FString& Member);
/** The event that a declared function stands for. */
TArray<FRequestReading> FindEvent(const FString& Name);
/** The same of a call, which may be that of any function: "_process(delta)" is an event, "create()" is none. */
TArray<FRequestReading> FindEventCalled(const FString& Name);
/** What plain words say, be they of a family ("length of array") or a thing to do ("wait a second"). */
TArray<FRequestReading> FindPhrase(const TArray<FString>& Words, const FRequestScope& Scope);
} // namespace RequestLexicon
