#include "Cli/Arguments.h"

#include <CLI/CLI.hpp>

void FArguments::Word(const std::string& Name, std::string& Value, const std::string& Help)
{
	App.add_option(Name, Value, Help)->required();
}

void FArguments::Flag(const std::string& Name, bool& bValue, const std::string& Help)
{
	App.add_flag(Name, bValue, Help);
}

void FArguments::Option(const std::string& Name, std::string& Value, const std::string& Help)
{
	App.add_option(Name, Value, Help);
}

void FArguments::Option(
	const std::string& Name, std::optional<int>& Value, const std::string& Help, const std::string& TypeName)
{
	App.add_option(Name, Value, Help)->type_name(TypeName);
}

void FArguments::Option(const std::string& Name, std::vector<std::string>& Values, const std::string& Help)
{
	App.add_option(Name, Values, Help);
}

void FArguments::Pair(
	const std::string& Name, std::vector<int>& Values, const std::string& Help, const std::string& TypeName)
{
	App.add_option(Name, Values, Help)->expected(2)->type_name(TypeName);
}
