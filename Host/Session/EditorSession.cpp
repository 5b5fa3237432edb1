#include "Session/EditorSession.h"

#include <filesystem>

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Knowledge/ProjectResources.h"
#include "MorvaneToolkitModule.h"
#include "Session/EditorModules.h"
#include "Session/UnsavedPackages.h"
#include "Standalone/Catalogue.h"
#include "Standalone/GuidGenerator.h"
#include "Standalone/JsonUtf8.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/PackageText.h"
#include "Standalone/Project.h"
#include "Support/Complaint.h"
#include "ToolFace/ArgumentCheck.h"
#include "ToolFace/ResultObject.h"
#include "ToolResult.h"
#include "UObject/UObjectGlobals.h"

namespace EditorSessionPrivate
{
static FString GetProjectDir(const FHostOptions& Options)
{
	std::error_code Ignored;
	const std::string Directory = Options.ProjectDir.empty() ? "." : Options.ProjectDir;
	const std::filesystem::path Path = std::filesystem::absolute(Directory, Ignored).lexically_normal();
	const bool bDescriptor = Path.extension() == ".uproject" && std::filesystem::is_regular_file(Path, Ignored);
	return FromUtf8((bDescriptor ? Path.parent_path() : Path).string());
}

/** A project begins with its first call, so a folder that is not there yet is made, but never the one above it. */
static bool EnsureFolder(const FString& Directory, FString& OutError)
{
	std::error_code Error;
	const std::filesystem::path Path = ToUtf8(Directory);
	if (!std::filesystem::is_directory(Path, Error))
	{
		std::filesystem::create_directory(Path, Error);
	}
	if (Error)
	{
		OutError = FString::Printf(
			TEXT("The project folder '%s' cannot be made: %s"), *Directory, *FromUtf8(Error.message()));
	}
	return !Error;
}

/**
 * The tool parses its arguments by itself and says so when they are none. What it cannot say is where the fault stands;
 * nor can text that is not UTF-8 be handed to it, so it gets an empty text in place of a broken one.
 */
static FString ReadArguments(const std::string_view Json, Morvane::FToolResult& Result)
{
	std::string Fault;
	if (JsonUtf8::Check(Json, Fault))
	{
		return FromUtf8(Json);
	}
	Result.AddWarningMessage(FString::Printf(TEXT("The arguments are not JSON: %s"), *FromUtf8(Fault)));
	return FString();
}

/** The tool reads what it knows and passes over the rest, so what it passed over is told here, for all tools alike. */
static void TellUnread(const std::string_view Name, const std::string_view Json, Morvane::FToolResult& Result)
{
	TSharedPtr<FJsonObject> Arguments;
	FString NotJson;
	if (JsonUtf8::Parse(Json, Arguments, NotJson) && Arguments)
	{
		ArgumentCheck::AddWarnings(Name, *Arguments, Result);
	}
}

/**
 * Other programs work on the same files: a checkout, a second editor. What they changed is read afresh by this call,
 * without a word; what went missing or cannot be taken in is told.
 */
static void TakeInForeignChanges(Morvane::FToolResult& Result)
{
	for (const FPackageText::FForeignChange& Change : FPackageText::TakeInForeignChanges())
	{
		if (Change.bOnlyRead)
		{
			continue; // the call that changed it has told
		}
		if (!Change.HeldBy.IsEmpty())
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"'%s' is shown as it was: another program has changed %s, but '%s', which uses it, stands changed in memory. It is read afresh once that is saved."),
				*Change.PackageName, *Change.Filename, *Change.HeldBy));
		}
		else if (Change.bDeleted)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("'%s' is gone: another program has deleted %s."), *Change.PackageName, *Change.Filename));
		}
		else if (Change.bDroppedChanges)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"'%s' is read afresh, as another program has changed %s; what stood changed in memory and could not be saved is dropped."),
				*Change.PackageName, *Change.Filename));
		}
	}
}
} // namespace EditorSessionPrivate

FEditorSession::FEditorSession(const FHostOptions& InOptions)
	: ProjectDir(EditorSessionPrivate::GetProjectDir(InOptions))
{
	if (InOptions.Seed)
	{
		FGuidGenerator::Seed(*InOptions.Seed);
	}
	EditorModules::StartTools();
}

FEditorSession::~FEditorSession()
{
	if (FProject::IsOpen())
	{
		const TArray<FString> Names = UnsavedPackages::List();
		if (!Names.IsEmpty())
		{
			Complain("Not saved and lost: " + ToUtf8(FString::Join(Names, TEXT(", "))));
		}
		FProject::Close();
	}
	EditorModules::StopTools();
}

