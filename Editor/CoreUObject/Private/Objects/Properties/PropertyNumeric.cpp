#include "UObject/UnrealType.h"

#include "Objects/Properties/PropertyTextReader.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace NumericText
{
constexpr std::size_t BufferSize = 512;

static void AppendAscii(FString& Out, const char* First, const char* Last)
{
	for (; First != Last; ++First)
	{
		Out.AppendChar(static_cast<TCHAR>(*First));
	}
}

template <class TReal>
static void AppendReal(FString& Out, TReal Value, bool bExact)
{
	if (!std::isfinite(Value))
	{
		Out += std::isnan(Value) ? TEXT("nan") : Value > 0 ? TEXT("inf") : TEXT("-inf");
		return;
	}
	char Buffer[BufferSize];
	const char* End = std::to_chars(Buffer, Buffer + BufferSize, Value, std::chars_format::fixed, 6).ptr;
	if (bExact)
	{
		TReal Back = 0;
		std::from_chars(Buffer, End, Back);
		End = Back == Value ? End : std::to_chars(Buffer, Buffer + BufferSize, Value, std::chars_format::fixed).ptr;
	}
	AppendAscii(Out, Buffer, End);
}

static bool IsNumberChar(TCHAR Char)
{
	return FChar::IsDigit(Char) || Char == TEXT('.') || Char == TEXT('-') || Char == TEXT('+') || Char == TEXT('e')
		|| Char == TEXT('E');
}

static const TCHAR* ReadNonFinite(const TCHAR* Buffer, double& OutValue)
{
	const bool bNegative = *Buffer == TEXT('-');
	FStringView Word;
	const TCHAR* const End = PropertyText::ReadWord(Buffer + (bNegative ? 1 : 0), Word);
	if (Word == TEXT("inf") || Word == TEXT("infinity"))
	{
		OutValue = bNegative ? -INFINITY : INFINITY;
		return End;
	}
	OutValue = NAN;
	return Word == TEXT("nan") ? End : nullptr;
}

static const TCHAR* ReadReal(const TCHAR* Buffer, double& OutValue)
{
	const TCHAR* const Start = *Buffer == TEXT('+') ? Buffer + 1 : Buffer;
	char Digits[BufferSize];
	std::size_t Num = 0;
	while (Num < BufferSize - 1 && IsNumberChar(Start[Num]))
	{
		Digits[Num] = static_cast<char>(Start[Num]);
		++Num;
	}
	Digits[Num] = '\0';
	const std::from_chars_result Result = std::from_chars(Digits, Digits + Num, OutValue);
	if (Result.ec == std::errc::invalid_argument)
	{
		return ReadNonFinite(Buffer, OutValue);
	}
	if (Result.ec == std::errc::result_out_of_range)
	{
		const char* const Exponent = std::strpbrk(Digits, "eE");
		const bool bTiny = Exponent && Exponent < Result.ptr && Exponent[1] == '-';
		OutValue = bTiny ? 0.0 : Digits[0] == '-' ? -MAX_dbl : MAX_dbl;
	}
	const TCHAR* const End = Start + (Result.ptr - Digits);
	return *End == TEXT('f') || *End == TEXT('F') ? End + 1 : End;
}

template <class TInteger>
static const TCHAR* ReadInteger(const TCHAR* Buffer, TInteger& OutValue, bool& bOutOutOfRange)
{
	const TCHAR* const Start = *Buffer == TEXT('+') ? Buffer + 1 : Buffer;
	char Digits[64];
	std::size_t Num = 0;
	while (Num < sizeof(Digits) - 1 && (FChar::IsDigit(Start[Num]) || (Num == 0 && Start[0] == TEXT('-'))))
	{
		Digits[Num] = static_cast<char>(Start[Num]);
		++Num;
	}
	const std::from_chars_result Result = std::from_chars(Digits, Digits + Num, OutValue);
	bOutOutOfRange = Result.ec == std::errc::result_out_of_range;
	const bool bNegativeZero = Result.ec == std::errc::invalid_argument && !std::is_signed_v<TInteger> && Num > 1;
	if (Result.ec != std::errc() || Num == sizeof(Digits) - 1)
	{
		bOutOutOfRange = bOutOutOfRange || bNegativeZero;
		return nullptr;
	}
	// "3.0" is what a number of a format without integers looks like.
	const TCHAR* End = Start + (Result.ptr - Digits);
	if (*End == TEXT('.') && FChar::IsDigit(End[1]))
	{
		++End;
		while (FChar::IsDigit(*End))
		{
			++End;
		}
	}
	return End;
}

template <class TNumber>
static const TCHAR* CppName()
{
	if constexpr (std::is_floating_point_v<TNumber>)
	{
		return sizeof(TNumber) == 4 ? TEXT("float") : TEXT("double");
	}
	constexpr bool bSigned = std::is_signed_v<TNumber>;
	switch (sizeof(TNumber))
	{
	case 1:
		return bSigned ? TEXT("int8") : TEXT("uint8");
	case 2:
		return bSigned ? TEXT("int16") : TEXT("uint16");
	case 4:
		return bSigned ? TEXT("int32") : TEXT("uint32");
	default:
		return bSigned ? TEXT("int64") : TEXT("uint64");
	}
}

/** The name of an enum's value, or the number of one that has no name. */
static void AppendEnumValue(FString& Out, const UEnum* Enum, int64 Value)
{
	const int32 Index = Enum ? Enum->GetIndexByValue(Value) : static_cast<int32>(INDEX_NONE);
	if (Index != INDEX_NONE)
	{
		Out += Enum->GetNameStringByIndex(Index);
		return;
	}
	Out.AppendInt(Value);
}

/** An entry's name with or without scope, in quotes or not, or a number. */
static const TCHAR* ReadEnumValue(
	const TCHAR* Buffer, const UEnum* Enum, const FProperty& Property, int64& OutValue, FOutputDevice* ErrorText)
{
	FString Token;
	const TCHAR* const End = PropertyText::ReadToken(PropertyText::SkipBlanks(Buffer), Token);
	if (!End)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Missing enumerator in: %s"), *Property.GetName(), Buffer);
		return nullptr;
	}
	const int32 Index = Enum ? Enum->GetIndexByNameString(Token) : static_cast<int32>(INDEX_NONE);
	if (Index != INDEX_NONE)
	{
		OutValue = Enum->GetValueByIndex(Index);
		return End;
	}
	bool bOutOfRange = false;
	const TCHAR* const NumberEnd = ReadInteger(*Token, OutValue, bOutOfRange);
	if (!NumberEnd || *NumberEnd)
	{
		PropertyText::Report(ErrorText, TEXT("%s: '%s' is no enumerator of %s"), *Property.GetName(), *Token,
			Enum ? *Enum->GetName() : TEXT("a missing enum"));
		return nullptr;
	}
	return End;
}

