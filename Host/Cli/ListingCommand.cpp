#include "Cli/ListingCommand.h"

#include "Containers/StringConv.h"
#include "Session/EditorSession.h"

EExitStatus IListingCommand::Run(const FCommandContext& Context)
{
	FEditorSession Session(Context.Options);
	FString Error;
	if (!Session.OpenProject(Error))
	{
		Complain(ToUtf8(Error));
		return EExitStatus::Failed;
	}
	Answer(Context);
	return EExitStatus::Succeeded;
}

void IListingCommand::Write(const FCommandContext& Context, const std::vector<std::string>& Rows) const
{
	std::string Lines;
	for (const std::string& Row : Rows)
	{
		Lines += (Lines.empty() ? "" : bJson ? ",\n" : "\n") + Row;
	}
	Context.Output.WriteLine(bJson ? "[" + Lines + "]" : Lines);
}
