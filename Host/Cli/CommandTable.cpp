#include "Cli/CommandTable.h"

const std::vector<FCommandRow>& GetCommandTable()
{
	static const std::vector<FCommandRow> Rows = {
		{"serve", "Serve the tools to an agent over MCP on standard input and output", &MakeServeCommand},
		{"call", "Call one tool and print its result", &MakeCallCommand},
		{"run", "Call the tools of a script, one result a line", &MakeRunCommand},
		{"tools", "List the tools", &MakeToolsCommand},
		{"menu", "List every action of the graph menu: title, category, node class", &MakeMenuCommand},
		{"node", "Print the pins of a node that is given by its title, or by its identity as JSON", &MakeNodeCommand},
		{"assets", "List the project's assets, or those of the engine that can be referred to", &MakeAssetsCommand},
		{"copy", "Print a graph's nodes as text that the editor can paste", &MakeCopyCommand},
		{"paste", "Paste nodes from text on standard input into a graph and save the asset", &MakePasteCommand},
		{"import", "Make a text copy of a binary package of the editor, which the tools can change",
			&MakeImportCommand},
		{"catalogue", "Make the classes of the project's C++ headers known to the tools", &MakeCatalogueCommand},
		{"demo", "Play a session in a temporary project, printing each call and its result", &MakeDemoCommand},
	};
	return Rows;
}
