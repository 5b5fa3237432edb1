#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace StringFormat
{
/** One conversion of a format, such as %-08.3f. */
struct FSpec
{
	bool bLeft = false;
	bool bZero = false;
	std::string Flags;
	int32 Width = 0;
	int32 Precision = -1;
	bool bNarrow = false;
	TCHAR Conversion = 0;
};

/** Walks the arguments; asking for more than were passed is a fault of the calling code. */
struct FArgReader
{
	const FPrintfArg* Args;
	int32 NumArgs;
	int32 Next = 0;

	const FPrintfArg* Take(const TCHAR* Format)
	{
		if (!ensureMsgf(Next < NumArgs, TEXT("Too few arguments for the format \"%ls\""), Format))
		{
			return nullptr;
		}
		return &Args[Next++];
	}
};

static int32 ReadCount(const TCHAR*& Cursor, const TCHAR* Format, FArgReader& Reader)
{
	if (*Cursor == TEXT('*'))
	{
		++Cursor;
		const FPrintfArg* const Arg = Reader.Take(Format);
		return Arg ? static_cast<int32>(Arg->Signed) : 0;
	}
	int32 Count = 0;
	while (FChar::IsDigit(*Cursor))
	{
		Count = Count < 100000 ? Count * 10 + (*Cursor - TEXT('0')) : Count;
		++Cursor;
	}
	return Count;
}

/** Cursor stands behind the percent sign and is left behind the conversion. */
static FSpec ReadSpec(const TCHAR*& Cursor, const TCHAR* Format, FArgReader& Reader)
{
	FSpec Spec;
	while (*Cursor && FCString::Strchr(TEXT("-+ #0"), *Cursor))
	{
		Spec.bLeft = Spec.bLeft || *Cursor == TEXT('-');
		Spec.bZero = Spec.bZero || *Cursor == TEXT('0');
		Spec.Flags.push_back(static_cast<char>(*Cursor++));
	}
	Spec.Width = ReadCount(Cursor, Format, Reader);
	if (Spec.Width < 0)
	{
		Spec.bLeft = true;
		Spec.Flags.push_back('-');
		Spec.Width = -Spec.Width;
	}
	if (*Cursor == TEXT('.'))
	{
		++Cursor;
		Spec.Precision = ReadCount(Cursor, Format, Reader);
	}
	while (*Cursor && FCString::Strchr(TEXT("hljztLqI"), *Cursor))
	{
		Spec.bNarrow = Spec.bNarrow || *Cursor == TEXT('h');
		// I64 and I32 are length modifiers of another platform's making that formats still carry.
		Cursor += *Cursor == TEXT('I') && (Cursor[1] == TEXT('6') || Cursor[1] == TEXT('3')) ? 3 : 1;
	}
	Spec.Conversion = *Cursor;
	if (*Cursor)
	{
		++Cursor;
	}
	return Spec;
}

template <typename ValueType>
static void AppendNumber(std::wstring& Out, const FSpec& Spec, const char* Length, char Conversion, ValueType Value)
{
	char Pattern[32];
	char Buffer[512];
	const int32 Width = Spec.Width < 200 ? Spec.Width : 200;
	const int32 Precision = Spec.Precision < 100 ? Spec.Precision : 100;
	std::snprintf(Pattern, sizeof(Pattern), "%%%.8s*.*%s%c", Spec.Flags.c_str(), Length, Conversion);
	const int Count = std::snprintf(Buffer, sizeof(Buffer), Pattern, Width, Precision, Value);
	for (int Index = 0; Index < Count && Index < static_cast<int>(sizeof(Buffer)) - 1; ++Index)
	{
		Out.push_back(static_cast<TCHAR>(Buffer[Index]));
	}
}

/** What most formats hold: a number with nothing said about its form. */
template <typename ValueType>
static bool AppendPlain(std::wstring& Out, const FSpec& Spec, ValueType Value)
{
	if (!Spec.Flags.empty() || Spec.Width > 0 || Spec.Precision >= 0)
	{
		return false;
	}
	char Buffer[24];
	const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value);
	Out.append(Buffer, Result.ptr);
	return true;
}

static void AppendPadded(std::wstring& Out, const FSpec& Spec, std::wstring_view Text)
{
	if (Spec.Precision >= 0 && static_cast<std::size_t>(Spec.Precision) < Text.size())
	{
		Text = Text.substr(0, static_cast<std::size_t>(Spec.Precision));
	}
	const std::size_t Width = static_cast<std::size_t>(Spec.Width);
	const std::size_t Padding = Width > Text.size() ? Width - Text.size() : 0;
	Out.append(Spec.bLeft ? 0 : Padding, TEXT(' '));
	Out.append(Text);
	Out.append(Spec.bLeft ? Padding : 0, TEXT(' '));
}

