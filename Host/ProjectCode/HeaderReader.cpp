#include "ProjectCode/CppCursor.h"
#include "ProjectCode/CppDeclarations.h"
#include "ProjectCode/ReflectedCode.h"

#include <algorithm>

namespace HeaderReader
{
using namespace ReflectedCode;
using CppDeclarations::ReadParams;
using CppDeclarations::ReadSpecifiers;
using CppDeclarations::ReadType;
using CppDeclarations::SkipDeclarators;

class FReader
{
public:
	explicit FReader(const std::vector<FCppToken>& Tokens)
		: Cursor(Tokens)
	{
	}

	std::vector<FOwner> Read()
	{
		while (!Cursor.IsAtEnd())
		{
			ReadDeclaration();
		}
		return std::move(Owners);
	}

private:
	/** One thing of a namespace: a marked type, a delegate type, or a word to pass over. */
	void ReadDeclaration()
	{
		const FCppToken& Token = Cursor.Peek();
		if (Token.IsWord("UCLASS") || Token.IsWord("UINTERFACE") || Token.IsWord("USTRUCT"))
		{
			ReadMarkedClass(Token.IsWord("UCLASS") ? EOwner::Class
					: Token.IsWord("USTRUCT")	   ? EOwner::Struct
												   : EOwner::Interface);
		}
		else if (Token.IsWord("UENUM"))
		{
			ReadEnum();
		}
		else if (IsDelegateMacro(Token))
		{
			ReadDelegate(std::string());
		}
		else if (Token.IsWord("class"))
		{
			ReadPlainClass();
		}
		else if (Token.IsWord("namespace"))
		{
			Cursor.TakeCodeUntil({"{", ";"});
			Cursor.Take();
		}
		else if (Token.Is("{"))
		{
			Cursor.SkipBalanced();
		}
		else
		{
			Cursor.Take();
		}
	}

	/** "[API] Name [final] : public Parent, ..." up to the brace. False for a forward declaration. */
	bool ReadClassHead(FOwner& Owner)
	{
		SkipDeclarators(Cursor);
		Owner.Name = Cursor.TakeAnyWord();
		Cursor.TakeWord("final");
		if (Cursor.TakeSign(":"))
		{
			do
			{
				for (const std::string_view Word : {"public", "protected", "private", "virtual"})
				{
					Cursor.TakeWord(Word);
				}
				Owner.Parents.push_back(ReadType(Cursor).Name);
			} while (Cursor.TakeSign(","));
		}
		return Cursor.TakeSign("{");
	}

	void ReadMarkedClass(EOwner Kind)
	{
		FOwner Owner;
		Owner.Kind = Kind;
		Owner.Line = Cursor.Take().Line;
		Owner.Specifiers = ReadSpecifiers(Cursor);
		if (ReadClassHead(Owner))
		{
			const std::size_t Index = Owners.size();
			Owners.push_back(std::move(Owner));
			ReadBody(Index);
		}
	}

	/** The functions of an interface stand in the class behind the marked one, whose name has an I. */
	void ReadPlainClass()
	{
		FOwner Plain;
		if (!ReadClassHead(Plain))
		{
			return;
		}
		const auto Interface = std::find_if(Owners.begin(), Owners.end(),
			[&Plain](const FOwner& Owner)
			{
				return Owner.Kind == EOwner::Interface && Plain.Name.size() > 1 && Plain.Name.front() == 'I'
					&& Owner.Name.substr(1) == Plain.Name.substr(1);
			});
		if (Interface != Owners.end())
		{
			ReadBody(static_cast<std::size_t>(Interface - Owners.begin()));
			return;
		}
		SkipBody();
	}

	void SkipBody()
	{
		while (!Cursor.IsAtEnd() && !Cursor.TakeSign("}"))
		{
			const std::size_t Before = Cursor.Tell();
			Cursor.SkipBalanced();
			if (Cursor.Tell() == Before)
			{
				Cursor.Take();
			}
		}
	}

	/** Owners grow while a body is read, so the owner is told by its place. */
	void ReadBody(std::size_t Owner)
	{
		bool bProtected = false;
		while (!Cursor.IsAtEnd() && !Cursor.TakeSign("}"))
		{
			const FCppToken& Token = Cursor.Peek();
			if (Token.IsWord("UPROPERTY"))
			{
				ReadProperty(Owner);
			}
			else if (Token.IsWord("UFUNCTION"))
			{
				ReadFunction(Owner, bProtected);
			}
			else if (IsDelegateMacro(Token))
			{
				ReadDelegate(Owners[Owner].Name);
			}
			else if (Token.Is("{") || Token.Is("("))
			{
				Cursor.SkipBalanced();
			}
			else
			{
				bProtected = (bProtected || IsHidden(Token)) && !Token.IsWord("public");
				Cursor.Take();
			}
		}
	}

	static bool IsHidden(const FCppToken& Access) { return Access.IsWord("protected") || Access.IsWord("private"); }

	void ReadProperty(std::size_t Owner)
	{
		FVariable Property;
		Property.Line = Cursor.Take().Line;
		Property.Specifiers = ReadSpecifiers(Cursor);
		Property.Type = ReadType(Cursor);
		Property.Name = Cursor.TakeAnyWord();
		const bool bFixedArray = Cursor.Peek().Is("[");
		if (Cursor.TakeSign(":"))
		{
			// One bit of a number is a flag to the reflection.
			Property.Type.Name = Cursor.Take().Text == "1" ? "bool" : Property.Type.Name;
		}
		if (Cursor.Peek().Is("{"))
		{
			const std::size_t Open = Cursor.Tell();
			Cursor.SkipBalanced();
			const std::size_t Close = Cursor.Tell();
			Cursor.Seek(Open + 1);
			Property.Default = Cursor.TakeCodeUntil({"}"});
			Cursor.Seek(Close);
		}
		else if (Cursor.TakeSign("="))
		{
			Property.Default = Cursor.TakeCodeUntil({";", "}"});
		}
		if (!Property.Name.empty() && !bFixedArray)
		{
			Owners[Owner].Variables.push_back(std::move(Property));
		}
	}

