#include "ProjectCode/CatalogueWords.h"

#include "Dom/JsonObject.h"

#include <algorithm>
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

std::optional<std::int64_t> ReadEnumValue(const std::string& Code)
{
	const std::size_t Shift = Code.find("<<");
	const auto Read = [](std::string_view Text) -> std::optional<std::int64_t>
	{
		const bool bHex = Text.starts_with("0x") || Text.starts_with("0X");
		Text.remove_prefix(bHex ? 2 : 0);
		std::int64_t Value = 0;
		const auto [End, Fault] = std::from_chars(Text.data(), Text.data() + Text.size(), Value, bHex ? 16 : 10);
		return Fault == std::errc() && End == Text.data() + Text.size() ? std::optional(Value) : std::nullopt;
	};
	if (Shift == std::string::npos)
	{
		return Read(Code);
	}
	const std::optional<std::int64_t> Value = Read(std::string_view(Code).substr(0, Shift));
	const std::optional<std::int64_t> By = Read(std::string_view(Code).substr(Shift + 2));
	return Value && By && *By >= 0 && *By < 62 ? std::optional(*Value << *By) : std::nullopt;
}

} // namespace CatalogueWords
