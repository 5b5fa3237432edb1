// Event dispatchers of a Blueprint: one batch. Each is a variable and a signature graph of one name, and both come and
// go together. First what is added and modified, then what is removed, then one compile.

#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Graph/FunctionGraphs.h"
#include "Utils/Graph/MemberUsers.h"
#include "Utils/Graph/SignatureFollowing.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Request/PopulateRecords.h"
#include "Utils/Structure/MemberNodes.h"
#include "Utils/Structure/StructureBatch.h"
#include "Utils/Structure/StructureNames.h"

namespace BlueprintDelegates
{
using namespace Morvane;

class FBatch
{
public:
	FBatch(UBlueprint& InBlueprint, FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Result(InResult)
	{
	}

	void Run(const TArray<TSharedPtr<FJsonValue>>& Delegates)
	{
		const FStructureKind Kind{TEXT("delegate"), {TEXT("name"), TEXT("action"), TEXT("signature")},
			TEXT("Delegate entry missing 'name' field.")};
		StructureBatch::Walk(
			Delegates, Kind, Result,
			[this](const FStructureEntry& Entry, bool bAdd) { AddOrModify(Entry.Name, Entry, bAdd); },
			[this](const FString& Name) { Remove(Name); });
		if (!Edited.IsEmpty())
		{
			SignatureFollowing::Refresh(Blueprint, Edited, Result);
		}
		MemberNodes::WarnOfNodesElsewhere(Blueprint, Gone, Result);
		FBlueprintUtils::CompileBlueprint(&Blueprint, false);
		TrackNames(ToolInfo::ToolName_ReadBlueprintDelegate, Blueprint.GetPathName(), ToolInfo::FieldName_DelegateName,
			Changed, Result);
	}

private:
	/** The dispatcher's own spelling of the name; none when there is no such dispatcher. */
	FName Find(const FString& Name) const
	{
		const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, FName(*Name));
		const bool bDispatcher = Index != INDEX_NONE
			&& Blueprint.NewVariables[Index].VarType.PinCategory == UEdGraphSchema_K2::PC_MCDelegate;
		return bDispatcher ? Blueprint.NewVariables[Index].VarName : FName();
	}

	UEdGraph* FindSignature(FName Name) const
	{
		return FBlueprintEditorUtils::GetDelegateSignatureGraphByName(&Blueprint, Name);
	}

