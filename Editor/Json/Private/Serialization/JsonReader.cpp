#include "Serialization/JsonReader.h"

#include "Containers/StringConv.h"

#include <algorithm>

namespace JsonReaderPrivate
{
bool IsEncodable(const TCHAR Char)
{
	const uint32 Code = static_cast<uint32>(Char);
	return Code <= 0x10FFFF && (Code < 0xD800 || Code > 0xDFFF);
}
} // namespace JsonReaderPrivate

template <class CharType>
TJsonReader<CharType>::TJsonReader(const FString& Text)
{
	const std::wstring& Chars = Text.ToStdWString();
	const auto Bad = std::find_if_not(Chars.begin(), Chars.end(), JsonReaderPrivate::IsEncodable);
	FUTF8::Append(Utf8, std::wstring_view(Chars.data(), static_cast<std::size_t>(Bad - Chars.begin())));
	if (Bad != Chars.end())
	{
		// No byte of this value stands in UTF-8, so the parser reports the very place.
		Utf8 += '\xFF';
	}
}

template class TJsonReader<TCHAR>;
