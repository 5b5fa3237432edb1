#include "Cli/CommandTable.h"
#include "ToolFace/ToolListing.h"

/** morvane tools */
class FToolsCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Flag("--json", bJson, "As JSON, with the schemas of arguments and result");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		const std::vector<FToolListing> Listed = Context.MakeToolHost(Context.Options)->ListTools();
		if (bJson)
		{
			Context.Print(ToolListing::Json(Listed));
			return EExitStatus::Succeeded;
		}
		for (const FToolListing& Tool : Listed)
		{
			Context.Output.WriteLine(Tool.Name + "\n    " + Tool.Description);
		}
		return EExitStatus::Succeeded;
	}

private:
	bool bJson = false;
};

std::unique_ptr<ICommand> MakeToolsCommand()
{
	return std::make_unique<FToolsCommand>();
}
