#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Cli/Command.h"

using FMakeToolHost = std::function<std::unique_ptr<IToolHost>(const FHostOptions&)>;

/** Reads the words after the program's name and runs the command they name. Answers the exit status; never throws. */
int RunCommandLine(
	const std::vector<std::string>& Words, const FResultOutput& Output, const FMakeToolHost& MakeToolHost);
