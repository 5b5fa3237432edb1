#include "BlueprintGraphCreateOperation.h"

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "MorvaneSettings.h"
#include "Operations/Frame/OperationFrame.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Graph/FunctionGraphs.h"
#include "Utils/Graph/MemberUsers.h"
#include "Utils/Graph/SignatureFollowing.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Request/PopulateRecords.h"
#include "Utils/Request/RequiredField.h"

namespace BlueprintGraphCreate
{
using namespace Morvane;

/** One call: the entries in order, then what they changed together. */
class FCreateRun
{
public:
	FCreateRun(UBlueprint& InBlueprint, FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Path(FBlueprintUtils::GetBlueprintPath(&InBlueprint))
		, Result(InResult)
	{
		for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
		{
			Standing.Add(Graph);
		}
		for (const UEdGraph* const Graph : Blueprint.DelegateSignatureGraphs)
		{
			Standing.Add(Graph);
		}
	}

	void MakeEntry(const TSharedPtr<FJsonValue>& Entry, int32 Index)
	{
		const TSharedPtr<FJsonObject>* Json = nullptr;
		if (!Entry || !Entry->TryGetObject(Json))
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Function at index %d is not a valid object"), Index));
			return;
		}
		FBPFunctionModification Request;
		if (!PopulateRecords::ParseFunction(**Json, Request))
		{
			Result.AddErrorMessage(
				FString::Printf(TEXT("Invalid function specification for '%s' (index %d)"), *Request.Name, Index));
			return;
		}
		if (Request.bHasReturnType && !Request.ReturnType)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"Function '%s' specified a return_type but the type could not be parsed; proceeding with default result node."),
				*Request.Name));
		}
		for (const FString& Name : Request.UnreadableParameters)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Parameter '%s' of function '%s' has a type that could not be parsed; it was left out."), *Name,
				*Request.Name));
		}
		WarnOfUnused(Request);
		Request.bIsDelegate ? MakeDelegate(Request) : MakeFunction(Request);
	}

	void ReportCount()
	{
		Result.SetData(TEXT("functions_created"), FString::FromInt(FunctionNames.Num() + DelegateNames.Num()));
	}

	void Finish()
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		if (!Extended.IsEmpty())
		{
			SignatureFollowing::Refresh(Blueprint, Extended, Result);
		}
		if (LastGraph && GetDefault<UMorvaneSettings>()->bFocusOnModifiedNode)
		{
			FKismetEditorUtilities::BringKismetToFocusAttentionOnObject(LastGraph, false);
		}
		TrackNames(
			ToolInfo::ToolName_ReadBlueprintFunction, Path, ToolInfo::FieldName_FunctionName, FunctionNames, Result);
		TrackNames(
			ToolInfo::ToolName_ReadBlueprintDelegate, Path, ToolInfo::FieldName_DelegateName, DelegateNames, Result);
		if (!FAssetOperationBase::SaveAsset(&Blueprint, Result))
		{
			return; // the helper has told why
		}
		Result.AddSuccessMessage(FString::Printf(TEXT("Created or updated %d function(s) and %d delegate(s) in '%s'"),
			FunctionNames.Num(), DelegateNames.Num(), *Path));
		FString Reason;
		if (!FAssetOperationBase::AddAssetToSourceControl(Path, Reason))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"Blueprint modified successfully, but could not add to source control:\n%s\nPlease manually add the asset in your source control client."),
				*Reason));
		}
		Result.FinalizeModifications();
	}

private:
	/** What is read with the request and changes nothing here. */
	void WarnOfUnused(const FBPFunctionModification& Request)
	{
		if (Request.bIsRepNotify || !Request.ReplicatedProperty.IsEmpty())
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"[Warning] 'is_rep_notify' and 'replicated_property' of function '%s' do nothing here; modify_blueprint_class_structure makes a variable's function with \"replication\": \"rep_notify\"."),
				*Request.Name));
		}
		for (const FBPParameterModification& Parameter : Request.Parameters)
		{
			if (Parameter.Direction.StartsWith(TEXT("out"), ESearchCase::IgnoreCase))
			{
				Result.AddWarningMessage(FString::Printf(
					TEXT(
						"[Warning] Parameter '%s' of function '%s' is an input all the same: '%s' does nothing here; a result is given by return_type."),
					*Parameter.Name, *Request.Name, *Parameter.Direction));
			}
		}
	}

	void MakeDelegate(const FBPFunctionModification& Request)
	{
		UEdGraph* Graph = nullptr;
		if (FBlueprintFunctionGraphUtils::EnsureDelegateSignature(&Blueprint, Request.Name, Graph, Result))
		{
			Configure(Graph, Request, DelegateNames);
		}
	}

	void MakeFunction(const FBPFunctionModification& Request)
	{
		UEdGraph* Graph = nullptr;
		UK2Node_FunctionEntry* Entry = nullptr;
		UK2Node_FunctionResult* ResultNode = nullptr;
		const bool bReady = FBlueprintFunctionGraphUtils::EnsureFunctionGraph(
			&Blueprint, Request.Name, Graph, Entry, ResultNode, Result, Request.bHasReturnType);
		if (bReady && Graph)
		{
			Configure(Graph, Request, FunctionNames);
		}
	}

	void Configure(UEdGraph* Graph, const FBPFunctionModification& Request, TArray<FString>& Names)
	{
		const int32 NumBefore = FBlueprintFunctionGraphUtils::CountEnds(*Graph);
		if (FBlueprintFunctionGraphUtils::ConfigureGraphSignature(&Blueprint, Graph, Request, Result))
		{
			Names.Add(Request.Name);
			LastGraph = Graph;
		}
		if (Standing.Contains(Graph) && FBlueprintFunctionGraphUtils::CountEnds(*Graph) != NumBefore)
		{
			Extended.Append(FDeclaredMembers::OfGraph(Blueprint, *Graph));
		}
	}

	UBlueprint& Blueprint;
	/** The Blueprint's own, whatever path led to it. */
	const FString Path;
	FToolResult& Result;
	/** The graphs from before the call, which others may use by now. */
	TSet<const UEdGraph*> Standing;
	/** What those declare that got another signature, so that its users have to follow. */
	FDeclaredMembers Extended;
	TArray<FString> FunctionNames;
	TArray<FString> DelegateNames;
	UEdGraph* LastGraph = nullptr;
};
} // namespace BlueprintGraphCreate

void FBlueprintGraphCreateOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	FString Path;
	if (!RequireStringField(Args, Morvane::ToolInfo::FieldName_Path, Path, Result))
	{
		return;
	}
	const TArray<TSharedPtr<FJsonValue>>* Functions = nullptr;
	if (!Args.TryGetArrayField(TEXT("functions"), Functions) || Functions->IsEmpty())
	{
		Result.AddErrorMessage(TEXT("Missing required 'functions' array with at least one entry"));
		return;
	}
	UBlueprint* const Blueprint = OperationFrame::LoadOrMake(Path, Result, [](UBlueprint&, FString&) { return true; });
	if (!Blueprint)
	{
		return; // the loader has told why
	}

	BlueprintGraphCreate::FCreateRun Run(*Blueprint, Result);
	for (int32 Index = 0; Index < Functions->Num(); ++Index)
	{
		Run.MakeEntry((*Functions)[Index], Index);
	}
	Run.ReportCount();
	if (Result.WasSuccessful())
	{
		Run.Finish();
	}
}
