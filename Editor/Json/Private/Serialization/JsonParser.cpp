#include "Serialization/JsonParser.h"

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Standalone/JsonUtf8.h"

#include <simdjson.h>

namespace JsonParserPrivate
{
using namespace simdjson;

/** The library's codes in words that help the author of the text. */
static const char* DescribeCode(const error_code Code)
{
	switch (Code)
	{
	case EMPTY:
		return "The text is empty";
	case UTF8_ERROR:
		return "The text is not valid UTF-8";
	case UNCLOSED_STRING:
		return "A string has no closing quote";
	case UNESCAPED_CHARS:
		return "A string holds a control character that is not escaped";
	case STRING_ERROR:
		return "A string holds a bad escape sequence or a lone surrogate";
	case NUMBER_ERROR:
		return "A number is malformed or out of range";
	case T_ATOM_ERROR:
	case F_ATOM_ERROR:
	case N_ATOM_ERROR:
	case INCORRECT_TYPE:
		return "Unknown word, expected a value";
	case INCOMPLETE_ARRAY_OR_OBJECT:
		return "An array or object is not closed";
	case CAPACITY:
	case MEMALLOC:
		return "The text is too large";
	case TRAILING_CONTENT:
		return "There is text after the value";
	case DEPTH_ERROR:
		return "Arrays and objects are nested too deep";
	case OUT_OF_BOUNDS:
		return "There are too many values";
	default:
		return "Unexpected or missing character, expected a value, a name, a comma or a closing bracket";
	}
}

/** Takes the elements of a document in order. This one drops them. */
struct FNullSink
{
	void BeginObject() {}
	void EndObject() {}
	void BeginArray() {}
	void EndArray() {}
	void Key(std::string_view) {}
	void String(std::string_view) {}
	void Number(double) {}
	void Boolean(bool) {}
	void Null() {}
};

/** Builds the values. Strings arrive as valid UTF-8. */
class FBuilder
{
public:
	void BeginObject() { Open.push_back({MakeShared<FJsonObject>(), {}, {}}); }
	void EndObject()
	{
		TSharedPtr<FJsonObject> Object = MoveTemp(Open.back().Object);
		Open.pop_back();
		Add(MakeShared<FJsonValueObject>(MoveTemp(Object)));
	}
	void BeginArray() { Open.push_back({}); }
	void EndArray()
	{
		TArray<TSharedPtr<FJsonValue>> Elements = MoveTemp(Open.back().Elements);
		Open.pop_back();
		Add(MakeShared<FJsonValueArray>(MoveTemp(Elements)));
	}
	void Key(const std::string_view Name) { Open.back().PendingName = FromUtf8(Name); }
	void String(const std::string_view Text) { Add(MakeShared<FJsonValueString>(FromUtf8(Text))); }
	void Number(const double Value) { Add(MakeShared<FJsonValueNumber>(Value)); }
	void Boolean(const bool bValue) { Add(MakeShared<FJsonValueBoolean>(bValue)); }
	void Null() { Add(MakeShared<FJsonValueNull>()); }

	TSharedPtr<FJsonValue> Root;

private:
	struct FContainer
	{
		/** Null for an array. */
		TSharedPtr<FJsonObject> Object;
		TArray<TSharedPtr<FJsonValue>> Elements;
		FString PendingName;
	};

	void Add(TSharedPtr<FJsonValue> Value)
	{
		if (Open.empty())
		{
			Root = MoveTemp(Value);
		}
		else if (Open.back().Object)
		{
			Open.back().Object->Values.Add(MoveTemp(Open.back().PendingName), MoveTemp(Value));
		}
		else
		{
			Open.back().Elements.Add(MoveTemp(Value));
		}
	}

	std::vector<FContainer> Open;
};

/** Walks one document through the library's forward-only reader, checking everything on the way. */
template <typename SinkType>
class TWalk
{
public:
	explicit TWalk(SinkType& InSink, std::size_t MaxValues)
		: Sink(InSink)
		, NumLeft(MaxValues)
	{
	}

