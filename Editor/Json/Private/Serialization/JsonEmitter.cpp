#include "Standalone/JsonEmitter.h"

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace JsonEmitterPrivate
{
static bool NeedsEscape(const TCHAR Char)
{
	return Char < 0x20 || Char == TEXT('"') || Char == TEXT('\\');
}

/** Whether an ASCII character stands in a text as it is. */
constexpr std::array<bool, 128> PlainAscii = []
{
	std::array<bool, 128> Plain{};
	for (std::size_t Char = 0x20; Char < Plain.size(); ++Char)
	{
		Plain[Char] = Char != '"' && Char != '\\';
	}
	return Plain;
}();

/** Very large and very small numbers take an exponent, where %.17g does. */
static bool IsWrittenInFull(const double Value)
{
	const double Size = std::abs(Value);
	return Value == 0.0 || (Size >= 1e-4 && Size < 1e17);
}

static void AppendRun(std::wstring& Out, const std::wstring_view Run)
{
	Out.append(Run);
}

/** Most text is ASCII, which is narrowed in blocks; the rest takes the general road. */
static void AppendRun(std::string& Out, std::wstring_view Run)
{
	constexpr std::size_t BlockSize = 256;
	char Block[BlockSize];
	while (!Run.empty())
	{
		std::size_t Count = 0;
		while (Count < Run.size() && Count < BlockSize && static_cast<uint32>(Run[Count]) < 0x80)
		{
			Block[Count] = static_cast<char>(Run[Count]);
			++Count;
		}
		Out.append(Block, Count);
		Run.remove_prefix(Count);
		Count = 0;
		while (Count < Run.size() && static_cast<uint32>(Run[Count]) >= 0x80)
		{
			++Count;
		}
		if (Count > 0)
		{
			FUTF8::Append(Out, Run.substr(0, Count));
			Run.remove_prefix(Count);
		}
	}
}
/** Appends the beginning of Chars that needs no escape, or a part of it; answers how much that was. */
static std::size_t AppendPlain(std::wstring& Out, const std::wstring_view Chars)
{
	std::size_t Count = 0;
	while (Count < Chars.size() && !NeedsEscape(Chars[Count]))
	{
		++Count;
	}
	Out.append(Chars.substr(0, Count));
	return Count;
}

/** The same, in one pass that looks at each character and narrows it. */
static std::size_t AppendPlain(std::string& Out, const std::wstring_view Chars)
{
	constexpr std::size_t BlockSize = 256;
	char Block[BlockSize];
	const std::size_t End = std::min(Chars.size(), BlockSize);
	std::size_t Count = 0;
	while (
		Count < End && static_cast<uint32>(Chars[Count]) < 0x80 && PlainAscii[static_cast<std::size_t>(Chars[Count])])
	{
		Block[Count] = static_cast<char>(Chars[Count]);
		++Count;
	}
	Out.append(Block, Count);
	if (Count > 0 || NeedsEscape(Chars.front()))
	{
		return Count;
	}
	while (Count < Chars.size() && static_cast<uint32>(Chars[Count]) >= 0x80)
	{
		++Count;
	}
	FUTF8::Append(Out, Chars.substr(0, Count));
	return Count;
}
} // namespace JsonEmitterPrivate

template <typename CharType>
TJsonEmitter<CharType>::TJsonEmitter(const bool bInPretty, const int32 InDepth)
	: bPretty(bInPretty)
	, Depth(InDepth)
{
}

template <typename CharType>
void TJsonEmitter<CharType>::Ascii(const std::string_view Chars)
{
	if constexpr (sizeof(CharType) == 1)
	{
		Text.append(Chars);
	}
	else
	{
		Text.append(Chars.begin(), Chars.end());
	}
}

template <typename CharType>
void TJsonEmitter<CharType>::BreakLine()
{
	if (bPretty)
	{
		Text += CharType('\n');
		Text.append(static_cast<std::size_t>(Depth), CharType('\t'));
	}
}

template <typename CharType>
void TJsonEmitter<CharType>::BeginElement()
{
	if (bAfterKey)
	{
		bAfterKey = false;
		return;
	}
	if (!bFirst)
	{
		Text += CharType(',');
	}
	if (Depth > 0)
	{
		BreakLine();
	}
	bFirst = false;
}

template <typename CharType>
void TJsonEmitter<CharType>::Open(const char Bracket)
{
	BeginElement();
	Text += CharType(Bracket);
	++Depth;
	bFirst = true;
}

template <typename CharType>
void TJsonEmitter<CharType>::Close(const char Bracket)
{
	--Depth;
	if (!bFirst)
	{
		BreakLine();
	}
	Text += CharType(Bracket);
	bFirst = false;
}

