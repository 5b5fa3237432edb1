#include "Containers/StringConv.h"

namespace Utf8
{
static constexpr TCHAR Replacement = 0xFFFD;

static bool IsScalar(uint32 CodePoint)
{
	return CodePoint <= 0x10FFFF && (CodePoint < 0xD800 || CodePoint > 0xDFFF);
}

/**
 * Decodes one code point and moves Cursor past it. On bad input answers false and moves past the bytes that cannot
 * start a new character, at least one.
 */
static bool DecodeNext(const unsigned char*& Cursor, const unsigned char* End, uint32& OutCodePoint)
{
	const uint32 Lead = *Cursor++;
	if (Lead < 0x80)
	{
		OutCodePoint = Lead;
		return true;
	}
	const int32 NumFollowing = Lead >= 0xF0 ? 3 : Lead >= 0xE0 ? 2 : 1;
	static constexpr uint32 Smallest[] = {0, 0x80, 0x800, 0x10000};
	if (Lead < 0xC2 || Lead > 0xF4)
	{
		return false;
	}
	uint32 CodePoint = Lead & (0x3Fu >> NumFollowing);
	for (int32 Index = 0; Index < NumFollowing; ++Index)
	{
		if (Cursor == End || (*Cursor & 0xC0) != 0x80)
		{
			return false;
		}
		CodePoint = (CodePoint << 6) | (*Cursor++ & 0x3Fu);
	}
	OutCodePoint = CodePoint;
	return CodePoint >= Smallest[NumFollowing] && IsScalar(CodePoint);
}
}

void FUTF8::Append(std::string& OutBytes, std::wstring_view Text)
{
	OutBytes.reserve(OutBytes.size() + Text.size());
	for (const TCHAR Char : Text)
	{
		const uint32 CodePoint = Utf8::IsScalar(static_cast<uint32>(Char)) ? static_cast<uint32>(Char)
																		   : static_cast<uint32>(Utf8::Replacement);
		if (CodePoint < 0x80)
		{
			OutBytes.push_back(static_cast<char>(CodePoint));
			continue;
		}
		if (CodePoint < 0x800)
		{
			OutBytes.push_back(static_cast<char>(0xC0 | (CodePoint >> 6)));
		}
		else
		{
			if (CodePoint < 0x10000)
			{
				OutBytes.push_back(static_cast<char>(0xE0 | (CodePoint >> 12)));
			}
			else
			{
				OutBytes.push_back(static_cast<char>(0xF0 | (CodePoint >> 18)));
				OutBytes.push_back(static_cast<char>(0x80 | ((CodePoint >> 12) & 0x3F)));
			}
			OutBytes.push_back(static_cast<char>(0x80 | ((CodePoint >> 6) & 0x3F)));
		}
		OutBytes.push_back(static_cast<char>(0x80 | (CodePoint & 0x3F)));
	}
}

void FUTF8::AppendLossy(std::wstring& OutText, std::string_view Bytes)
{
	OutText.reserve(OutText.size() + Bytes.size());
	const unsigned char* Cursor = reinterpret_cast<const unsigned char*>(Bytes.data());
	const unsigned char* const End = Cursor + Bytes.size();
	while (Cursor < End)
	{
		uint32 CodePoint = 0;
		const bool bValid = Utf8::DecodeNext(Cursor, End, CodePoint);
		OutText.push_back(bValid ? static_cast<TCHAR>(CodePoint) : Utf8::Replacement);
	}
}

int64 FUTF8::AppendStrict(std::wstring& OutText, std::string_view Bytes)
{
	const std::size_t OldSize = OutText.size();
	OutText.reserve(OldSize + Bytes.size());
	const unsigned char* const Start = reinterpret_cast<const unsigned char*>(Bytes.data());
	const unsigned char* const End = Start + Bytes.size();
	for (const unsigned char* Cursor = Start; Cursor < End;)
	{
		const unsigned char* const Character = Cursor;
		uint32 CodePoint = 0;
		if (!Utf8::DecodeNext(Cursor, End, CodePoint))
		{
			OutText.resize(OldSize);
			return Character - Start;
		}
		OutText.push_back(static_cast<TCHAR>(CodePoint));
	}
	return INDEX_NONE;
}