	error_code Run(const padded_string& Padded)
	{
		Begin = Padded.data();
		Location = Begin;
		ondemand::document Document;
		if (const error_code Code = Parser.iterate(Padded).get(Document))
		{
			return Code;
		}
		if (const error_code Code = Element(Document, 0))
		{
			return Code;
		}
		const char* Rest = nullptr;
		if (Document.current_location().get(Rest) == SUCCESS)
		{
			Location = Rest;
			return TRAILING_CONTENT;
		}
		return SUCCESS;
	}

	/** Reads Padded, an array, for its one element. */
	error_code RunWrapped(const padded_string& Padded)
	{
		Begin = Padded.data() + 1;
		Location = Begin;
		ondemand::document Document;
		ondemand::array Wrapper;
		ondemand::array_iterator First;
		if (const error_code Code = Parser.iterate(Padded).get(Document))
		{
			return Code;
		}
		if (const error_code Code = Document.get_array().get(Wrapper))
		{
			return Code;
		}
		if (const error_code Code = Wrapper.begin().get(First))
		{
			return Code;
		}
		if (First == ondemand::array_iterator())
		{
			return TAPE_ERROR;
		}
		ondemand::value Value;
		if (const error_code Code = (*First).get(Value))
		{
			return Code;
		}
		if (const error_code Code = Element(Value, 0))
		{
			return Code;
		}
		const char* const End = Padded.data() + Padded.size() - 1;
		const char* Rest = nullptr;
		if (Document.current_location().get(Rest) != SUCCESS || Rest == End)
		{
			return SUCCESS;
		}
		Location = Rest;
		return TRAILING_CONTENT;
	}

	size_t GetOffset() const { return static_cast<size_t>(Location - Begin); }

private:
	/** Source is the document itself or a value in it. */
	template <typename SourceType>
	error_code Element(SourceType& Source, const int32 Depth)
	{
		const char* Here = nullptr;
		if (Source.current_location().get(Here) == SUCCESS)
		{
			Location = Here;
		}
		if (NumLeft == 0)
		{
			return OUT_OF_BOUNDS;
		}
		--NumLeft;
		ondemand::json_type Type;
		if (const error_code Code = Source.type().get(Type))
		{
			return Code;
		}
		switch (Type)
		{
		case ondemand::json_type::object:
			return Depth < JsonUtf8::MaxDepth ? Object(Source, Depth) : DEPTH_ERROR;
		case ondemand::json_type::array:
			return Depth < JsonUtf8::MaxDepth ? Array(Source, Depth) : DEPTH_ERROR;
		default:
			return Scalar(Source, Type);
		}
	}

	template <typename SourceType>
	error_code Scalar(SourceType& Source, const ondemand::json_type Type)
	{
		switch (Type)
		{
		case ondemand::json_type::string:
		{
			std::string_view Text;
			const error_code Code = Source.get_string().get(Text);
			return Code ? Code : (Sink.String(Text), SUCCESS);
		}
		case ondemand::json_type::number:
		{
			double Value = 0.0;
			const error_code Code = Source.get_double().get(Value);
			return Code ? (Code == INCORRECT_TYPE ? NUMBER_ERROR : Code) : (Sink.Number(Value), SUCCESS);
		}
		case ondemand::json_type::boolean:
		{
			bool bValue = false;
			const error_code Code = Source.get_bool().get(bValue);
			return Code ? Code : (Sink.Boolean(bValue), SUCCESS);
		}
		default:
		{
			bool bNull = false;
			const error_code Code = Source.is_null().get(bNull);
			return Code ? Code : bNull ? (Sink.Null(), SUCCESS) : INCORRECT_TYPE;
		}
		}
	}

	template <typename SourceType>
	error_code Object(SourceType& Source, const int32 Depth)
	{
		ondemand::object Members;
		if (const error_code Code = Source.get_object().get(Members))
		{
			return Code;
		}
		Sink.BeginObject();
		for (auto Entry : Members)
		{
			ondemand::field Field;
			if (const error_code Code = std::move(Entry).get(Field))
			{
				return Code;
			}
			Location = Field.key().raw() - 1;
			std::string_view Name;
			if (const error_code Code = Field.unescaped_key().get(Name))
			{
				return Code;
			}
			Sink.Key(Name);
			if (const error_code Code = Element(Field.value(), Depth + 1))
			{
				return Code;
			}
		}
		Sink.EndObject();
		return SUCCESS;
	}