static FString EnumCppType(const UEnum* Enum, const TCHAR* Fallback)
{
	if (!Enum)
	{
		return Fallback;
	}
	const FString Type = Enum->CppType.IsEmpty() ? Enum->GetName() : Enum->CppType;
	const bool bIsEnumClass = Enum->GetCppForm() == UEnum::ECppForm::EnumClass;
	return bIsEnumClass ? Type : TEXT("TEnumAsByte<") + Type + TEXT(">");
}
} // namespace NumericText

template <class TNumber>
void TNumericPropertyOf<TNumber>::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue,
	const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const TNumber Value = *static_cast<const TNumber*>(PropertyValue);
	if constexpr (std::is_floating_point_v<TNumber>)
	{
		NumericText::AppendReal(ValueStr, Value, (PortFlags & PPF_ExactNumbers) != 0);
	}
	else
	{
		char Buffer[32];
		NumericText::AppendAscii(ValueStr, Buffer, std::to_chars(Buffer, Buffer + sizeof(Buffer), Value).ptr);
	}
}

template <class TNumber>
const TCHAR* TNumericPropertyOf<TNumber>::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const TCHAR* const Start = PropertyText::SkipBlanks(Buffer);
	const TCHAR* End = nullptr;
	bool bOutOfRange = false;
	if constexpr (std::is_floating_point_v<TNumber>)
	{
		double Value = 0.0;
		End = NumericText::ReadReal(Start, Value);
		constexpr double Largest = std::numeric_limits<TNumber>::max();
		const bool bClamp = std::isfinite(Value) && std::abs(Value) > Largest;
		Value = bClamp ? std::copysign(Largest, Value) : Value;
		*static_cast<TNumber*>(PropertyPtr) = End ? static_cast<TNumber>(Value) : *static_cast<TNumber*>(PropertyPtr);
	}
	else
	{
		TNumber Value = 0;
		End = NumericText::ReadInteger(Start, Value, bOutOfRange);
		*static_cast<TNumber*>(PropertyPtr) = End ? Value : *static_cast<TNumber*>(PropertyPtr);
	}
	if (!End)
	{
		PropertyText::Report(ErrorText,
			bOutOfRange ? TEXT("%s: The number does not fit: %s") : TEXT("%s: Missing number in: %s"), *this->GetName(),
			Buffer);
	}
	return End;
}

