#pragma once

#include "Containers/UnrealString.h"
#include "JsonFwd.h"
#include "Serialization/JsonTypes.h"
#include "Templates/SharedPointer.h"

#include <string>

class FJsonSerializer;

/**
 * A JSON text that waits for FJsonSerializer::Deserialize, and afterwards what was wrong with it. The text is read as a
 * whole; there is no reading token by token.
 */
template <class CharType>
class TJsonReader
{
public:
	/** A lone surrogate in Text cannot be written as UTF-8 and is refused when the text is read. */
	explicit TJsonReader(const FString& Text);

	static TSharedRef<TJsonReader> Create(const FString& Text) { return MakeShared<TJsonReader>(Text); }

	/** One sentence that ends with the position; empty while nothing has failed. */
	const FString& GetErrorMessage() const { return ErrorMessage; }
	/** Of the failure, counted from 1; 0 while nothing has failed. */
	uint32 GetLineNumber() const { return LineNumber; }

private:
	friend class FJsonSerializer;

	std::string Utf8;
	FString ErrorMessage;
	uint32 LineNumber = 0;
};

extern template class TJsonReader<TCHAR>;

template <class CharType = TCHAR>
class TJsonReaderFactory
{
public:
	static TSharedRef<TJsonReader<CharType>> Create(const FString& Text) { return TJsonReader<CharType>::Create(Text); }
};

using FJsonStringReader = TJsonReader<TCHAR>;
