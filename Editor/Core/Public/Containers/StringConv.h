#pragma once

#include "Containers/UnrealString.h"

#include <string>
#include <string_view>

/** The two directions between TCHAR text and UTF-8. A code point above the basic plane is one TCHAR here. */
struct FUTF8
{
	/** Appends the encoding; lone surrogates and values past U+10FFFF become the replacement character. */
	static void Append(std::string& OutBytes, std::wstring_view Text);
	/** Appends what can be decoded, the replacement character for the rest. */
	static void AppendLossy(std::wstring& OutText, std::string_view Bytes);
	/**
	 * Appends nothing and answers the offset of the first byte that is not valid UTF-8 (overlong forms, surrogates and
	 * values past U+10FFFF included); INDEX_NONE when all of it was decoded.
	 */
	static int64 AppendStrict(std::wstring& OutText, std::string_view Bytes);
};

class FTCHARToUTF8
{
public:
	explicit FTCHARToUTF8(const TCHAR* Text) { FUTF8::Append(Bytes, FStringView(Text).ToStdView()); }
	explicit FTCHARToUTF8(FStringView Text) { FUTF8::Append(Bytes, Text.ToStdView()); }
	FTCHARToUTF8(const TCHAR* Text, int32 Length) { FUTF8::Append(Bytes, FStringView(Text, Length).ToStdView()); }

	const ANSICHAR* Get() const { return Bytes.c_str(); }
	int32 Length() const { return static_cast<int32>(Bytes.size()); }
	std::string_view View() const { return Bytes; }

private:
	std::string Bytes;
};

class FUTF8ToTCHAR
{
public:
	explicit FUTF8ToTCHAR(const ANSICHAR* Bytes)
	{
		FUTF8::AppendLossy(Text, Bytes ? std::string_view(Bytes) : std::string_view());
	}
	FUTF8ToTCHAR(const ANSICHAR* Bytes, int32 NumBytes)
	{
		FUTF8::AppendLossy(Text, std::string_view(Bytes, static_cast<std::size_t>(NumBytes)));
	}
	FUTF8ToTCHAR(const UTF8CHAR* Bytes, int32 NumBytes)
		: FUTF8ToTCHAR(reinterpret_cast<const ANSICHAR*>(Bytes), NumBytes)
	{
	}

	const TCHAR* Get() const { return Text.c_str(); }
	int32 Length() const { return static_cast<int32>(Text.size()); }

private:
	std::wstring Text;
};

// The pointer lives until the end of the full expression, as everywhere with these macros.
#define TCHAR_TO_UTF8(Text) (FTCHARToUTF8(Text).Get())
#define UTF8_TO_TCHAR(Bytes) (FUTF8ToTCHAR(reinterpret_cast<const ANSICHAR*>(Bytes)).Get())

inline std::string ToUtf8(FStringView Text)
{
	std::string Bytes;
	FUTF8::Append(Bytes, Text.ToStdView());
	return Bytes;
}
inline FString FromUtf8(std::string_view Bytes)
{
	std::wstring Text;
	FUTF8::AppendLossy(Text, Bytes);
	return FString(MoveTemp(Text));
}
