#include "Support/JsonFields.h"

#include <algorithm>

#include <simdjson.h>

namespace JsonFieldsPrivate
{
static std::string_view Trim(const std::string_view Text)
{
	constexpr std::string_view Blanks = " \t\r\n";
	const size_t First = Text.find_first_not_of(Blanks);
	if (First == std::string_view::npos)
	{
		return {};
	}
	return Text.substr(First, Text.find_last_not_of(Blanks) - First + 1);
}

static bool ReadRaw(simdjson::ondemand::value Value, std::string_view& OutRaw)
{
	simdjson::ondemand::json_type Type;
	if (Value.type().get(Type) != simdjson::SUCCESS)
	{
		return false;
	}
	simdjson::ondemand::object Object;
	simdjson::ondemand::array Array;
	switch (Type)
	{
	case simdjson::ondemand::json_type::object:
		return Value.get_object().get(Object) == simdjson::SUCCESS
			&& Object.raw_json().get(OutRaw) == simdjson::SUCCESS;
	case simdjson::ondemand::json_type::array:
		return Value.get_array().get(Array) == simdjson::SUCCESS && Array.raw_json().get(OutRaw) == simdjson::SUCCESS;
	default:
		OutRaw = Value.raw_json_token();
		return true;
	}
}
} // namespace JsonFieldsPrivate

FJsonFields::EOutcome FJsonFields::Read(const std::string_view ObjectText)
{
	Members.clear();
	const simdjson::padded_string Padded(ObjectText);
	simdjson::ondemand::parser Parser;
	simdjson::ondemand::document Document;
	if (Parser.iterate(Padded).get(Document) != simdjson::SUCCESS)
	{
		return EOutcome::NotJson;
	}
	if (!JsonRaw::IsObject(ObjectText))
	{
		return EOutcome::NotAnObject;
	}
	simdjson::ondemand::object Object;
	if (Document.get_object().get(Object) != simdjson::SUCCESS)
	{
		return EOutcome::NotJson;
	}
	for (auto Entry : Object)
	{
		simdjson::ondemand::field Field;
		std::string_view Name;
		std::string_view RawValue;
		if (std::move(Entry).get(Field) != simdjson::SUCCESS || Field.unescaped_key().get(Name) != simdjson::SUCCESS
			|| !JsonFieldsPrivate::ReadRaw(Field.value(), RawValue))
		{
			return EOutcome::NotJson;
		}
		Members.emplace_back(Name, JsonFieldsPrivate::Trim(RawValue));
	}
	const bool bAtEnd = Document.current_location().error() == simdjson::OUT_OF_BOUNDS;
	return bAtEnd ? EOutcome::Read : EOutcome::NotJson;
}

const std::string* FJsonFields::Find(const std::string_view Name) const
{
	const auto Known = std::find_if(
		Members.rbegin(), Members.rend(), [Name](const auto& Member) { return Member.first == Name; });
	return Known != Members.rend() ? &Known->second : nullptr;
}

std::optional<std::string> FJsonFields::FindString(const std::string_view Name) const
{
	const std::string* Raw = Find(Name);
	return Raw ? JsonRaw::DecodeString(*Raw) : std::nullopt;
}

std::optional<FJsonFields> FJsonFields::FindObject(const std::string_view Name) const
{
	const std::string* Raw = Find(Name);
	FJsonFields Fields;
	if (!Raw || Fields.Read(*Raw) != EOutcome::Read)
	{
		return std::nullopt;
	}
	return Fields;
}

bool FJsonFields::HasValue(const std::string_view Name) const
{
	const std::string* Raw = Find(Name);
	return Raw && *Raw != "null";
}

std::optional<std::string> JsonRaw::DecodeString(const std::string_view RawValue)
{
	if (!RawValue.starts_with('"'))
	{
		return std::nullopt;
	}
	const simdjson::padded_string Padded(RawValue);
	simdjson::ondemand::parser Parser;
	simdjson::ondemand::document Document;
	std::string_view Decoded;
	if (Parser.iterate(Padded).get(Document) != simdjson::SUCCESS
		|| Document.get_string().get(Decoded) != simdjson::SUCCESS)
	{
		return std::nullopt;
	}
	return std::string(Decoded);
}

bool JsonRaw::IsInteger(std::string_view RawValue)
{
	if (RawValue.starts_with('-'))
	{
		RawValue.remove_prefix(1);
	}
	const bool bLeadingZero = RawValue.size() > 1 && RawValue.front() == '0';
	return !RawValue.empty() && !bLeadingZero && RawValue.find_first_not_of("0123456789") == std::string_view::npos;
}

bool JsonRaw::IsObject(const std::string_view RawValue)
{
	return JsonFieldsPrivate::Trim(RawValue).starts_with('{');
}
