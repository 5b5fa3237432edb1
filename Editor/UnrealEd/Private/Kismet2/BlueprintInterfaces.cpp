// Interfaces that Blueprints implement, and the graphs for their functions.

#include "Kismet2/BlueprintEditorUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/KismetEditorUtilities.h"

namespace BlueprintInterfaces
{
/** A class by full path or by short name. */
UClass* Find(const FTopLevelAssetPath& Path)
{
	return Path.IsNull()
		? nullptr
		: static_cast<UClass*>(StaticLoadObject(UClass::StaticClass(), nullptr, *Path.ToString(), nullptr, LOAD_Quiet));
}

UEdGraph* FindGraph(const FBPInterfaceDescription& Interface, FName Name)
{
	for (UEdGraph* const Graph : Interface.Graphs)
	{
		if (Graph && Graph->GetFName() == Name)
		{
			return Graph;
		}
	}
	return nullptr;
}

/** Functions that are no events have a graph each, which an author fills and cannot remove. */
void AddMissingGraphs(UBlueprint& Blueprint, FBPInterfaceDescription& Interface)
{
	for (TFieldIterator<UFunction> It(Interface.Interface.Get(), EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		const UFunction* const Function = *It;
		if (!UEdGraphSchema_K2::CanKismetOverrideFunction(Function)
			|| UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(Function) || FindGraph(Interface, Function->GetFName()))
		{
			continue;
		}
		UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
			&Blueprint, Function->GetFName(), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		Graph->bAllowDeletion = false;
		Graph->InterfaceGuid = Graph->GraphGuid;
		GetDefault<UEdGraphSchema_K2>()->CreateFunctionGraphTerminators(*Graph, Interface.Interface.Get());
		Interface.Graphs.Add(Graph);
	}
}

void DropUnknownGraphs(UBlueprint& Blueprint, FBPInterfaceDescription& Interface)
{
	const TArray<TObjectPtr<UEdGraph>> Graphs = Interface.Graphs;
	for (UEdGraph* const Graph : Graphs)
	{
		if (Graph && !Interface.Interface.Get()->FindFunctionByName(Graph->GetFName()))
		{
			FBlueprintEditorUtils::RemoveGraph(&Blueprint, Graph, EGraphRemoveFlags::MarkTransient);
		}
	}
}

int32 FindIndex(const UBlueprint& Blueprint, const UClass* Interface)
{
	return Blueprint.ImplementedInterfaces.IndexOfByPredicate(
		[Interface](const FBPInterfaceDescription& Row) { return Row.Interface.Get() == Interface; });
}

/** A graph or event of the interface becomes the Blueprint's own function. */
void Preserve(UBlueprint& Blueprint, FBPInterfaceDescription& Interface)
{
	const TArray<TObjectPtr<UEdGraph>> Graphs = MoveTemp(Interface.Graphs);
	Interface.Graphs.Empty();
	for (UEdGraph* const Graph : Graphs)
	{
		UK2Node_FunctionEntry* Entry = nullptr;
		UK2Node_FunctionResult* Result = nullptr;
		FBlueprintEditorUtils::GetEntryAndResultNodes(Graph, Entry, Result);
		if (Entry)
		{
			Entry->PromoteFromInterfaceOverride();
		}
		if (Result)
		{
			Result->PromoteFromInterfaceOverride();
		}
		Graph->bAllowDeletion = true;
		Graph->InterfaceGuid.Invalidate();
		Blueprint.FunctionGraphs.Add(Graph);
	}
}

void RemoveEvents(UBlueprint& Blueprint, const UClass& Interface)
{
	TArray<UK2Node_Event*> Events;
	FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Events);
	for (UK2Node_Event* const Event : Events)
	{
		if (Event->EventReference.GetMemberParentClass() == &Interface)
		{
			Event->DestroyNode();
		}
	}
}
} // namespace BlueprintInterfaces