static void AppendString(std::wstring& Out, const FSpec& Spec, const FPrintfArg& Arg, const TCHAR* Format)
{
	if (Arg.Kind == FPrintfArg::EKind::Wide)
	{
		AppendPadded(Out, Spec, Arg.Wide ? Arg.Wide : TEXT("(null)"));
	}
	else if (Arg.Kind == FPrintfArg::EKind::Ansi)
	{
		AppendPadded(Out, Spec, Arg.Ansi ? FromUtf8(Arg.Ansi).ToStdWString() : std::wstring(TEXT("(null)")));
	}
	else if (Arg.Kind == FPrintfArg::EKind::Pointer && !Arg.Pointer)
	{
		AppendPadded(Out, Spec, TEXT("(null)"));
	}
	else
	{
		ensureMsgf(false, TEXT("%%s takes a text, the format is \"%ls\""), Format);
		AppendPadded(Out, Spec, TEXT("(?)"));
	}
}

/** The argument's bits as its own type would print them, whatever the sign the conversion asks for. */
static int64 SignedOf(const FPrintfArg& Arg)
{
	if (Arg.Kind == FPrintfArg::EKind::Real)
	{
		return static_cast<int64>(Arg.Real);
	}
	return Arg.NumBytes == 4 ? static_cast<int32>(Arg.Signed) : Arg.Signed;
}

static uint64 UnsignedOf(const FPrintfArg& Arg)
{
	if (Arg.Kind == FPrintfArg::EKind::Real)
	{
		return static_cast<uint64>(static_cast<int64>(Arg.Real));
	}
	return Arg.NumBytes <= 4 ? static_cast<uint32>(Arg.Unsigned) : Arg.Unsigned;
}

static double RealOf(const FPrintfArg& Arg)
{
	switch (Arg.Kind)
	{
	case FPrintfArg::EKind::Real:
		return Arg.Real;
	case FPrintfArg::EKind::Unsigned:
		return static_cast<double>(Arg.Unsigned);
	default:
		return static_cast<double>(Arg.Signed);
	}
}

static void AppendArgument(std::wstring& Out, const FSpec& Spec, const FPrintfArg& Arg, const TCHAR* Format)
{
	const char Conversion = static_cast<char>(Spec.Conversion);
	switch (Conversion)
	{
	case 's':
	case 'S':
		AppendString(Out, Spec, Arg, Format);
		break;
	case 'd':
	case 'i':
		if (!AppendPlain(Out, Spec, SignedOf(Arg)))
		{
			AppendNumber(Out, Spec, "ll", 'd', SignedOf(Arg));
		}
		break;
	case 'u':
	case 'x':
	case 'X':
	case 'o':
		AppendNumber(Out, Spec, "ll", Conversion, UnsignedOf(Arg));
		break;
	case 'c':
	case 'C':
		AppendPadded(Out, Spec, std::wstring(1, static_cast<TCHAR>(Arg.Signed)));
		break;
	case 'f':
	case 'F':
	case 'e':
	case 'E':
	case 'g':
	case 'G':
	case 'a':
		AppendNumber(Out, Spec, "", Conversion, RealOf(Arg));
		break;
	case 'p':
	{
		char Buffer[32];
		std::snprintf(Buffer, sizeof(Buffer), "0x%016llx", static_cast<unsigned long long>(Arg.Unsigned));
		AppendPadded(Out, Spec, FromUtf8(Buffer).ToStdWString());
		break;
	}
	default:
		ensureMsgf(false, TEXT("Unknown conversion in the format \"%ls\""), Format);
		break;
	}
}
}

void FString::AppendFormatted(const TCHAR* Format, const FPrintfArg* Args, int32 NumArgs)
{
	StringFormat::FArgReader Reader{Args, NumArgs};
	const TCHAR* Cursor = Format;
	while (*Cursor)
	{
		const TCHAR* const Percent = FCString::Strchr(Cursor, TEXT('%'));
		if (!Percent)
		{
			Data.append(Cursor);
			return;
		}
		Data.append(Cursor, Percent);
		Cursor = Percent + 1;
		if (*Cursor == TEXT('%'))
		{
			Data.push_back(*Cursor++);
			continue;
		}
		const StringFormat::FSpec Spec = StringFormat::ReadSpec(Cursor, Format, Reader);
		if (const FPrintfArg* const Arg = Reader.Take(Format))
		{
			StringFormat::AppendArgument(Data, Spec, *Arg, Format);
		}
	}
}
