#pragma once

#include <string_view>

/** The few rules of spelling that reading and writing share. */
namespace ObjectTextParsing
{
inline bool IsBlank(char Char)
{
	return Char == ' ' || Char == '\t';
}

inline char ToLowerAscii(char Char)
{
	return Char >= 'A' && Char <= 'Z' ? static_cast<char>(Char + ('a' - 'A')) : Char;
}

inline bool EqualsIgnoringCase(std::string_view Left, std::string_view Right)
{
	if (Left.size() != Right.size())
	{
		return false;
	}
	for (std::size_t Index = 0; Index < Left.size(); ++Index)
	{
		if (ToLowerAscii(Left[Index]) != ToLowerAscii(Right[Index]))
		{
			return false;
		}
	}
	return true;
}

/** Takes a keyword that ends the text or is followed by a blank, and the blanks behind it. */
inline bool ConsumeWord(std::string_view& Text, std::string_view Word)
{
	if (Text.size() < Word.size() || !EqualsIgnoringCase(Text.substr(0, Word.size()), Word)
		|| (Text.size() > Word.size() && !IsBlank(Text[Word.size()])))
	{
		return false;
	}
	Text.remove_prefix(Word.size());
	while (!Text.empty() && IsBlank(Text.front()))
	{
		Text.remove_prefix(1);
	}
	return true;
}

/** Where a quoted run that starts at Text[0] ends: behind the closing quote, or npos. */
inline std::size_t QuotedLength(std::string_view Text)
{
	const char Quote = Text[0];
	for (std::size_t Index = 1; Index < Text.size(); ++Index)
	{
		if (Text[Index] == '\\')
		{
			++Index;
		}
		else if (Text[Index] == Quote)
		{
			return Index + 1;
		}
	}
	return std::string_view::npos;
}

/** The value of a header field: up to the next blank outside quotes. npos as length when a quote stays open. */
inline std::size_t FieldLength(std::string_view Text)
{
	std::size_t Length = 0;
	while (Length < Text.size() && !IsBlank(Text[Length]))
	{
		if (Text[Length] == '"' || Text[Length] == '\'')
		{
			const std::size_t Quoted = QuotedLength(Text.substr(Length));
			if (Quoted == std::string_view::npos)
			{
				return Quoted;
			}
			Length += Quoted;
		}
		else
		{
			++Length;
		}
	}
	return Length;
}

/** Whether a property of that name can only have been read from a quoted name, so that it has to be written as one. */
inline bool NeedsQuotes(std::string_view Name)
{
	std::string_view Rest = Name;
	return Name.find_first_of("=([") != std::string_view::npos || IsBlank(Name.front()) || IsBlank(Name.back())
		|| ConsumeWord(Rest, "Begin") || ConsumeWord(Rest, "End") || ConsumeWord(Rest, "CustomProperties");
}
} // namespace ObjectTextParsing
