#include "BinaryPackage/BinaryText.h"

#include "Standalone/PreThirdParty.h"

#include <fmt/format.h>

#include "Standalone/PostThirdParty.h"

#include <utility>
#include <vector>

namespace BinaryText
{
constexpr int MaxTextDepth = 16;

enum class EHistory : int8_t
{
	None = -1,
	Base = 0,
	NamedFormat = 1,
	OrderedFormat = 2,
	ArgumentFormat = 3,
	AsNumber = 4,
	AsPercent = 5,
	AsCurrency = 6,
	Transform = 10,
	StringTable = 11,
};

/** A text read from a package: how object text spells it, and what a person sees. */
struct FReadText
{
	std::string Spelling;
	std::string Display;
};

using FArguments = std::vector<std::pair<std::string, std::string>>;

static FReadText ReadTextAt(FBinaryCursor& Cursor, const FBinaryTables& Tables, int Depth);

static FReadText Invariant(std::string Display)
{
	FReadText Text;
	Text.Spelling = "INVTEXT(" + Quote(Display) + ")";
	Text.Display = std::move(Display);
	return Text;
}

/** What an argument of a format shows. bData: the form of texts made from data, whose integers were narrow once. */
static std::string ReadArgument(FBinaryCursor& Cursor, const FBinaryTables& Tables, const bool bData, const int Depth)
{
	const bool bNarrow = bData && Tables.GetVersions().Ue5Release < 12;
	switch (Cursor.Read<int8_t>())
	{
	case 0:
		return std::to_string(bNarrow ? Cursor.ReadInt() : Cursor.Read<int64_t>());
	case 1:
		return std::to_string(bNarrow ? Cursor.Read<uint32_t>() : Cursor.Read<uint64_t>());
	case 2:
		return Number(Cursor.Read<float>());
	case 3:
		return Number(Cursor.Read<double>());
	case 4:
		return ReadTextAt(Cursor, Tables, Depth + 1).Display;
	case 5:
		Cursor.Skip(1);
		return std::string();
	default:
		Cursor.Fail();
		return std::string();
	}
}

/** What stands for "{Name}"; null for a name that is no argument's. */
static const std::string* FindArgument(const FArguments& Arguments, const std::string_view Name)
{
	for (const auto& [Known, Value] : Arguments)
	{
		if (Name == Known)
		{
			return &Value;
		}
	}
	return nullptr;
}

/** Puts the arguments into their places, as far as a text of reasonable length can hold them. */
static std::string Format(const std::string& Pattern, const FArguments& Arguments)
{
	constexpr std::size_t MaxLength = 64 * 1024;
	std::string Out;
	for (std::size_t At = 0; At < Pattern.size() && Out.size() < MaxLength;)
	{
		const std::size_t Close = Pattern[At] == '{' ? Pattern.find('}', At) : std::string::npos;
		const std::string* const Value = Close == std::string::npos
			? nullptr
			: FindArgument(Arguments, std::string_view(Pattern).substr(At + 1, Close - At - 1));
		Value ? Out.append(*Value, 0, MaxLength) : Out.append(1, Pattern[At]);
		At = Value ? Close + 1 : At + 1;
	}
	return Out;
}

static FReadText ReadFormat(FBinaryCursor& Cursor, const FBinaryTables& Tables, const EHistory History, const int Depth)
{
	const std::string Pattern = ReadTextAt(Cursor, Tables, Depth + 1).Display;
	const int32_t Count = Cursor.ReadCount(1);
	FArguments Arguments;
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		std::string Name = History == EHistory::OrderedFormat ? std::to_string(Index) : Cursor.ReadString();
		std::string Value = ReadArgument(Cursor, Tables, History == EHistory::ArgumentFormat, Depth);
		Arguments.emplace_back(std::move(Name), std::move(Value));
	}
	return Invariant(Format(Pattern, Arguments));
}

static FReadText ReadNumber(FBinaryCursor& Cursor, const FBinaryTables& Tables, const EHistory History, const int Depth)
{
	if (History == EHistory::AsCurrency)
	{
		Cursor.ReadString();
	}
	const std::string Value = ReadArgument(Cursor, Tables, false, Depth);
	if (Cursor.ReadBool())
	{
		Cursor.Skip(Tables.GetVersions().Editor >= 21 ? 4 : 0);
		Cursor.Skip(4 + 1 + 16);
	}
	Cursor.ReadString();
	return Invariant(Value);
}

static FReadText ReadBase(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	const std::string Namespace = Cursor.ReadString();
	const std::string Key = Cursor.ReadString();
	FReadText Text;
	Text.Display = Cursor.ReadString();
	Cursor.Skip(Tables.GetVersions().FortniteMain >= 268 ? 4 : 0);
	Text.Spelling = "NSLOCTEXT(" + Quote(Namespace) + ", " + Quote(Key) + ", " + Quote(Text.Display) + ")";
	return Text;
}

static FReadText ReadTextAt(FBinaryCursor& Cursor, const FBinaryTables& Tables, const int Depth)
{
	Cursor.Skip(4);
	const EHistory History = static_cast<EHistory>(Cursor.Read<int8_t>());
	if (Depth > MaxTextDepth || Cursor.HasFailed())
	{
		Cursor.Fail();
		return FReadText();
	}
	switch (History)
	{
	case EHistory::None:
		return Tables.GetVersions().Editor >= 32 && Cursor.ReadBool() ? Invariant(Cursor.ReadString()) : FReadText();
	case EHistory::Base:
		return ReadBase(Cursor, Tables);
	case EHistory::NamedFormat:
	case EHistory::OrderedFormat:
	case EHistory::ArgumentFormat:
		return ReadFormat(Cursor, Tables, History, Depth);
	case EHistory::AsNumber:
	case EHistory::AsPercent:
	case EHistory::AsCurrency:
		return ReadNumber(Cursor, Tables, History, Depth);
	case EHistory::Transform:
	{
		const FReadText Source = ReadTextAt(Cursor, Tables, Depth + 1);
		Cursor.Skip(1);
		return Source;
	}
	case EHistory::StringTable:
	{
		FReadText Text;
		const std::string Table = Tables.ReadName(Cursor);
		const std::string Key = Cursor.ReadString();
		Text.Spelling = "LOCTABLE(" + Quote(Table) + ", " + Quote(Key) + ")";
		return Text;
	}
	}
	Cursor.Fail();
	return FReadText();
}
} // namespace BinaryText

std::string BinaryText::Quote(const std::string_view Utf8)
{
	std::string Out = "\"";
	Out.reserve(Utf8.size() + 2);
	for (const char Char : Utf8)
	{
		switch (Char)
		{
		case '"':
			Out += "\\\"";
			break;
		case '\\':
			Out += "\\\\";
			break;
		case '\n':
			Out += "\\n";
			break;
		case '\r':
			Out += "\\r";
			break;
		case '\t':
			Out += "\\t";
			break;
		default:
			Out += Char;
		}
	}
	return Out += '"';
}

std::string BinaryText::Number(const double Value)
{
	return fmt::format("{:#}", Value);
}

std::string BinaryText::Number(const float Value)
{
	return fmt::format("{:#}", Value);
}

std::string BinaryText::ReadText(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	const FReadText Text = ReadTextAt(Cursor, Tables, 0);
	return Text.Spelling.empty() ? "INVTEXT(\"\")" : Text.Spelling;
}
