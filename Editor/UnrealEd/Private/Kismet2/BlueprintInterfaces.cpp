// Interfaces that Blueprints implement, and the graphs for their functions.

#include "Kismet2/BlueprintEditorUtils.h"

#include "Compiler/InterfaceFunctions.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEvents.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Kismet2/TakenNames.h"
#include "Standalone/MissingObjects.h"

namespace BlueprintInterfaces
{
/** A class by full path or by short name. */
static UClass* Find(const FTopLevelAssetPath& Path)
{
	return Path.IsNull()
		? nullptr
		: static_cast<UClass*>(StaticLoadObject(UClass::StaticClass(), nullptr, *Path.ToString(), nullptr, LOAD_Quiet));
}

static UEdGraph* FindGraph(const FBPInterfaceDescription& Interface, FName Name)
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

static void AddMissingGraphs(UBlueprint& Blueprint, FBPInterfaceDescription& Interface)
{
	UClass* const Class = Interface.Interface.Get();
	for (TFieldIterator<UFunction> It(Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		const UFunction* const Function = *It;
		if (!InterfaceFunctions::NeedsGraph(*Function) || FindGraph(Interface, Function->GetFName()))
		{
			continue;
		}
		UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
			&Blueprint, Function->GetFName(), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		Graph->bAllowDeletion = false;
		Graph->InterfaceGuid = FBlueprintEditorUtils::FindInterfaceFunctionGuid(Function, Class);
		Interface.Graphs.Add(Graph);
		FBlueprintEditorUtils::AddInterfaceGraph(&Blueprint, Graph, Class);
	}
}

static const UFunction* FindByGuid(const UClass* Interface, const FGuid& Guid)
{
	for (TFieldIterator<UFunction> It(Interface, EFieldIteratorFlags::IncludeSuper); It && Guid.IsValid(); ++It)
	{
		if (FBlueprintEditorUtils::FindInterfaceFunctionGuid(*It, Interface) == Guid)
		{
			return *It;
		}
	}
	return nullptr;
}

/** A graph whose function goes by another name in the interface follows it; one whose function is gone goes too. */
static void ConformGraphs(UBlueprint& Blueprint, FBPInterfaceDescription& Interface)
{
	UClass* const Class = Interface.Interface.Get();
	const TArray<TObjectPtr<UEdGraph>> Graphs = Interface.Graphs;
	for (UEdGraph* const Graph : Graphs)
	{
		if (!Graph || Class->FindFunctionByName(Graph->GetFName()))
		{
			continue;
		}
		if (const UFunction* const Renamed = FindByGuid(Class, Graph->InterfaceGuid))
		{
			FBlueprintEditorUtils::RenameGraph(Graph, Renamed->GetName());
		}
		else
		{
			FBlueprintEditorUtils::RemoveGraph(&Blueprint, Graph, EGraphRemoveFlags::MarkTransient);
		}
	}
}

/** Whether the Blueprint has something else under the name of a function that needs a graph. */
static bool HasConflict(const UBlueprint& Blueprint, const UClass& Interface)
{
	for (TFieldIterator<UFunction> It(&Interface, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		if (InterfaceFunctions::NeedsGraph(**It)
			&& (StaticFindObjectFast(nullptr, const_cast<UBlueprint*>(&Blueprint), It->GetFName())
				|| TakenNames::IsVariable(Blueprint, It->GetFName())))
		{
			return true;
		}
	}
	return false;
}

static int32 FindIndex(const UBlueprint& Blueprint, const UClass* Interface)
{
	return Blueprint.ImplementedInterfaces.IndexOfByPredicate(
		[Interface](const FBPInterfaceDescription& Row) { return Row.Interface.Get() == Interface; });
}

/** The graphs of the interface become functions of the Blueprint's own. */
static void PreserveGraphs(UBlueprint& Blueprint, FBPInterfaceDescription& Interface)
{
	const TArray<TObjectPtr<UEdGraph>> Graphs = MoveTemp(Interface.Graphs);
	Interface.Graphs.Empty();
	for (UEdGraph* const Graph : Graphs)
	{
		TArray<UK2Node_FunctionTerminator*> Ends;
		Graph->GetNodesOfClass(Ends);
		for (UK2Node_FunctionTerminator* const End : Ends)
		{
			End->PromoteFromInterfaceOverride();
		}
		if (UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph))
		{
			Entry->AddExtraFlags(FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public);
		}
		Graph->bAllowDeletion = true;
		Graph->InterfaceGuid.Invalidate();
		Blueprint.FunctionGraphs.Add(Graph);
	}
}

static TArray<UK2Node_Event*> FindEvents(const UBlueprint& Blueprint, const UClass& Interface)
{
	TArray<UK2Node_Event*> Events;
	FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Events);
	Events.RemoveAll([&Interface](const UK2Node_Event* Event)
		{ return Event->EventReference.GetMemberParentClass() != &Interface; });
	return Events;
}
} // namespace BlueprintInterfaces

