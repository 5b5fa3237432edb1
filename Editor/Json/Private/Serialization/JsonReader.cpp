#include "Serialization/JsonReader.h"

#include "Containers/StringConv.h"

#include <algorithm>

namespace JsonReaderPrivate
{
static bool IsEncodable(const TCHAR Char)
{
	const uint32 Code = static_cast<uint32>(Char);
	return Code <= 0x10FFFF && (Code < 0xD800 || Code > 0xDFFF);
}
} // namespace JsonReaderPrivate

template <class CharType>
TJsonReader<CharType>::TJsonReader(const FString& Text)
{
	const std::wstring_view Chars = Text.ToStdWString();
	const auto Bad = std::find_if_not(Chars.begin(), Chars.end(), JsonReaderPrivate::IsEncodable);
	const std::size_t NumGood = static_cast<std::size_t>(Bad - Chars.begin());
	FUTF8::Append(Utf8, Chars.substr(0, NumGood));
	if (NumGood < Chars.size())
	{
		// No byte of this value stands in UTF-8, so the parser refuses the text and reports the very place.
		Utf8 += '\xFF';
		FUTF8::Append(Utf8, Chars.substr(NumGood + 1));
	}
}

template class TJsonReader<TCHAR>;
