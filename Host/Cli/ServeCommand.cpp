#include <unistd.h>

#include "Cli/CommandTable.h"
#include "Server/StdioServer.h"

/** morvane serve */
class FServeCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Option(
			"--http", HttpPort, "Serve Streamable HTTP on this port of 127.0.0.1 (not available yet)", "PORT");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		if (HttpPort)
		{
			Complain("Streamable HTTP is not available yet. Run without --http to serve on standard input and output.");
			return EExitStatus::Misused;
		}
		// Before the tools and after them: a signal at any moment ends the process in order.
		const FStopSignal Stop;
		const FStopDeadline Deadline(Stop);
		const std::unique_ptr<IToolHost> Tools = Context.MakeToolHost(Context.Options);
		FStdioServer(*Tools, Stop, STDIN_FILENO, Context.Output.GetDescriptor()).Run();
		return EExitStatus::Succeeded;
	}

private:
	std::optional<int> HttpPort;
};

std::unique_ptr<ICommand> MakeServeCommand()
{
	return std::make_unique<FServeCommand>();
}
