#include "Misc/Guid.h"

#include "Standalone/GuidGenerator.h"

#include <optional>
#include <random>

namespace Guids
{
/** SplitMix64: small, and every seed is a good one. */
struct FSequence
{
	uint64 State;

	uint64 Next()
	{
		State += 0x9E3779B97F4A7C15ull;
		uint64 Mixed = State;
		Mixed = (Mixed ^ (Mixed >> 30)) * 0xBF58476D1CE4E5B9ull;
		Mixed = (Mixed ^ (Mixed >> 27)) * 0x94D049BB133111EBull;
		return Mixed ^ (Mixed >> 31);
	}
};

static std::optional<FSequence>& SeededSequence()
{
	static std::optional<FSequence> Sequence;
	return Sequence;
}

/** Two sequences whose seeds come from the system: 128 random bits to start from, no system call for each id. */
static uint64 NextSystemRandom()
{
	static std::random_device Device;
	static const auto Draw = [] { return (static_cast<uint64>(Device()) << 32) | Device(); };
	static FSequence First{Draw()};
	static FSequence Second{Draw()};
	return First.Next() ^ (Second.Next() * 3);
}

struct FForm
{
	EGuidFormats Format;
	/** A digit of the guid for each 'X', anything else as it stands. */
	const TCHAR* Pattern;
	bool bLower;
};
static constexpr FForm Forms[] = {
	{EGuidFormats::Digits, TEXT("XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX"), false},
	{EGuidFormats::DigitsLower, TEXT("XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX"), true},
	{EGuidFormats::DigitsWithHyphens, TEXT("XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX"), false},
	{EGuidFormats::DigitsWithHyphensLower, TEXT("XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX"), true},
	{EGuidFormats::DigitsWithHyphensInBraces, TEXT("{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}"), false},
	{EGuidFormats::DigitsWithHyphensInParentheses, TEXT("(XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX)"), false},
	{EGuidFormats::HexValuesInBraces, TEXT("{0xXXXXXXXX,0xXXXX,0xXXXX,{0xXX,0xXX,0xXX,0xXX,0xXX,0xXX,0xXX,0xXX}}"),
		false},
	{EGuidFormats::UniqueObjectGuid, TEXT("XXXXXXXX-XXXXXXXX-XXXXXXXX-XXXXXXXX"), false},
};

static bool ParseForm(FStringView Text, const FForm& Form, FGuid& OutGuid)
{
	const FStringView Pattern(Form.Pattern);
	if (Text.Len() != Pattern.Len())
	{
		return false;
	}
	FGuid Result;
	int32 NumDigits = 0;
	for (int32 Index = 0; Index < Pattern.Len(); ++Index)
	{
		if (Pattern[Index] != TEXT('X'))
		{
			if (FChar::ToLower(Text[Index]) != Pattern[Index])
			{
				return false;
			}
			continue;
		}
		if (!FChar::IsHexDigit(Text[Index]))
		{
			return false;
		}
		uint32& Word = Result[NumDigits / 8];
		Word = (Word << 4) | static_cast<uint32>(FChar::ConvertCharDigitToInt(Text[Index]));
		++NumDigits;
	}
	OutGuid = Result;
	return true;
}
}

void FGuidGenerator::Seed(uint64 Seed)
{
	Guids::SeededSequence() = Guids::FSequence{Seed};
}

void FGuidGenerator::UseSystemRandom()
{
	Guids::SeededSequence().reset();
}

FGuid FGuid::NewGuid()
{
	std::optional<Guids::FSequence>& Seeded = Guids::SeededSequence();
	const uint64 High = Seeded ? Seeded->Next() : Guids::NextSystemRandom();
	const uint64 Low = Seeded ? Seeded->Next() : Guids::NextSystemRandom();
	const FGuid Result(static_cast<uint32>(High >> 32), static_cast<uint32>(High), static_cast<uint32>(Low >> 32),
		static_cast<uint32>(Low));
	return Result.IsValid() ? Result : NewGuid();
}

bool FGuid::Parse(const FString& Text, FGuid& OutGuid)
{
	for (const Guids::FForm& Form : Guids::Forms)
	{
		if (Guids::ParseForm(Text, Form, OutGuid))
		{
			return true;
		}
	}
	return false;
}

bool FGuid::ParseExact(const FString& Text, EGuidFormats Format, FGuid& OutGuid)
{
	return Guids::ParseForm(Text, Guids::Forms[static_cast<int32>(Format)], OutGuid);
}

FString FGuid::ToString(EGuidFormats Format) const
{
	const Guids::FForm& Form = Guids::Forms[static_cast<int32>(Format)];
	const TCHAR* const Digits = Form.bLower ? TEXT("0123456789abcdef") : TEXT("0123456789ABCDEF");
	std::wstring Result(Form.Pattern);
	int32 NumDigits = 0;
	for (TCHAR& Char : Result)
	{
		if (Char == TEXT('X'))
		{
			Char = Digits[((*this)[NumDigits / 8] >> (28 - 4 * (NumDigits % 8))) & 0xF];
			++NumDigits;
		}
	}
	return FString(MoveTemp(Result));
}