std::vector<FToolListing> FEditorSession::ListTools()
{
	std::vector<FToolListing> Listed;
	const TSharedPtr<IToolExecutor> Executor = FMorvaneToolkitModule::GetToolExecutor();
	for (const FString& Name : Executor->GetToolNames())
	{
		Listed.push_back({ToUtf8(Name), ToUtf8(Executor->FindTool(Name)->GetDescription())});
	}
	return Listed;
}

FToolOutcome FEditorSession::CallTool(const std::string_view Name, const std::string_view ArgumentsJson)
{
	const FString ToolName = FromUtf8(Name);
	const FString CommandId = LexToString(++NumCalls);
	const auto Result = MakeShared<Morvane::FToolResult>(Morvane::FToolCommand(CommandId, ToolName, FString()));
	FString Error;
	if (!OpenProject(Error))
	{
		Result->AddErrorMessage(Error);
		return {ResultObject::Write(*Result, UnsavedPackages::List()), false};
	}
	EditorSessionPrivate::TakeInForeignChanges(*Result);
	FMissingObjects::LoadAndBind();
	const Morvane::FToolCommand Command(
		CommandId, ToolName, EditorSessionPrivate::ReadArguments(ArgumentsJson, *Result));
	FMorvaneToolkitModule::GetToolExecutor()->ExecuteTool(
		Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	EditorSessionPrivate::TellUnread(Name, ArgumentsJson, *Result);
	UnsavedPackages::EndCall(*Result);
	AddFileProblems(*Result);
	FToolOutcome Outcome = {ResultObject::Write(*Result, UnsavedPackages::List()), Result->WasSuccessful()};
	CollectGarbage();
	return Outcome;
}

std::vector<FResourceListing> FEditorSession::ListResources()
{
	return FProject::IsOpen() ? ProjectResources::ListBlueprints() : std::vector<FResourceListing>();
}

FResourceOutcome FEditorSession::ReadResource(const std::string_view Uri)
{
	const std::optional<FResourceUri> Parsed = FResourceUri::Parse(Uri);
	if (!Parsed)
	{
		const bool bOurs = Uri.starts_with("morvane://");
		return {{}, FResourceOutcome::EFault::Unknown,
			bOurs ? "A percent sign in it is not followed by two hex digits" : "Addresses begin with morvane://"};
	}
	FString Error;
	if (!BeginLook(Error))
	{
		return {{}, FResourceOutcome::EFault::Unavailable, ToUtf8(Error)};
	}
	const FResourceOutcome Outcome = ProjectResources::Read(*Parsed, *this);
	CollectGarbage();
	return Outcome;
}

FCompletions FEditorSession::Complete(const ENameKind Kind, const std::string_view Typed)
{
	FString Error;
	if (Kind == ENameKind::None || !BeginLook(Error))
	{
		return FCompletions();
	}
	return ProjectResources::Complete(Kind, FromUtf8(Typed));
}

/** What other programs have changed on disk is taken in by the next tool call, which has a result to tell it in. */
bool FEditorSession::BeginLook(FString& OutError)
{
	if (!OpenProject(OutError))
	{
		return false;
	}
	FMissingObjects::LoadAndBind();
	return true;
}

/**
 * A tool says that an asset cannot be found or saved; here is why: the truncated file, the full disk. What the tool has
 * quoted is not said twice.
 */
void FEditorSession::AddFileProblems(Morvane::FToolResult& Result)
{
	TArray<FString> Problems = MoveTemp(CatalogueFaults);
	CatalogueFaults.Empty();
	Problems.Append(FPackageText::TakeProblems());
	for (const FString& Problem : Problems)
	{
		const bool bQuoted = Result.GetErrorMessages().ContainsByPredicate(
			[&Problem](const FString& Error) { return Error.Contains(Problem, ESearchCase::CaseSensitive); });
		if (!bQuoted)
		{
			Result.AddWarningMessage(Problem);
		}
	}
}

bool FEditorSession::OpenProject(FString& OutError)
{
	if (FProject::IsOpen())
	{
		return FProject::KeepLock(OutError);
	}
	EditorModules::StartEditor();
	if (!EditorSessionPrivate::EnsureFolder(ProjectDir, OutError) || !FProject::Open(ProjectDir, OutError))
	{
		return false;
	}
	LoadCatalogue(FProject::GetDirectory());
	return true;
}

/** A file with a fault is left out; the rest of the project works. */
void FEditorSession::LoadCatalogue(const FString& Directory)
{
	FCatalogue::Get().LoadProjectCatalogue(Directory, CatalogueFaults);
	for (const FString& Fault : CatalogueFaults)
	{
		Complain(ToUtf8(Fault));
	}
}

std::unique_ptr<IToolHost> MakeEditorSession(const FHostOptions& Options)
{
	return std::make_unique<FEditorSession>(Options);
}
