#pragma once

#include <memory>
#include <string>

#include "CoreMinimal.h"
#include "Session/HostOptions.h"
#include "ToolFace/ToolHost.h"

namespace Morvane
{
class FToolResult;
}

/**
 * The tools of this process at work on one project.
 *
 * Making a session touches nothing: the project is opened, and locked, by the first call. A project that another
 * process owns makes that call fail; the next one tries again. The destructor gives the project back and tells on
 * standard error what is left unsaved. Game thread only, one session at a time.
 */
class FEditorSession : public IToolHost
{
public:
	explicit FEditorSession(const FHostOptions& InOptions);
	~FEditorSession() override;
	FEditorSession(const FEditorSession&) = delete;
	FEditorSession& operator=(const FEditorSession&) = delete;

	std::vector<FToolListing> ListTools() override;
	FToolOutcome CallTool(std::string_view Name, std::string_view ArgumentsJson) override;
	std::vector<FResourceListing> ListResources() override;
	FResourceOutcome ReadResource(std::string_view Uri) override;
	FCompletions Complete(ENameKind Kind, std::string_view Typed) override;

	/** Opens the project unless it is open; false with a sentence in OutError. For commands that work without a tool.
	 */
	bool OpenProject(FString& OutError);

private:
	bool BeginLook(FString& OutError);
	void LoadCatalogue(const FString& Directory);
	void AddFileProblems(Morvane::FToolResult& Result);

	const FString ProjectDir;
	/** What is wrong with the project's own catalogue files; handed out with the first result. */
	TArray<FString> CatalogueFaults;
	uint64 NumCalls = 0;
};

/** A session for the command line. */
std::unique_ptr<IToolHost> MakeEditorSession(const FHostOptions& Options);
