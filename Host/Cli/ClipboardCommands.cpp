#include "Cli/CommandTable.h"
#include "Cli/GraphClipboard.h"
#include "Cli/JsonArgument.h"
#include "Containers/StringConv.h"
#include "Session/EditorSession.h"
#include "Session/UnsavedPackages.h"
#include "ToolFace/ResultObject.h"
#include "ToolResult.h"

namespace ClipboardCommandsPrivate
{
static Morvane::FToolResult MakeResult(const TCHAR* Name)
{
	return Morvane::FToolResult(Morvane::FToolCommand(TEXT("1"), Name, FString()));
}

static bool Open(FEditorSession& Session, Morvane::FToolResult& Result)
{
	FString Error;
	const bool bOpen = Session.OpenProject(Error);
	if (!bOpen)
	{
		Result.AddErrorMessage(Error);
	}
	return bOpen;
}
} // namespace ClipboardCommandsPrivate

/** morvane copy PATH GRAPH [--node NAME]... */
class FCopyCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Word("PATH", Path, "Asset path of the Blueprint");
		Arguments.Word("GRAPH", Graph, "Name of the graph");
		Arguments.Option("--node", Nodes, "Name or id of a node to copy, any number of times; all nodes by default");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		FEditorSession Session(Context.Options);
		Morvane::FToolResult Result = ClipboardCommandsPrivate::MakeResult(TEXT("copy"));
		std::string Text;
		if (ClipboardCommandsPrivate::Open(Session, Result))
		{
			Text = GraphClipboard::Copy(Path, Graph, Nodes, Result);
		}
		for (const FString& Error : Result.GetErrorMessages())
		{
			Complain(ToUtf8(Error));
		}
		if (!Result.WasSuccessful())
		{
			return EExitStatus::Failed;
		}
		// The line's own break stands at the end already.
		Text.resize(Text.find_last_not_of('\n') + 1);
		Context.Output.WriteLine(Text);
		return EExitStatus::Succeeded;
	}

private:
	std::string Path;
	std::string Graph;
	std::vector<std::string> Nodes;
};

/** morvane paste PATH GRAPH [--at X Y], with the text on standard input */
class FPasteCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Word("PATH", Path, "Asset path of the Blueprint");
		Arguments.Word("GRAPH", Graph, "Name of the graph");
		Arguments.Pair(
			"--at", TopLeft, "Where the top left corner of the nodes goes; where the text has it by default", "X Y");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		const std::optional<std::string> Text = ReadInput("-");
		if (!Text)
		{
			return EExitStatus::Misused;
		}
		FEditorSession Session(Context.Options);
		Morvane::FToolResult Result = ClipboardCommandsPrivate::MakeResult(TEXT("paste"));
		if (ClipboardCommandsPrivate::Open(Session, Result))
		{
			std::optional<GraphClipboard::FPlace> Place;
			if (TopLeft.size() == 2)
			{
				Place = GraphClipboard::FPlace{TopLeft[0], TopLeft[1]};
			}
			GraphClipboard::Paste(Path, Graph, *Text, Place, Result);
		}
		Context.Print(ResultObject::Write(Result, UnsavedPackages::List()));
		return Result.WasSuccessful() ? EExitStatus::Succeeded : EExitStatus::Failed;
	}

private:
	std::string Path;
	std::string Graph;
	std::vector<int> TopLeft;
};

std::unique_ptr<ICommand> MakeCopyCommand()
{
	return std::make_unique<FCopyCommand>();
}

std::unique_ptr<ICommand> MakePasteCommand()
{
	return std::make_unique<FPasteCommand>();
}
