#pragma once

#include "Containers/UnrealString.h"

#include <string_view>

class FText;

enum class EName : uint32
{
	None = 0,
	NAME_None = 0
};
inline constexpr EName NAME_None = EName::None;

enum class ENameCase : uint8
{
	CaseSensitive,
	IgnoreCase
};

enum EFindName
{
	FNAME_Find,
	FNAME_Add
};

inline constexpr int32 NAME_SIZE = 1024;
inline constexpr int32 NAME_NO_NUMBER_INTERNAL = 0;
#define NAME_INTERNAL_TO_EXTERNAL(Number) ((Number)-1)
#define NAME_EXTERNAL_TO_INTERNAL(Number) ((Number) + 1)

/**
 * A name, kept once for the whole process and never freed. Two names are equal when they differ in case only; each
 * keeps the spelling it was made with. Trailing numbers are part of the text: GetNumber and GetPlainNameString read
 * them off it.
 */
class FName
{
public:
	constexpr FName() = default;
	constexpr FName(EName) {}
	FName(const TCHAR* Text, EFindName FindType = FNAME_Add)
		: FName(FStringView(Text), FindType)
	{
	}
	explicit FName(const FString& Text, EFindName FindType = FNAME_Add)
		: FName(FStringView(Text), FindType)
	{
	}
	/** An empty text is None. With FNAME_Find a name that nobody has made yet is None too. */
	explicit FName(FStringView Text, EFindName FindType = FNAME_Add);
	FName(int32 Length, const TCHAR* Text)
		: FName(FStringView(Text, Length))
	{
	}
	/** UTF-8. */
	explicit FName(std::string_view Utf8);
	FName(const ANSICHAR* Utf8, EFindName = FNAME_Add)
		: FName(std::string_view(Utf8))
	{
	}
	/** "Base_<Number - 1>"; Base itself when Number is NAME_NO_NUMBER_INTERNAL. */
	FName(FName Base, int32 Number);

	bool IsNone() const { return ComparisonIndex == 0; }
	bool IsValid() const { return true; }
	FString ToString() const { return FString(GetView()); }
	void ToString(FString& Out) const { Out = FString(GetView()); }
	void AppendString(FString& Out) const { Out.Append(GetView()); }
	/** The spelling, valid for ever and terminated. */
	FStringView GetView() const;
	/** The trailing "_N" as N + 1, or NAME_NO_NUMBER_INTERNAL; "_01" and numbers past 31 bits are no such trail. */
	int32 GetNumber() const;
	/** The spelling without what GetNumber reads. */
	FString GetPlainNameString() const;

	bool IsEqual(FName Other, ENameCase CompareMethod = ENameCase::IgnoreCase, bool bCompareNumber = true) const;
	/** Alphabetical, ignoring case; names that differ in their trailing number only are in the numbers' order. */
	int32 Compare(FName Other) const;
	bool LexicalLess(FName Other) const { return Compare(Other) < 0; }
	/** An order that is cheap and stays the same within the process, but says nothing about the text. */
	bool FastLess(FName Other) const { return ComparisonIndex < Other.ComparisonIndex; }
	uint32 GetComparisonIndex() const { return ComparisonIndex; }
	uint32 GetDisplayIndex() const { return DisplayIndex; }

	friend bool operator==(FName Left, FName Right) { return Left.ComparisonIndex == Right.ComparisonIndex; }
	friend bool operator==(FName Left, EName) { return Left.IsNone(); }
	/** Ignores case and makes no name. */
	friend bool operator==(FName Left, const TCHAR* Right) { return Left.GetView() == FStringView(Right); }
	friend uint32 GetTypeHash(FName Name) { return Name.ComparisonIndex; }

	/** A name made readable: words parted, "_" to blanks, small words small; the leading b of a bool dropped
	 * ("bIsOpen": "Is Open"). */
	static FString NameToDisplayString(const FString& InDisplayName, bool bIsBool);
	/** False when Text holds one of InvalidChars; OutReason then says which. */
	static bool IsValidXName(FStringView Text, FStringView InvalidChars, FText* OutReason = nullptr);
	bool IsValidXName(FStringView InvalidChars) const { return IsValidXName(GetView(), InvalidChars); }

private:
	uint32 ComparisonIndex = 0;
	uint32 DisplayIndex = 0;
};

#define INVALID_NAME_CHARACTERS TEXT("\"' ,\n\r\t")
#define INVALID_OBJECTNAME_CHARACTERS TEXT("\"' ,/.:|&!~\n\r\t@#(){}[]=;^%$`")
#define INVALID_OBJECTPATH_CHARACTERS TEXT("\"' ,|&!~\n\r\t@#(){}[]=;^%$`")
#define INVALID_LONGPACKAGE_CHARACTERS TEXT("\\:*?\"<>|' ,.&!~\n\r\t@#")

struct FNameLexicalLess
{
	bool operator()(FName Left, FName Right) const { return Left.LexicalLess(Right); }
};
struct FNameFastLess
{
	bool operator()(FName Left, FName Right) const { return Left.FastLess(Right); }
};

inline FString LexToString(FName Name)
{
	return Name.ToString();
}
