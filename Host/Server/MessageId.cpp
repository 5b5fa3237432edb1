#include "Server/MessageId.h"

#include "Support/JsonFields.h"
#include "Support/JsonText.h"

namespace MessageIdPrivate
{
/** Longer names and ids are none that a client waits for. */
constexpr size_t MaxToken = 1024;

static bool IsBlank(const char Byte)
{
	return Byte == ' ' || Byte == '\t' || Byte == '\r' || Byte == '\n';
}
} // namespace MessageIdPrivate

void FMessageIdScanner::Feed(const std::string_view Bytes)
{
	for (const char Byte : Bytes)
	{
		bInString ? TakeInString(Byte) : Take(Byte);
	}
}

void FMessageIdScanner::TakeInString(const char Byte)
{
	if (Depth == 1 && Token.size() < MessageIdPrivate::MaxToken)
	{
		Token += Byte;
	}
	if (bEscaped)
	{
		bEscaped = false;
	}
	else if (Byte == '\\')
	{
		bEscaped = true;
	}
	else if (Byte == '"')
	{
		bInString = false;
	}
}

void FMessageIdScanner::Take(const char Byte)
{
	switch (Byte)
	{
	case '{':
	case '[':
		++Depth;
		Token.clear();
		return;
	case '}':
	case ']':
		if (Depth == 1)
		{
			EndValue();
		}
		Token.clear();
		--Depth;
		return;
	case ',':
		if (Depth == 1)
		{
			EndValue();
		}
		return;
	case ':':
		if (Depth == 1)
		{
			Name = std::move(Token);
			Token.clear();
			bAtValue = true;
		}
		return;
	default:
		bInString = Byte == '"';
		if (Depth == 1 && !MessageIdPrivate::IsBlank(Byte) && Token.size() < MessageIdPrivate::MaxToken)
		{
			Token += Byte;
		}
		return;
	}
}

void FMessageIdScanner::EndValue()
{
	if (bAtValue && Name == "\"id\"")
	{
		const bool bWhole = Token.size() < MessageIdPrivate::MaxToken;
		const std::optional<std::string> Text = JsonRaw::DecodeString(Token);
		Id = !bWhole					? std::string()
			: JsonRaw::IsInteger(Token) ? Token
			: Text						? JsonText::Quote(*Text)
										: std::string();
	}
	bAtValue = false;
	Token.clear();
}
