#include "Support/ResourceUri.h"

#include <algorithm>
#include <charconv>

namespace ResourceUris
{
constexpr std::string_view Scheme = "morvane://";

static int HexDigit(const char Letter)
{
	const char Lower = static_cast<char>(Letter | 0x20);
	return Letter >= '0' && Letter <= '9' ? Letter - '0' : Lower >= 'a' && Lower <= 'f' ? Lower - 'a' + 10 : -1;
}

/** Without its percent signs; nothing when one is not followed by two hex digits. */
static std::optional<std::string> Decode(const std::string_view Text, const bool bQuery)
{
	std::string Plain;
	for (size_t At = 0; At < Text.size(); ++At)
	{
		if (Text[At] != '%')
		{
			Plain += bQuery && Text[At] == '+' ? ' ' : Text[At];
			continue;
		}
		const int High = At + 2 < Text.size() ? HexDigit(Text[At + 1]) : -1;
		const int Low = High >= 0 ? HexDigit(Text[At + 2]) : -1;
		if (Low < 0)
		{
			return std::nullopt;
		}
		Plain += static_cast<char>(High * 16 + Low);
		At += 2;
	}
	return Plain;
}

/** The next part of Text up to Separator, which goes with it. */
static std::string_view TakePart(std::string_view& Text, const char Separator)
{
	const std::string_view Part = Text.substr(0, Text.find(Separator));
	Text.remove_prefix(std::min(Part.size() + 1, Text.size()));
	return Part;
}

static bool ReadQuery(std::string_view Text, FResourceUri& Uri)
{
	while (!Text.empty())
	{
		std::string_view Value = TakePart(Text, '&');
		const std::optional<std::string> Name = Decode(TakePart(Value, '='), true);
		const std::optional<std::string> Plain = Decode(Value, true);
		if (!Name || !Plain)
		{
			return false;
		}
		Uri.Query.emplace_back(*Name, *Plain);
	}
	return true;
}
} // namespace ResourceUris

std::optional<FResourceUri> FResourceUri::Parse(std::string_view Uri)
{
	if (!Uri.starts_with(ResourceUris::Scheme))
	{
		return std::nullopt;
	}
	Uri.remove_prefix(ResourceUris::Scheme.size());
	std::string_view Query = Uri.substr(0, Uri.find('#'));
	const std::string_view Place = ResourceUris::TakePart(Query, '?');
	const size_t Slash = std::min(Place.find('/'), Place.size());
	FResourceUri Parsed;
	Parsed.Kind = Place.substr(0, Slash);
	const std::optional<std::string> Path = ResourceUris::Decode(Place.substr(Slash), false);
	if (!Path || !ResourceUris::ReadQuery(Query, Parsed))
	{
		return std::nullopt;
	}
	Parsed.Path = *Path;
	return Parsed;
}

std::string FResourceUri::Encode(const std::string_view Text)
{
	constexpr std::string_view HexDigits = "0123456789ABCDEF";
	constexpr std::string_view Plain = "-._~/";
	std::string Encoded;
	for (const char Letter : Text)
	{
		const unsigned char Byte = static_cast<unsigned char>(Letter);
		const bool bAlphanumeric = (Byte | 0x20) >= 'a' && (Byte | 0x20) <= 'z';
		if (bAlphanumeric || (Byte >= '0' && Byte <= '9') || Plain.find(Letter) != std::string_view::npos)
		{
			Encoded += Letter;
			continue;
		}
		Encoded.append({'%', HexDigits[Byte >> 4], HexDigits[Byte & 15]});
	}
	return Encoded;
}

std::string FResourceUri::Get(const std::string_view Name) const
{
	const auto Found = std::find_if(
		Query.rbegin(), Query.rend(), [Name](const auto& Pair) { return Pair.first == Name; });
	return Found != Query.rend() ? Found->second : std::string();
}

int FResourceUri::GetNumber(const std::string_view Name, const int Default) const
{
	const std::string Text = Get(Name);
	int Value = 0;
	const auto [End, Fault] = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
	return Fault == std::errc() && End == Text.data() + Text.size() && Value >= 0 ? Value : Default;
}
