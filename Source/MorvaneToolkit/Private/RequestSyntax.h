#pragma once

#include "CoreMinimal.h"

/** How requests are cut that are written as code. */
namespace RequestSyntax
{
/** "A.B(x).C" as its names: what is called on what, without arguments. */
struct FChain
{
	TArray<FString> Names;
	/** For each name, whether arguments followed it. */
	TArray<bool> Called;
	/** The arguments of the last name, or of the one that was called last. */
	FString Arguments;
	/** What stood in angle brackets. */
	FString TypeArgument;
	/** Whether an index in brackets ended it. */
	bool bIndexed = false;
	FString Index;
};

/** False for anything that is not one chain from begin to end, a lone name included. */
bool ReadChain(const FString& Text, FChain& OutChain);
bool IsName(const FString& Text);
/** Whether the word is one of those that blanks part, whatever its case. */
bool IsOneOf(FStringView Word, const TCHAR* Words);
/** A name, a number, a quoted text, a chain or a term in brackets. */
bool IsOperand(const FString& Text);
bool IsQuoted(const FString& Text);
/** Where the sign stands outside of quotes and brackets, with something on each side; INDEX_NONE when it does not. */
int32 FindSign(const FString& Text, const TCHAR* Sign);
/** The text without its quoted parts. */
FString WithoutQuoted(const FString& Text);
/** The index behind the bracket that closes the one at Index; INDEX_NONE when none does. */
int32 SkipBrackets(const FString& Text, int32 Index);
/** "Character" of "ACharacter*" and "const FVector&". */
FString GetTypeName(const FString& Text);
/** One type letter before a capital is left out: "Character" of "ACharacter". The name itself when there is none. */
FString WithoutTypeLetter(const FString& Name);
} // namespace RequestSyntax
