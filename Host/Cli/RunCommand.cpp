#include "Cli/CommandTable.h"
#include "Cli/JsonArgument.h"
#include "Server/LineReader.h"
#include "Server/StdioServer.h"
#include "Standalone/JsonUtf8.h"
#include "Support/JsonFields.h"
#include "ToolFace/ResultObject.h"

namespace RunCommandPrivate
{
static FToolOutcome Fail(const std::string& Reason)
{
	return {ResultObject::Failure(Reason), false};
}

static FToolOutcome RunLine(IToolHost& Tools, const std::string_view Line)
{
	std::string Error;
	if (!JsonUtf8::Check(Line, Error))
	{
		return Fail("The line is not JSON: " + Error);
	}
	FJsonFields Call;
	if (Call.Read(Line) != FJsonFields::EOutcome::Read)
	{
		return Fail("The line is not a JSON object");
	}
	const std::optional<std::string> Tool = Call.FindString("tool");
	if (!Tool)
	{
		return Fail("The line has no \"tool\"");
	}
	const std::string* Arguments = Call.Find("arguments");
	return Tools.CallTool(*Tool, Arguments ? *Arguments : "{}");
}
} // namespace RunCommandPrivate

/** morvane run SCRIPT.jsonl */
class FRunCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Word(
			"SCRIPT", Script, R"(File with one {"tool": ..., "arguments": {...}} a line, - for standard input)");
	}

	/** A failed call does not end the script, but a result that cannot be written does: nobody would know of the rest.
	 */
	EExitStatus Run(const FCommandContext& Context) override
	{
		const std::optional<std::string> Text = ReadInput(Script);
		if (!Text)
		{
			return EExitStatus::Misused;
		}
		const std::unique_ptr<IToolHost> Tools = Context.MakeToolHost(Context.Options);
		bool bAllSucceeded = true;
		const auto Report = [&](const FToolOutcome& Outcome)
		{
			bAllSucceeded = bAllSucceeded && Outcome.bSuccess;
			Context.Print(Outcome.ResultJson);
		};
		FLineReader Lines(
			MaxMessageBytes,
			[&](const std::string_view Line)
			{
				if (Context.Output.GetError() == 0)
				{
					Report(RunCommandPrivate::RunLine(*Tools, Line));
				}
			},
			[&] { Report(RunCommandPrivate::Fail("The line is too long")); });
		Lines.Feed(*Text);
		Lines.Finish();
		return bAllSucceeded ? EExitStatus::Succeeded : EExitStatus::Failed;
	}

private:
	std::string Script;
};

std::unique_ptr<ICommand> MakeRunCommand()
{
	return std::make_unique<FRunCommand>();
}
