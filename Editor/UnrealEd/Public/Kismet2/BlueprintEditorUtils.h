#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "Engine/Blueprint.h"

class UEdGraph;
class UEdGraphNode;
class UEdGraphSchema;
class UFunction;
class UK2Node;
class UK2Node_Event;
class UK2Node_FunctionEntry;
class UK2Node_Timeline;
class UK2Node_Variable;
class USCS_Node;
class UTimelineTemplate;
struct FMemberReference;
struct FTopLevelAssetPath;

namespace EGraphRemoveFlags
{
enum Type : int
{
	None = 0,
	Recompile = 1,
	MarkTransient = 2,
	Default = Recompile | MarkTransient,
};
}

/** Edits of Blueprints that keep all their parts in step. Each leaves the Blueprint consistent for a read that follows.
 */
class FBlueprintEditorUtils
{
public:
	// Changes.
	/** The declarations changed: the skeleton class is stale and is rebuilt when next asked for. Marks the package
	 * dirty. */
	static void MarkBlueprintAsStructurallyModified(UBlueprint* Blueprint);
	static void MarkBlueprintAsModified(
		UBlueprint* Blueprint, FPropertyChangedEvent PropertyChangedEvent = FPropertyChangedEvent(nullptr));
	/** Rebuilds the skeleton class now if it is stale. Whoever reads classes of Blueprints calls it; most reads do so
	 * by themselves. */
	static void EnsureSkeletonIsUpToDate(UBlueprint* Blueprint);
	static void RefreshAllNodes(UBlueprint* Blueprint);
	/** The Blueprints in memory whose class is below this one's, or that refer to it. */
	static void GetDependentBlueprints(UBlueprint* Blueprint, TArray<UBlueprint*>& DependentBlueprints);
	/** Gives what descendants in memory declare under the name another name there, so that nothing is declared twice
	 * in a line of classes. */
	static void ValidateBlueprintChildVariables(UBlueprint* InBlueprint, const FName InVariableName);
	/** Points calls of the parent at what the parent class has now; a call of what it has not is taken out of the flow.
	 */
	static void ConformCallsToParentFunctions(UBlueprint* Blueprint);
	/** The same for events; one that nobody declares any more becomes a custom event. */
	static void ConformImplementedEvents(UBlueprint* Blueprint);

	// Finding.
	static UBlueprint* FindBlueprintForGraph(const UEdGraph* Graph);
	static UEdGraph* FindEventGraph(const UBlueprint* Blueprint);
	static UEdGraph* FindUserConstructionScript(const UBlueprint* Blueprint);
	static UEdGraph* GetTopLevelGraph(const UEdGraph* InGraph);
	static bool IsDelegateSignatureGraph(const UEdGraph* Graph);
	/** Whether the graph implements a function of an interface. */
	static bool IsInterfaceGraph(const UEdGraph* Graph);
	/** The graph of a function of the Blueprint's class; null when it has none. */
	static UEdGraph* FindScopeGraph(const UBlueprint* InBlueprint, const UStruct* InScope);
	static UEdGraph* GetDelegateSignatureGraphByName(UBlueprint* Blueprint, FName DelegateName);
	static void GetAllGraphNames(const UBlueprint* Blueprint, TSet<FName>& GraphNames);
	template <class T>
	static void GetAllNodesOfClass(const UBlueprint* Blueprint, TArray<T*>& OutNodes)
	{
		TArray<UEdGraph*> AllGraphs;
		Blueprint->GetAllGraphs(AllGraphs);
		for (UEdGraph* const Graph : AllGraphs)
		{
			CollectNodes(
				Graph, T::StaticClass(), [&OutNodes](UEdGraphNode* Node) { OutNodes.Add(static_cast<T*>(Node)); });
		}
	}
	/** The node that implements a function of a class as an event, or null. */
	static UK2Node_Event* FindOverrideForFunction(
		const UBlueprint* Blueprint, const UClass* SignatureClass, FName SignatureName);
	static UK2Node_Event* FindCustomEventNode(const UBlueprint* Blueprint, FName CustomName);
	/** The class that declares what a name overrides, in the parent class or an interface, and the function; null when
	 * nothing does. */
	static UClass* GetOverrideFunctionClass(
		UBlueprint* Blueprint, const FName FuncName, UFunction** OutFunction = nullptr);
	static UK2Node_FunctionEntry* GetEntryNode(const UEdGraph* InGraph);
	static void GetEntryAndResultNodes(
		const UEdGraph* InGraph, UK2Node_FunctionEntry*& OutEntryNode, class UK2Node_FunctionResult*& OutResultNode);
	static UClass* GetMostUpToDateClass(UClass* FromClass);

