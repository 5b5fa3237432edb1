#include "Cli/CommandLine.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include <CLI/CLI.hpp>

#include "Cli/CommandTable.h"
#include "Server/Identity.h"

namespace CommandLinePrivate
{
struct FEntry
{
	CLI::App* App = nullptr;
	std::unique_ptr<ICommand> Command;
};

/** The folder itself need not exist, since a project begins with its first asset; the one it stands in must. */
static std::string CheckProjectDir(const std::string& Directory)
{
	namespace fs = std::filesystem;
	std::error_code Ignored;
	const fs::path Path = fs::absolute(Directory, Ignored).lexically_normal();
	const fs::path Folder = Path.has_filename() ? Path : Path.parent_path();
	if (fs::is_regular_file(Folder, Ignored) && Folder.extension() == ".uproject")
	{
		return "";
	}
	if (fs::exists(Folder, Ignored))
	{
		return fs::is_directory(Folder, Ignored) ? "" : "The project " + Directory + " is not a folder";
	}
	return fs::is_directory(Folder.parent_path(), Ignored) ? "" : "The project folder " + Directory + " does not exist";
}

static void AddSharedOptions(CLI::App& App, FHostOptions& Options)
{
	App.add_option(
		   "--project", Options.ProjectDir, "Project folder or the .uproject file in it; the current folder by default")
		->type_name("DIR")
		->check(CheckProjectDir);
	App.add_option("--seed", Options.Seed, "Make the ids of new nodes repeatable")->type_name("N");
	App.add_flag("--pretty", Options.bPretty, "Print results on several lines");
}

/** A result that did not reach its reader is no success, whatever the tool did. */
static EExitStatus AfterOutput(const EExitStatus Status, const FResultOutput& Output)
{
	if (Output.GetError() == 0)
	{
		return Status;
	}
	Complain(std::string("The result could not be written: ") + std::strerror(Output.GetError()));
	return Status == EExitStatus::Succeeded ? EExitStatus::Failed : Status;
}

/** Help and version are no faults. They are not results either, but a person who asks for them reads standard output.
 */
static int ExplainParse(CLI::App& App, const CLI::ParseError& Error, const FResultOutput& Output)
{
	if (Error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
	{
		const bool bVersion = dynamic_cast<const CLI::CallForVersion*>(&Error) != nullptr;
		std::string Text = bVersion ? std::string(Error.what()) : App.help();
		while (Text.ends_with('\n'))
		{
			Text.pop_back();
		}
		Output.WriteLine(Text);
		return static_cast<int>(AfterOutput(EExitStatus::Succeeded, Output));
	}
	Complain(std::string(Error.what()) + "\nRun with --help for more information.");
	return static_cast<int>(EExitStatus::Misused);
}

static EExitStatus RunChosen(const std::vector<FEntry>& Entries, const FCommandContext& Context)
{
	const auto Chosen = std::find_if(
		Entries.begin(), Entries.end(), [](const FEntry& Entry) { return Entry.App->parsed(); });
	try
	{
		return Chosen->Command->Run(Context);
	}
	catch (const std::exception& Fault)
	{
		Complain(std::string("Internal fault: ") + Fault.what());
		return EExitStatus::Failed;
	}
}
} // namespace CommandLinePrivate

int RunCommandLine(
	const std::vector<std::string>& Words, const FResultOutput& Output, const FMakeToolHost& MakeToolHost)
{
	CLI::App App("Creates, reads, edits and compiles Unreal Blueprint assets of a project folder.", "morvane");
	App.set_version_flag("--version", "morvane " + std::string(Identity::Version));
	App.require_subcommand(1);
	App.fallthrough();
	FHostOptions Options;
	CommandLinePrivate::AddSharedOptions(App, Options);

	std::vector<CommandLinePrivate::FEntry> Entries;
	for (const FCommandRow& Row : GetCommandTable())
	{
		CLI::App* Subcommand = App.add_subcommand(Row.Name, Row.Summary);
		Entries.push_back({Subcommand, Row.Make()});
		FArguments Arguments(*Subcommand);
		Entries.back().Command->Describe(Arguments);
	}
	try
	{
		// The parser takes its words from the back.
		std::vector<std::string> Reversed(Words.rbegin(), Words.rend());
		App.parse(Reversed);
	}
	catch (const CLI::ParseError& Error)
	{
		return CommandLinePrivate::ExplainParse(App, Error, Output);
	}
	const EExitStatus Status = CommandLinePrivate::RunChosen(Entries, {Options, Output, MakeToolHost});
	return static_cast<int>(CommandLinePrivate::AfterOutput(Status, Output));
}
