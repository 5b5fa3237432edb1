#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI
{
class App;
}

/**
 * The arguments of one command, as the command describes them. What the command line holds is written into the
 * variables given, which must outlive its reading. The parser's library stays behind this class: it takes seconds to
 * compile.
 */
class FArguments
{
public:
	explicit FArguments(CLI::App& InApp)
		: App(InApp)
	{
	}

	/** A word that must be there, told by its place. */
	void Word(const std::string& Name, std::string& Value, const std::string& Help);
	void Flag(const std::string& Name, bool& bValue, const std::string& Help);
	void Option(const std::string& Name, std::string& Value, const std::string& Help);
	/** TypeName stands for the number in the help: "PORT". */
	void Option(
		const std::string& Name, std::optional<int>& Value, const std::string& Help, const std::string& TypeName);
	/** May be given any number of times. */
	void Option(const std::string& Name, std::vector<std::string>& Values, const std::string& Help);
	/** Two numbers behind one name; Values holds both or none. */
	void Pair(const std::string& Name, std::vector<int>& Values, const std::string& Help, const std::string& TypeName);

private:
	CLI::App& App;
};
