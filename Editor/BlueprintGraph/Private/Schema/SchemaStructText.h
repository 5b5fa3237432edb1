#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

/** Default texts of struct pins: "1,2,3" for vectors and rotators, "1,2,3|0,90,0|1,1,1" for transforms,
 * "(Member=Value,...)" for all. */
namespace SchemaStructText
{
/** The number that the whole text is, blanks around it and an "f" behind it allowed. */
bool ReadReal(const FString& Text, double& OutValue);
/** Whether pins hold the struct's numbers in a row, without names: vectors and rotators. */
bool IsRow(const UScriptStruct& Struct);
/** Names of the row's members in the order of the text. */
TArray<FName> GetRowNames(const UScriptStruct& Struct);
/** What is wrong with the text as a value of the struct; empty when nothing is. */
FString FindFault(const UScriptStruct& Struct, const FString& Text);
/** Whether both texts are the same value of the struct, however they are written. */
bool IsSameValue(const UScriptStruct& Struct, const FString& A, const FString& B);
/** The text as pins keep it: a row without names for a struct that has one. A faulty text comes back as it is. */
FString Normalise(const UScriptStruct& Struct, const FString& Text);
/** Text of each member that the value gives, by name. False when the text is no value of the struct. */
bool ReadMembers(const UScriptStruct& Struct, const FString& Text, TMap<FName, FString>& OutMembers);
/** The default text that has these members; the opposite of ReadMembers. */
FString WriteMembers(const UScriptStruct& Struct, const TMap<FName, FString>& Members);
} // namespace SchemaStructText
