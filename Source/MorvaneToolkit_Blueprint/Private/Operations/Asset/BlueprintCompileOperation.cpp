#include "BlueprintCompileOperation.h"

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "Engine/Blueprint.h"
#include "HAL/PlatformTime.h"
#include "JsonReading.h"
#include "ToolResult.h"
#include "Utils/Report/JsonTexts.h"

namespace BlueprintCompileBatch
{
/** One call of the tool: the Blueprints in order, then the report. */
class FCompileRun
{
public:
	explicit FCompileRun(Morvane::FToolResult& InResult)
		: Result(InResult)
	{
	}

	void CompilePath(const FString& Path)
	{
		const double BlueprintStart = FPlatformTime::Seconds();
		const TSharedPtr<FJsonObject> Record = MakeShared<FJsonObject>();
		Record->SetStringField(TEXT("path"), Path);
		const bool bSucceeded = CompileOne(Path, *Record);
		(bSucceeded ? NumSucceeded : NumFailed) += 1;
		Record->SetBoolField(TEXT("success"), bSucceeded);
		Record->SetNumberField(TEXT("duration_ms"), (FPlatformTime::Seconds() - BlueprintStart) * 1000.0);
		Records.Add(MakeShared<FJsonValueObject>(Record));
	}

	void Report()
	{
		ReportOutcome();
		for (const FString& Line : WarningLines)
		{
			Result.AddWarningMessage(Line);
		}
		for (const FString& Line : ErrorLines)
		{
			Result.AddErrorMessage(Line);
		}
		const TSharedPtr<FJsonObject> Telemetry = MakeShared<FJsonObject>();
		Telemetry->SetArrayField(TEXT("blueprints"), Records);
		Result.SetData(TEXT("telemetry"), Telemetry);
		Result.SetData(TEXT("duration_seconds"), FString::Printf(TEXT("%.6f"), FPlatformTime::Seconds() - StartTime));
	}

private:
	bool CompileOne(const FString& Path, FJsonObject& Record)
	{
		UBlueprint* const Blueprint = FBlueprintUtils::LoadBlueprint(Path, Result);
		if (!Blueprint)
		{
			ErrorLines.Add(FString::Printf(TEXT("[%s] Failed to load Blueprint"), *Path));
			return false;
		}
		FString Reason;
		if (!FAssetOperationBase::IsSavable(*Blueprint, Reason))
		{
			Record.SetBoolField(TEXT("saved"), false);
			ErrorLines.Add(FString::Printf(TEXT("[%s] Not compiled, since it cannot be saved: %s"), *Path, *Reason));
			return false;
		}
		TArray<FString> Errors;
		TArray<FString> Warnings;
		TArray<FString> Notes;
		const bool bCompiled = FBlueprintUtils::CompileBlueprintWithResults(Blueprint, false, Errors, Warnings, &Notes);
		const bool bSaved = bCompiled && FBlueprintUtils::SaveBlueprint(Blueprint);
		NumSaved += bSaved ? 1 : 0;
		if (bCompiled && !bSaved)
		{
			WarningLines.Add(FString::Printf(TEXT("[%s] Compiled successfully but failed to save"), *Path));
		}
		Record.SetBoolField(TEXT("saved"), bSaved);
		if (!Notes.IsEmpty())
		{
			// Nothing that an agent has to act on, such as nodes that nothing executes, but it may look here for them.
			Record.SetArrayField(TEXT("notes"), ToJsonTexts(Notes));
		}
		for (const FString& Error : Errors)
		{
			ErrorLines.Add(FString::Printf(TEXT("[%s] %s"), *Path, *Error));
		}
		for (const FString& Warning : Warnings)
		{
			WarningLines.Add(FString::Printf(TEXT("[%s] %s"), *Path, *Warning));
		}
		return bCompiled;
	}

	/** The message at the head of the report. That some failed is a warning: the error lines below say what went wrong.
	 */
	void ReportOutcome()
	{
		const int32 NumTotal = NumSucceeded + NumFailed;
		if (NumSucceeded == 0)
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Failed to compile all %d Blueprint(s)"), NumTotal));
		}
		else if (NumFailed > 0)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Compiled %d/%d Blueprint(s) successfully (%d failed)"), NumSucceeded, NumTotal, NumFailed));
		}
		else if (WarningLines.IsEmpty())
		{
			Result.AddSuccessMessage(
				FString::Printf(TEXT("Successfully compiled and saved %d Blueprint(s)"), NumSaved));
		}
		else
		{
			Result.AddSuccessMessage(
				FString::Printf(TEXT("Successfully compiled and saved %d Blueprint(s) with %d warning(s)"), NumSaved,
					WarningLines.Num()));
		}
	}

	Morvane::FToolResult& Result;
	const double StartTime = FPlatformTime::Seconds();
	int32 NumSucceeded = 0;
	int32 NumFailed = 0;
	/** Of those that succeeded. One that could not be saved is told as a warning and not counted as saved. */
	int32 NumSaved = 0;
	TArray<FString> WarningLines;
	TArray<FString> ErrorLines;
	TArray<TSharedPtr<FJsonValue>> Records;
};
} // namespace BlueprintCompileBatch

void FBlueprintCompileOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	const TArray<TSharedPtr<FJsonValue>>* Paths = nullptr;
	if (!Args.TryGetArrayField(TEXT("blueprint_paths"), Paths))
	{
		Result.AddErrorMessage(TEXT("Missing required field 'blueprint_paths'"));
		return;
	}
	if (Paths->IsEmpty())
	{
		Result.AddWarningMessage(TEXT("No Blueprints specified for compilation"));
		return;
	}
	BlueprintCompileBatch::FCompileRun Run(Result);
	for (const TSharedPtr<FJsonValue>& Path : *Paths)
	{
		FString Name;
		MorvaneJson::TryGetString(*Path, Name);
		Run.CompilePath(FAssetOperationBase::ResolveBlueprintPath(Name));
	}
	Run.Report();
}
