#include "Math/Color.h"

#include "Misc/Parse.h"

namespace Colors
{
static float LinearFromSrgb(uint8 Channel)
{
	const float Value = static_cast<float>(Channel) / 255.0f;
	return Value <= 0.04045f ? Value / 12.92f : std::pow((Value + 0.055f) / 1.055f, 2.4f);
}

static uint8 ByteFrom(float Value)
{
	return static_cast<uint8>(std::floor(FMath::Clamp(Value, 0.0f, 1.0f) * 255.999f));
}

static uint8 SrgbFromLinear(float Value)
{
	const float Clamped = FMath::Clamp(Value, 0.0f, 1.0f);
	return ByteFrom(Clamped <= 0.0031308f ? Clamped * 12.92f : std::pow(Clamped, 1.0f / 2.4f) * 1.055f - 0.055f);
}
}

FString FColor::ToString() const
{
	return FString::Printf(TEXT("(R=%i,G=%i,B=%i,A=%i)"), R, G, B, A);
}

FString FColor::ToHex() const
{
	return FString::Printf(TEXT("%02X%02X%02X%02X"), R, G, B, A);
}

FColor FColor::FromHex(const FString& Text)
{
	FString Digits = Text;
	Digits.RemoveFromStart(TEXT("#"));
	for (const TCHAR Char : Digits)
	{
		if (!FChar::IsHexDigit(Char))
		{
			return FColor();
		}
	}
	if (Digits.Len() == 3 || Digits.Len() == 4)
	{
		FString Doubled;
		for (const TCHAR Char : Digits)
		{
			Doubled += FString::ChrN(2, Char);
		}
		Digits = Doubled;
	}
	if (Digits.Len() != 6 && Digits.Len() != 8)
	{
		return FColor();
	}
	const auto Byte = [&Digits](int32 Index)
	{ return static_cast<uint8>(FCString::Strtoi(*Digits.Mid(Index * 2, 2), nullptr, 16)); };
	return FColor(Byte(0), Byte(1), Byte(2), Digits.Len() == 8 ? Byte(3) : static_cast<uint8>(255));
}

FLinearColor::FLinearColor(const FColor& Color)
	: FLinearColor(Colors::LinearFromSrgb(Color.R), Colors::LinearFromSrgb(Color.G), Colors::LinearFromSrgb(Color.B),
		static_cast<float>(Color.A) / 255.0f)
{
}

FString FLinearColor::ToString() const
{
	return FString::Printf(TEXT("(R=%f,G=%f,B=%f,A=%f)"), R, G, B, A);
}

bool FLinearColor::InitFromString(const FString& Text)
{
	A = 1.0f;
	const bool bRead = FParse::Value(*Text, TEXT("R="), R) && FParse::Value(*Text, TEXT("G="), G)
		&& FParse::Value(*Text, TEXT("B="), B);
	FParse::Value(*Text, TEXT("A="), A);
	return bRead;
}

FColor FLinearColor::ToFColor(bool bSRGB) const
{
	return bSRGB
		? FColor(Colors::SrgbFromLinear(R), Colors::SrgbFromLinear(G), Colors::SrgbFromLinear(B), Colors::ByteFrom(A))
		: FColor(Colors::ByteFrom(R), Colors::ByteFrom(G), Colors::ByteFrom(B), Colors::ByteFrom(A));
}
