#include "ProjectCode/CatalogueWords.h"

#include "Dom/JsonObject.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string_view>
#include <utility>

namespace CatalogueWords
{
using namespace ReflectedCode;

void SetText(FJsonObject& Line, const TCHAR* Key, const std::string& Text)
{
	if (!Text.empty())
	{
		Line.SetStringField(Key, FromUtf8(Text));
	}
}

void SetFlags(FJsonObject& Line, const std::vector<std::string>& Flags)
{
	TArray<TSharedPtr<FJsonValue>> Values;
	for (const std::string& Flag : Flags)
	{
		Values.Add(MakeShared<FJsonValueString>(FromUtf8(Flag)));
	}
	if (!Values.IsEmpty())
	{
		Line.SetArrayField(TEXT("flags"), Values);
	}
}

void SetMeta(FJsonObject& Line, const FSpecifiers& Specifiers)
{
	static const char* const Keys[] = {"AdvancedDisplay", "ArrayParm", "ArrayTypeDependentParams", "AutoCreateRefTerm",
		"CallableWithoutWorldContext", "CommutativeAssociativeBinaryOperator", "CustomStructureParam", "DefaultToSelf",
		"DeterminesOutputType", "DevelopmentOnly", "DynamicOutputParam", "ExpandBoolAsExecs", "ExpandEnumAsExecs",
		"HidePin", "InternalUseParam", "LatentInfo", "MapKeyParam", "MapParam", "MapValueParam", "PinHiddenByDefault",
		"SetParam", "ShowWorldContextPin", "UnsafeDuringActorConstruction"};
	const auto Meta = MakeShared<FJsonObject>();
	for (const char* const Key : Keys)
	{
		if (Specifiers.HasMeta(Key) || Specifiers.Has(Key))
		{
			const std::string Value = Specifiers.HasMeta(Key) ? Specifiers.GetMeta(Key) : Specifiers.Get(Key);
			Meta->SetStringField(FromUtf8(Key), Value.empty() ? TEXT("true") : FromUtf8(Value));
		}
	}
	if (!Meta->Values.IsEmpty())
	{
		Line.SetObjectField(TEXT("meta"), Meta);
	}
}

std::vector<std::string> PropertyFlags(const FSpecifiers& Specifiers)
{
	struct FRow
	{
		const char* Word;
		std::vector<const char*> Flags;
	};
	static const FRow Rows[] = {{"EditAnywhere", {"edit"}}, {"EditDefaultsOnly", {"edit"}},
		{"EditInstanceOnly", {"edit"}}, {"VisibleAnywhere", {"visible"}}, {"VisibleDefaultsOnly", {"visible"}},
		{"VisibleInstanceOnly", {"visible"}}, {"BlueprintReadWrite", {"bp_read", "bp_write"}},
		{"BlueprintReadOnly", {"bp_read"}}, {"BlueprintGetter", {"bp_read"}},
		{"BlueprintSetter", {"bp_read", "bp_write"}}, {"Instanced", {"instanced"}}, {"Transient", {"transient"}},
		{"Config", {"config"}}, {"Replicated", {"replicated"}}, {"ReplicatedUsing", {"replicated", "rep_notify"}},
		{"AdvancedDisplay", {"advanced"}}};
	std::vector<std::string> Flags;
	const auto Add = [&Flags](const char* Flag)
	{
		if (std::find(Flags.begin(), Flags.end(), Flag) == Flags.end())
		{
			Flags.emplace_back(Flag);
		}
	};
	for (const FRow& Row : Rows)
	{
		for (const char* const Flag : Specifiers.Has(Row.Word) ? Row.Flags : std::vector<const char*>())
		{
			Add(Flag);
		}
	}
	if (EqualsIgnoringCase(Specifiers.GetMeta("ExposeOnSpawn"), "true"))
	{
		Add("expose_on_spawn");
	}
	if (Specifiers.HasMeta("DeprecatedProperty"))
	{
		Add("deprecated");
	}
	return Flags;
}

static bool HasOutput(const FFunction& Function)
{
	const bool bReturns = Function.Return.Name != "void";
	return bReturns
		|| std::any_of(Function.Params.begin(), Function.Params.end(),
			[](const FVariable& Param) { return Param.Type.bReference && !Param.Type.bConst; });
}

std::vector<std::string> FunctionFlags(const FFunction& Function)
{
	const FSpecifiers& Specifiers = Function.Specifiers;
	const bool bEvent = Specifiers.Has("BlueprintImplementableEvent");
	const bool bNativeEvent = Specifiers.Has("BlueprintNativeEvent");
	const bool bSaidImpure = EqualsIgnoringCase(Specifiers.Get("BlueprintPure"), "false");
	const bool bSaidPure = Specifiers.Has("BlueprintPure") && !bSaidImpure;
	const bool bCallable = bSaidPure || Specifiers.Has("BlueprintCallable") || Specifiers.Has("BlueprintGetter")
		|| Specifiers.Has("BlueprintSetter");
	// As the header tool has it: what is const and answers something has no effects.
	const bool bPure = bSaidPure || (bCallable && Function.bConst && HasOutput(Function) && !bSaidImpure);
	const std::pair<const char*, bool> Rows[] = {{"static", Function.bStatic}, {"event", bEvent},
		{"native_event", bNativeEvent}, {"callable", bCallable}, {"pure", bPure},
		{"latent", Specifiers.HasMeta("Latent")}, {"const", Function.bConst},
		{"protected", Specifiers.HasMeta("BlueprintProtected")},
		{"internal", Specifiers.HasMeta("BlueprintInternalUseOnly")},
		{"deprecated", Specifiers.HasMeta("DeprecatedFunction")}};
	std::vector<std::string> Flags;
	for (const auto& [Flag, bSet] : Rows)
	{
		if (bSet)
		{
			Flags.emplace_back(Flag);
		}
	}
	const bool bSeen = bCallable || bEvent || bNativeEvent;
	return bSeen ? Flags : std::vector<std::string>();
}

std::vector<std::string> ParamFlags(const FVariable& Param)
{
	const bool bRef = Param.Specifiers.Has("ref");
	std::vector<std::string> Flags;
	if (Param.Type.bReference && !Param.Type.bConst && !bRef)
	{
		Flags.emplace_back("out");
	}
	if (Param.Type.bReference && (Param.Type.bConst || bRef))
	{
		Flags.emplace_back("ref");
	}
	if (Param.Type.bConst)
	{
		Flags.emplace_back("const");
	}
	if (Param.Type.Name == "UClass")
	{
		Flags.emplace_back("raw");
	}
	return Flags;
}

/** Reads the code of an enum's value, which has no blanks. */
class FEnumExpression
{
public:
	FEnumExpression(std::string_view Code, const std::map<std::string, std::int64_t>& InEarlier)
		: Left(Code)
		, Earlier(InEarlier)
	{
	}