template <typename CharType>
void TJsonEmitter<CharType>::BeginObject()
{
	Open('{');
}

template <typename CharType>
void TJsonEmitter<CharType>::EndObject()
{
	Close('}');
}

template <typename CharType>
void TJsonEmitter<CharType>::BeginArray()
{
	Open('[');
}

template <typename CharType>
void TJsonEmitter<CharType>::EndArray()
{
	Close(']');
}

template <typename CharType>
void TJsonEmitter<CharType>::Key(const FStringView Name)
{
	BeginElement();
	Quoted(Name);
	Ascii(bPretty ? ": " : ":");
	bAfterKey = true;
}

template <typename CharType>
void TJsonEmitter<CharType>::String(const FStringView Chars)
{
	BeginElement();
	Quoted(Chars);
}

template <typename CharType>
void TJsonEmitter<CharType>::Quoted(const FStringView Chars)
{
	Text += CharType('"');
	std::wstring_view Rest = Chars.ToStdView();
	while (!Rest.empty())
	{
		const std::size_t Count = JsonEmitterPrivate::AppendPlain(Text, Rest);
		if (Count == 0)
		{
			Escape(Rest.front());
		}
		Rest.remove_prefix(Count > 0 ? Count : 1);
	}
	Text += CharType('"');
}

template <typename CharType>
void TJsonEmitter<CharType>::Escape(const TCHAR Char)
{
	switch (Char)
	{
	case TEXT('"'):
		return Ascii("\\\"");
	case TEXT('\\'):
		return Ascii("\\\\");
	case TEXT('\b'):
		return Ascii("\\b");
	case TEXT('\f'):
		return Ascii("\\f");
	case TEXT('\n'):
		return Ascii("\\n");
	case TEXT('\r'):
		return Ascii("\\r");
	case TEXT('\t'):
		return Ascii("\\t");
	default:
		break;
	}
	constexpr const char* HexDigits = "0123456789abcdef";
	const uint32 Code = static_cast<uint32>(Char);
	Ascii("\\u00");
	Text += CharType(HexDigits[(Code >> 4) & 15]);
	Text += CharType(HexDigits[Code & 15]);
}

template <typename CharType>
void TJsonEmitter<CharType>::Number(const double Value)
{
	if (!std::isfinite(Value))
	{
		Null();
		return;
	}
	BeginElement();
	char Digits[40];
	const bool bFixed = JsonEmitterPrivate::IsWrittenInFull(Value);
	const std::to_chars_result End = bFixed
		? std::to_chars(Digits, Digits + sizeof(Digits), Value, std::chars_format::fixed)
		: std::to_chars(Digits, Digits + sizeof(Digits), Value);
	Ascii(std::string_view(Digits, static_cast<std::size_t>(End.ptr - Digits)));
}

template <typename CharType>
void TJsonEmitter<CharType>::Integer(const int64 Value)
{
	BeginElement();
	Ascii(std::to_string(Value));
}

template <typename CharType>
void TJsonEmitter<CharType>::Unsigned(const uint64 Value)
{
	BeginElement();
	Ascii(std::to_string(Value));
}

template <typename CharType>
void TJsonEmitter<CharType>::Boolean(const bool bValue)
{
	BeginElement();
	Ascii(bValue ? "true" : "false");
}

template <typename CharType>
void TJsonEmitter<CharType>::Null()
{
	BeginElement();
	Ascii("null");
}

template <typename CharType>
void TJsonEmitter<CharType>::Raw(const FStringView Json)
{
	BeginElement();
	JsonEmitterPrivate::AppendRun(Text, Json.ToStdView());
}

template <typename CharType>
void TJsonEmitter<CharType>::Value(const FJsonValue& Json)
{
	switch (Json.Type)
	{
	case EJson::None:
	case EJson::Null:
		return Null();
	case EJson::String:
		return String(static_cast<const FJsonValueString&>(Json).GetValue());
	case EJson::Number:
		return Number(Json.AsNumber());
	case EJson::Boolean:
		return Boolean(Json.AsBool());
	case EJson::Array:
		BeginArray();
		for (const TSharedPtr<FJsonValue>& Element : Json.AsArray())
		{
			Element ? Value(*Element) : Null();
		}
		return EndArray();
	case EJson::Object:
		return Json.AsObject() ? Object(*Json.AsObject()) : Null();
	}
}

template <typename CharType>
void TJsonEmitter<CharType>::Object(const FJsonObject& Json)
{
	BeginObject();
	for (const auto& Pair : Json.Values)
	{
		Key(Pair.Key);
		Pair.Value ? Value(*Pair.Value) : Null();
	}
	EndObject();
}

template class TJsonEmitter<char>;
template class TJsonEmitter<TCHAR>;
