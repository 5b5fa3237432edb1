#pragma once

#include "CoreMinimal.h"

/** From text to words in one spelling: what agents write and what the action menu says end up alike. */
namespace KeywordWords
{
/**
 * The words in order, repeats included: camel case, digits, signs and separators cut; lower case; plural endings off;
 * abbreviations and operator signs spelled out; filler words left out.
 */
TArray<FString> Split(FStringView Text, bool bKeepPlurals = false);

/** Whether a word of the text has a type letter in front ("EAxis"), which Split leaves out. */
bool HasTypeLetter(FStringView Text);

/** Whether the text is the name of a node class, such as "K2Node_IfThenElse". */
bool IsNodeClassName(FStringView Text);

/**
 * The words of a node class name that tell its nodes from others. None for a class that serves many titles, since its
 * words would then outvote the title.
 */
TArray<FString> SplitNodeClassName(FStringView ClassName);

/** Whether nodes of many different titles have this class; case does not matter. */
bool IsFamilyClassName(FStringView ClassName);

/** Whether a node of this class is titled by what it does and one name: "Bind Event to OnOpened"; case does not matter.
 */
bool IsNamedClassName(FStringView ClassName);

/** How much a word says about which node is meant: 1 for most, less for words that stand in hundreds of titles. */
float GetWeight(const FString& Word);

/**
 * How unusual what the word describes is: authors who do not say mean floats before bytes, arrays before maps, and game
 * code before editor scripting. Only says something between candidates that fit a request equally well.
 */
int32 GetPrior(const FString& Keyword);

/** Words that join others ("of", "by"). Between other words they say nothing about which node is meant. */
bool IsJoint(const FString& Word);

/** Words that name a type ("float", "string"). */
bool IsTypeWord(const FString& Word);

/** Whether the word is so common in the menu that it is never a slip for another one. */
bool IsWellKnown(const FString& Word);
} // namespace KeywordWords
