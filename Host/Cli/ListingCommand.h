#pragma once

#include <string>
#include <vector>

#include "Cli/Command.h"

/** A command that lists what the project or the editor knows: a line each, or with --json an array of objects. */
class IListingCommand : public ICommand
{
public:
	EExitStatus Run(const FCommandContext& Context) final;

protected:
	/** The project is open. */
	virtual void Answer(const FCommandContext& Context) const = 0;

	/** Each row is a JSON object or a line of text, as bJson says. */
	void Write(const FCommandContext& Context, const std::vector<std::string>& Rows) const;

	bool bJson = false;
};
