#include "ProjectCode/CppDeclarations.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace CppDeclarations
{
using namespace ReflectedCode;

static std::string Unquoted(std::string Code)
{
	const bool bQuoted = Code.size() >= 2 && Code.front() == '"' && Code.back() == '"';
	if (!bQuoted)
	{
		return Code;
	}
	std::string Text;
	for (std::size_t At = 1; At + 1 < Code.size(); ++At)
	{
		if (Code[At] != '\\' || At + 2 >= Code.size())
		{
			Text += Code[At];
			continue;
		}
		const char Escaped = Code[++At];
		Text += Escaped == 'n' ? '\n' : Escaped == 't' ? '\t' : Escaped;
	}
	return Text;
}

/** "Name", "Name=Value" or "meta=(...)", with what follows up to the next comma. */
static void ReadSpecifier(FCppCursor& Cursor, FSpecifiers& Out)
{
	const std::string Word = Cursor.TakeCodeUntil({",", ")", "="});
	if (!Cursor.TakeSign("="))
	{
		Out.Words.emplace_back(Word, std::string());
		return;
	}
	if (Cursor.Peek().Is("("))
	{
		FSpecifiers Inner = ReadSpecifiers(Cursor);
		if (EqualsIgnoringCase(Word, "meta"))
		{
			Out.Meta.insert(Out.Meta.end(), Inner.Words.begin(), Inner.Words.end());
			return;
		}
		Out.Words.emplace_back(Word, Inner.Words.empty() ? std::string() : Inner.Words.front().first);
		return;
	}
	Out.Words.emplace_back(Word, Unquoted(Cursor.TakeCodeUntil({",", ")"})));
}

FSpecifiers ReadSpecifiers(FCppCursor& Cursor)
{
	FSpecifiers Result;
	if (!Cursor.TakeSign("("))
	{
		return Result;
	}
	while (!Cursor.IsAtEnd() && !Cursor.TakeSign(")"))
	{
		if (!Cursor.TakeSign(","))
		{
			ReadSpecifier(Cursor, Result);
		}
	}
	return Result;
}

static bool IsApiMacro(std::string_view Word)
{
	return Word.size() > 4 && Word.substr(Word.size() - 4) == "_API";
}

void SkipDeclarators(FCppCursor& Cursor)
{
	static const std::string_view Words[] = {"class", "struct", "enum", "typename", "virtual", "inline", "FORCEINLINE",
		"FORCEINLINE_DEBUGGABLE", "explicit", "constexpr", "mutable", "volatile", "UE_NODISCARD"};
	while (Cursor.Peek().Kind == FCppToken::EKind::Word || Cursor.Peek().Is("["))
	{
		const std::string_view Word = Cursor.Peek().Text;
		if (Cursor.Peek().Is("["))
		{
			Cursor.SkipBalanced();
		}
		else if (Word == "UE_DEPRECATED" || Word == "alignas" || Word == "UPARAM")
		{
			Cursor.Take();
			Cursor.SkipBalanced();
		}
		else if (std::find(std::begin(Words), std::end(Words), Word) != std::end(Words) || IsApiMacro(Word))
		{
			Cursor.Take();
		}
		else
		{
			return;
		}
	}
}

/** Types nest no deeper in code that compiles for the reflection. */
constexpr int MaxTypeDepth = 8;

FType ReadType(FCppCursor& Cursor, int Depth)
{
	FType Type;
	SkipDeclarators(Cursor);
	Type.bConst = Cursor.TakeWord("const");
	SkipDeclarators(Cursor);
	Type.Name = Cursor.TakeAnyWord();
	while (Cursor.TakeSign("::"))
	{
		Type.Name += "::" + Cursor.TakeAnyWord();
	}
	if (Depth < MaxTypeDepth && Cursor.TakeSign("<"))
	{
		while (!Cursor.IsAtEnd() && !Cursor.TakeSign(">"))
		{
			const std::size_t Before = Cursor.Tell();
			Type.Arguments.push_back(ReadType(Cursor, Depth + 1));
			Cursor.TakeSign(",");
			if (Cursor.Tell() == Before)
			{
				return Type;
			}
		}
	}
	while (true)
	{
		if (Cursor.TakeWord("const"))
		{
			Type.bConst = true;
		}
		else if (Cursor.TakeSign("*"))
		{
			Type.bPointer = true;
		}
		else if (Cursor.TakeSign("&"))
		{
			Type.bReference = true;
		}
		else
		{
			return Type;
		}
	}
}

std::vector<FVariable> ReadParams(FCppCursor& Cursor)
{
	std::vector<FVariable> Params;
	if (!Cursor.TakeSign("("))
	{
		return Params;
	}
	while (!Cursor.IsAtEnd() && !Cursor.TakeSign(")"))
	{
		FVariable& Param = Params.emplace_back();
		if (Cursor.TakeWord("UPARAM"))
		{
			Param.Specifiers = ReadSpecifiers(Cursor);
		}
		Param.Type = ReadType(Cursor);
		Param.Name = Cursor.TakeAnyWord();
		if (Cursor.TakeSign("="))
		{
			Param.Default = Cursor.TakeCodeUntil({",", ")"});
		}
		Cursor.TakeCodeUntil({",", ")"});
		Cursor.TakeSign(",");
	}
	std::erase_if(Params, [](const FVariable& Param) { return Param.Name.empty(); });
	return Params;
}
} // namespace CppDeclarations
