#include "ProjectCode/CppTokens.h"

#include <algorithm>
#include <cstddef>

namespace CppTokens
{
static bool IsWordStart(char Letter)
{
	return (Letter >= 'a' && Letter <= 'z') || (Letter >= 'A' && Letter <= 'Z') || Letter == '_'
		|| (Letter & 0x80) != 0;
}

static bool IsDigit(char Letter)
{
	return Letter >= '0' && Letter <= '9';
}

static bool IsBlank(char Letter)
{
	return Letter == ' ' || Letter == '\t' || Letter == '\r' || Letter == '\n' || Letter == '\f' || Letter == '\v';
}

class FCutter
{
public:
	explicit FCutter(std::string_view InText)
		: Text(InText)
	{
	}

	std::vector<FCppToken> Cut()
	{
		while (At < Text.size())
		{
			Step();
		}
		Tokens.push_back({FCppToken::EKind::End, {}, Line});
		return std::move(Tokens);
	}

private:
	char Peek(std::size_t Ahead = 0) const { return At + Ahead < Text.size() ? Text[At + Ahead] : '\0'; }

	void Step()
	{
		const char Letter = Peek();
		if (IsBlank(Letter))
		{
			bLineStart = Letter == '\n' || bLineStart;
			Take(1);
		}
		else if (Letter == '#' && bLineStart)
		{
			SkipDirective();
		}
		else if (Letter == '/' && Peek(1) == '/')
		{
			Take(std::min(Text.find('\n', At), Text.size()) - At);
		}
		else if (Letter == '/' && Peek(1) == '*')
		{
			const std::size_t End = Text.find("*/", At + 2);
			Take(End == std::string_view::npos ? Text.size() - At : End + 2 - At);
		}
		else
		{
			bLineStart = false;
			AddToken(Letter);
		}
	}

	void AddToken(char Letter)
	{
		if (Letter == 'R' && Peek(1) == '"')
		{
			AddRawText();
		}
		else if (IsWordStart(Letter))
		{
			AddWhile(FCppToken::EKind::Word, [](char Next) { return IsWordStart(Next) || IsDigit(Next); });
		}
		else if (IsDigit(Letter) || (Letter == '.' && IsDigit(Peek(1))))
		{
			AddWhile(FCppToken::EKind::Number,
				[](char Next) { return IsWordStart(Next) || IsDigit(Next) || Next == '.' || Next == '\''; });
		}
		else if (Letter == '"' || Letter == '\'')
		{
			AddText(Letter);
		}
		else
		{
			const bool bPair = (Letter == ':' && Peek(1) == ':') || (Letter == '-' && Peek(1) == '>');
			Add(FCppToken::EKind::Sign, bPair ? 2 : 1);
		}
	}

	/** A line of the preprocessor with the lines that it goes on in. */
	void SkipDirective()
	{
		while (At < Text.size() && Peek() != '\n')
		{
			Take(Peek() == '\\' && Peek(1) == '\n' ? 2 : Peek() == '\\' && Peek(1) == '\r' && Peek(2) == '\n' ? 3 : 1);
		}
	}

	void AddText(char Quote)
	{
		std::size_t End = At + 1;
		while (End < Text.size() && Text[End] != Quote && Text[End] != '\n')
		{
			End += Text[End] == '\\' ? 2 : 1;
		}
		End = std::min(End, Text.size());
		Tokens.push_back({FCppToken::EKind::Text, Text.substr(At + 1, End - At - 1), Line});
		Take(std::min(End + 1, Text.size()) - At);
	}

	void AddRawText()
	{
		const std::size_t Open = Text.find('(', At);
		const std::string_view Mark = Open == std::string_view::npos ? std::string_view()
																	 : Text.substr(At + 2, Open - At - 2);
		std::size_t Close = Open;
		while (Close != std::string_view::npos && Text.substr(Close + 1, Mark.size()) != Mark)
		{
			Close = Text.find(')', Close + 1);
		}
		if (Open == std::string_view::npos || Close == std::string_view::npos || Close == Open)
		{
			Add(FCppToken::EKind::Word, 1);
			return;
		}
		Tokens.push_back({FCppToken::EKind::Text, Text.substr(Open + 1, Close - Open - 1), Line});
		Take(std::min(Close + Mark.size() + 2, Text.size()) - At);
	}

	template <class TPredicate>
	void AddWhile(FCppToken::EKind Kind, TPredicate&& Belongs)
	{
		std::size_t Length = 1;
		while (At + Length < Text.size() && Belongs(Text[At + Length]))
		{
			++Length;
		}
		Add(Kind, Length);
	}

	void Add(FCppToken::EKind Kind, std::size_t Length)
	{
		Tokens.push_back({Kind, Text.substr(At, Length), Line});
		Take(Length);
	}

	void Take(std::size_t Length)
	{
		Line += static_cast<int>(std::count(Text.begin() + static_cast<std::ptrdiff_t>(At),
			Text.begin() + static_cast<std::ptrdiff_t>(At + Length), '\n'));
		At += Length;
	}

	const std::string_view Text;
	std::vector<FCppToken> Tokens;
	std::size_t At = 0;
	int Line = 1;
	bool bLineStart = true;
};
} // namespace CppTokens

std::vector<FCppToken> CutIntoCppTokens(std::string_view Text)
{
	return CppTokens::FCutter(Text).Cut();
}
