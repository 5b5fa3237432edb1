#include "Standalone/ObjectText.h"

#include "ObjectText/ObjectTextSyntax.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

/**
 * A line-by-line reader. Only three kinds of line open a structure (Begin Object, End Object, CustomProperties);
 * everything else inside an object is a property whose value is left to the property itself. So values are not looked
 * into here and a text of any size is read in one pass without copying.
 */
namespace ObjectTextParsing
{
using namespace std::string_view_literals;

static std::string_view Trim(std::string_view Text)
{
	while (!Text.empty() && IsBlank(Text.front()))
	{
		Text.remove_prefix(1);
	}
	while (!Text.empty() && (IsBlank(Text.back()) || Text.back() == '\r'))
	{
		Text.remove_suffix(1);
	}
	return Text;
}

static std::string_view Unquote(std::string_view Text)
{
	return Text.size() >= 2 && Text.front() == '"' && Text.back() == '"' ? Text.substr(1, Text.size() - 2) : Text;
}

struct FFlagWord
{
	std::string_view Word;
	EObjectFlags Flag;
};
constexpr FFlagWord FlagWords[] = {
	{"Public"sv, RF_Public},
	{"Standalone"sv, RF_Standalone},
	{"Archetype"sv, RF_ArchetypeObject},
	{"DefaultSubObject"sv, RF_DefaultSubObject},
};

/** A short start of a line for a message; cut between characters, not within one. */
static FString Excerpt(std::string_view Line)
{
	constexpr std::size_t Limit = 60;
	if (Line.size() <= Limit)
	{
		return FromUtf8(Line);
	}
	std::size_t Cut = Limit;
	while (Cut > 0 && (static_cast<unsigned char>(Line[Cut]) & 0xC0) == 0x80)
	{
		--Cut;
	}
	return FromUtf8(Line.substr(0, Cut)) + TEXT("...");
}

class FParser
{
public:
	FParser(std::string_view InText, int32 FirstLineNumber, FObjectTextError& InError)
		: Text(InText)
		, LineNumber(FirstLineNumber - 1)
		, Error(InError)
	{
	}

	/** Lines between objects are told there, the first of them in words, instead of being faults. */
	void PassOverOtherText(FObjectTextTree::FPassedOver& OutPassedOver) { PassedOver = &OutPassedOver; }

	bool Run(std::vector<FObjectTextRecord>& OutObjects)
	{
		Roots = &OutObjects;
		std::string_view Line;
		while (NextLine(Line))
		{
			if (!Line.empty() && !TakeLine(Line))
			{
				return false;
			}
		}
		return Open.empty()
			|| Fail(Open.back().Record->LineNumber,
				FString::Printf(TEXT("the object '%s' has no 'End Object'"), *Open.back().Record->GetName()));
	}

private:
	/** An object that is not closed yet, and which of its declared objects is likely filled next. */
	struct FOpen
	{
		FObjectTextRecord* Record = nullptr;
		std::size_t NextFill = 0;
		/** Made when the fills do not come in the order of the declarations. */
		std::unordered_map<std::string_view, std::size_t> ByName;
	};

	bool Fail(int32 AtLine, FString Message)
	{
		Error.LineNumber = AtLine;
		Error.Message = MoveTemp(Message);
		return false;
	}

	bool NextLine(std::string_view& OutLine)
	{
		if (Position >= Text.size())
		{
			return false;
		}
		const std::size_t End = Text.find('\n', Position);
		const std::size_t Stop = End == std::string_view::npos ? Text.size() : End;
		OutLine = Trim(Text.substr(Position, Stop - Position));
		Position = Stop + 1;
		++LineNumber;
		return true;
	}

	bool TakeLine(std::string_view Line)
	{
		std::string_view Rest = Line;
		const char First = ToLowerAscii(Line.front());
		if (First == 'b' && ConsumeWord(Rest, "Begin"sv))
		{
			if (ConsumeWord(Rest, "Object"sv))
			{
				return BeginObject(Rest);
			}
			return PassOver(Line)
				|| Fail(LineNumber, FString::Printf(TEXT("only objects can begin here, found '%s'"), *Excerpt(Line)));
		}
		if (First == 'e' && ConsumeWord(Rest, "End"sv))
		{
			return EndObject(Rest, Line);
		}
		if (Open.empty())
		{
			return PassOver(Line)
				|| Fail(LineNumber, FString::Printf(TEXT("expected 'Begin Object', found '%s'"), *Excerpt(Line)));
		}
		if (First == 'c' && ConsumeWord(Rest, "CustomProperties"sv))
		{
			FObjectTextLine& Custom = AddLine();
			Custom.Value = Rest;
			Custom.bCustom = true;
			return true;
		}
		return Property(Line);
	}