	// Graphs.
	static UEdGraph* CreateNewGraph(UObject* ParentScope, const FName& GraphName, TSubclassOf<UEdGraph> GraphClass,
		TSubclassOf<UEdGraphSchema> SchemaClass);
	/**
	 * Makes the graph a function of the Blueprint, with its entry (and result). The signature is a UClass (the class
	 * whose function is overridden) or a UFunction, or null for a new function. User-created ones get editable pins and
	 * public, callable flags.
	 */
	template <class TSignature>
	static void AddFunctionGraph(
		UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, TSignature* SignatureFromObject)
	{
		if constexpr (std::is_base_of_v<UFunction, std::remove_const_t<TSignature>>)
		{
			AddFunctionGraphFromFunction(Blueprint, Graph, bIsUserCreated, SignatureFromObject);
		}
		else
		{
			AddFunctionGraphFromClass(Blueprint, Graph, bIsUserCreated, SignatureFromObject);
		}
	}
	static void AddUbergraphPage(UBlueprint* Blueprint, UEdGraph* Graph);
	static void AddMacroGraph(UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UClass* SignatureFromClass);
	/** Fills a new graph with the ends of the interface function that bears its name. */
	static void AddInterfaceGraph(UBlueprint* Blueprint, UEdGraph* Graph, UClass* InterfaceClass);
	static void CreateFunctionGraphTerminators(UEdGraph* Graph, UClass* SignatureClass);
	static void RemoveGraph(
		UBlueprint* Blueprint, UEdGraph* GraphToRemove, EGraphRemoveFlags::Type Flags = EGraphRemoveFlags::Default);
	static void RemoveGraphs(UBlueprint* Blueprint, const TArray<UEdGraph*>& GraphsToRemove);
	static void RenameGraph(UEdGraph* Graph, const FString& NewNameStr);
	static void RemoveNode(UBlueprint* Blueprint, UEdGraphNode* Node, bool bDontRecompile = false);

	// Names.
	static FName FindUniqueKismetName(
		const UBlueprint* InBlueprint, const FString& InBaseName, UStruct* InScope = nullptr);
	static void GetFunctionNameList(const UBlueprint* Blueprint, TSet<FName>& FunctionNames);
	static void GetSCSVariableNameList(const UBlueprint* Blueprint, TSet<FName>& VariableNames);