	template <typename SourceType>
	error_code Array(SourceType& Source, const int32 Depth)
	{
		ondemand::array Elements;
		if (const error_code Code = Source.get_array().get(Elements))
		{
			return Code;
		}
		Sink.BeginArray();
		for (auto Entry : Elements)
		{
			ondemand::value Value;
			if (const error_code Code = std::move(Entry).get(Value))
			{
				return Code;
			}
			if (const error_code Code = Element(Value, Depth + 1))
			{
				return Code;
			}
		}
		Sink.EndArray();
		return SUCCESS;
	}

	ondemand::parser Parser;
	SinkType& Sink;
	std::size_t NumLeft;
	const char* Begin = nullptr;
	/** The last token that was looked at. */
	const char* Location = nullptr;
};

/** Faults that the library finds before it walks come without a place. */
static size_t FindOffset(const std::string_view Text, const error_code Code, const size_t WalkOffset)
{
	switch (Code)
	{
	case UTF8_ERROR:
	{
		std::wstring Decoded;
		const int64 Offset = FUTF8::AppendStrict(Decoded, Text);
		return Offset == INDEX_NONE ? Text.size() : static_cast<size_t>(Offset);
	}
	case UNESCAPED_CHARS:
	{
		bool bInString = false;
		for (size_t Index = 0; Index < Text.size(); ++Index)
		{
			if (bInString && static_cast<unsigned char>(Text[Index]) < 0x20)
			{
				return Index;
			}
			bInString = bInString != (Text[Index] == '"');
			Index += bInString && Text[Index] == '\\' ? 1 : 0;
		}
		return Text.size();
	}
	case UNCLOSED_STRING:
	case INCOMPLETE_ARRAY_OR_OBJECT:
		return Text.size();
	default:
		return std::min(WalkOffset, Text.size());
	}
}

static FJsonParseError MakeError(const std::string_view Text, const error_code Code, const size_t WalkOffset)
{
	FJsonParseError Error;
	Error.Reason = DescribeCode(Code);
	for (const char Byte : Text.substr(0, FindOffset(Text, Code, WalkOffset)))
	{
		if (Byte == '\n')
		{
			++Error.Line;
			Error.Character = 1;
		}
		else if ((static_cast<unsigned char>(Byte) & 0xC0) != 0x80)
		{
			++Error.Character;
		}
	}
	return Error;
}

/** The library is lax about a document that is one scalar, so such a text is read as the element of an array. */
static bool IsBareScalar(const std::string_view Text)
{
	const size_t First = Text.find_first_not_of(" \t\r\n");
	return First != std::string_view::npos && Text[First] != '{' && Text[First] != '[';
}

static std::string Wrap(const std::string_view Text)
{
	return std::string("[").append(Text).append("]");
}

template <typename SinkType>
bool Walk(
	const std::string_view Text, SinkType& Sink, FJsonParseError& OutError, const std::size_t MaxValues = SIZE_MAX)
{
	TWalk<SinkType> Walker(Sink, MaxValues);
	const error_code Code = IsBareScalar(Text) ? Walker.RunWrapped(padded_string(Wrap(Text)))
											   : Walker.Run(padded_string(Text));
	if (Code != SUCCESS)
	{
		OutError = MakeError(Text, Code, Walker.GetOffset());
		return false;
	}
	return true;
}
} // namespace JsonParserPrivate

std::string FJsonParseError::Describe() const
{
	return Reason + " (line " + std::to_string(Line) + ", character " + std::to_string(Character) + ")";
}

bool JsonParser::Check(const std::string_view Text, FJsonParseError& OutError, const std::size_t MaxValues)
{
	JsonParserPrivate::FNullSink Sink;
	return JsonParserPrivate::Walk(Text, Sink, OutError, MaxValues);
}

bool JsonParser::Parse(const std::string_view Text, TSharedPtr<FJsonValue>& OutValue, FJsonParseError& OutError)
{
	JsonParserPrivate::FBuilder Builder;
	const bool bParsed = JsonParserPrivate::Walk(Text, Builder, OutError);
	OutValue = bParsed ? MoveTemp(Builder.Root) : nullptr;
	return bParsed;
}
