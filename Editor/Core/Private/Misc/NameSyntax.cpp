#include "Standalone/NameSyntax.h"

#include <array>

namespace NameSyntax
{
namespace
{
struct FRange
{
	uint32 First;
	uint32 Last;
};

/** Characters that end or turn lines, or that are no characters. */
constexpr FRange Controls[] = {
	{0x00, 0x1F}, {0x7F, 0x9F}, {0x2028, 0x2029}, {0xD800, 0xDFFF}, {0xFDD0, 0xFDEF}, {0xFFFE, 0xFFFF}};
/** Characters that nobody sees: two names that differ in them look the same, and some turn what stands around them. */
constexpr FRange Invisible[] = {{0x00AD, 0x00AD}, {0x034F, 0x034F}, {0x061C, 0x061C}, {0x115F, 0x1160},
	{0x17B4, 0x17B5}, {0x180B, 0x180F}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x206F}, {0x3164, 0x3164},
	{0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}, {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFFB}, {0xE0000, 0xE0FFF}};
/** Marks on the letter before, which most letters have a character of their own with. */
constexpr FRange Marks[] = {{0x0300, 0x036F}};
constexpr FRange Blanks[] = {{0x20, 0x20}, {0xA0, 0xA0}, {0x1680, 0x1680}, {0x2000, 0x200A}, {0x202F, 0x202F},
	{0x205F, 0x205F}, {0x3000, 0x3000}};

template <std::size_t Num>
bool IsIn(const FRange (&Ranges)[Num], TCHAR Char)
{
	const uint32 Code = static_cast<uint32>(Char);
	for (const FRange& Range : Ranges)
	{
		if (Code >= Range.First && Code <= Range.Last)
		{
			return true;
		}
	}
	return false;
}

FString FindCharFault(TCHAR Char)
{
	const auto Tell = [Char](const TCHAR* Kind)
	{ return FString::Printf(TEXT("it holds the %s U+%04X"), Kind, static_cast<uint32>(Char)); };
	if (IsIn(Controls, Char))
	{
		return Tell(TEXT("control character"));
	}
	if (IsIn(Invisible, Char))
	{
		return Tell(TEXT("invisible character"));
	}
	if (IsIn(Marks, Char))
	{
		return Tell(TEXT("combining mark")) + TEXT("; use the character that has the mark");
	}
	return FString();
}

/** What holds for names of every kind. */
FString FindCommonFault(FStringView Name)
{
	constexpr int32 MaxLength = NAME_SIZE - 64;
	if (Name.IsEmpty())
	{
		return TEXT("it is blank");
	}
	if (Name.Equals(TEXT("None"), ESearchCase::IgnoreCase))
	{
		return TEXT("the word stands for no name");
	}
	// Names that are made of it get endings.
	if (Name.Len() > MaxLength)
	{
		return FString::Printf(TEXT("it is longer than %d characters"), MaxLength);
	}
	for (const TCHAR Char : Name)
	{
		const FString Fault = FindCharFault(Char);
		if (!Fault.IsEmpty())
		{
			return Fault;
		}
	}
	const bool bBlankEnd = IsIn(Blanks, Name[0]) || IsIn(Blanks, Name[Name.Len() - 1]);
	return bBlankEnd ? FString(TEXT("it begins or ends with a blank")) : FString();
}
} // namespace

FString FindFault(FStringView Name)
{
	static const FStringView Separators(TEXT(".:\"'\\"));
	const FString Common = FindCommonFault(Name);
	if (!Common.IsEmpty())
	{
		return Common;
	}
	for (const TCHAR Char : Name)
	{
		int32 Ignored = 0;
		if (Separators.FindChar(Char, Ignored))
		{
			return FString::Printf(TEXT("it holds the character '%s'"), *FString::Chr(Char));
		}
	}
	return FString();
}

FString FindFileFault(FStringView Name)
{
	// Names of devices on systems that a project may be taken to, with any ending.
	static constexpr std::array<const TCHAR*, 4> Devices = {TEXT("CON"), TEXT("PRN"), TEXT("AUX"), TEXT("NUL")};
	static constexpr std::array<const TCHAR*, 2> Ports = {TEXT("COM"), TEXT("LPT")};
	for (const TCHAR* const Device : Devices)
	{
		if (Name.Equals(Device, ESearchCase::IgnoreCase))
		{
			return TEXT("some systems keep the word for a device");
		}
	}
	for (const TCHAR* const Port : Ports)
	{
		const bool bNumbered = Name.Len() == 4 && Name[3] >= TEXT('0') && Name[3] <= TEXT('9');
		if (bNumbered && Name.StartsWith(Port, ESearchCase::IgnoreCase))
		{
			return TEXT("some systems keep the word for a device");
		}
	}
	return FindCommonFault(Name);
}
} // namespace NameSyntax