	std::optional<std::int64_t> Read()
	{
		const std::int64_t Value = ReadLevel(0);
		return bFault || !Left.empty() ? std::nullopt : std::optional(Value);
	}

private:
	using FApply = std::int64_t (*)(std::int64_t, std::int64_t);
	struct FOperator
	{
		std::string_view Sign;
		FApply Apply;
	};
	/** The level that binds least comes first. */
	static constexpr int NumLevels = 4;

	static const std::vector<FOperator>& OperatorsOf(const int Level)
	{
		static const std::vector<FOperator> Levels[NumLevels] = {
			{{"|", [](std::int64_t A, std::int64_t B) { return A | B; }}},
			{{"&", [](std::int64_t A, std::int64_t B) { return A & B; }}},
			{{"<<", [](std::int64_t A, std::int64_t B) { return B >= 0 && B < 62 ? Wrap(Bits(A) << B) : 0; }}},
			{{"+", [](std::int64_t A, std::int64_t B) { return Wrap(Bits(A) + Bits(B)); }},
				{"-", [](std::int64_t A, std::int64_t B) { return Wrap(Bits(A) - Bits(B)); }}}};
		return Levels[Level];
	}
	static std::uint64_t Bits(const std::int64_t Value) { return static_cast<std::uint64_t>(Value); }
	static std::int64_t Wrap(const std::uint64_t Value) { return static_cast<std::int64_t>(Value); }

