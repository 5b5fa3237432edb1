#include "MorvaneToolkitBlueprintModule.h"

#include "BlueprintReadUtils.h"
#include "Dom/JsonObject.h"
#include "ModificationReadRegistry.h"
#include "MorvaneToolkitModule.h"
#include "ToolInfo.h"
#include "ToolTable.h"

namespace BlueprintReadTools
{
/** Reads with the parameters that a modification was tracked with; the tool's name in them tells what to read. */
static FModificationReadRegistry::FReader MakeReader(const FString& ToolName)
{
	return [ToolName](const TSharedPtr<FJsonObject>& Parameters, Morvane::FToolResult& Result)
	{
		Parameters->SetStringField(Morvane::ToolInfo::FieldName_ReadTool, ToolName);
		return FBlueprintReadUtils::ReadBlueprint(Parameters, Result);
	};
}

static void Register()
{
	for (const FToolRow& Row : ToolTable::GetRows())
	{
		if (Row.Kind == EToolKind::Read)
		{
			FModificationReadRegistry::Get().RegisterReadTool(
				Row.Name, Morvane::ToolInfo::CategoryName_Blueprint, MakeReader(Row.Name));
		}
	}
}

static void Unregister()
{
	for (const FToolRow& Row : ToolTable::GetRows())
	{
		if (Row.Kind == EToolKind::Read)
		{
			FModificationReadRegistry::Get().UnregisterReadTool(Row.Name);
		}
	}
}
} // namespace BlueprintReadTools

void FMorvaneToolkitBlueprintModule::StartupModule()
{
	// Nothing else says that it was started before this one.
	FModuleManager::LoadModuleChecked<FMorvaneToolkitModule>(TEXT("MorvaneToolkit"));
	const TSharedPtr<IToolExecutor> Executor = FMorvaneToolkitModule::GetToolExecutor();
	if (!Executor.IsValid())
	{
		return;
	}
	ToolHolders.Reset();
	for (const FToolRow& Row : ToolTable::GetRows())
	{
		const TSharedPtr<ITool> Tool = ToolTable::MakeTool(Row);
		ToolHolders.Add(Tool);
		if (Executor->RegisterTool(Row.Name, Tool))
		{
			RegisteredTools.Add(Row.Name);
		}
	}
	BlueprintReadTools::Register();
}

void FMorvaneToolkitBlueprintModule::ShutdownModule()
{
	const TSharedPtr<IToolExecutor> Executor = FMorvaneToolkitModule::GetToolExecutor();
	if (!Executor.IsValid())
	{
		return;
	}
	BlueprintReadTools::Unregister();
	for (const FString& Name : RegisteredTools)
	{
		Executor->UnregisterTool(Name);
	}
	RegisteredTools.Empty();
	for (TSharedPtr<ITool>& Holder : ToolHolders)
	{
		Holder.Reset();
	}
}

IMPLEMENT_MODULE(FMorvaneToolkitBlueprintModule, MorvaneToolkit_Blueprint);