	// Variables.
	static bool AddMemberVariable(UBlueprint* Blueprint, const FName& NewVarName, const FEdGraphPinType& NewVarType,
		const FString& DefaultValue = FString());
	static void RemoveMemberVariable(UBlueprint* Blueprint, const FName VarName);
	static void BulkRemoveMemberVariables(UBlueprint* Blueprint, const TArray<FName>& VarNames);
	/** Nothing happens when the new name is taken. Nodes, bindings, a dispatcher's signature and the value in the class
	 * default object follow, here and in the Blueprints that refer to the variable. */
	static void RenameMemberVariable(UBlueprint* Blueprint, const FName OldName, const FName NewName);
	/** The default is kept where the new type can read it. */
	static void ChangeMemberVariableType(
		UBlueprint* Blueprint, const FName VariableName, const FEdGraphPinType& NewPinType);
	/** Gives a component's variable another name; its template's name, nodes and attachments follow. */
	static void RenameComponentMemberVariable(UBlueprint* Blueprint, USCS_Node* Node, const FName NewName);
	static bool AddLocalVariable(UBlueprint* Blueprint, UEdGraph* InTargetGraph, const FName InNewVarName,
		const FEdGraphPinType& InNewVarType, const FString& DefaultValue = FString());
	static void RemoveLocalVariable(UBlueprint* InBlueprint, const UStruct* InScope, const FName InVarName);
	static void RenameLocalVariable(
		UBlueprint* InBlueprint, const UStruct* InScope, const FName InOldName, const FName InNewName);
	static void ChangeLocalVariableType(UBlueprint* InBlueprint, const UStruct* InScope, const FName InVariableName,
		const FEdGraphPinType& InNewPinType);
	static FBPVariableDescription* FindLocalVariable(UBlueprint* InBlueprint, const UEdGraph* InScopeGraph,
		const FName InVariableName, UK2Node_FunctionEntry** OutFunctionEntry = nullptr);
	static FBPVariableDescription* FindLocalVariable(UBlueprint* InBlueprint, const UStruct* InScope,
		const FName InVariableName, UK2Node_FunctionEntry** OutFunctionEntry = nullptr);
	static int32 FindNewVariableIndex(const UBlueprint* Blueprint, const FName& InName);
	static FGuid FindMemberVariableGuidByName(UBlueprint* InBlueprint, const FName InVariableName);
	static FName FindMemberVariableNameByGuid(UBlueprint* InBlueprint, const FGuid& InVariableGuid);
	/** With true the variable may be edited on the class default only and not on instances. */
	static void SetBlueprintOnlyEditableFlag(UBlueprint* Blueprint, const FName& VarName, const bool bNewBlueprintOnly);
	static void SetBlueprintPropertyReadOnlyFlag(
		UBlueprint* Blueprint, const FName& VarName, const bool bVariableReadOnly);
	static void SetVariableSaveGameFlag(UBlueprint* InBlueprint, const FName& InVarName, const bool bInIsSaveGame);
	static void SetBlueprintVariableMetaData(UBlueprint* Blueprint, const FName& VarName,
		const UStruct* InLocalVarScope, const FName& MetaDataKey, const FString& MetaDataValue);
	static bool GetBlueprintVariableMetaData(const UBlueprint* Blueprint, const FName& VarName,
		const UStruct* InLocalVarScope, const FName& MetaDataKey, FString& OutMetaDataValue);
	static void RemoveBlueprintVariableMetaData(
		UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey);
	static void SetBlueprintVariableCategory(UBlueprint* Blueprint, const FName& VarName,
		const UStruct* InLocalVarScope, const FText& NewCategory, bool bDontRecompile = false);
	static FText GetBlueprintVariableCategory(
		UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope);
	static void SetBlueprintVariableRepNotifyFunc(
		UBlueprint* Blueprint, const FName& VarName, const FName& RepNotifyFunc);
	static FName GetBlueprintVariableRepNotifyFunc(UBlueprint* Blueprint, const FName& VarName);
	static uint64* GetBlueprintVariablePropertyFlags(UBlueprint* Blueprint, const FName& VarName);
	static bool IsVariableUsed(
		const UBlueprint* Blueprint, const FName& VariableName, const UEdGraph* LocalGraphScope = nullptr);
	/** Takes the nodes about a member away: gets and sets, and the events bound to it. Those of other objects' members
	 * stay unless bForSelfOnly is false. */
	static void RemoveVariableNodes(UBlueprint* Blueprint, const FName VarName, bool const bForSelfOnly = true,
		UEdGraph* LocalGraphScope = nullptr);
	/** Lets everything in memory that refers to a member of the Blueprint by name go with it to the new one. */
	static void ReplaceVariableReferences(UBlueprint* Blueprint, const FName OldName, const FName NewName);
	/** The same for a function, whose graph is known under the new name already if it has one. */
	static void ReplaceFunctionReferences(UBlueprint* Blueprint, const FName OldName, const FName NewName);
	static bool PropertyValueFromString(const FProperty* Property, const FString& StrValue, uint8* Container,
		UObject* OwningObject, int32 PortFlags = 0);
	static bool PropertyValueFromString_Direct(const FProperty* Property, const FString& StrValue, uint8* DirectValue,
		UObject* OwningObject, int32 PortFlags = 0);
	static bool PropertyValueToString(const FProperty* Property, const uint8* Container, FString& OutForm,
		UObject* OwningObject, int32 PortFlags = 0);
	static bool PropertyValueToString_Direct(const FProperty* Property, const uint8* DirectValue, FString& OutForm,
		UObject* OwningObject, int32 PortFlags = 0);

	// Interfaces.
	static bool ImplementNewInterface(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName);
	static void RemoveInterface(
		UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName, bool bPreserveFunctions = false);
	/** The guid of the graph that declares the function in an interface Blueprint; none for a native interface. */
	static FGuid FindInterfaceFunctionGuid(const UFunction* Function, const UClass* InterfaceClass);
	/** Gives each interface function that is no event its graph, lets graphs follow functions that were renamed, and
	 * drops graphs that the interface knows no more. */
	static void ConformImplementedInterfaces(UBlueprint* Blueprint);
	static void FindImplementedInterfaces(
		const UBlueprint* Blueprint, bool bGetAllInterfaces, TArray<UClass*>& ImplementedInterfaces);

	// Timelines.
	static UTimelineTemplate* AddNewTimeline(UBlueprint* Blueprint, const FName& TimelineVarName);
	/** Its node stays in the graph, without a timeline. */
	static void RemoveTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline, bool bDontRecompile = false);
	static UK2Node_Timeline* FindNodeForTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline);
	static bool RenameTimeline(UBlueprint* Blueprint, const FName OldVarName, const FName NewVarName);
	static bool DoesSupportTimelines(const UBlueprint* Blueprint);

	// Kinds.
	static bool IsActorBased(const UBlueprint* Blueprint);
	static bool DoesSupportEventGraphs(const UBlueprint* Blueprint);

private:
	static void MoveDispatcherSignature(UBlueprint& Blueprint, FName OldName, FName NewName);
	static void CollectNodes(UEdGraph* Graph, const UClass* Class, TFunctionRef<void(UEdGraphNode*)> Visit);
	static void AddFunctionGraphFromClass(
		UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, UClass* Signature);
	static void AddFunctionGraphFromFunction(
		UBlueprint* Blueprint, UEdGraph* Graph, bool bIsUserCreated, const UFunction* Signature);
};
