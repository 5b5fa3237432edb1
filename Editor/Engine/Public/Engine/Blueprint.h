#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "Templates/SubclassOf.h"
#include "UObject/CoreNetTypes.h"
#include "UObject/Object.h"

class UActorComponent;
class UBlueprintGeneratedClass;
class UEdGraph;
class UEdGraphNode;
class UInheritableComponentHandler;
class USimpleConstructionScript;
class UTimelineTemplate;

enum EBlueprintStatus : int
{
	BS_Unknown,
	BS_Dirty,
	BS_Error,
	BS_UpToDate,
	BS_BeingCreated,
	BS_UpToDateWithWarnings,
	BS_MAX,
};

enum EBlueprintType : int
{
	BPTYPE_Normal,
	BPTYPE_Const,
	BPTYPE_MacroLibrary,
	BPTYPE_Interface,
	BPTYPE_LevelScript,
	BPTYPE_FunctionLibrary,
	BPTYPE_MAX,
};

enum class EBlueprintCompileOptions : uint32
{
	None = 0,
	SkipGarbageCollection = 1,
	/** The value that a compile with its extra option passes. */
	SkipSave = 2,
	BatchCompile = 4,
	SkipNewVariableDefaultsDetection = 8,
};
ENUM_CLASS_FLAGS(EBlueprintCompileOptions)

/** One key of a variable's metadata. */
struct FBPVariableMetaDataEntry
{
	EDITOR_STRUCT(FBPVariableMetaDataEntry)

	FBPVariableMetaDataEntry() = default;
	FBPVariableMetaDataEntry(FName InKey, FString InValue)
		: DataKey(InKey)
		, DataValue(MoveTemp(InValue))
	{
	}
	bool operator==(const FBPVariableMetaDataEntry& Other) const = default;

	FName DataKey;
	FString DataValue;
};

/** A variable that a Blueprint (or a function, locally) declares. */
struct FBPVariableDescription
{
	EDITOR_STRUCT(FBPVariableDescription)

	void SetMetaData(FName Key, FString Value);
	void RemoveMetaData(FName Key);
	/** The value; the key must be there, see HasMetaData. */
	const FString& GetMetaData(FName Key) const;
	bool HasMetaData(FName Key) const { return FindMetaDataEntryIndexForKey(Key) != INDEX_NONE; }
	int32 FindMetaDataEntryIndexForKey(FName Key) const;

	FName VarName;
	FGuid VarGuid;
	FEdGraphPinType VarType;
	FString FriendlyName;
	FText Category;
	uint64 PropertyFlags = 0;
	FName RepNotifyFunc;
	ELifetimeCondition ReplicationCondition = COND_None;
	TArray<FBPVariableMetaDataEntry> MetaDataArray;
	FString DefaultValue;
};

/** An interface that a Blueprint implements, and the graphs that implement its functions. */
struct FBPInterfaceDescription
{
	EDITOR_STRUCT(FBPInterfaceDescription)

	TSubclassOf<class UInterface> Interface;
	TArray<TObjectPtr<UEdGraph>> Graphs;
};

/** The part that Blueprints and their like share. */
class UBlueprintCore : public UObject
{
	EDITOR_CLASS(UBlueprintCore, UObject)

public:
	/** The class of the declarations: enough for graph editing, without what only a full compile finds. */
	TSubclassOf<UObject> SkeletonGeneratedClass;
	TSubclassOf<UObject> GeneratedClass;
	FGuid BlueprintGuid;
};

/** A Blueprint asset. */
class UBlueprint : public UBlueprintCore
{
	EDITOR_CLASS(UBlueprint, UBlueprintCore)

public:
	/** All graphs, those nested in others too: function, macro, ubergraph, delegate, interface graphs, then sub-graphs
	 * depth first. */
	void GetAllGraphs(TArray<UEdGraph*>& Graphs) const;
	bool IsUpToDate() const { return Status == BS_UpToDate || Status == BS_UpToDateWithWarnings; }
	/** The Blueprint that a class was generated from, or null. */
	static UBlueprint* GetBlueprintFromClass(const UClass* InClass);
	/** Blueprints of the class and its generated supers, nearest first; true when all are free of errors. */
	static bool GetBlueprintHierarchyFromClass(const UClass* InClass, TArray<UBlueprint*>& OutBlueprintParents);
	static FText GetDisplayNameOfType(EBlueprintType Type);
	virtual UClass* GetBlueprintClass() const;
	virtual bool SupportsEventGraphs() const;
	virtual bool SupportsGlobalVariables() const
	{
		return BlueprintType == BPTYPE_Normal || BlueprintType == BPTYPE_Const || BlueprintType == BPTYPE_LevelScript;
	}
	virtual bool SupportsDelegates() const { return SupportsGlobalVariables(); }
	UTimelineTemplate* FindTimelineTemplateByVariableName(const FName& TimelineName);
	UActorComponent* FindTemplateByName(const FName& TemplateName) const;
	/** A graph goes by another name now; kinds of Blueprints that note names of functions follow. */
	virtual void NotifyGraphRenamed(UEdGraph* Graph, FName OldName, FName NewName) {}
	bool IsAsset() const override { return true; }
	void PostLoad() override;

	TSubclassOf<UObject> ParentClass;
	EBlueprintType BlueprintType = BPTYPE_Normal;
	EBlueprintStatus Status = BS_Unknown;
	bool bIsRegeneratingOnLoad = false;
	bool bRecompileOnLoad = true;
	bool bHasBeenRegenerated = false;
	bool bBeingCompiled = false;
	/** Set by a structural change, cleared by the rebuild of the skeleton class. */
	bool bSkeletonIsStale = false;
	bool bGenerateConstClass = false;
	bool bGenerateAbstractClass = false;
	bool bDeprecate = false;
	FString BlueprintDisplayName;
	FString BlueprintDescription;
	FString BlueprintCategory;
	TObjectPtr<USimpleConstructionScript> SimpleConstructionScript;
	/** Null where there is none and none is to be made, and for a Blueprint without a class. */
	UInheritableComponentHandler* GetInheritableComponentHandler(bool bCreateIfNecessary);
	/** Null unless the Blueprint changes components that it inherits from other Blueprints. */
	TObjectPtr<UInheritableComponentHandler> InheritableComponentHandler;
	TArray<TObjectPtr<UEdGraph>> UbergraphPages;
	TArray<TObjectPtr<UEdGraph>> FunctionGraphs;
	TArray<TObjectPtr<UEdGraph>> DelegateSignatureGraphs;
	TArray<TObjectPtr<UEdGraph>> MacroGraphs;
	TArray<TObjectPtr<UEdGraph>> IntermediateGeneratedGraphs;
	TArray<TObjectPtr<UEdGraph>> EventGraphs;
	TArray<TObjectPtr<UActorComponent>> ComponentTemplates;
	TArray<TObjectPtr<UTimelineTemplate>> Timelines;
	TArray<FBPVariableDescription> NewVariables;
	TArray<FBPInterfaceDescription> ImplementedInterfaces;
	TArray<FName> CategorySorting;
	TSharedPtr<class FCompilerResultsLog> CurrentMessageLog;
};

template <>
UEnum* StaticEnum<EBlueprintType>();
