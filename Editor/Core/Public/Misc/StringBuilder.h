#pragma once

#include "Containers/UnrealString.h"

/** Collects text; the engine's inline buffers are left to the string below it. */
class FStringBuilderBase
{
public:
	FStringBuilderBase& Append(FStringView View)
	{
		Text.Append(View);
		return *this;
	}
	FStringBuilderBase& Append(const TCHAR* String, int32 Count)
	{
		Text.Append(String, Count);
		return *this;
	}
	FStringBuilderBase& AppendChar(TCHAR Char)
	{
		Text.AppendChar(Char);
		return *this;
	}
	template <typename... ArgTypes>
	FStringBuilderBase& Appendf(const TCHAR* Format, const ArgTypes&... Args)
	{
		Text.Appendf(Format, Args...);
		return *this;
	}
	FStringBuilderBase& operator<<(FStringView View) { return Append(View); }
	FStringBuilderBase& operator<<(const TCHAR* String) { return Append(FStringView(String)); }
	FStringBuilderBase& operator<<(TCHAR Char) { return AppendChar(Char); }
	FStringBuilderBase& operator<<(int32 Number)
	{
		Text.AppendInt(Number);
		return *this;
	}

	int32 Len() const { return Text.Len(); }
	void Reset() { Text.Reset(); }
	const TCHAR* ToString() const { return *Text; }
	const TCHAR* operator*() const { return *Text; }

private:
	FString Text;
};

template <int32 BufferSize>
class TStringBuilder : public FStringBuilderBase
{
};
