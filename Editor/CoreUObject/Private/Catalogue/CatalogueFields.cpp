#include "Catalogue/CatalogueFields.h"

#include <algorithm>

namespace Catalogue
{
bool FFields::Find(std::string_view Key, simdjson::dom::element& Out)
{
	Asked.push_back(Key);
	return Object.at_key(Key).get(Out) == simdjson::SUCCESS;
}

void FFields::WrongType(std::string_view Key, std::string_view Wanted)
{
	Report.Fault("'" + std::string(Key) + "' must be " + std::string(Wanted));
}

std::string FFields::String(std::string_view Key)
{
	simdjson::dom::element Element;
	std::string_view Text;
	if (Find(Key, Element) && Element.get(Text) != simdjson::SUCCESS)
	{
		WrongType(Key, "a text");
	}
	return std::string(Text);
}

std::string FFields::RequiredString(std::string_view Key)
{
	const std::size_t FaultsBefore = Report.Faults->size();
	std::string Text = String(Key);
	if (Text.empty() && Report.Faults->size() == FaultsBefore)
	{
		Report.Fault("'" + std::string(Key) + "' is missing");
	}
	return Text;
}

bool FFields::Bool(std::string_view Key)
{
	simdjson::dom::element Element;
	bool bValue = false;
	if (Find(Key, Element) && Element.get(bValue) != simdjson::SUCCESS)
	{
		WrongType(Key, "true or false");
	}
	return bValue;
}

std::int64_t FFields::Integer(std::string_view Key, std::int64_t Default)
{
	simdjson::dom::element Element;
	std::int64_t Value = Default;
	if (Find(Key, Element) && Element.get(Value) != simdjson::SUCCESS)
	{
		WrongType(Key, "a whole number");
	}
	return Value;
}

std::vector<std::string> FFields::Strings(std::string_view Key)
{
	simdjson::dom::element Element;
	std::vector<std::string> Texts;
	if (!Find(Key, Element))
	{
		return Texts;
	}
	simdjson::dom::array List;
	if (Element.get(List) != simdjson::SUCCESS)
	{
		WrongType(Key, "a list of texts");
		return Texts;
	}
	for (const simdjson::dom::element Entry : List)
	{
		std::string_view Text;
		if (Entry.get(Text) != simdjson::SUCCESS)
		{
			WrongType(Key, "a list of texts");
			break;
		}
		Texts.emplace_back(Text);
	}
	return Texts;
}

std::uint32_t FFields::Flags(std::string_view Key, std::span<const FWord> Words)
{
	std::uint32_t Sum = 0;
	for (const std::string& Text : Strings(Key))
	{
		const std::uint32_t Flag = FindWord(Text, Words);
		if (Flag == NoIndex)
		{
			Report.Fault("unknown flag '" + Text + "'");
			continue;
		}
		Sum |= Flag;
	}
	return Sum;
}

FMetaList FFields::Meta(std::string_view Key)
{
	simdjson::dom::element Element;
	FMetaList Pairs;
	if (!Find(Key, Element))
	{
		return Pairs;
	}
	simdjson::dom::object Table;
	if (Element.get(Table) != simdjson::SUCCESS)
	{
		WrongType(Key, "an object of texts");
		return Pairs;
	}
	for (const simdjson::dom::key_value_pair Pair : Table)
	{
		std::string_view Text;
		if (Pair.value.get(Text) != simdjson::SUCCESS)
		{
			WrongType(Key, "an object of texts");
			break;
		}
		Pairs.emplace_back(Pair.key, Text);
	}
	return Pairs;
}

std::vector<simdjson::dom::object> FFields::Objects(std::string_view Key)
{
	simdjson::dom::element Element;
	std::vector<simdjson::dom::object> Found;
	if (!Find(Key, Element))
	{
		return Found;
	}
	simdjson::dom::object Single;
	if (Element.get(Single) == simdjson::SUCCESS)
	{
		Found.push_back(Single);
		return Found;
	}
	simdjson::dom::array List;
	if (Element.get(List) != simdjson::SUCCESS)
	{
		WrongType(Key, "a list of objects");
		return Found;
	}
	for (const simdjson::dom::element Entry : List)
	{
		if (Entry.get(Single) != simdjson::SUCCESS)
		{
			WrongType(Key, "a list of objects");
			break;
		}
		Found.push_back(Single);
	}
	return Found;
}

void FFields::RejectOthers()
{
	std::vector<std::string_view> Seen;
	for (const simdjson::dom::key_value_pair Pair : Object)
	{
		if (std::find(Asked.begin(), Asked.end(), Pair.key) == Asked.end())
		{
			Report.Fault("unknown key '" + std::string(Pair.key) + "'");
		}
		if (std::find(Seen.begin(), Seen.end(), Pair.key) != Seen.end())
		{
			Report.Fault("key '" + std::string(Pair.key) + "' is there twice");
		}
		Seen.push_back(Pair.key);
	}
}

std::uint32_t FindWord(std::string_view Text, std::span<const FWord> Words)
{
	const auto Found = std::find_if(
		Words.begin(), Words.end(), [Text](const FWord& Word) { return Word.Text == Text; });
	return Found == Words.end() ? NoIndex : Found->Value;
}
} // namespace Catalogue