	bool PassOver(std::string_view Line)
	{
		if (!PassedOver || !Open.empty())
		{
			return false;
		}
		if (PassedOver->NumLines++ == 0)
		{
			PassedOver->FirstLineNumber = LineNumber;
			PassedOver->FirstLine = Excerpt(Line);
		}
		return true;
	}

	FObjectTextLine& AddLine()
	{
		FObjectTextLine& Added = Open.back().Record->Lines.emplace_back();
		Added.LineNumber = LineNumber;
		return Added;
	}

	bool Property(std::string_view Line)
	{
		std::string_view Name;
		std::string_view Rest;
		if (Line.front() == '"')
		{
			const std::size_t Length = QuotedLength(Line);
			if (Length == std::string_view::npos)
			{
				return Fail(LineNumber, FString::Printf(TEXT("a quote is not closed in '%s'"), *Excerpt(Line)));
			}
			Name = Line.substr(1, Length - 2);
			Rest = Line.substr(Length);
		}
		else
		{
			const std::size_t Length = Line.find_first_of("=([");
			Name = Trim(Line.substr(0, Length));
			Rest = Length == std::string_view::npos ? std::string_view() : Line.substr(Length);
		}
		int32 Index = INDEX_NONE;
		if (!Rest.empty() && (Rest.front() == '(' || Rest.front() == '[') && !TakeIndex(Rest, Index))
		{
			return Fail(LineNumber, FString::Printf(TEXT("expected an element number in '%s'"), *Excerpt(Line)));
		}
		Rest = Trim(Rest);
		if (Name.empty() || Rest.empty() || Rest.front() != '=')
		{
			return Fail(LineNumber, FString::Printf(TEXT("expected 'Name=Value', found '%s'"), *Excerpt(Line)));
		}
		FObjectTextLine& Added = AddLine();
		Added.Name = Name;
		Added.Value = Trim(Rest.substr(1));
		Added.Index = Index;
		return true;
	}

	static bool TakeIndex(std::string_view& Rest, int32& OutIndex)
	{
		constexpr int32 MaxIndex = 1 << 24;
		const char Close = Rest.front() == '(' ? ')' : ']';
		std::size_t At = 1;
		int32 Number = 0;
		while (At < Rest.size() && Rest[At] >= '0' && Rest[At] <= '9' && Number <= MaxIndex)
		{
			Number = Number * 10 + (Rest[At] - '0');
			++At;
		}
		if (At == 1 || At >= Rest.size() || Rest[At] != Close || Number > MaxIndex)
		{
			return false;
		}
		OutIndex = Number;
		Rest.remove_prefix(At + 1);
		return true;
	}

	bool EndObject(std::string_view Rest, std::string_view Line)
	{
		if (!ConsumeWord(Rest, "Object"sv) || !Rest.empty())
		{
			return PassOver(Line)
				|| Fail(LineNumber, FString::Printf(TEXT("expected 'End Object', found '%s'"), *Excerpt(Line)));
		}
		if (Open.empty())
		{
			return Fail(LineNumber, TEXT("'End Object' without an object to end"));
		}
		Open.pop_back();
		return true;
	}

