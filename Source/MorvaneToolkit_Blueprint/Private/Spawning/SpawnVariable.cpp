#include "AssetOperationBase.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"
#include "Spawning/SpawnAttempt.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Asset/SafeObjectLoad.h"
#include "Utils/Report/GraphTelemetry.h"

// The variable road. What it makes stands for a variable that was found, so it is not validated again.

namespace SpawnVariableRoad
{
/** What an agent may have meant by a class path under which there is nothing. */
struct FSuggestion
{
	FString Path;
	FString Context;
};

static bool EndsWithPath(const FString& Text, const FString& End)
{
	return Text.EndsWith(End, ESearchCase::IgnoreCase);
}

/** A Blueprint of the name, for a path that says it is a native class. */
static FSuggestion SuggestBlueprint(const FString& ScriptPath)
{
	FString Name = ScriptPath.RightChop(8);
	int32 Dot = INDEX_NONE;
	Name = Name.FindChar(TEXT('.'), Dot) ? Name.RightChop(Dot + 1) : Name;

	TArray<FAssetData> Assets;
	FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry"))
		.Get()
		.GetAssetsByClass(UBlueprint::StaticClass()->GetStructPathName(), Assets, false);
	for (const FAssetData& Asset : Assets)
	{
		const FString AssetName = Asset.AssetName.ToString();
		if (AssetName.Equals(Name, ESearchCase::IgnoreCase)
			|| AssetName.Equals(TEXT("BPFL_") + Name, ESearchCase::IgnoreCase) || EndsWithPath(AssetName, Name))
		{
			const FString Path = Asset.GetSoftObjectPath().ToString();
			return {Path,
				FString::Printf(
					TEXT("Found Blueprint '%s' - use path '%s' instead of '/Script/' path"), *AssetName, *Path)};
		}
	}
	return {};
}

/** A native class of the name, for a path that says it is a Blueprint. */
static FSuggestion SuggestNativeClass(const FString& ContentPath)
{
	const FString Name = FPaths::GetBaseFilename(ContentPath.RightChop(6));
	for (const TCHAR* const Module :
		{TEXT("Engine"), TEXT("CoreUObject"), TEXT("UMG"), TEXT("Slate"), TEXT("AIModule")})
	{
		const FString Path = FString::Printf(TEXT("/Script/%s.%s"), Module, *Name);
		// Quiet: these are guesses, and their misses would only bury the suggestion.
		if (SafeObjectLoad::TryLoad(Path))
		{
			return {Path,
				FString::Printf(
					TEXT("Found C++ class '%s' in module '%s' - use '/Script/' path instead"), *Name, Module)};
		}
	}
	return {};
}

static FSuggestion Suggest(const FString& Path)
{
	if (Path.StartsWith(TEXT("/Script/"), ESearchCase::IgnoreCase))
	{
		return SuggestBlueprint(Path);
	}
	return Path.StartsWith(TEXT("/Game/"), ESearchCase::IgnoreCase) ? SuggestNativeClass(Path) : FSuggestion();
}

enum class EAccess
{
	None,
	ReadOnly,
	Full,
};

/**
 * What a graph of the Blueprint may do with a variable of the name: a local one of its function, or a member of the
 * class as it is declared now, so also a component, a widget, and whatever is inherited.
 */
static EAccess GetAccess(UBlueprint& Blueprint, const UEdGraph& Graph, FName Name)
{
	if (FBlueprintEditorUtils::FindLocalVariable(&Blueprint, &Graph, Name)
		|| FBlueprintEditorUtils::FindMemberVariableGuidByName(&Blueprint, Name).IsValid())
	{
		return EAccess::Full;
	}
	const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint.GeneratedClass);
	const FProperty* const Property = Class ? Class->FindPropertyByName(Name) : nullptr;
	if (!Property || !Property->HasAnyPropertyFlags(CPF_BlueprintVisible))
	{
		return EAccess::None;
	}
	const UClass* const Owner = Property->GetOwnerClass();
	const bool bNative = !Owner || !Owner->ClassGeneratedBy;
	return bNative && Property->HasAnyPropertyFlags(CPF_BlueprintReadOnly) ? EAccess::ReadOnly : EAccess::Full;
}

static const TCHAR* PresentOrMissing(const FString* Value)
{
	return Value ? TEXT("present") : TEXT("missing");
}
} // namespace SpawnVariableRoad

