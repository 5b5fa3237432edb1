// Following the parent class: when it changed, and when it is another one.

#include "BlueprintEditorLibrary.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_CallParentFunction.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionTerminator.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/BlueprintEvents.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Kismet2/TakenNames.h"
#include "Standalone/BlueprintKinds.h"

namespace BlueprintParents
{
/** The flow goes past a call that is taken out. */
static void Bypass(UK2Node& Call)
{
	UEdGraphPin* const In = Call.GetExecPin();
	UEdGraphPin* const Out = Call.GetThenPin();
	if (!In || !Out || Out->LinkedTo.IsEmpty())
	{
		return;
	}
	UEdGraphPin* const Next = Out->LinkedTo[0];
	const TArray<UEdGraphPin*> Before = In->LinkedTo;
	Call.BreakAllNodeLinks();
	for (UEdGraphPin* const Pin : Before)
	{
		Pin->MakeLinkTo(Next);
	}
}

static bool IsDeclaredAbove(const UBlueprint& Blueprint, const UClass* Class)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	if (!Class || !Parent || Parent->IsChildOf(Class))
	{
		return true;
	}
	TArray<UClass*> Interfaces;
	FBlueprintEditorUtils::FindImplementedInterfaces(&Blueprint, true, Interfaces);
	return Interfaces.ContainsByPredicate([Class](const UClass* Interface) { return Interface->IsChildOf(Class); });
}

/** An override follows its function to the new parent, or becomes the Blueprint's own function. */
static void ConformOverrides(UBlueprint& Blueprint)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
	{
		TArray<UK2Node_FunctionTerminator*> Ends;
		Graph->GetNodesOfClass(Ends);
		const UFunction* const Function = Parent->FindFunctionByName(Graph->GetFName());
		for (UK2Node_FunctionTerminator* const End : Ends)
		{
			if (IsDeclaredAbove(Blueprint, End->FunctionReference.GetMemberParentClass()))
			{
				continue;
			}
			if (Function)
			{
				End->FunctionReference.SetExternalMember(Function->GetFName(), Function->GetOwnerClass());
			}
			else
			{
				End->PromoteFromInterfaceOverride();
			}
		}
	}
}

/** What the parent declares goes by its name; the Blueprint's own members of that name give it up. */
static void GiveUpNamesOf(UBlueprint& Blueprint, const UClass& Parent)
{
	TSet<FName> Own;
	for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
	{
		Own.Add(Variable.VarName);
	}
	FBlueprintEditorUtils::GetSCSVariableNameList(&Blueprint, Own);
	for (const UTimelineTemplate* const Timeline : Blueprint.Timelines)
	{
		Own.Add(Timeline->GetVariableName());
	}
	for (const FName Name : Own)
	{
		if (Parent.FindPropertyByName(Name))
		{
			TakenNames::MoveAside(Blueprint, Name);
		}
	}
}

static void DropInterfacesOf(UBlueprint& Blueprint, const UClass& Parent)
{
	for (int32 Index = Blueprint.ImplementedInterfaces.Num() - 1; Index >= 0; --Index)
	{
		const UClass* const Interface = Blueprint.ImplementedInterfaces[Index].Interface.Get();
		if (Interface && Parent.ImplementsInterface(Interface))
		{
			FBlueprintEditorUtils::RemoveInterface(&Blueprint, FTopLevelAssetPath(Interface), true);
		}
	}
}

static bool MayBeParent(const UBlueprint& Blueprint, const UClass* NewParent)
{
	const UClass* const Own = Blueprint.GeneratedClass.Get();
	return NewParent && NewParent != Blueprint.ParentClass.Get() && !(Own && NewParent->IsChildOf(Own))
		&& FKismetEditorUtilities::CanCreateBlueprintOfClass(NewParent)
		&& BlueprintKinds::GetBlueprintClass(NewParent) == Blueprint.GetClass();
}
} // namespace BlueprintParents

void FBlueprintEditorUtils::ConformCallsToParentFunctions(UBlueprint* Blueprint)
{
	const UClass* const Parent = Blueprint->ParentClass.Get();
	TArray<UK2Node_CallParentFunction*> Calls;
	GetAllNodesOfClass(Blueprint, Calls);
	for (UK2Node_CallParentFunction* const Call : Calls)
	{
		const UClass* const Named = Call->FunctionReference.GetMemberParentClass();
		if (!Parent || (Named && Parent->IsChildOf(Named) && Call->GetTargetFunction()))
		{
			continue;
		}
		Call->Modify();
		if (const UFunction* const Function = Parent->FindFunctionByName(Call->FunctionReference.GetMemberName()))
		{
			Call->FunctionReference.SetExternalMember(Function->GetFName(), Function->GetOwnerClass());
			Call->ReconstructNode();
		}
		else
		{
			BlueprintParents::Bypass(*Call);
			RemoveNode(Blueprint, Call, true);
		}
	}
}

void FBlueprintEditorUtils::ConformImplementedEvents(UBlueprint* Blueprint)
{
	const UClass* const Parent = Blueprint->ParentClass.Get();
	TArray<UK2Node_Event*> Events;
	GetAllNodesOfClass(Blueprint, Events);
	for (UK2Node_Event* const Event : Events)
	{
		const UClass* const Declared = Event->EventReference.GetMemberParentClass();
		if (!Parent || !Event->bOverrideFunction || BlueprintParents::IsDeclaredAbove(*Blueprint, Declared))
		{
			continue;
		}
		Event->Modify();
		const UFunction* const Function = Parent->FindFunctionByName(Event->EventReference.GetMemberName());
		if (Function && UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(Function))
		{
			Event->EventReference.SetExternalMember(Function->GetFName(), Function->GetOwnerClass());
		}
		else if (!Event->IsNodeEnabled())
		{
			// A ghost that nobody used means nothing without its event.
			RemoveNode(Blueprint, Event, true);
		}
		else
		{
			BlueprintEvents::ReplaceWithCustomEvent(*Blueprint, *Event);
		}
	}
}

void UBlueprintEditorLibrary::ReparentBlueprint(UBlueprint* Blueprint, UClass* NewParentClass)
{
	if (!Blueprint || !BlueprintParents::MayBeParent(*Blueprint, NewParentClass))
	{
		return;
	}
	Blueprint->Modify();
	BlueprintParents::GiveUpNamesOf(*Blueprint, *NewParentClass);
	BlueprintParents::DropInterfacesOf(*Blueprint, *NewParentClass);
	Blueprint->ParentClass = NewParentClass;
	if (Blueprint->SimpleConstructionScript)
	{
		Blueprint->SimpleConstructionScript->ValidateSceneRootNodes();
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	BlueprintParents::ConformOverrides(*Blueprint);
	FBlueprintEditorUtils::ConformCallsToParentFunctions(Blueprint);
	FBlueprintEditorUtils::ConformImplementedEvents(Blueprint);
	FBlueprintEditorUtils::RefreshAllNodes(Blueprint);
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
}
