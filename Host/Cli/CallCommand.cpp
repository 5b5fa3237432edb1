#include <algorithm>

#include "Cli/CommandTable.h"
#include "Cli/JsonArgument.h"

namespace CallCommandPrivate
{
static bool IsListed(IToolHost& Tools, const std::string& Name)
{
	const std::vector<FToolListing> Listed = Tools.ListTools();
	return std::any_of(Listed.begin(), Listed.end(), [&Name](const FToolListing& Tool) { return Tool.Name == Name; });
}
} // namespace CallCommandPrivate

/** morvane call TOOL JSON|-|@FILE */
class FCallCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Word("TOOL", ToolName, "Name of the tool, see 'morvane tools'");
		Arguments.Word("JSON", Json, "Arguments as JSON, - to read them from standard input, @FILE from a file");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		const std::optional<std::string> Text = ReadJsonArgument(Json);
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
	std::string Json;
};

std::unique_ptr<ICommand> MakeCallCommand()
{
	return std::make_unique<FCallCommand>();
}
