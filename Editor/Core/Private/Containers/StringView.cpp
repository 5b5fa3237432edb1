#include "Containers/StringView.h"

#include "Containers/UnrealString.h"

namespace StringViews
{
static bool EqualsIgnoringCase(const TCHAR* Left, const TCHAR* Right, std::size_t Length)
{
	for (std::size_t Index = 0; Index < Length; ++Index)
	{
		if (Left[Index] != Right[Index] && FChar::ToLower(Left[Index]) != FChar::ToLower(Right[Index]))
		{
			return false;
		}
	}
	return true;
}

static int32 CompareIgnoringCase(std::wstring_view Left, std::wstring_view Right)
{
	const std::size_t Common = Left.size() < Right.size() ? Left.size() : Right.size();
	for (std::size_t Index = 0; Index < Common; ++Index)
	{
		const TCHAR LowLeft = FChar::ToLower(Left[Index]);
		const TCHAR LowRight = FChar::ToLower(Right[Index]);
		if (LowLeft != LowRight)
		{
			return LowLeft < LowRight ? -1 : 1;
		}
	}
	return Left.size() == Right.size() ? 0 : Left.size() < Right.size() ? -1 : 1;
}
}

FStringView FStringView::Mid(int32 Start, int32 Count) const
{
	const int32 Length = Len();
	// Wide arithmetic: the default count is as large as a count can be.
	const int64 End = static_cast<int64>(Start) + (Count < 0 ? 0 : Count);
	const int64 First = Start < 0 ? 0 : Start > Length ? Length : Start;
	const int64 Last = End < First ? First : End > Length ? Length : End;
	return FStringView(GetData() + First, static_cast<int32>(Last - First));
}

FStringView FStringView::TrimStart() const
{
	int32 Start = 0;
	while (Start < Len() && FChar::IsWhitespace((*this)[Start]))
	{
		++Start;
	}
	return RightChop(Start);
}

FStringView FStringView::TrimEnd() const
{
	int32 End = Len();
	while (End > 0 && FChar::IsWhitespace((*this)[End - 1]))
	{
		--End;
	}
	return Left(End);
}

bool FStringView::Equals(FStringView Other, ESearchCase::Type SearchCase) const
{
	if (Len() != Other.Len())
	{
		return false;
	}
	return SearchCase == ESearchCase::CaseSensitive
		? View == Other.View
		: StringViews::EqualsIgnoringCase(View.data(), Other.View.data(), View.size());
}

int32 FStringView::Compare(FStringView Other, ESearchCase::Type SearchCase) const
{
	if (SearchCase == ESearchCase::IgnoreCase)
	{
		return StringViews::CompareIgnoringCase(View, Other.View);
	}
	const int Order = View.compare(Other.View);
	return Order < 0 ? -1 : Order > 0 ? 1 : 0;
}

bool FStringView::StartsWith(FStringView Prefix, ESearchCase::Type SearchCase) const
{
	return Len() >= Prefix.Len() && Left(Prefix.Len()).Equals(Prefix, SearchCase);
}

bool FStringView::EndsWith(FStringView Suffix, ESearchCase::Type SearchCase) const
{
	return Len() >= Suffix.Len() && Right(Suffix.Len()).Equals(Suffix, SearchCase);
}

int32 FStringView::Find(FStringView Search, int32 Start, ESearchCase::Type SearchCase) const
{
	Start = Start < 0 ? 0 : Start;
	if (SearchCase == ESearchCase::CaseSensitive)
	{
		const std::size_t Position = View.find(Search.View, static_cast<std::size_t>(Start));
		return Position == std::wstring_view::npos ? static_cast<int32>(INDEX_NONE) : static_cast<int32>(Position);
	}
	const int32 Last = Len() - Search.Len();
	for (int32 Index = Start; Index <= Last; ++Index)
	{
		if (StringViews::EqualsIgnoringCase(GetData() + Index, Search.GetData(), Search.View.size()))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

bool FStringView::FindChar(TCHAR Char, int32& OutIndex) const
{
	const std::size_t Position = View.find(Char);
	OutIndex = Position == std::wstring_view::npos ? static_cast<int32>(INDEX_NONE) : static_cast<int32>(Position);
	return OutIndex != INDEX_NONE;
}

bool FStringView::FindLastChar(TCHAR Char, int32& OutIndex) const
{
	const std::size_t Position = View.rfind(Char);
	OutIndex = Position == std::wstring_view::npos ? static_cast<int32>(INDEX_NONE) : static_cast<int32>(Position);
	return OutIndex != INDEX_NONE;
}

uint32 GetTypeHash(FStringView View)
{
	// Two characters a step: names by the ten thousand are hashed when a program starts.
	const TCHAR* Cursor = View.begin();
	const TCHAR* const End = View.end();
	uint64 Hash = 0x9E3779B97F4A7C15ull ^ static_cast<uint64>(End - Cursor);
	for (; End - Cursor >= 2; Cursor += 2)
	{
		const uint64 Low = static_cast<uint32>(FChar::ToLower(Cursor[0]));
		const uint64 High = static_cast<uint32>(FChar::ToLower(Cursor[1]));
		Hash = (Hash ^ (Low | High << 32)) * 0xFF51AFD7ED558CCDull;
		Hash ^= Hash >> 32;
	}
	if (Cursor != End)
	{
		Hash = (Hash ^ static_cast<uint32>(FChar::ToLower(*Cursor))) * 0xFF51AFD7ED558CCDull;
	}
	return static_cast<uint32>(Hash ^ (Hash >> 32));
}
