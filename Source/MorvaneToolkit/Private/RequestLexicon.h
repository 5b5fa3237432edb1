#pragma once

#include "RequestReader.h"

/** What words of other tools, languages and of plain speech stand for. */
namespace RequestLexicon
{
/** "pushback" of "push_back" and "PushBack": letters and digits in lower case, the last plural s left out. */
FString Squeeze(const FString& Name);
/** "vector" of "FVector" and "Vector3", "array" of "TArray": the kind of thing; empty for any other name. */
FString GetFamily(const FString& Receiver);

/** What a member of a family does; empty family for what is called on nothing. */
TArray<FRequestReading> FindVerb(const FString& Family, const FString& Member);
/** The event that a declared function stands for. */
TArray<FRequestReading> FindEvent(const FString& Name);
/** What plain words say, be they of a family ("length of array") or a thing to do ("wait a second"). */
TArray<FRequestReading> FindPhrase(const TArray<FString>& Words, const FRequestScope& Scope);
} // namespace RequestLexicon