	bool BeginObject(std::string_view Fields)
	{
		if (static_cast<int32>(Open.size()) >= FObjectTextTree::MaxDepth)
		{
			return Fail(LineNumber,
				FString::Printf(TEXT("objects are nested deeper than %d levels"), FObjectTextTree::MaxDepth));
		}
		FObjectTextRecord Header;
		Header.LineNumber = LineNumber;
		if (!TakeFields(Fields, Header))
		{
			return false;
		}
		if (Header.Name.empty())
		{
			return Fail(LineNumber, TEXT("'Begin Object' has no Name"));
		}
		FObjectTextRecord* const Declared = Header.ClassPath.empty() ? FindDeclared(Header.Name) : nullptr;
		if (!Declared && Header.ClassPath.empty() && Open.empty())
		{
			return Fail(LineNumber, FString::Printf(TEXT("the object '%s' has no Class"), *Header.GetName()));
		}
		if (Declared)
		{
			Open.emplace_back().Record = Declared;
			return true;
		}
		std::vector<FObjectTextRecord>& Siblings = Open.empty() ? *Roots : Open.back().Record->Inner;
		if (!Open.empty() && !Open.back().ByName.empty())
		{
			Open.back().ByName.emplace(Header.Name, Siblings.size());
		}
		FObjectTextRecord& Added = Siblings.emplace_back(MoveTemp(Header));
		Open.emplace_back().Record = &Added;
		return true;
	}

	bool TakeFields(std::string_view Fields, FObjectTextRecord& OutHeader)
	{
		Fields = Trim(Fields);
		while (!Fields.empty())
		{
			const std::size_t Equals = Fields.find('=');
			if (Equals == std::string_view::npos)
			{
				return Fail(LineNumber, FString::Printf(TEXT("expected 'Field=Value', found '%s'"), *Excerpt(Fields)));
			}
			const std::string_view Key = Trim(Fields.substr(0, Equals));
			Fields.remove_prefix(Equals + 1);
			const std::size_t Length = FieldLength(Fields);
			if (Length == std::string_view::npos)
			{
				return Fail(LineNumber, FString::Printf(TEXT("a quote is not closed in '%s'"), *Excerpt(Fields)));
			}
			if (!SetField(Key, Fields.substr(0, Length), OutHeader))
			{
				return false;
			}
			Fields = Trim(Fields.substr(Length));
		}
		return true;
	}

	/** Fields that are not known here say nothing about what the object is, and are passed over. */
	bool SetField(std::string_view Key, std::string_view Value, FObjectTextRecord& OutHeader)
	{
		if (EqualsIgnoringCase(Key, "Class"sv))
		{
			OutHeader.ClassPath = Unquote(Value);
		}
		else if (EqualsIgnoringCase(Key, "Name"sv))
		{
			const bool bQuoted = !Value.empty() && Value.front() == '"' && QuotedLength(Value) == Value.size();
			OutHeader.Name = Unquote(Value);
			return bQuoted || Value.find_first_of("\"'\\") == std::string_view::npos
				|| Fail(LineNumber, FString::Printf(TEXT("the Name %s is not one quoted text"), *Excerpt(Value)));
		}
		else if (EqualsIgnoringCase(Key, "ExportPath"sv))
		{
			OutHeader.ExportPath = Unquote(Value);
		}
		else if (EqualsIgnoringCase(Key, "Flags"sv))
		{
			return SetFlags(Value, OutHeader);
		}
		return true;
	}

	bool SetFlags(std::string_view Words, FObjectTextRecord& OutHeader)
	{
		while (!Words.empty())
		{
			const std::size_t Length = std::min(Words.find('|'), Words.size());
			const std::string_view Word = Words.substr(0, Length);
			Words.remove_prefix(std::min(Length + 1, Words.size()));
			bool bKnown = false;
			for (const FFlagWord& Row : FlagWords)
			{
				if (Row.Word == Word)
				{
					OutHeader.Flags = static_cast<EObjectFlags>(OutHeader.Flags | Row.Flag);
					bKnown = true;
				}
			}
			if (!bKnown)
			{
				return Fail(LineNumber, FString::Printf(TEXT("unknown object flag '%s'"), *Excerpt(Word)));
			}
		}
		return true;
	}

	/** The record of that name below the open object. Fills come in the order of the declarations as a rule. */
	FObjectTextRecord* FindDeclared(std::string_view Name)
	{
		if (Open.empty())
		{
			return nullptr;
		}
		FOpen& Parent = Open.back();
		std::vector<FObjectTextRecord>& Declared = Parent.Record->Inner;
		if (Parent.NextFill < Declared.size() && Declared[Parent.NextFill].Name == Name)
		{
			return &Declared[Parent.NextFill++];
		}
		if (Parent.ByName.empty())
		{
			for (std::size_t Index = 0; Index < Declared.size(); ++Index)
			{
				Parent.ByName.emplace(Declared[Index].Name, Index);
			}
		}
		const auto Found = Parent.ByName.find(Name);
		if (Found == Parent.ByName.end())
		{
			return nullptr;
		}
		Parent.NextFill = Found->second + 1;
		return &Declared[Found->second];
	}

