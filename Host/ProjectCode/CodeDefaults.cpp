#include "ProjectCode/CodeDefaults.h"

#include <charconv>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

namespace CodeDefaults
{
static std::optional<double> ReadNumber(std::string_view Code)
{
	while (!Code.empty()
		&& (Code.back() == 'f' || Code.back() == 'F' || Code.back() == 'u' || Code.back() == 'U' || Code.back() == 'l'
			|| Code.back() == 'L'))
	{
		Code.remove_suffix(1);
	}
	Code.remove_prefix(!Code.empty() && Code.front() == '+' ? 1 : 0);
	double Value = 0.0;
	const auto [End, Fault] = std::from_chars(Code.data(), Code.data() + Code.size(), Value);
	const bool bWhole = Fault == std::errc() && End == Code.data() + Code.size() && !Code.empty();
	return bWhole ? std::optional(Value) : std::nullopt;
}

static std::string SixDecimals(double Value)
{
	char Text[400];
	const int Length = std::snprintf(Text, sizeof(Text), "%.6f", Value);
	return std::string(Text, static_cast<std::size_t>(Length));
}

/** The text between the first and the last quote; nothing without quotes. */
static std::optional<std::string> ReadQuoted(const std::string& Code)
{
	const std::size_t From = Code.find('"');
	const std::size_t To = Code.rfind('"');
	const bool bOne = From != std::string::npos && To > From
		&& Code.find('"', From + 1) == To; // several literals need a compiler
	return bOne ? std::optional(Code.substr(From + 1, To - From - 1)) : std::nullopt;
}

/** "FVector(1.f,2.f,3.f)" gives its numbers; one number stands for all. */
static std::optional<std::vector<double>> ReadNumbers(const std::string& Code, std::size_t Count)
{
	const std::size_t Open = Code.find('(');
	if (Open == std::string::npos || Code.back() != ')')
	{
		return std::nullopt;
	}
	std::vector<double> Numbers;
	std::string_view Rest(Code.data() + Open + 1, Code.size() - Open - 2);
	while (!Rest.empty())
	{
		const std::size_t Comma = Rest.find(',');
		const std::optional<double> Number = ReadNumber(Rest.substr(0, Comma));
		if (!Number)
		{
			return std::nullopt;
		}
		Numbers.push_back(*Number);
		Rest = Comma == std::string_view::npos ? std::string_view() : Rest.substr(Comma + 1);
	}
	if (Numbers.size() == 1)
	{
		Numbers.resize(Count, Numbers[0]);
	}
	return Numbers.size() == Count ? std::optional(Numbers) : std::nullopt;
}

static std::optional<std::string> ReadVector(const std::string& Code)
{
	static const std::pair<const char*, const char*> Constants[] = {
		{"FVector::ZeroVector", "0.000000,0.000000,0.000000"}, {"FVector::OneVector", "1.000000,1.000000,1.000000"},
		{"FVector::UpVector", "0.000000,0.000000,1.000000"}, {"FVector::ForwardVector", "1.000000,0.000000,0.000000"},
		{"FVector::RightVector", "0.000000,1.000000,0.000000"},
		{"FRotator::ZeroRotator", "0.000000,0.000000,0.000000"}};
	for (const auto& [Name, Value] : Constants)
	{
		if (Code == Name)
		{
			return std::string(Value);
		}
	}
	const std::optional<std::vector<double>> Numbers = ReadNumbers(Code, 3);
	return Numbers ? std::optional(
			   SixDecimals((*Numbers)[0]) + "," + SixDecimals((*Numbers)[1]) + "," + SixDecimals((*Numbers)[2]))
				   : std::nullopt;
}

static std::optional<std::string> ReadColor(const std::string& Code)
{
	static const std::pair<const char*, const char*> Constants[] = {
		{"White", "(R=1.000000,G=1.000000,B=1.000000,A=1.000000)"},
		{"Black", "(R=0.000000,G=0.000000,B=0.000000,A=1.000000)"},
		{"Red", "(R=1.000000,G=0.000000,B=0.000000,A=1.000000)"},
		{"Green", "(R=0.000000,G=1.000000,B=0.000000,A=1.000000)"},
		{"Blue", "(R=0.000000,G=0.000000,B=1.000000,A=1.000000)"},
		{"Transparent", "(R=0.000000,G=0.000000,B=0.000000,A=0.000000)"}};
	for (const auto& [Name, Value] : Constants)
	{
		if (Code == std::string("FLinearColor::") + Name)
		{
			return std::string(Value);
		}
	}
	return std::nullopt;
}

static std::optional<std::string> ReadEnumerator(const std::string& Code)
{
	const std::size_t Scope = Code.rfind("::");
	const std::string Name = Scope == std::string::npos ? Code : Code.substr(Scope + 2);
	const bool bName = !Name.empty() && Name.find_first_of("()<>+-*/ \"") == std::string::npos;
	return bName ? std::optional(Name) : std::nullopt;
}
} // namespace CodeDefaults

std::optional<std::string> ReadCodeDefault(const std::string& Type, const std::string& Code)
{
	using namespace CodeDefaults;
	if (Type == "bool")
	{
		return Code == "true" || Code == "1" ? std::optional<std::string>("true")
			: Code == "false" || Code == "0" ? std::optional<std::string>("false")
											 : std::nullopt;
	}
	const std::optional<double> Number = ReadNumber(Code);
	if (Type.starts_with("real:"))
	{
		return Number ? std::optional(SixDecimals(*Number)) : std::nullopt;
	}
	if (Type.starts_with("byte /"))
	{
		return ReadEnumerator(Code);
	}
	if (Type.starts_with("int") || Type == "byte")
	{
		return Number ? std::optional(std::to_string(static_cast<long long>(*Number))) : std::nullopt;
	}
	if (Type == "string" || Type == "name" || Type == "text")
	{
		return Code == "NAME_None" ? std::optional<std::string>("None")
			: Type == "text"	   ? std::nullopt
								   : ReadQuoted(Code);
	}
	if (Type == "struct /Script/CoreUObject.Vector" || Type == "struct /Script/CoreUObject.Rotator")
	{
		return ReadVector(Code);
	}
	return Type == "struct /Script/CoreUObject.LinearColor" ? ReadColor(Code) : std::nullopt;
}
