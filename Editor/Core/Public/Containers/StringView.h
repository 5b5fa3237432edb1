#pragma once

#include "Containers/ContainersFwd.h"
#include "Misc/CString.h"

#include <string_view>

namespace ESearchCase
{
enum Type
{
	CaseSensitive,
	IgnoreCase
};
}

namespace ESearchDir
{
enum Type
{
	FromStart,
	FromEnd
};
}

/** A borrowed piece of text, not terminated. Comparison operators ignore case, as those of FString do. */
class FStringView
{
public:
	constexpr FStringView() = default;
	constexpr FStringView(const TCHAR* InData)
		: View(InData ? std::wstring_view(InData) : std::wstring_view())
	{
	}
	constexpr FStringView(const TCHAR* InData, int32 InLength)
		: View(InData, static_cast<std::size_t>(InLength))
	{
	}
	constexpr FStringView(std::wstring_view InView)
		: View(InView)
	{
	}
	/** Declared here so that an FString converts; the definition stands with FString. */
	inline FStringView(const FString& String);

	constexpr int32 Len() const { return static_cast<int32>(View.size()); }
	constexpr bool IsEmpty() const { return View.empty(); }
	constexpr const TCHAR* GetData() const { return View.data(); }
	constexpr const TCHAR* begin() const { return View.data(); }
	constexpr const TCHAR* end() const { return View.data() + View.size(); }
	constexpr std::wstring_view ToStdView() const { return View; }
	TCHAR operator[](int32 Index) const
	{
		checkSlow(Index >= 0 && Index < Len());
		return View[static_cast<std::size_t>(Index)];
	}

	/** Positions and counts outside the text are clamped. */
	FStringView Left(int32 Count) const { return Mid(0, Count); }
	FStringView LeftChop(int32 Count) const { return Mid(0, Len() - Count); }
	FStringView Right(int32 Count) const { return Mid(Len() - (Count < 0 ? 0 : Count > Len() ? Len() : Count)); }
	FStringView RightChop(int32 Count) const { return Mid(Count); }
	FStringView Mid(int32 Start, int32 Count = MAX_int32) const;
	FStringView TrimStart() const;
	FStringView TrimEnd() const;
	FStringView TrimStartAndEnd() const { return TrimStart().TrimEnd(); }
	void RemovePrefix(int32 Count) { *this = RightChop(Count); }

	bool Equals(FStringView Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const;
	int32 Compare(FStringView Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const;
	bool StartsWith(FStringView Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	bool EndsWith(FStringView Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	bool Contains(FStringView Search, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const
	{
		return Find(Search, 0, SearchCase) != INDEX_NONE;
	}
	int32 Find(FStringView Search, int32 Start = 0, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const;
	bool FindChar(TCHAR Char, int32& OutIndex) const;
	bool FindLastChar(TCHAR Char, int32& OutIndex) const;

	friend bool operator==(FStringView Left, FStringView Right) { return Left.Equals(Right, ESearchCase::IgnoreCase); }
	friend bool operator<(FStringView Left, FStringView Right)
	{
		return Left.Compare(Right, ESearchCase::IgnoreCase) < 0;
	}
	/** Ignores case, as equality does. */
	friend uint32 GetTypeHash(FStringView View);

private:
	std::wstring_view View;
};

#define TEXTVIEW(String) FStringView(TEXT(String), static_cast<int32>(UE_ARRAY_COUNT(TEXT(String)) - 1))
