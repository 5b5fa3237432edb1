// Looking things up in Blueprints.

#include "Kismet2/BlueprintEditorUtils.h"

#include "Components/ActorComponent.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "GameFramework/Actor.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Timeline.h"
#include "Kismet2/TakenNames.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/WidgetBlueprintVariables.h"

UBlueprint* FBlueprintEditorUtils::FindBlueprintForGraph(const UEdGraph* Graph)
{
	return Graph ? Graph->GetTypedOuter<UBlueprint>() : nullptr;
}

namespace BlueprintFinding
{
static UEdGraph* FindByName(const TArray<TObjectPtr<UEdGraph>>& Graphs, FName Name)
{
	for (UEdGraph* const Graph : Graphs)
	{
		if (Graph && Graph->GetFName() == Name)
		{
			return Graph;
		}
	}
	return nullptr;
}

/** Every event node of the event pages and of what is collapsed in them, in order, until the visitor has found its own.
 */
static UK2Node_Event* FindEvent(const UBlueprint& Blueprint, TFunctionRef<bool(const UK2Node_Event&)> Fits)
{
	TArray<UEdGraph*> Graphs;
	for (UEdGraph* const Page : Blueprint.UbergraphPages)
	{
		if (Page)
		{
			Graphs.Add(Page);
			Page->GetAllChildrenGraphs(Graphs);
		}
	}
	for (const UEdGraph* const Graph : Graphs)
	{
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			UK2Node_Event* const Event = Cast<UK2Node_Event>(Node);
			if (Event && Fits(*Event))
			{
				return Event;
			}
		}
	}
	return nullptr;
}
} // namespace BlueprintFinding

UEdGraph* FBlueprintEditorUtils::FindEventGraph(const UBlueprint* Blueprint)
{
	return BlueprintFinding::FindByName(Blueprint->UbergraphPages, UEdGraphSchema_K2::GN_EventGraph);
}

UEdGraph* FBlueprintEditorUtils::FindUserConstructionScript(const UBlueprint* Blueprint)
{
	return BlueprintFinding::FindByName(Blueprint->FunctionGraphs, UEdGraphSchema_K2::FN_UserConstructionScript);
}

UEdGraph* FBlueprintEditorUtils::GetTopLevelGraph(const UEdGraph* InGraph)
{
	UEdGraph* Top = const_cast<UEdGraph*>(InGraph);
	// A collapsed graph lives below its node.
	for (UEdGraph* Outer = Top; Outer; Outer = Outer->GetTypedOuter<UEdGraph>())
	{
		Top = Outer;
	}
	return Top;
}

bool FBlueprintEditorUtils::IsDelegateSignatureGraph(const UEdGraph* Graph)
{
	const UBlueprint* const Blueprint = FindBlueprintForGraph(Graph);
	return Blueprint && Blueprint->DelegateSignatureGraphs.Contains(const_cast<UEdGraph*>(Graph));
}

bool FBlueprintEditorUtils::IsInterfaceGraph(const UEdGraph* Graph)
{
	const UBlueprint* const Blueprint = FindBlueprintForGraph(Graph);
	return Blueprint
		&& Blueprint->ImplementedInterfaces.ContainsByPredicate(
			[Graph](const FBPInterfaceDescription& Row) { return Row.Graphs.Contains(const_cast<UEdGraph*>(Graph)); });
}

UEdGraph* FBlueprintEditorUtils::FindScopeGraph(const UBlueprint* InBlueprint, const UStruct* InScope)
{
	if (!InBlueprint || !InScope)
	{
		return nullptr;
	}
	TArray<UEdGraph*> Graphs;
	InBlueprint->GetAllGraphs(Graphs);
	UEdGraph* const* const Found = Graphs.FindByPredicate(
		[InScope](const UEdGraph* Graph) {
			return Graph->GetFName() == InScope->GetFName() && GetEntryNode(Graph) && !IsDelegateSignatureGraph(Graph);
		});
	return Found ? *Found : nullptr;
}

UEdGraph* FBlueprintEditorUtils::GetDelegateSignatureGraphByName(UBlueprint* Blueprint, FName DelegateName)
{
	return Blueprint ? BlueprintFinding::FindByName(Blueprint->DelegateSignatureGraphs, DelegateName) : nullptr;
}

void FBlueprintEditorUtils::GetAllGraphNames(const UBlueprint* Blueprint, TSet<FName>& GraphNames)
{
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		GraphNames.Add(Graph->GetFName());
	}
	// The functions of an interface count as graphs, made or not.
	TArray<UClass*> Interfaces;
	FindImplementedInterfaces(Blueprint, true, Interfaces);
	for (const UClass* const Interface : Interfaces)
	{
		for (TFieldIterator<UFunction> It(Interface, EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			if (!UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(*It))
			{
				GraphNames.Add(It->GetFName());
			}
		}
	}
}

void FBlueprintEditorUtils::CollectNodes(UEdGraph* Graph, const UClass* Class, TFunctionRef<void(UEdGraphNode*)> Visit)
{
	for (UEdGraphNode* const Node : Graph->Nodes)
	{
		if (Node && Node->IsA(Class))
		{
			Visit(Node);
		}
	}
}

UK2Node_Event* FBlueprintEditorUtils::FindOverrideForFunction(
	const UBlueprint* Blueprint, const UClass* SignatureClass, FName SignatureName)
{
	return BlueprintFinding::FindEvent(*Blueprint,
		[SignatureClass, SignatureName](const UK2Node_Event& Event)
		{
			if (!Event.bOverrideFunction || Event.EventReference.GetMemberName() != SignatureName)
			{
				return false;
			}
			const UClass* const Declared = Event.EventReference.GetMemberParentClass(Event.GetBlueprintClassFromNode());
			return !Declared || !SignatureClass || Declared->IsChildOf(SignatureClass)
				|| SignatureClass->IsChildOf(Declared);
		});
}

