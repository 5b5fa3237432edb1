// The reads that are not of one item by name: the whole Blueprint, an event, a widget tree.

#include "BlueprintReadOperations.h"

#include "AssetOperationBase.h"
#include "BlueprintReadUtils.h"
#include "JsonReading.h"
#include "Operations/Read/ReadStatus.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Request/RequiredField.h"

namespace OtherReads
{
namespace ToolInfo = Morvane::ToolInfo;

static TSharedPtr<FJsonObject> MakeCommand(const FJsonObject& Args, const FString& Path, const TCHAR* ReadTool)
{
	const TSharedPtr<FJsonObject> Command = MakeShared<FJsonObject>();
	Command->SetStringField(TEXT("path"), Path);
	Command->SetStringField(ToolInfo::FieldName_ReadTool, ReadTool);
	ReadDetail::Pass(Args, *Command);
	return Command;
}

/** One name or several; none where the field holds neither. */
static TArray<TSharedPtr<FJsonValue>> ReadWidgetNames(const FJsonObject& Args)
{
	FString Name;
	const TArray<TSharedPtr<FJsonValue>>* Names = nullptr;
	if (Args.TryGetArrayField(TEXT("widget_name"), Names))
	{
		return *Names;
	}
	return MorvaneJson::TryGetStringField(Args, TEXT("widget_name"), Name) && !Name.IsEmpty()
		? TArray<TSharedPtr<FJsonValue>>{MakeShared<FJsonValueString>(Name)}
		: TArray<TSharedPtr<FJsonValue>>();
}

static bool IsEmptyRead(const FString& Text)
{
	return Text.IsEmpty() || Text == TEXT("{}");
}
} // namespace OtherReads

void FBlueprintEventReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	using namespace OtherReads;
	FString Path;
	FString GraphName;
	FString EventName;
	if (!RequireStringField(Args, TEXT("path"), Path, Result)
		|| !RequireStringField(Args, TEXT("graph_name"), GraphName, Result)
		|| !RequireStringField(Args, TEXT("event_name"), EventName, Result))
	{
		return;
	}
	Path = FAssetOperationBase::ResolveBlueprintPath(Path);
	const TSharedPtr<FJsonObject> Event = MakeShared<FJsonObject>();
	Event->SetStringField(ToolInfo::FieldName_EventName, EventName);
	// The graph's name goes along for the record; all event pages are searched.
	const TSharedPtr<FJsonObject> Command = MakeCommand(Args, Path, ToolInfo::ToolName_ReadBlueprintEvent);
	Command->SetStringField(ToolInfo::FieldName_GraphName, GraphName);
	Command->SetStringField(ToolInfo::FieldName_EventName, EventName);
	Command->SetArrayField(ToolInfo::FieldName_Events, {MakeShared<FJsonValueObject>(Event)});
	const FString AssetName = FAssetOperationBase::GetAssetNameFromPath(Path);
	const FString Text = FBlueprintReadUtils::ReadBlueprint(Command, Result);
	if (IsEmptyRead(Text))
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT("Failed to read event '%s' from graph '%s' in Blueprint: %s"), *EventName, *GraphName, *AssetName));
		return;
	}
	Result.SetData(TEXT("content"), Text);
	if (!Result.WasSuccessful())
	{
		return;
	}
	if (ReadStatus::IsEventMissing(Text))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("'%s' event does not exist in graph '%s' in Blueprint: %s"), *EventName, *GraphName, *AssetName));
		return;
	}
	Result.AddSuccessMessage(FString::Printf(
		TEXT("Successfully read event '%s' from graph '%s' in Blueprint: %s"), *EventName, *GraphName, *AssetName));
}

void FBlueprintReadSchemaOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	using namespace OtherReads;
	FString Path;
	if (!RequireStringField(Args, TEXT("path"), Path, Result))
	{
		return;
	}
	Path = FAssetOperationBase::ResolveBlueprintPath(Path);
	if (!FAssetOperationBase::AssetExists(Path))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Blueprint does not exist: %s"), *Path));
		Result.AddErrorMessage(TEXT("Cannot read schema for non-existent Blueprint. The asset may have been deleted."));
		const FString Reason = FAssetOperationBase::AskWhyNotLoaded(Path);
		if (!Reason.IsEmpty())
		{
			Result.AddErrorMessage(Reason);
		}
		return;
	}
	const FString Text = FBlueprintReadUtils::ReadBlueprint(
		MakeCommand(Args, Path, ToolInfo::ToolName_ReadBlueprintSchema), Result);
	if (IsEmptyRead(Text))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to read schema at path: %s"), *Path));
		return;
	}
	Result.SetData(TEXT("content"), Text);
	Result.AddSuccessMessage(FString::Printf(
		TEXT("Successfully read schema for Blueprint: %s"), *FAssetOperationBase::GetAssetNameFromPath(Path)));
}

void FWidgetBlueprintWidgetTreeReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	using namespace OtherReads;
	FString Path;
	if (!RequireStringField(Args, TEXT("path"), Path, Result))
	{
		return;
	}
	Path = FAssetOperationBase::ResolveBlueprintPath(Path);
	const TSharedPtr<FJsonObject> Command = MakeCommand(Args, Path, ToolInfo::ToolName_ReadBlueprintWidgetTree);
	const TArray<TSharedPtr<FJsonValue>> WidgetNames = OtherReads::ReadWidgetNames(Args);
	if (!WidgetNames.IsEmpty())
	{
		Command->SetArrayField(TEXT("widget_name"), WidgetNames);
	}
	const FString Text = FBlueprintReadUtils::ReadBlueprint(Command, Result);
	if (IsEmptyRead(Text))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to read widget_tree at path: %s"), *Path));
		return;
	}
	Result.SetData(TEXT("content"), Text);
	const FString AssetName = FAssetOperationBase::GetAssetNameFromPath(Path);
	const TArray<FString> Missing = WidgetNames.IsEmpty() ? TArray<FString>()
														  : ReadStatus::FindMissingWidgets(Text, WidgetNames);
	for (const FString& Name : Missing)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("'%s' widget does not exist in Widget Blueprint: %s"), *Name, *AssetName));
	}
	if (WidgetNames.IsEmpty() || Missing.Num() < WidgetNames.Num())
	{
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Successfully read widget_tree from Widget Blueprint: %s"), *AssetName));
	}
}
