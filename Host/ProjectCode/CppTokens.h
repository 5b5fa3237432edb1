#pragma once

#include <string_view>
#include <vector>

/** A word, number, string or sign of C++ text. Views the text that it was cut from. */
struct FCppToken
{
	enum class EKind
	{
		Word,
		Number,
		/** Without its quotes, as written. */
		Text,
		/** One character, but for "::" and "->". */
		Sign,
		End,
	};

	EKind Kind = EKind::End;
	std::string_view Text;
	int Line = 0;

	bool Is(std::string_view Sign) const { return Kind == EKind::Sign && Text == Sign; }
	bool IsWord(std::string_view Word) const { return Kind == EKind::Word && Text == Word; }
};

/** All tokens of the text, closed by one of the kind End. Comments and preprocessor lines are left out; both branches
 * of a condition stay. Takes any bytes. */
std::vector<FCppToken> CutIntoCppTokens(std::string_view Text);