UK2Node_Event* FBlueprintEditorUtils::FindCustomEventNode(const UBlueprint* Blueprint, FName CustomName)
{
	return BlueprintFinding::FindEvent(
		*Blueprint, [CustomName](const UK2Node_Event& Event) { return Event.CustomFunctionName == CustomName; });
}

UClass* FBlueprintEditorUtils::GetOverrideFunctionClass(
	UBlueprint* Blueprint, const FName FuncName, UFunction** OutFunction)
{
	if (OutFunction)
	{
		*OutFunction = nullptr;
	}
	if (!Blueprint)
	{
		return nullptr;
	}
	UFunction* Found = nullptr;
	if (const UClass* const Parent = Blueprint->ParentClass.Get())
	{
		Found = Parent->FindFunctionByName(FuncName);
	}
	for (const FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
	{
		if (!Found && Interface.Interface.Get())
		{
			Found = Interface.Interface.Get()->FindFunctionByName(FuncName);
		}
	}
	if (!Found)
	{
		return nullptr;
	}
	if (OutFunction)
	{
		*OutFunction = Found;
	}
	UClass* const Owner = Found->GetOwnerClass();
	return Owner ? Owner->GetAuthoritativeClass() : nullptr;
}

UK2Node_FunctionEntry* FBlueprintEditorUtils::GetEntryNode(const UEdGraph* InGraph)
{
	UK2Node_FunctionEntry* Entry = nullptr;
	UK2Node_FunctionResult* Result = nullptr;
	GetEntryAndResultNodes(InGraph, Entry, Result);
	return Entry;
}

void FBlueprintEditorUtils::GetEntryAndResultNodes(
	const UEdGraph* InGraph, UK2Node_FunctionEntry*& OutEntryNode, UK2Node_FunctionResult*& OutResultNode)
{
	OutEntryNode = nullptr;
	OutResultNode = nullptr;
	if (!InGraph)
	{
		return;
	}
	for (UEdGraphNode* const Node : InGraph->Nodes)
	{
		OutEntryNode = OutEntryNode ? OutEntryNode : Cast<UK2Node_FunctionEntry>(Node);
		OutResultNode = OutResultNode ? OutResultNode : Cast<UK2Node_FunctionResult>(Node);
	}
}

UClass* FBlueprintEditorUtils::GetMostUpToDateClass(UClass* FromClass)
{
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(FromClass);
	return Blueprint ? BlueprintClassProvider::GetSelfClass(Blueprint) : FromClass;
}

void FBlueprintEditorUtils::GetFunctionNameList(const UBlueprint* Blueprint, TSet<FName>& FunctionNames)
{
	if (const UClass* const Class = BlueprintClassProvider::GetSelfClass(Blueprint))
	{
		for (TFieldIterator<UFunction> It(Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			FunctionNames.Add(It->GetFName());
		}
	}
	for (const UEdGraph* const Graph : Blueprint->FunctionGraphs)
	{
		FunctionNames.Add(Graph->GetFName());
	}
	for (const UEdGraph* const Graph : Blueprint->MacroGraphs)
	{
		FunctionNames.Add(Graph->GetFName());
	}
}

void FBlueprintEditorUtils::GetSCSVariableNameList(const UBlueprint* Blueprint, TSet<FName>& VariableNames)
{
	if (!Blueprint->SimpleConstructionScript)
	{
		return;
	}
	for (const USCS_Node* const Node : Blueprint->SimpleConstructionScript->GetAllNodes())
	{
		VariableNames.Add(Node->GetVariableName());
	}
}

FName FBlueprintEditorUtils::FindUniqueKismetName(
	const UBlueprint* InBlueprint, const FString& InBaseName, UStruct* InScope)
{
	FName Candidate(InBaseName);
	TSet<FName> Taken;
	TakenNames::AddDeclared(*InBlueprint, Taken);
	if (InScope)
	{
		for (TFieldIterator<FProperty> It(InScope, EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			Taken.Add(It->GetFName());
		}
	}
	const auto IsTaken = [&](FName Name)
	{ return Taken.Contains(Name) || TakenNames::IsKnownAtOnce(*InBlueprint, Name); };
	for (int32 Number = 0; IsTaken(Candidate); ++Number)
	{
		Candidate = FName(FString::Printf(TEXT("%s_%d"), *InBaseName, Number));
	}
	return Candidate;
}

UK2Node_Timeline* FBlueprintEditorUtils::FindNodeForTimeline(UBlueprint* Blueprint, UTimelineTemplate* Timeline)
{
	TArray<UK2Node_Timeline*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node_Timeline* const Node : Nodes)
	{
		if (Timeline && Node->TimelineName == Timeline->GetVariableName())
		{
			return Node;
		}
	}
	return nullptr;
}

bool FBlueprintEditorUtils::IsActorBased(const UBlueprint* Blueprint)
{
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	return Parent && Parent->IsChildOf(AActor::StaticClass());
}

bool FBlueprintEditorUtils::DoesSupportEventGraphs(const UBlueprint* Blueprint)
{
	return Blueprint && Blueprint->SupportsEventGraphs();
}

bool FBlueprintEditorUtils::DoesSupportTimelines(const UBlueprint* Blueprint)
{
	return IsActorBased(Blueprint) && DoesSupportEventGraphs(Blueprint);
}