template <class TNumber>
FString TNumericPropertyOf<TNumber>::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return NumericText::CppName<TNumber>();
}

template class TNumericPropertyOf<int8>;
template class TNumericPropertyOf<int16>;
template class TNumericPropertyOf<int32>;
template class TNumericPropertyOf<int64>;
template class TNumericPropertyOf<uint8>;
template class TNumericPropertyOf<uint16>;
template class TNumericPropertyOf<uint32>;
template class TNumericPropertyOf<uint64>;
template class TNumericPropertyOf<float>;
template class TNumericPropertyOf<double>;

FString FNumericProperty::GetNumericPropertyValueToString(const void* Data) const
{
	FString Text;
	ExportTextItem_Direct(Text, Data, nullptr, nullptr, PPF_None);
	return Text;
}

bool FByteProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FByteProperty*>(Other)->Enum == Enum;
}

void FByteProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	Visit(Enum);
}

void FByteProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	NumericText::AppendEnumValue(ValueStr, Enum, GetPropertyValue(PropertyValue));
}

const TCHAR* FByteProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (!Enum)
	{
		return TNumericPropertyOf<uint8>::ImportText_Direct(Buffer, PropertyPtr, OwnerObject, PortFlags, ErrorText);
	}
	int64 Value = 0;
	const TCHAR* const End = NumericText::ReadEnumValue(Buffer, Enum, *this, Value, ErrorText);
	if (End)
	{
		SetPropertyValue(PropertyPtr, static_cast<uint8>(Value));
	}
	return End;
}

FString FByteProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return NumericText::EnumCppType(Enum, TEXT("uint8"));
}

void FEnumProperty::InitializeValue(void* Dest) const
{
	SetValue(Dest, 0);
}

void FEnumProperty::CopyCompleteValue(void* Dest, const void* Src) const
{
	std::memcpy(Dest, Src, static_cast<std::size_t>(ByteSize));
}

int64 FEnumProperty::GetValue(const void* Data) const
{
	switch (ByteSize)
	{
	case 1:
		return *static_cast<const uint8*>(Data);
	case 2:
		return *static_cast<const int16*>(Data);
	case 4:
		return *static_cast<const int32*>(Data);
	default:
		return *static_cast<const int64*>(Data);
	}
}

void FEnumProperty::SetValue(void* Data, int64 Value) const
{
	switch (ByteSize)
	{
	case 1:
		*static_cast<uint8*>(Data) = static_cast<uint8>(Value);
		break;
	case 2:
		*static_cast<int16*>(Data) = static_cast<int16>(Value);
		break;
	case 4:
		*static_cast<int32*>(Data) = static_cast<int32>(Value);
		break;
	default:
		*static_cast<int64*>(Data) = Value;
	}
}

bool FEnumProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FEnumProperty*>(Other)->Enum == Enum
		&& static_cast<const FEnumProperty*>(Other)->ByteSize == ByteSize;
}

void FEnumProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	Visit(Enum);
}

bool FEnumProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	return (A ? GetValue(A) : 0) == (B ? GetValue(B) : 0);
}

void FEnumProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	NumericText::AppendEnumValue(ValueStr, Enum, GetValue(PropertyValue));
}

const TCHAR* FEnumProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	int64 Value = 0;
	const TCHAR* const End = NumericText::ReadEnumValue(Buffer, Enum, *this, Value, ErrorText);
	if (End)
	{
		SetValue(PropertyPtr, Value);
	}
	return End;
}

FString FEnumProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return NumericText::EnumCppType(Enum, TEXT("uint8"));
}
