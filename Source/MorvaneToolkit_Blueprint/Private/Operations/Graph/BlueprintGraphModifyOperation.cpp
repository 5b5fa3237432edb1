#include "BlueprintGraphModifyOperation.h"

#include "PopulateRun.h"
#include "ToolResult.h"

void FBlueprintGraphModifyOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FPopulateRun Run(Args, Result);
	if (!Run.ReadArguments() || !Run.LoadOrCreateBlueprint() || !Run.FindGraph())
	{
		return; // the step has told why
	}
	Run.OpenForEdit();
	if (!Run.ReadLocalVariables())
	{
		return; // before any node exists
	}
	Run.ReadNodes();
	Run.TakeBackUnsavedRun();
	if (!Run.ApplyLocalVariables())
	{
		return;
	}

	Run.SpawnCustomEvents(); // first, so that later nodes can bind to them
	Run.SpawnOtherNodes();
	Run.ConnectPins();
	Run.TraceTouchedNodes();
	Run.ReportHalfConnectedNodes();
	Run.SummarizeSession();
	Run.FormatNodes();
	Run.DescribeCreatedNodes();
	if (!Result.WasSuccessful())
	{
		return; // telemetry and data stay; nothing is marked, saved or called a success
	}

	Run.MarkModified();
	Run.TrackChanges();
	Run.ReportCounts();
	Run.ListCreatedNodes();
	Run.Save();
}