	void AddOrModify(const FString& Name, const FStructureEntry& Entry, bool bAdd)
	{
		const FName Present = Find(Name);
		if (bAdd && !Present.IsNone())
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Delegate '%s' already exists, cannot add"), *Name));
		}
		else if (bAdd)
		{
			Add(Name, Entry);
		}
		else if (!Present.IsNone())
		{
			Modify(Name, Present, Entry);
		}
		else
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Delegate '%s' not found for modification"), *Name));
		}
	}

	void Add(const FString& Name, const FStructureEntry& Entry)
	{
		// A signature without its variable holds the name for it.
		UEdGraph* Graph = FindSignature(FName(*Name));
		if (!Graph && !FBlueprintUtils::VerifyBlueprintVariableName(&Blueprint, Name, Result))
		{
			return;
		}
		const FName FreeName = Graph ? Graph->GetFName()
									 : FBlueprintEditorUtils::FindUniqueKismetName(&Blueprint, Name);
		FEdGraphPinType Type;
		Type.PinCategory = UEdGraphSchema_K2::PC_MCDelegate;
		if (!FBlueprintEditorUtils::AddMemberVariable(&Blueprint, FreeName, Type))
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Failed to create delegate variable: %s"), *Name));
			return;
		}
		Graph = Graph ? Graph : MakeSignature(FreeName);
		if (!Graph)
		{
			FBlueprintEditorUtils::RemoveMemberVariable(&Blueprint, FreeName);
			Result.AddWarningMessage(FString::Printf(TEXT("Failed to create signature graph for delegate: %s"), *Name));
			return;
		}
		Configure(Name, *Graph, Entry);
		Result.AddSuccessMessage(FString::Printf(TEXT("Created new delegate: %s"), *Name));
		Changed.Add(FreeName.ToString());
	}

	/** Null when no graph can bear the name. */
	UEdGraph* MakeSignature(FName Name)
	{
		FString Reason;
		FToolResult Making{FToolCommand(FString(), FString(), FString())};
		UEdGraph* Graph = nullptr;
		return StructureNames::IsObjectName(Name.ToString(), Reason)
				&& FBlueprintFunctionGraphUtils::EnsureDelegateSignature(&Blueprint, Name.ToString(), Graph, Making)
			? Graph
			: nullptr;
	}

	/** True when the signature is another than before. */
	bool Configure(const FString& Name, UEdGraph& Graph, const FStructureEntry& Entry)
	{
		const TSharedPtr<FJsonObject> Json = Entry.ReadObject(TEXT("signature"));
		if (!Json)
		{
			return false;
		}
		FStructureEntry(*Json, TEXT("the signature of delegate"), Name, Result)
			.WarnOfOtherKeys({TEXT("parameters"), TEXT("return_type")});
		FBPFunctionModification Request;
		PopulateRecords::ParseSignature(*Json, Request);
		Request.Name = Name;
		for (const FString& Parameter : Request.UnreadableParameters)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Parameter '%s' of delegate '%s' has a type that could not be parsed; it was left out."),
				*Parameter, *Name));
		}
		if (Request.bHasReturnType)
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Delegate '%s' has a return type, which nobody receives: many may listen to it."), *Name));
		}
		DropKnownParameters(Name, Graph, Request);
		const int32 NumBefore = FBlueprintFunctionGraphUtils::CountEnds(Graph);
		FBlueprintFunctionGraphUtils::ConfigureGraphSignature(&Blueprint, &Graph, Request, Result);
		return FBlueprintFunctionGraphUtils::CountEnds(Graph) != NumBefore;
	}

	/** What is there is neither made twice nor replaced. */
	void DropKnownParameters(const FString& Name, const UEdGraph& Graph, FBPFunctionModification& Request)
	{
		const UK2Node_FunctionEntry* const Ends = FBlueprintEditorUtils::GetEntryNode(&Graph);
		Request.Parameters.RemoveAll(
			[this, &Name, Ends](const FBPParameterModification& Parameter)
			{
				const UEdGraphPin* const Pin = Ends ? Ends->FindPin(FName(*Parameter.Name)) : nullptr;
				if (Pin && Pin->PinType != Parameter.Type)
				{
					Result.AddWarningMessage(FString::Printf(
						TEXT("Parameter '%s' of delegate '%s' is there with another type and keeps it."),
						*Parameter.Name, *Name));
				}
				return Pin != nullptr;
			});
	}

	void Modify(const FString& Name, FName Present, const FStructureEntry& Entry)
	{
		if (!Entry.Has(TEXT("signature")))
		{
			Result.AddSuccessMessage(FString::Printf(TEXT("No changes made to delegate: %s"), *Name));
			return;
		}
		UEdGraph* const Graph = FindSignature(Present);
		if (!Graph)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Could not find signature graph for delegate: %s"), *Name));
			return;
		}
		if (!Configure(Name, *Graph, Entry))
		{
			Result.AddSuccessMessage(FString::Printf(TEXT("No changes made to delegate: %s"), *Name));
			return;
		}
		Result.AddSuccessMessage(FString::Printf(TEXT("Modified delegate signature: %s"), *Name));
		Changed.Add(Present.ToString());
		Edited.Dispatchers.Add(Present);
	}

	void Remove(const FString& Name)
	{
		const FName Present = Find(Name);
		UEdGraph* const Graph = FindSignature(Present.IsNone() ? FName(*Name) : Present);
		if (Present.IsNone() && !Graph)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Delegate not found for removal: %s"), *Name));
			return;
		}
		MemberNodes::WarnOfDispatcherNodes(Blueprint, Present, Result);
		Gone.Add(Present);
		FBlueprintEditorUtils::RemoveMemberVariable(&Blueprint, Present);
		if (Graph && Blueprint.DelegateSignatureGraphs.Contains(Graph))
		{
			FBlueprintEditorUtils::RemoveGraph(&Blueprint, Graph);
		}
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		Result.AddSuccessMessage(FString::Printf(TEXT("Removed delegate: %s"), *Name));
		Changed.Add(Present.IsNone() ? Name : Present.ToString());
	}

	UBlueprint& Blueprint;
	FToolResult& Result;
	/** Those whose signature is another now, so that calls and bound events have to follow. */
	FDeclaredMembers Edited;
	TSet<FName> Gone;
	TArray<FString> Changed;
};
} // namespace BlueprintDelegates

bool FBlueprintCreateModifyRemoveUtils::CreateModifyRemoveBlueprintDelegate(
	UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Delegates, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddWarningMessage(TEXT("Invalid Blueprint provided."));
		return false;
	}
	if (!GetDefault<UEdGraphSchema_K2>())
	{
		Result.AddErrorMessage(TEXT("Failed to get K2 schema."));
		return false;
	}
	if (!Blueprint->SupportsDelegates())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("A Blueprint of the type '%s' cannot have event dispatchers: %s"),
			*UBlueprint::GetDisplayNameOfType(Blueprint->BlueprintType).ToString(), *Blueprint->GetName()));
		return false;
	}
	BlueprintDelegates::FBatch(*Blueprint, Result).Run(Delegates);
	return true;
}
