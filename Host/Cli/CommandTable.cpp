#include "Cli/CommandTable.h"

const std::vector<FCommandRow>& GetCommandTable()
{
	static const std::vector<FCommandRow> Rows = {
		{"serve", "Serve the tools to an agent over MCP on standard input and output", &MakeServeCommand},
		{"call", "Call one tool and print its result", &MakeCallCommand},
		{"run", "Call the tools of a script, one result a line", &MakeRunCommand},
		{"tools", "List the tools", &MakeToolsCommand},
		{"demo", "Play a session in a temporary project, printing each call and its result", &MakeDemoCommand},
	};
	return Rows;
}
