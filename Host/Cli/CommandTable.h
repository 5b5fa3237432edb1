#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Cli/Arguments.h"
#include "Cli/Command.h"

/** One command of the program. */
struct FCommandRow
{
	std::string Name;
	std::string Summary;
	std::unique_ptr<ICommand> (*Make)();
};

/** All commands, in the order in which the help shows them. To add one: a file with its Make function here, and a row.
 */
const std::vector<FCommandRow>& GetCommandTable();

std::unique_ptr<ICommand> MakeServeCommand();
std::unique_ptr<ICommand> MakeCallCommand();
std::unique_ptr<ICommand> MakeRunCommand();
std::unique_ptr<ICommand> MakeToolsCommand();
std::unique_ptr<ICommand> MakeMenuCommand();
std::unique_ptr<ICommand> MakeNodeCommand();
std::unique_ptr<ICommand> MakeAssetsCommand();
std::unique_ptr<ICommand> MakeCopyCommand();
std::unique_ptr<ICommand> MakePasteCommand();
std::unique_ptr<ICommand> MakeImportCommand();
std::unique_ptr<ICommand> MakeCatalogueCommand();
std::unique_ptr<ICommand> MakeDemoCommand();
