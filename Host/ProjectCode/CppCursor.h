#pragma once

#include "ProjectCode/CppTokens.h"

#include <cctype>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/** Walks over tokens. Never leaves them: at the end it stays on the token that closes them. */
class FCppCursor
{
public:
	explicit FCppCursor(const std::vector<FCppToken>& InTokens)
		: Tokens(InTokens)
	{
	}

	const FCppToken& Peek(std::size_t Ahead = 0) const
	{
		return Tokens[At + Ahead < Tokens.size() ? At + Ahead : Tokens.size() - 1];
	}
	bool IsAtEnd() const { return Peek().Kind == FCppToken::EKind::End; }
	const FCppToken& Take()
	{
		const FCppToken& Token = Peek();
		At += IsAtEnd() ? 0 : 1;
		return Token;
	}
	bool TakeSign(std::string_view Sign)
	{
		const bool bThere = Peek().Is(Sign);
		At += bThere ? 1 : 0;
		return bThere;
	}
	bool TakeWord(std::string_view Word)
	{
		const bool bThere = Peek().IsWord(Word);
		At += bThere ? 1 : 0;
		return bThere;
	}
	/** The word that stands here; empty without moving when none does. */
	std::string TakeAnyWord()
	{
		return Peek().Kind == FCppToken::EKind::Word ? std::string(Take().Text) : std::string();
	}

	std::size_t Tell() const { return At; }
	void Seek(std::size_t Position) { At = Position; }

	/** From an opening parenthesis, bracket or brace to behind its partner. Does nothing elsewhere. */
	void SkipBalanced()
	{
		int Depth = 0;
		while (!IsAtEnd())
		{
			const FCppToken& Token = Peek();
			Depth += Token.Is("(") || Token.Is("[") || Token.Is("{") ? 1 : 0;
			if (Depth == 0)
			{
				return;
			}
			++At;
			if (Token.Is(")") || Token.Is("]") || Token.Is("}"))
			{
				--Depth;
				if (Depth == 0)
				{
					return;
				}
			}
		}
	}

	/** The code up to one of the signs outside of all parentheses, which is not taken. */
	std::string TakeCodeUntil(std::initializer_list<std::string_view> Signs)
	{
		std::string Code;
		while (!IsAtEnd())
		{
			for (const std::string_view Sign : Signs)
			{
				if (Peek().Is(Sign))
				{
					return Code;
				}
			}
			const std::size_t From = At;
			SkipBalanced();
			At += At == From ? 1 : 0;
			AppendCode(Code, From, At);
		}
		return Code;
	}

private:
	void AppendCode(std::string& Code, std::size_t From, std::size_t To) const
	{
		for (std::size_t Index = From; Index < To; ++Index)
		{
			const FCppToken& Token = Tokens[Index];
			const bool bWords = Token.Kind == FCppToken::EKind::Word && !Code.empty()
				&& (std::isalnum(static_cast<unsigned char>(Code.back())) || Code.back() == '_');
			Code += bWords ? " " : "";
			Code += Token.Kind == FCppToken::EKind::Text ? '"' + std::string(Token.Text) + '"'
														 : std::string(Token.Text);
		}
	}

	const std::vector<FCppToken>& Tokens;
	std::size_t At = 0;
};