	void ReadFunction(std::size_t Owner, bool bProtected)
	{
		FFunction Function;
		Function.Line = Cursor.Take().Line;
		Function.bProtected = bProtected;
		Function.Specifiers = ReadSpecifiers(Cursor);
		SkipDeclarators(Cursor);
		Function.bStatic = Cursor.TakeWord("static");
		Function.Return = ReadType(Cursor);
		Function.Name = Cursor.TakeAnyWord();
		if (Function.Name.empty() || !Cursor.Peek().Is("("))
		{
			return;
		}
		Function.Params = ReadParams(Cursor);
		Function.bConst = Cursor.TakeWord("const");
		Owners[Owner].Functions.push_back(std::move(Function));
	}

	void ReadEnum()
	{
		FOwner Enum;
		Enum.Kind = EOwner::Enum;
		Enum.Line = Cursor.Take().Line;
		Enum.Specifiers = ReadSpecifiers(Cursor);
		std::string Namespace;
		if (Cursor.TakeWord("namespace"))
		{
			Namespace = Cursor.TakeAnyWord();
			Cursor.TakeSign("{");
		}
		if (!Cursor.TakeWord("enum"))
		{
			return;
		}
		const bool bClass = Cursor.TakeWord("class") || Cursor.TakeWord("struct");
		SkipDeclarators(Cursor);
		const std::string Name = Cursor.TakeAnyWord();
		Enum.Name = Namespace.empty() ? Name : Namespace;
		Enum.EnumForm = bClass ? EEnumForm::Class : Namespace.empty() ? EEnumForm::Regular : EEnumForm::Namespaced;
		Cursor.TakeCodeUntil({"{", ";"});
		if (Cursor.TakeSign("{"))
		{
			ReadEnumerators(Enum);
			Owners.push_back(std::move(Enum));
		}
	}

	void ReadEnumerators(FOwner& Enum)
	{
		while (!Cursor.IsAtEnd() && !Cursor.TakeSign("}"))
		{
			FEnumerator Value;
			Value.Name = Cursor.TakeAnyWord();
			ReadEnumeratorMark(Value);
			if (Cursor.TakeSign("="))
			{
				while (!Cursor.IsAtEnd() && !Cursor.Peek().Is(",") && !Cursor.Peek().Is("}")
					&& !Cursor.Peek().IsWord("UMETA"))
				{
					Value.Value += Cursor.Take().Text;
				}
				ReadEnumeratorMark(Value);
			}
			if (!Value.Name.empty())
			{
				Enum.Enumerators.push_back(std::move(Value));
			}
			Cursor.TakeCodeUntil({",", "}"});
			Cursor.TakeSign(",");
		}
	}

	void ReadEnumeratorMark(FEnumerator& Value)
	{
		if (Cursor.TakeWord("UMETA"))
		{
			Value.Specifiers.Meta = ReadSpecifiers(Cursor).Words;
		}
	}

	static bool IsDelegateMacro(const FCppToken& Token)
	{
		return Token.Kind == FCppToken::EKind::Word && Token.Text.substr(0, 16) == "DECLARE_DYNAMIC_"
			&& Token.Text.find("DELEGATE") != std::string_view::npos;
	}

	/** DECLARE_DYNAMIC_[MULTICAST_|..._SPARSE_]DELEGATE[_RetVal][_NParams]([Return,] Name, [Type, Name]...) */
	void ReadDelegate(const std::string& Outer)
	{
		const FCppToken Macro = Cursor.Take();
		FOwner Delegate;
		Delegate.Kind = EOwner::Delegate;
		Delegate.Outer = Outer;
		Delegate.Line = Macro.Line;
		Delegate.bMulticast = Macro.Text.find("MULTICAST") != std::string_view::npos;
		if (!Cursor.TakeSign("("))
		{
			return;
		}
		FFunction& Signature = Delegate.Functions.emplace_back();
		if (Macro.Text.find("RetVal") != std::string_view::npos)
		{
			Signature.Return = ReadType(Cursor);
			Cursor.TakeSign(",");
		}
		Delegate.Name = ReadType(Cursor).Name;
		const bool bSparse = Macro.Text.find("SPARSE") != std::string_view::npos;
		for (int Skipped = 0; bSparse && Skipped < 2 && Cursor.TakeSign(","); ++Skipped)
		{
			Cursor.TakeCodeUntil({",", ")"});
		}
		while (Cursor.TakeSign(","))
		{
			FVariable Param;
			Param.Type = ReadType(Cursor);
			Cursor.TakeSign(",");
			Param.Name = Cursor.TakeAnyWord();
			Signature.Params.push_back(std::move(Param));
			Cursor.TakeCodeUntil({",", ")"});
		}
		Owners.push_back(std::move(Delegate));
	}

	FCppCursor Cursor;
	std::vector<FOwner> Owners;
};
} // namespace HeaderReader

std::vector<ReflectedCode::FOwner> ReflectedCode::ReadHeader(std::string_view Text)
{
	const std::vector<FCppToken> Tokens = CutIntoCppTokens(Text);
	return HeaderReader::FReader(Tokens).Read();
}
