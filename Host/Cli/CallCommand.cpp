#include <algorithm>

#include <CLI/CLI.hpp>

#include "Cli/CommandTable.h"
#include "Cli/JsonArgument.h"

namespace CallCommandPrivate
{
bool IsListed(IToolHost& Tools, const std::string& Name)
{
	const std::vector<FToolListing> Listed = Tools.ListTools();
	return std::any_of(Listed.begin(), Listed.end(), [&Name](const FToolListing& Tool) { return Tool.Name == Name; });
}
} // namespace CallCommandPrivate

/** morvane call TOOL JSON|-|@FILE */
class FCallCommand : public ICommand
{
public:
	void Describe(CLI::App& App) override
	{
		App.add_option("TOOL", ToolName, "Name of the tool, see 'morvane tools'")->required();
		App.add_option("JSON", Arguments, "Arguments as JSON, - to read them from standard input, @FILE from a file")
			->required();
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		const std::optional<std::string> Text = ReadJsonArgument(Arguments);
		if (!Text)
		{
			return EExitStatus::Misused;
		}
		const std::unique_ptr<IToolHost> Tools = Context.MakeToolHost(Context.Options);
		if (!CallCommandPrivate::IsListed(*Tools, ToolName))
		{
			Complain("There is no tool " + ToolName + ". 'morvane tools' lists them.");
			return EExitStatus::Misused;
		}
		const FToolOutcome Outcome = Tools->CallTool(ToolName, *Text);
		Context.Print(Outcome.ResultJson);
		return Outcome.bSuccess ? EExitStatus::Succeeded : EExitStatus::Failed;
	}

private:
	std::string ToolName;
	std::string Arguments;
};

std::unique_ptr<ICommand> MakeCallCommand()
{
	return std::make_unique<FCallCommand>();
}