	std::string_view Text;
	std::size_t Position = 0;
	int32 LineNumber;
	FObjectTextError& Error;
	FObjectTextTree::FPassedOver* PassedOver = nullptr;
	std::vector<FObjectTextRecord>* Roots = nullptr;
	/** Records on it stay where they are: only the innermost one's list of objects grows. */
	std::vector<FOpen> Open;
};
} // namespace ObjectTextParsing

FString FObjectTextLine::GetName() const
{
	return FromUtf8(Name);
}

FString FObjectTextRecord::GetName() const
{
	if (Name.find('\\') == std::string_view::npos)
	{
		return FromUtf8(Name);
	}
	std::string Plain;
	for (std::size_t Index = 0; Index < Name.size(); ++Index)
	{
		Index += Name[Index] == '\\' && Index + 1 < Name.size() ? 1 : 0;
		Plain.push_back(Name[Index]);
	}
	return FromUtf8(Plain);
}

FString FObjectTextRecord::GetClassPath() const
{
	return FromUtf8(ClassPath);
}

FString FObjectTextRecord::GetExportObjectPath() const
{
	const std::size_t Start = ExportPath.find('\'');
	const std::size_t End = ExportPath.rfind('\'');
	if (Start == std::string_view::npos || End <= Start)
	{
		return FromUtf8(ExportPath);
	}
	return FromUtf8(ObjectTextParsing::Unquote(ExportPath.substr(Start + 1, End - Start - 1)));
}

const FObjectTextLine* FObjectTextRecord::FindLine(std::string_view PropertyName) const
{
	for (const FObjectTextLine& Line : Lines)
	{
		if (!Line.bCustom && ObjectTextParsing::EqualsIgnoringCase(Line.Name, PropertyName))
		{
			return &Line;
		}
	}
	return nullptr;
}

FString FObjectTextError::ToString() const
{
	return FString::Printf(TEXT("line %d: %s"), LineNumber, *Message);
}

bool FObjectTextTree::ParseView(std::string_view Text, FObjectTextError& OutError, int32 FirstLineNumber)
{
	Objects.clear();
	OutError = FObjectTextError();
	ObjectTextParsing::FParser Parser(Text, FirstLineNumber, OutError);
	if (Parser.Run(Objects))
	{
		return true;
	}
	Objects.clear();
	return false;
}

bool FObjectTextTree::Parse(std::string Text, FObjectTextError& OutError)
{
	OwnedText = std::make_shared<const std::string>(MoveTemp(Text));
	return ParseView(*OwnedText, OutError);
}

bool FObjectTextTree::ParseAmidOtherText(std::string Text, FObjectTextError& OutError, FPassedOver& OutPassedOver)
{
	OwnedText = std::make_shared<const std::string>(MoveTemp(Text));
	std::string_view View = *OwnedText;
	static constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
	View.remove_prefix(View.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
	Objects.clear();
	OutError = FObjectTextError();
	OutPassedOver = FPassedOver();
	if (const std::size_t Zero = View.find('\0'); Zero != std::string_view::npos)
	{
		OutError.LineNumber = 1 + static_cast<int32>(std::count(View.begin(), View.begin() + Zero, '\n'));
		OutError.Message = TEXT("a zero byte; the text has to be UTF-8");
		return false;
	}
	ObjectTextParsing::FParser Parser(View, 1, OutError);
	Parser.PassOverOtherText(OutPassedOver);
	if (!Parser.Run(Objects))
	{
		Objects.clear();
		return false;
	}
	if (Objects.empty())
	{
		OutError.LineNumber = std::max(1, OutPassedOver.FirstLineNumber);
		OutError.Message = OutPassedOver.NumLines > 0
			? FString::Printf(TEXT("expected 'Begin Object', found '%s'"), *OutPassedOver.FirstLine)
			: FString(TEXT("expected 'Begin Object', found nothing"));
	}
	return !Objects.empty();
}

bool FObjectTextTree::Parse(FStringView Text, FObjectTextError& OutError)
{
	return Parse(ToUtf8(Text), OutError);
}
