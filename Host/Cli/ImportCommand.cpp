#include "AssetOperationBase.h"
#include "Cli/CommandTable.h"
#include "Containers/StringConv.h"
#include "Misc/PackageName.h"
#include "Session/EditorSession.h"
#include "Standalone/PackageText.h"
#include "ToolFace/ResultObject.h"
#include "ToolResult.h"

namespace ImportCommandPrivate
{
/** An asset of the editor's own binary package, copied into a text package that the tools can change. */
static void Import(const FString& Path, const FString& Target, Morvane::FToolResult& Result)
{
	const FString Source = FAssetOperationBase::NormalizeAssetPath(Path);
	const FString Wanted = Target.IsEmpty() ? Source : FAssetOperationBase::NormalizeAssetPath(Target);
	const FString File = FPackageText::FindEngineAsset(Source);
	if (File.IsEmpty())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("There is no binary package (.uasset or .umap) at '%s'"), *Source));
		return;
	}
	TArray<FString> Warnings;
	FString Error;
	if (!FPackageText::ImportBinary(File, Wanted, Warnings, Error))
	{
		Result.AddErrorMessage(Error);
		return;
	}
	for (const FString& Warning : Warnings)
	{
		Result.AddWarningMessage(Warning);
	}
	Result.SetData(TEXT("path"), Wanted);
	Result.AddSuccessMessage(FString::Printf(TEXT("Imported %s as %s"), *File, *Wanted));
}
} // namespace ImportCommandPrivate

/** morvane import PATH [--to PATH] */
class FImportCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Word("PATH", Path, "Asset path of a binary package (.uasset, .umap), such as /Game/Doors/BP_Door");
		Arguments.Option("--to", Target, "Path of the text package to make; the same path by default");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		FEditorSession Session(Context.Options);
		Morvane::FToolResult Result(Morvane::FToolCommand(TEXT("import"), TEXT("import"), TEXT("{}")));
		FString Error;
		if (Session.OpenProject(Error))
		{
			ImportCommandPrivate::Import(FromUtf8(Path), FromUtf8(Target), Result);
		}
		else
		{
			Result.AddErrorMessage(Error);
		}
		Context.Print(ResultObject::Write(Result));
		return Result.WasSuccessful() ? EExitStatus::Succeeded : EExitStatus::Failed;
	}

private:
	std::string Path;
	std::string Target;
};

std::unique_ptr<ICommand> MakeImportCommand()
{
	return std::make_unique<FImportCommand>();
}
