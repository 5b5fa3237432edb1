#include "Cli/CommandTable.h"
#include "ProjectCode/CodeCatalogue.h"
#include "Session/EditorSession.h"
#include "Standalone/Project.h"
#include "ToolFace/ResultObject.h"
#include "ToolResult.h"

/** morvane catalogue [--editor-script] */
class FCatalogueCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Flag("--editor-script", bPrintScript,
			"Print a Python script instead, which writes the same from inside the editor, and more exactly");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		if (bPrintScript)
		{
			Context.Output.WriteLine(CodeCatalogue::GetEditorScript());
			return EExitStatus::Succeeded;
		}
		FEditorSession Session(Context.Options);
		Morvane::FToolResult Result(Morvane::FToolCommand(TEXT("catalogue"), TEXT("catalogue"), TEXT("{}")));
		FString Error;
		if (Session.OpenProject(Error))
		{
			CodeCatalogue::Make(FProject::GetDirectory(), Result);
		}
		else
		{
			Result.AddErrorMessage(Error);
		}
		Context.Print(ResultObject::Write(Result));
		return Result.WasSuccessful() ? EExitStatus::Succeeded : EExitStatus::Failed;
	}

private:
	bool bPrintScript = false;
};

std::unique_ptr<ICommand> MakeCatalogueCommand()
{
	return std::make_unique<FCatalogueCommand>();
}
