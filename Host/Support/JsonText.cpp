#include "Support/JsonText.h"

#include <simdjson.h>

namespace JsonTextPrivate
{
constexpr std::string_view ReplacementCharacter = "\xEF\xBF\xBD";

/** The short form where JSON has one, else \u00XX; null for bytes that stand for themselves. */
static void AppendEscaped(std::string& Out, const unsigned char Byte)
{
	switch (Byte)
	{
	case '"':
		Out += "\\\"";
		return;
	case '\\':
		Out += "\\\\";
		return;
	case '\n':
		Out += "\\n";
		return;
	case '\r':
		Out += "\\r";
		return;
	case '\t':
		Out += "\\t";
		return;
	default:
		break;
	}
	constexpr const char* HexDigits = "0123456789abcdef";
	Out += "\\u00";
	Out += HexDigits[Byte >> 4];
	Out += HexDigits[Byte & 15];
}

static bool NeedsEscape(const unsigned char Byte)
{
	return Byte < 0x20 || Byte == '"' || Byte == '\\';
}

static void AppendValid(std::string& Out, const std::string_view Utf8)
{
	Out.reserve(Out.size() + Utf8.size() + Utf8.size() / 8 + 2);
	Out += '"';
	size_t RunStart = 0;
	for (size_t Index = 0; Index < Utf8.size(); ++Index)
	{
		const unsigned char Byte = static_cast<unsigned char>(Utf8[Index]);
		if (NeedsEscape(Byte))
		{
			Out.append(Utf8, RunStart, Index - RunStart);
			AppendEscaped(Out, Byte);
			RunStart = Index + 1;
		}
	}
	Out.append(Utf8, RunStart);
	Out += '"';
}

/** Length of the longest well-formed sequence at the start of Rest; 0 when there is none. */
static size_t SequenceLength(const std::string_view Rest)
{
	for (size_t Length = 1; Length <= 4 && Length <= Rest.size(); ++Length)
	{
		if (simdjson::validate_utf8(Rest.data(), Length))
		{
			return Length;
		}
	}
	return 0;
}
} // namespace JsonTextPrivate

void JsonText::AppendString(std::string& Out, const std::string_view Utf8)
{
	if (simdjson::validate_utf8(Utf8.data(), Utf8.size()))
	{
		JsonTextPrivate::AppendValid(Out, Utf8);
	}
	else
	{
		JsonTextPrivate::AppendValid(Out, RepairUtf8(Utf8));
	}
}

std::string JsonText::Quote(const std::string_view Utf8)
{
	std::string Quoted;
	AppendString(Quoted, Utf8);
	return Quoted;
}

std::string JsonText::RepairUtf8(const std::string_view Utf8)
{
	std::string Repaired;
	Repaired.reserve(Utf8.size() + 16);
	for (size_t Index = 0; Index < Utf8.size();)
	{
		const size_t Length = JsonTextPrivate::SequenceLength(Utf8.substr(Index));
		Repaired += Length > 0 ? Utf8.substr(Index, Length) : JsonTextPrivate::ReplacementCharacter;
		Index += Length > 0 ? Length : 1;
	}
	return Repaired;
}
