#pragma once

#include "Internationalization/Text.h"
#include "Templates/UniquePtr.h"

/** Where a text comes from, when that is more than its characters. */
struct FTextOrigin
{
	enum class EKind : uint8
	{
		Key,
		Table,
		NamedFormat,
		OrderedFormat,
		/** Written back as it was read. */
		Verbatim
	};

	EKind Kind = EKind::Key;
	/** The namespace of a key, the id of a table, the whole of a verbatim form. */
	FString Namespace;
	FString Key;
	FText Pattern;
	FFormatNamedArguments Named;
	FFormatOrderedArguments Ordered;
};

struct FTextData
{
	FString Shown;
	/** Null for a plain text. */
	TUniquePtr<FTextOrigin> Origin;
	bool bCultureInvariant = false;
	bool bFromString = false;
};

/** Makes texts from their parts. */
struct FTextMaker
{
	static FText Plain(FString&& Shown, bool bCultureInvariant);
	static FText WithKey(const FString& Namespace, const FString& Key, FString&& Source);
	static FText Verbatim(FString&& Form, FString&& Shown);
	static FText WithOrigin(TUniquePtr<FTextOrigin> Origin, FString&& Shown);
	/** Null for a plain or empty text. */
	static const FTextOrigin* GetOrigin(const FText& Text);
};
