#pragma once

#include "Internationalization/Text.h"

class FInternationalization
{
public:
	/** Behind the LOCTEXT macros; not to be called directly. */
	static FText ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(
		const TCHAR* Source, const TCHAR* Namespace, const TCHAR* Key);
};

#define NSLOCTEXT(Namespace, Key, Source) \
	FInternationalization::ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText( \
		TEXT(Source), TEXT(Namespace), TEXT(Key))
#define LOCTEXT(Key, Source) NSLOCTEXT(LOCTEXT_NAMESPACE, Key, Source)
#define INVTEXT(Source) FText::AsCultureInvariant(FString(TEXT(Source)))