FGuid FBlueprintEditorUtils::FindInterfaceFunctionGuid(const UFunction* Function, const UClass* InterfaceClass)
{
	for (const UBlueprint* Blueprint = UBlueprint::GetBlueprintFromClass(InterfaceClass); Blueprint;
		 Blueprint = UBlueprint::GetBlueprintFromClass(Blueprint->ParentClass.Get()))
	{
		for (const UEdGraph* const Graph : Blueprint->FunctionGraphs)
		{
			if (Graph->GetFName() == Function->GetFName())
			{
				return Graph->GraphGuid;
			}
		}
	}
	return FGuid();
}

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
	if (BlueprintInterfaces::HasConflict(*Blueprint, *Class))
	{
		return false;
	}
	Blueprint->Modify();
	FBPInterfaceDescription Interface;
	Interface.Interface = Class;
	BlueprintInterfaces::AddMissingGraphs(*Blueprint, Interface);
	Blueprint->ImplementedInterfaces.Add(MoveTemp(Interface));
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

void FBlueprintEditorUtils::RemoveInterface(
	UBlueprint* Blueprint, FTopLevelAssetPath InterfaceClassPathName, bool bPreserveFunctions)
{
	// By path: an interface that is missing can be removed like any other.
	const int32 Index = Blueprint->ImplementedInterfaces.IndexOfByPredicate(
		[&InterfaceClassPathName](const FBPInterfaceDescription& Row)
		{ return Row.Interface.Get() && FTopLevelAssetPath(Row.Interface.Get()) == InterfaceClassPathName; });
	if (Index == INDEX_NONE)
	{
		return;
	}
	const UClass* const Class = Blueprint->ImplementedInterfaces[Index].Interface.Get();
	Blueprint->Modify();
	const TArray<UK2Node_Event*> Events = BlueprintInterfaces::FindEvents(*Blueprint, *Class);
	if (bPreserveFunctions)
	{
		BlueprintInterfaces::PreserveGraphs(*Blueprint, Blueprint->ImplementedInterfaces[Index]);
	}
	const TArray<TObjectPtr<UEdGraph>> Graphs = Blueprint->ImplementedInterfaces[Index].Graphs;
	Blueprint->ImplementedInterfaces.RemoveAt(Index);
	for (UEdGraph* const Graph : Graphs)
	{
		RemoveGraph(Blueprint, Graph, EGraphRemoveFlags::MarkTransient);
	}
	for (UK2Node_Event* const Event : Events)
	{
		if (bPreserveFunctions)
		{
			BlueprintEvents::ReplaceWithCustomEvent(*Blueprint, *Event);
		}
		else
		{
			RemoveNode(Blueprint, Event, true);
		}
	}
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::ConformImplementedInterfaces(UBlueprint* Blueprint)
{
	for (int32 Index = Blueprint->ImplementedInterfaces.Num() - 1; Index >= 0; --Index)
	{
		FBPInterfaceDescription& Interface = Blueprint->ImplementedInterfaces[Index];
		if (!Interface.Interface.Get())
		{
			// The interface is gone: what was written for it stays as functions.
			BlueprintInterfaces::PreserveGraphs(*Blueprint, Interface);
			Blueprint->ImplementedInterfaces.RemoveAt(Index);
			MarkBlueprintAsStructurallyModified(Blueprint);
			continue;
		}
		// Which functions a missing interface has is not known; all that was written for it waits for it.
		if (FMissingObjects::IsMissing(Interface.Interface.Get()))
		{
			continue;
		}
		const TArray<TObjectPtr<UEdGraph>> Before = Interface.Graphs;
		BlueprintInterfaces::ConformGraphs(*Blueprint, Interface);
		BlueprintInterfaces::AddMissingGraphs(*Blueprint, Interface);
		if (Before != Interface.Graphs)
		{
			MarkBlueprintAsStructurallyModified(Blueprint);
		}
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
