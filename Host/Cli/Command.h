#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Session/HostOptions.h"
#include "Support/Complaint.h"
#include "Support/ResultOutput.h"
#include "ToolFace/ToolHost.h"

class FArguments;

/** What the process answers to its caller. */
enum class EExitStatus : int
{
	Succeeded = 0,
	/** The tool, or one of several, failed. */
	Failed = 1,
	/** Nothing was run, as the command line makes no sense. */
	Misused = 2
};

/** What a command works with. */
struct FCommandContext
{
	const FHostOptions& Options;
	const FResultOutput& Output;
	/** Starts the tools for the project of the options. They shut down when the pointer goes. */
	std::function<std::unique_ptr<IToolHost>(const FHostOptions&)> MakeToolHost;

	/** One result, as the options want it printed. */
	void Print(const std::string& Json) const;
};

/** One word of the command line: describes its arguments first, is run once they are read. */
class ICommand
{
public:
	virtual ~ICommand() = default;

	/** Adds the command's own arguments. They write into members of this object. */
	virtual void Describe(FArguments& Arguments) = 0;

	virtual EExitStatus Run(const FCommandContext& Context) = 0;
};
