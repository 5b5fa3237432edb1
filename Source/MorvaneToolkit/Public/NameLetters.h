#pragma once

#include "CoreMinimal.h"

/** The letters and digits of a name in lower case, as which names that are written differently are the same. */
inline FString GetNameLetters(const FString& Name)
{
	FString Letters;
	Letters.Reserve(Name.Len());
	for (const TCHAR Char : Name)
	{
		if (FChar::IsAlnum(Char))
		{
			Letters.AppendChar(FChar::ToLower(Char));
		}
	}
	return Letters;
}