bool FBlueprintEditorUtils::ImplementNewInterface(UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName)
{
	UClass* const Class = BlueprintInterfaces::Find(InterfaceClassPathName);
	if (!Blueprint || !FKismetEditorUtilities::CanBlueprintImplementInterface(Blueprint, Class)
		|| BlueprintInterfaces::FindIndex(*Blueprint, Class) != INDEX_NONE)
	{
		return false;
	}
	const UClass* const Parent = Blueprint->ParentClass.Get();
	if (Parent && Parent->ImplementsInterface(Class))
	{
		return false;
	}
	// A function of the same name would be two things at once.
	for (TFieldIterator<UFunction> It(Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		for (const UEdGraph* const Graph : Blueprint->FunctionGraphs)
		{
			if (Graph && Graph->GetFName() == It->GetFName())
			{
				return false;
			}
		}
	}
	Blueprint->Modify();
	FBPInterfaceDescription Interface;
	Interface.Interface = Class;
	BlueprintInterfaces::AddMissingGraphs(*Blueprint, Interface);
	Blueprint->ImplementedInterfaces.Add(MoveTemp(Interface));
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

bool FBlueprintEditorUtils::ImplementNewInterface(UBlueprint* Blueprint, const FName& InterfaceClassName)
{
	const UClass* const Class = FindFirstObject<UClass>(*InterfaceClassName.ToString());
	return Class && ImplementNewInterface(Blueprint, FTopLevelAssetPath(Class));
}

void FBlueprintEditorUtils::RemoveInterface(
	UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName, bool bPreserveFunctions)
{
	const UClass* const Class = BlueprintInterfaces::Find(InterfaceClassPathName);
	const int32 Index = Class ? BlueprintInterfaces::FindIndex(*Blueprint, Class) : INDEX_NONE;
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	if (bPreserveFunctions)
	{
		BlueprintInterfaces::Preserve(*Blueprint, Blueprint->ImplementedInterfaces[Index]);
	}
	const TArray<TObjectPtr<UEdGraph>> Graphs = Blueprint->ImplementedInterfaces[Index].Graphs;
	Blueprint->ImplementedInterfaces.RemoveAt(Index);
	for (UEdGraph* const Graph : Graphs)
	{
		RemoveGraph(Blueprint, Graph, EGraphRemoveFlags::MarkTransient);
	}
	BlueprintInterfaces::RemoveEvents(*Blueprint, *Class);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::RemoveInterface(
	UBlueprint* Blueprint, const FName& InterfaceClassName, bool bPreserveFunctions)
{
	for (const FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
	{
		const UClass* const Class = Interface.Interface.Get();
		if (Class && Class->GetFName() == InterfaceClassName)
		{
			RemoveInterface(Blueprint, FTopLevelAssetPath(Class), bPreserveFunctions);
			return;
		}
	}
}

void FBlueprintEditorUtils::ConformImplementedInterfaces(UBlueprint* Blueprint)
{
	int32 GraphCount = 0;
	const auto CountGraphs = [Blueprint]
	{
		int32 Count = 0;
		for (const FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
		{
			Count += Interface.Graphs.Num();
		}
		return Count;
	};
	GraphCount = CountGraphs();
	for (int32 Index = Blueprint->ImplementedInterfaces.Num() - 1; Index >= 0; --Index)
	{
		FBPInterfaceDescription& Interface = Blueprint->ImplementedInterfaces[Index];
		if (!Interface.Interface.Get())
		{
			// The interface is gone: what was written for it stays as functions.
			BlueprintInterfaces::Preserve(*Blueprint, Interface);
			Blueprint->ImplementedInterfaces.RemoveAt(Index);
			MarkBlueprintAsStructurallyModified(Blueprint);
			continue;
		}
		BlueprintInterfaces::AddMissingGraphs(*Blueprint, Interface);
		BlueprintInterfaces::DropUnknownGraphs(*Blueprint, Interface);
	}
	if (GraphCount != CountGraphs())
	{
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

void FBlueprintEditorUtils::FindImplementedInterfaces(
	const UBlueprint* Blueprint, bool bGetAllInterfaces, TArray<UClass*>& ImplementedInterfaces)
{
	for (const FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
	{
		if (UClass* const Class = Interface.Interface.Get())
		{
			ImplementedInterfaces.AddUnique(Class);
		}
	}
	if (!bGetAllInterfaces)
	{
		return;
	}
	for (const UClass* Class = Blueprint->ParentClass.Get(); Class; Class = Class->GetSuperClass())
	{
		for (const FImplementedInterface& Interface : Class->Interfaces)
		{
			if (Interface.Class)
			{
				ImplementedInterfaces.AddUnique(Interface.Class);
			}
		}
	}
}
