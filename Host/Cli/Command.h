#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Server/ResultOutput.h"
#include "Server/ToolHost.h"

namespace CLI
{
class App;
}

/** What the process answers to its caller. */
enum class EExitStatus : int
{
	Succeeded = 0,
	/** The tool, or one of several, failed. */
	Failed = 1,
	/** Nothing was run, as the command line makes no sense. */
	Misused = 2
};

/** Options that every command takes. */
struct FHostOptions
{
	/** The project folder; empty means the current one. */
	std::string ProjectDir;
	/** Makes the ids of new nodes and assets repeatable. */
	std::optional<uint64_t> Seed;
	/** Results on several lines. */
	bool bPretty = false;
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
	virtual void Describe(CLI::App& App) = 0;

	virtual EExitStatus Run(const FCommandContext& Context) = 0;
};

/** A complaint on standard error. */
void Complain(const std::string& Text);