bool FSpawnAttempt::IsVariableRequest() const
{
	const bool bVariableClass = Record.ClassName.Equals(TEXT("K2Node_VariableGet"), ESearchCase::IgnoreCase)
		|| Record.ClassName.Equals(TEXT("K2Node_VariableSet"), ESearchCase::IgnoreCase);
	return bVariableClass && !Record.GetMetadata(TEXT("variable_name")).IsEmpty();
}

bool FSpawnAttempt::IsGetRequest() const
{
	return Record.ClassName.Equals(TEXT("K2Node_VariableGet"), ESearchCase::IgnoreCase);
}

UEdGraphNode* FSpawnAttempt::SpawnVariable()
{
	// A key counts as given also with an empty value: who writes it means another object.
	const FString* const SourceClass = Record.FindMetadata(TEXT("variable_source_class"));
	const FString* const OwnerGuid = Record.FindMetadata(TEXT("property_owner_node_guid"));
	const FString* const OwnerPin = Record.FindMetadata(TEXT("owner_pin_name"));
	if (!SourceClass && !OwnerGuid && !OwnerPin)
	{
		return SpawnOwnVariable();
	}
	if (SourceClass && !OwnerGuid && !OwnerPin && Record.bTargetIsWired)
	{
		// The wires of the request bring the owner, as they bring every other value.
		return SpawnVariableOf(nullptr);
	}
	if (!SourceClass || !OwnerGuid || !OwnerPin)
	{
		using SpawnVariableRoad::PresentOrMissing;
		return Fail(FString::Printf(
			TEXT(
				"[Failure] Cross-object variable access requires ALL of: variable_source_class, property_owner_node_guid, owner_pin_name. Got: source_class=%s, owner_guid=%s, owner_pin=%s. If you want a Blueprint-owned variable, omit all three fields."),
			PresentOrMissing(SourceClass), PresentOrMissing(OwnerGuid), PresentOrMissing(OwnerPin)));
	}
	return SpawnCrossObjectVariable();
}

UEdGraphNode* FSpawnAttempt::SpawnOwnVariable()
{
	const FString Name = Record.GetMetadata(TEXT("variable_name"));
	const SpawnVariableRoad::EAccess Access = SpawnVariableRoad::GetAccess(Blueprint, Graph, FName(*Name));
	if (Access == SpawnVariableRoad::EAccess::ReadOnly && !IsGetRequest())
	{
		return Fail(FString::Printf(
			TEXT("[Failure] Variable '%s' is read-only in Blueprints. Use K2Node_VariableGet to read it."), *Name));
	}
	if (Access == SpawnVariableRoad::EAccess::None)
	{
		// The tool is named twice: agents know this sentence as it is.
		return Fail(FString::Printf(
			TEXT(
				"[Failure] Variable '%s' does not exist in Blueprint. Create the variable first using bp_populate_graph before using it in bp_populate_graph."),
			*Name));
	}
	const FVector2D Place = GetRequestedPosition();
	UEdGraphNode* Node = nullptr;
	if (IsGetRequest())
	{
		Node = FBlueprintNodeUtils::CreateVariableGetNode(&Blueprint, &Graph, Name, Place);
	}
	else
	{
		Node = FBlueprintNodeUtils::CreateVariableSetNode(&Blueprint, &Graph, Name, Place);
	}
	return Node
		? Node
		: Fail(FString::Printf(
			TEXT(
				"[Failure] Deterministic variable %s spawn returned null node for variable '%s' (unexpected failure after validation)"),
			IsGetRequest() ? TEXT("get") : TEXT("set"), *Name));
}

UEdGraphNode* FSpawnAttempt::SpawnCrossObjectVariable()
{
	const FString OwnerGuid = Record.GetMetadata(TEXT("property_owner_node_guid"));
	FString Method;
	UEdGraphNode* const Owner = FindOwnerNode(Method);
	if (!Owner)
	{
		return Fail(FString::Printf(TEXT("[Failure] Owner node '%s' not found in %s"), *OwnerGuid,
			CreatedNodes ? TEXT("CreatedNodes session map or Graph->Nodes")
						 : TEXT("Graph->Nodes (no session map available)")));
	}
	GraphTelemetry::SetString(
		Result, FString::Printf(TEXT("cross_object_owner_resolution_%s"), *Record.NodeGuid), Method);

	const FString OwnerPinName = Record.GetMetadata(TEXT("owner_pin_name"));
	UEdGraphPin* const OwnerPin = Owner->FindPin(OwnerPinName);
	if (!OwnerPin)
	{
		return Fail(FString::Printf(TEXT("[Failure] Owner pin '%s' not found on node"), *OwnerPinName));
	}
	UEdGraphNode* const Node = SpawnVariableOf(OwnerPin);
	if (Node)
	{
		WarnOfUnlinkedOwner(*Node, *OwnerPin);
	}
	return Node;
}

