#include "BlueprintNodesCommonOperation.h"

#include "AssetOperationBase.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Operations/Graph/GraphModification.h"
#include "Operations/Graph/ModifyRun.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Graph/SignatureFollowing.h"
#include "Utils/Request/RequiredField.h"

namespace BlueprintNodesCommonSteps
{
/** The steps of a run, in their order; false once one of them has ended it. */
static bool Walk(FModifyRun& Run)
{
	if (!Run.LoadBlueprint() || !Run.ApplyGraphAction() || !Run.IsEngineReady())
	{
		return false; // the step has told why
	}
	Run.Begin();
	Run.SetPurity();
	Run.RemoveNodes();
	Run.RemoveConnections();
	Run.ModifyNodes();
	Run.RefuseAdditions();
	Run.MarkModified();
	Run.FormatNodes();
	Run.ProcessLocalVariables();
	Run.TrackChanges();
	Run.Close();
	Run.Save();
	return true;
}
} // namespace BlueprintNodesCommonSteps

void FBlueprintNodesCommonOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FString Path;
	if (RequireStringField(Args, Morvane::ToolInfo::FieldName_Path, Path, Result))
	{
		ModifyBlueprintFromJson(Args, Result);
	}
}

void FBlueprintNodesCommonOperation::ModifyBlueprintFromJson(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FBPGraphModification Modification;
	if (ParseJsonToModification(Args, Modification, Result))
	{
		Modification.bFromTool = true;
		ProcessModification(Modification, Result, [](Morvane::FToolResult&) {});
	}
	else if (Result.GetErrorMessages().IsEmpty())
	{
		const TSharedRef<FJsonObject> Failure = MakeShared<FJsonObject>();
		Failure->SetStringField(TEXT("message"), TEXT("Failed to parse JSON input"));
		Failure->SetStringField(TEXT("type"), TEXT("parse_error"));
		Result.AddErrorMessage(FAssetOperationBase::SerializeJson(Failure));
	}
}

void FBlueprintNodesCommonOperation::ProcessModification(
	const FBPGraphModification& Modification, Morvane::FToolResult& Result, const FCompletion& OnComplete)
{
	FModifyRun Run(Modification, Result);
	BlueprintNodesCommonSteps::Walk(Run);
	if (OnComplete)
	{
		OnComplete(Result);
	}
}

bool FBlueprintNodesCommonOperation::SetIsPureOnBlueprintFunctionGraph(const UBlueprint* Blueprint,
	const UEdGraph* Graph, const FBPGraphModification& Modification, Morvane::FToolResult& Result)
{
	if (!Blueprint || !Graph)
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Failed to set is_pure on graph, Could not get Function from Graph: %s"), *Modification.GraphName));
		return false;
	}
	return SignatureFollowing::SetPure(
		const_cast<UBlueprint&>(*Blueprint), const_cast<UEdGraph&>(*Graph), Modification.bIsPure.Get(false), Result);
}
