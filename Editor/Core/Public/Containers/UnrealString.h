#pragma once

#include "Containers/StringView.h"
#include "Misc/StringFormatArg.h"
#include "Templates/TypeHash.h"
#include "Templates/UnrealTemplate.h"

#include <string>

/**
 * Text in TCHARs. The comparison operators ignore case; Equals and Compare respect it unless told otherwise, while the
 * searching members (Contains, Find, Replace, StartsWith, EndsWith, Split) ignore it unless told otherwise.
 */
class FString
{
public:
	using ElementType = TCHAR;

	FString() = default;
	/** A null pointer makes an empty text. */
	FString(const TCHAR* String)
		: Data(String ? std::wstring(String) : std::wstring())
	{
	}
	/** Decodes UTF-8; what is not valid becomes the replacement character. */
	explicit FString(const ANSICHAR* String);
	explicit FString(const UTF8CHAR* String)
		: FString(reinterpret_cast<const ANSICHAR*>(String))
	{
	}
	FString(int32 Count, const TCHAR* String)
		: Data(String, static_cast<std::size_t>(Count))
	{
	}
	explicit FString(FStringView View)
		: Data(View.ToStdView())
	{
	}
	explicit FString(const std::wstring& String)
		: Data(String)
	{
	}
	explicit FString(std::wstring&& String)
		: Data(static_cast<std::wstring&&>(String))
	{
	}
	FString& operator=(const TCHAR* String);
	FString& operator=(FStringView View);

	static FString Chr(TCHAR Char) { return ChrN(1, Char); }
	static FString ChrN(int32 Count, TCHAR Char);
	static FString FromInt(int32 Number);
	/** Up to six digits after the point, trailing zeros dropped down to MinFractionalDigits of them. */
	static FString SanitizeFloat(double Number, int32 MinFractionalDigits = 1);

	/** printf rules: %s takes const TCHAR*, %hs a const char*; also d i u x X o c p f e g with flags, width, precision.
	 */
	template <typename... ArgTypes>
	static FString Printf(const TCHAR* Format, const ArgTypes&... Args)
	{
		FString Result;
		Result.Appendf(Format, Args...);
		return Result;
	}
	template <typename... ArgTypes>
	FString& Appendf(const TCHAR* Format, const ArgTypes&... Args)
	{
		if constexpr (sizeof...(Args) == 0)
		{
			AppendFormatted(Format, nullptr, 0);
		}
		else
		{
			const FPrintfArg Packed[] = {FPrintfArg(Args)...};
			AppendFormatted(Format, Packed, static_cast<int32>(sizeof...(Args)));
		}
		return *this;
	}
	void AppendFormatted(const TCHAR* Format, const FPrintfArg* Args, int32 NumArgs);

	const TCHAR* operator*() const { return Data.c_str(); }
	const TCHAR* GetData() const { return Data.c_str(); }
	TCHAR* GetData() { return Data.data(); }
	const std::wstring& ToStdWString() const { return Data; }
	int32 Len() const { return static_cast<int32>(Data.size()); }
	bool IsEmpty() const { return Data.empty(); }
	bool IsValidIndex(int32 Index) const { return Index >= 0 && Index < Len(); }
	TCHAR& operator[](int32 Index)
	{
		checkSlow(IsValidIndex(Index));
		return Data[static_cast<std::size_t>(Index)];
	}
	const TCHAR& operator[](int32 Index) const
	{
		checkSlow(IsValidIndex(Index));
		return Data[static_cast<std::size_t>(Index)];
	}
	TCHAR* begin() { return Data.data(); }
	TCHAR* end() { return Data.data() + Data.size(); }
	const TCHAR* begin() const { return Data.data(); }
	const TCHAR* end() const { return Data.data() + Data.size(); }

	void Empty(int32 Slack = 0);
	void Reset(int32 NewReserved = 0);
	void Reserve(int32 Count) { Data.reserve(static_cast<std::size_t>(Count)); }

