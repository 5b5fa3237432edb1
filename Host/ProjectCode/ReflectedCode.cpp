#include "ProjectCode/ReflectedCode.h"

#include <algorithm>
#include <cctype>

namespace ReflectedCode
{
bool EqualsIgnoringCase(std::string_view Left, std::string_view Right)
{
	return std::equal(Left.begin(), Left.end(), Right.begin(), Right.end(),
		[](char A, char B)
		{ return std::tolower(static_cast<unsigned char>(A)) == std::tolower(static_cast<unsigned char>(B)); });
}

static const std::string* Find(const std::vector<std::pair<std::string, std::string>>& List, std::string_view Key)
{
	for (const auto& [Word, Value] : List)
	{
		if (EqualsIgnoringCase(Word, Key))
		{
			return &Value;
		}
	}
	return nullptr;
}

bool FSpecifiers::Has(std::string_view Word) const
{
	return Find(Words, Word) != nullptr;
}

bool FSpecifiers::HasMeta(std::string_view Key) const
{
	return Find(Meta, Key) != nullptr;
}

std::string FSpecifiers::Get(std::string_view Word) const
{
	const std::string* const Value = Find(Words, Word);
	return Value ? *Value : std::string();
}

std::string FSpecifiers::GetMeta(std::string_view Key) const
{
	const std::string* const Value = Find(Meta, Key);
	return Value ? *Value : std::string();
}
} // namespace ReflectedCode