UEdGraphNode* FSpawnAttempt::SpawnVariableOf(UEdGraphPin* const OwnerPin)
{
	const FString SourcePath = Record.GetMetadata(TEXT("variable_source_class"));
	UClass* const SourceClass = LoadSourceClass(SourcePath);
	if (!SourceClass)
	{
		ReportMissingSourceClass(SourcePath);
		return nullptr;
	}
	const FString Name = Record.GetMetadata(TEXT("variable_name"));
	const FVector2D Place = GetRequestedPosition();
	UEdGraphNode* Node = nullptr;
	if (IsGetRequest())
	{
		Node = FBlueprintNodeUtils::CreateCrossObjectVariableGetNode(&Graph, Name, SourceClass, OwnerPin, Place);
	}
	else
	{
		Node = FBlueprintNodeUtils::CreateCrossObjectVariableSetNode(&Graph, Name, SourceClass, OwnerPin, Place);
	}
	return Node ? Node
				: Fail(FString::Printf(
					TEXT("[Failure] Cross-object variable %s spawn returned null for variable '%s' on class '%s'"),
					IsGetRequest() ? TEXT("get") : TEXT("set"), *Name, *SourcePath));
}

void FSpawnAttempt::WarnOfUnlinkedOwner(const UEdGraphNode& Node, const UEdGraphPin& OwnerPin)
{
	const UEdGraphPin* const Target = Node.FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input);
	if (Target && !Target->LinkedTo.IsEmpty())
	{
		return;
	}
	const UEdGraphSchema* const Schema = Graph.GetSchema();
	const FString Reason = Target && Schema ? Schema->CanCreateConnection(&OwnerPin, Target).Message.ToString()
											: FString(TEXT("the node takes no target"));
	SpawnReport::Report(Result,
		FString::Printf(
			TEXT("[Failure] Variable '%s' was placed without its owner: pin '%s' of '%s' does not fit its target: %s"),
			*Record.GetMetadata(TEXT("variable_name")), *OwnerPin.GetName(),
			*FBlueprintNodeUtils::GetFullTitle(OwnerPin.GetOwningNode()), *Reason));
}

UEdGraphNode* FSpawnAttempt::FindOwnerNode(FString& OutMethod) const
{
	const FString OwnerGuid = Record.GetMetadata(TEXT("property_owner_node_guid"));
	const TWeakObjectPtr<UEdGraphNode>* const Created = CreatedNodes ? CreatedNodes->Find(OwnerGuid) : nullptr;
	if (Created)
	{
		OutMethod = TEXT("session_map");
		return Created->Get();
	}
	OutMethod = TEXT("graph_nodes");
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		// Any part of the guid will do, so that the short ids of reads do.
		if (Node && Node->NodeGuid.ToString(EGuidFormats::Digits).Contains(OwnerGuid, ESearchCase::IgnoreCase))
		{
			return Node;
		}
	}
	return nullptr;
}

UClass* FSpawnAttempt::LoadSourceClass(const FString& Path)
{
	// A bare Blueprint name, or a path as folders show it, is no object path and means a class all the same.
	UClass* const Named = Path.StartsWith(TEXT("/")) ? nullptr : FAssetOperationBase::GetAssetClassFromAssetName(Path);
	if (Named)
	{
		return Named;
	}
	UObject* const Loaded = SafeObjectLoad::LoadObjectSafe(Path, Result);
	const UBlueprint* const Asset = Cast<UBlueprint>(Loaded);
	return Asset ? Asset->GeneratedClass.Get() : Cast<UClass>(Loaded);
}

void FSpawnAttempt::ReportMissingSourceClass(const FString& Path)
{
	const SpawnVariableRoad::FSuggestion Suggestion = SpawnVariableRoad::Suggest(Path);
	if (Suggestion.Path.IsEmpty())
	{
		Fail(FString::Printf(
			TEXT(
				"[Failure] Class '%s' not found. Note: Use '/Script/ModuleName.ClassName' for C++ classes or '/Game/Path/Blueprint' for Blueprint classes."),
			*Path));
		return;
	}
	Fail(FString::Printf(
		TEXT("[Failure] Class '%s' not found. Suggestion: Did you mean '%s'?"), *Path, *Suggestion.Path));
	GraphTelemetry::SetString(Result, TEXT("class_path_suggestion"), Suggestion.Path);
	GraphTelemetry::SetString(Result, TEXT("class_path_suggestion_context"), Suggestion.Context);
}