	bool Take(const std::string_view Sign)
	{
		const bool bThere = Left.starts_with(Sign);
		Left.remove_prefix(bThere ? Sign.size() : 0);
		return bThere;
	}

	std::int64_t ReadLevel(const int Level)
	{
		if (Level == NumLevels)
		{
			return ReadOne();
		}
		std::int64_t Value = ReadLevel(Level + 1);
		for (bool bMore = true; bMore && !bFault;)
		{
			bMore = false;
			for (const FOperator& Operator : OperatorsOf(Level))
			{
				if (Take(Operator.Sign))
				{
					Value = Operator.Apply(Value, ReadLevel(Level + 1));
					bMore = true;
				}
			}
		}
		return Value;
	}

	std::int64_t ReadOne()
	{
		// Code that nests deeper is none of an enum.
		bFault |= ++Depth > 64;
		std::int64_t Value = 0;
		if (bFault)
		{
			return 0;
		}
		if (Take("~"))
		{
			Value = ~ReadOne();
		}
		else if (Take("-"))
		{
			Value = Wrap(0 - Bits(ReadOne()));
		}
		else if (Take("("))
		{
			Value = ReadLevel(0);
			bFault |= !Take(")");
		}
		else
		{
			Value = ReadWord();
		}
		--Depth;
		return Value;
	}

	/** A number, or an earlier entry with or without the enum in front. */
	std::int64_t ReadWord()
	{
		const auto IsOfWord = [](const char Char)
		{ return std::isalnum(static_cast<unsigned char>(Char)) != 0 || Char == '_' || Char == ':' || Char == '\''; };
		std::string Word(Left.begin(), std::find_if_not(Left.begin(), Left.end(), IsOfWord));
		Left.remove_prefix(Word.size());
		if (Word.empty() || std::isdigit(static_cast<unsigned char>(Word[0])) == 0)
		{
			const std::size_t Scope = Word.rfind(':');
			const auto Found = Earlier.find(Scope == std::string::npos ? Word : Word.substr(Scope + 1));
			bFault |= Found == Earlier.end();
			return bFault ? 0 : Found->second;
		}
		return ReadNumber(std::move(Word));
	}

	std::int64_t ReadNumber(std::string Word)
	{
		std::erase(Word, '\'');
		while (!Word.empty() && std::string_view("uUlL").find(Word.back()) != std::string_view::npos)
		{
			Word.pop_back();
		}
		const bool bHex = Word.starts_with("0x") || Word.starts_with("0X");
		const bool bBinary = Word.starts_with("0b") || Word.starts_with("0B");
		const char* const Start = Word.data() + (bHex || bBinary ? 2 : 0);
		std::uint64_t Value = 0;
		const auto [End, Fault] = std::from_chars(Start, Word.data() + Word.size(), Value,
			bHex		  ? 16
				: bBinary ? 2
						  : 10);
		bFault |= Fault != std::errc() || End != Word.data() + Word.size();
		return Wrap(Value);
	}

	std::string_view Left;
	const std::map<std::string, std::int64_t>& Earlier;
	int Depth = 0;
	bool bFault = false;
};

std::optional<std::int64_t> ReadEnumValue(const std::string& Code, const std::map<std::string, std::int64_t>& Earlier)
{
	return FEnumExpression(Code, Earlier).Read();
}

} // namespace CatalogueWords