	FString& Append(FStringView View)
	{
		Data.append(View.ToStdView());
		return *this;
	}
	FString& Append(const TCHAR* String, int32 Count)
	{
		Data.append(String, static_cast<std::size_t>(Count));
		return *this;
	}
	FString& AppendChar(TCHAR Char)
	{
		Data.push_back(Char);
		return *this;
	}
	void AppendInt(int64 Number);
	FString& operator+=(const FString& Other)
	{
		Data.append(Other.Data);
		return *this;
	}
	FString& operator+=(const TCHAR* Other)
	{
		if (Other)
		{
			Data.append(Other);
		}
		return *this;
	}
	FString& operator+=(FStringView Other) { return Append(Other); }
	FString& operator+=(TCHAR Char) { return AppendChar(Char); }
	/** Joins with exactly one slash between, none when this is empty. */
	FString& operator/=(FStringView Other)
	{
		PathAppend(Other);
		return *this;
	}
	void PathAppend(FStringView Other);
	void InsertAt(int32 Index, TCHAR Char) { Data.insert(static_cast<std::size_t>(Index), 1, Char); }
	void InsertAt(int32 Index, FStringView Text) { Data.insert(static_cast<std::size_t>(Index), Text.ToStdView()); }
	void RemoveAt(int32 Index, int32 Count = 1);
	bool RemoveFromStart(FStringView Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	bool RemoveFromEnd(FStringView Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);

	bool Equals(const FString& Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const
	{
		return FStringView(*this).Equals(Other, SearchCase);
	}
	int32 Compare(const FString& Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const
	{
		return FStringView(*this).Compare(Other, SearchCase);
	}
	bool Contains(FStringView Search, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase,
		ESearchDir::Type SearchDir = ESearchDir::FromStart) const
	{
		return Find(Search, SearchCase, SearchDir) != INDEX_NONE;
	}
	/** Index of Search or INDEX_NONE. From the end, StartPosition is one past where a match may end at the latest. */
	int32 Find(FStringView Search, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase,
		ESearchDir::Type SearchDir = ESearchDir::FromStart, int32 StartPosition = INDEX_NONE) const;
	bool FindChar(TCHAR Char, int32& OutIndex) const { return FStringView(*this).FindChar(Char, OutIndex); }
	bool FindLastChar(TCHAR Char, int32& OutIndex) const { return FStringView(*this).FindLastChar(Char, OutIndex); }
	template <typename Predicate>
	int32 FindLastCharByPredicate(Predicate Pred) const
	{
		int32 Index = Len() - 1;
		while (Index >= 0 && !Pred((*this)[Index]))
		{
			--Index;
		}
		return Index;
	}
	/** No text starts or ends with the empty one. */
	bool StartsWith(FStringView Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	bool EndsWith(FStringView Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	/** Matches * and ? in Wildcard. */
	bool MatchesWildcard(FStringView Wildcard, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	/** Cuts at the first match (or the last); leaves the outputs alone and answers false when there is none. */
	bool Split(FStringView Separator, FString* OutLeft, FString* OutRight,
		ESearchCase::Type SearchCase = ESearchCase::IgnoreCase,
		ESearchDir::Type SearchDir = ESearchDir::FromStart) const;
	FString Replace(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	/** Answers the number of replacements. */
	int32 ReplaceInline(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	void ReplaceCharInline(TCHAR From, TCHAR To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);

	FString Left(int32 Count) const { return FString(FStringView(*this).Left(Count)); }
	FString LeftChop(int32 Count) const { return FString(FStringView(*this).LeftChop(Count)); }
	FString Right(int32 Count) const { return FString(FStringView(*this).Right(Count)); }
	FString RightChop(int32 Count) const { return FString(FStringView(*this).RightChop(Count)); }
	FString Mid(int32 Start, int32 Count = MAX_int32) const { return FString(FStringView(*this).Mid(Start, Count)); }
	void LeftInline(int32 Count) { *this = Left(Count); }
	void LeftChopInline(int32 Count) { *this = LeftChop(Count); }
	void RightChopInline(int32 Count) { *this = RightChop(Count); }
	FString TrimStart() const { return FString(FStringView(*this).TrimStart()); }
	FString TrimEnd() const { return FString(FStringView(*this).TrimEnd()); }
	FString TrimStartAndEnd() const { return FString(FStringView(*this).TrimStartAndEnd()); }
	FString TrimQuotes(bool* bOutQuotesRemoved = nullptr) const;
	FString ToLower() const;
	FString ToUpper() const;
	FString Reverse() const { return FString(std::wstring(Data.rbegin(), Data.rend())); }

	/** Answers the number of pieces; empty pieces are left out when bCullEmpty. */
	int32 ParseIntoArray(TArray<FString>& OutPieces, const TCHAR* Delimiter, bool bCullEmpty = true) const;
	int32 ParseIntoArrayWS(
		TArray<FString>& OutPieces, const TCHAR* ExtraDelimiter = nullptr, bool bCullEmpty = true) const;
	int32 ParseIntoArrayLines(TArray<FString>& OutLines, bool bCullEmpty = true) const;
	template <typename RangeType>
	static FString Join(const RangeType& Range, const TCHAR* Separator)
	{
		FString Result;
		bool bFirst = true;
		for (const auto& Element : Range)
		{
			if (!bFirst)
			{
				Result += Separator;
			}
			bFirst = false;
			Result += Element;
		}
		return Result;
	}

	bool IsNumeric() const { return FCString::IsNumeric(**this); }
	bool ToBool() const { return FCString::ToBool(**this); }

	/** Writes line breaks, tabs, quotes and backslashes as \n, \r, \t, \', \", \\. Chars limits it to those characters.
	 */
	FString ReplaceCharWithEscapedChar(FStringView Chars = FStringView()) const;

	friend bool operator==(const FString& Left, const FString& Right)
	{
		return Left.Len() == Right.Len() && FStringView(Left).Equals(Right, ESearchCase::IgnoreCase);
	}
	friend bool operator==(const FString& Left, const TCHAR* Right)
	{
		return FStringView(Left).Equals(Right, ESearchCase::IgnoreCase);
	}
	friend bool operator<(const FString& Left, const FString& Right)
	{
		return FStringView(Left).Compare(Right, ESearchCase::IgnoreCase) < 0;
	}
	friend bool operator>(const FString& Left, const FString& Right) { return Right < Left; }
	friend bool operator<=(const FString& Left, const FString& Right) { return !(Right < Left); }
	friend bool operator>=(const FString& Left, const FString& Right) { return !(Left < Right); }

	friend FString operator+(const FString& Left, const FString& Right) { return FString(Left.Data + Right.Data); }
	friend FString operator+(FString&& Left, const FString& Right) { return MoveTemp(Left += Right); }
	friend FString operator+(const FString& Left, const TCHAR* Right) { return FString(Left) += Right; }
	friend FString operator+(FString&& Left, const TCHAR* Right) { return MoveTemp(Left += Right); }
	friend FString operator+(const TCHAR* Left, const FString& Right) { return FString(Left) += Right; }
	friend FString operator+(const FString& Left, TCHAR Right) { return FString(Left) += Right; }
	friend FString operator+(FString&& Left, TCHAR Right) { return MoveTemp(Left += Right); }
	friend FString operator+(const FString& Left, FStringView Right) { return FString(Left) += Right; }
	friend FString operator+(FStringView Left, const FString& Right) { return FString(Left) += Right; }
	friend FString operator/(const FString& Left, const FString& Right) { return FString(Left) /= Right; }
	friend FString operator/(const FString& Left, const TCHAR* Right) { return FString(Left) /= Right; }
	friend FString operator/(const TCHAR* Left, const FString& Right) { return FString(Left) /= Right; }

	friend uint32 GetTypeHash(const FString& String) { return GetTypeHash(FStringView(String)); }

private:
	std::wstring Data;
};

inline FStringView::FStringView(const FString& String)
	: View(String.ToStdWString())
{
}

FString LexToString(int32 Value);
FString LexToString(uint32 Value);
FString LexToString(int64 Value);
FString LexToString(uint64 Value);
FString LexToString(float Value);
FString LexToString(double Value);
inline FString LexToString(bool bValue)
{
	return bValue ? TEXT("true") : TEXT("false");
}
inline FString LexToString(uint8 Value)
{
	return LexToString(static_cast<uint32>(Value));
}
inline FString LexToString(const TCHAR* Value)
{
	return Value;
}
inline FString LexToString(const FString& Value)
{
	return Value;
}

/** Answers false, leaving OutValue alone, unless the text is a number from end to end. */
bool LexTryParseString(int32& OutValue, const TCHAR* Text);
bool LexTryParseString(float& OutValue, const TCHAR* Text);
bool LexTryParseString(double& OutValue, const TCHAR* Text);
