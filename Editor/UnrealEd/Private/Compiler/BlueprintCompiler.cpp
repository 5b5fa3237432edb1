#include "Compiler/BlueprintCompiler.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "Compiler/FunctionGraphs.h"
#include "Compiler/GraphFlow.h"
#include "Compiler/GraphValidator.h"
#include "Compiler/MacroUse.h"
#include "Compiler/MemberDeclarations.h"
#include "Compiler/MemberNames.h"
#include "Compiler/UnresolvedUse.h"
#include "Compiler/WidgetDeclarations.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ConstructObjectFromClass.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_Timeline.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/MissingObjects.h"
#include "UObject/UObjectIterator.h"

namespace BlueprintCompilation
{
static bool IsFromBlueprint(const UClass* Class)
{
	return Class && Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint);
}

static bool IsFromBlueprint(const UFunction* Function)
{
	return Function && IsFromBlueprint(Function->GetOwnerClass());
}

static bool IsFromBlueprint(const FProperty* Property)
{
	return Property && IsFromBlueprint(Property->GetOwnerClass());
}

/** The node of the dispatcher whose signature the event has; null for one that is not bound. */
static const UK2Node_BaseMCDelegate* FindBoundDispatcher(const UK2Node_CustomEvent& Event)
{
	const UEdGraphPin* const Pin = Event.FindPin(UK2Node_Event::DelegateOutputName, EGPD_Output);
	return Pin && !Pin->LinkedTo.IsEmpty() ? Cast<UK2Node_BaseMCDelegate>(Pin->LinkedTo[0]->GetOwningNode()) : nullptr;
}

/** Whether the node's pins come from something that a Blueprint declares, so that they may lag behind it. */
static bool FollowsBlueprint(const UEdGraphNode& Node)
{
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		return IsFromBlueprint(Call->GetTargetFunction());
	}
	if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
	{
		return IsFromBlueprint(Variable->GetPropertyForVariable());
	}
	if (const UK2Node_BaseMCDelegate* const Dispatcher = Cast<UK2Node_BaseMCDelegate>(&Node))
	{
		return IsFromBlueprint(Dispatcher->GetProperty());
	}
	if (const UK2Node_FunctionTerminator* const End = Cast<UK2Node_FunctionTerminator>(&Node))
	{
		return IsFromBlueprint(End->FindSignatureFunction());
	}
	if (const UK2Node_ConstructObjectFromClass* const Construct = Cast<UK2Node_ConstructObjectFromClass>(&Node))
	{
		return IsFromBlueprint(Construct->GetClassToSpawn());
	}
	if (const UK2Node_CustomEvent* const Custom = Cast<UK2Node_CustomEvent>(&Node))
	{
		const UK2Node_BaseMCDelegate* const Dispatcher = FindBoundDispatcher(*Custom);
		return Dispatcher && IsFromBlueprint(Dispatcher->GetProperty());
	}
	if (const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
	{
		return IsFromBlueprint(Event->FindEventSignatureFunction());
	}
	return Node.IsA<UK2Node_MacroInstance>() || Node.IsA<UK2Node_Timeline>();
}

/** Whether making the node's pins anew may have changed the signature of a function or an event. */
static bool Refresh(UEdGraphNode& Node)
{
	const UK2Node_CustomEvent* const Custom = Cast<UK2Node_CustomEvent>(&Node);
	const TArray<TSharedPtr<FUserPinInfo>> Before = Custom ? Custom->UserDefinedPins
														   : TArray<TSharedPtr<FUserPinInfo>>();
	Node.ReconstructNode();
	if (!Custom)
	{
		return Node.IsA<UK2Node_FunctionTerminator>() || Node.IsA<UK2Node_Event>();
	}
	bool bSame = Custom->UserDefinedPins.Num() == Before.Num();
	for (int32 Index = 0; bSame && Index < Before.Num(); ++Index)
	{
		const FUserPinInfo& Now = *Custom->UserDefinedPins[Index];
		bSame = Now.PinName == Before[Index]->PinName && Now.PinType == Before[Index]->PinType;
	}
	return !bSame;
}

/** Parents first, as a class is built on that of its parent. */
static void BringUpToDate(UBlueprint& Blueprint)
{
	if (UBlueprint* const Parent = UBlueprint::GetBlueprintFromClass(Blueprint.ParentClass.Get()))
	{
		BringUpToDate(*Parent);
	}
	FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(&Blueprint);
}

/** One compile of one Blueprint. */
class FRun
{
public:
	FRun(UBlueprint& InBlueprint, FCompilerResultsLog& InLog)
		: Blueprint(InBlueprint)
		, Log(InLog)
	{
	}

	void Run()
	{
		Blueprint.GetAllGraphs(Graphs);
		ClearNodeMessages();
		if (!CheckParent())
		{
			return;
		}
		Prepare();
		MemberNames::Check(Blueprint, Log);
		MemberDeclarations::Check(Blueprint, Unresolved, Log);
		WidgetDeclarations::Check(Blueprint, Log);
		const TMap<const UEdGraph*, FunctionGraphs::FOrigin> Functions = FunctionGraphs::Collect(Blueprint);
		FMacroUse Macros;
		for (UEdGraph* const Graph : Graphs)
		{
			FGraphValidator Validator(Blueprint, *Graph, Macros, Unresolved, Log);
			// The animation graph stands among the functions and has no entry.
			const FunctionGraphs::FOrigin* const Origin = Validator.GetGraphType() == GT_Function
				? Functions.Find(Graph)
				: nullptr;
			const bool bStarts = !Origin || FunctionGraphs::Check(Blueprint, *Graph, *Origin, Log);
			TOptional<GraphFlow::FGraphUse> Use;
			if (bStarts)
			{
				Use.Emplace(*Graph);
			}
			Validator.Validate(Use ? &*Use : nullptr);
			if (Use)
			{
				Use->Tell(Log);
			}
			GraphFlow::CheckDataCycles(*Graph, Log);
		}
		Unresolved.Tell(Log);
	}

private:
	void ClearNodeMessages()
	{
		for (const UEdGraph* const Graph : Graphs)
		{
			for (UEdGraphNode* const Node : Graph->Nodes)
			{
				if (Node)
				{
					Node->bHasCompilerMessage = false;
					Node->ErrorType = 0;
					Node->ErrorMsg.Empty();
				}
			}
		}
	}

	bool CheckParent()
	{
		const UClass* const Missing = FMissingObjects::FindMissingParent(Blueprint.ParentClass.Get());
		if (Blueprint.ParentClass.Get() && (!Missing || Unresolved.Note(Missing)))
		{
			return true;
		}
		const FString Path = Missing ? FString::Printf(TEXT(": '%s'"), *Missing->GetPathName()) : FString();
		Log.Error(*FString::Printf(TEXT("Blueprint '%s' has no parent class: the class it was derived from is gone%s"),
			*Blueprint.GetName(), *Path));
		return false;
	}

	/** Brings everything that is derived from declarations up to date with them: here, and in whatever is used here. */
	void Prepare()
	{
		for (TObjectIterator<UBlueprint> It; It; ++It)
		{
			BringUpToDate(**It);
		}
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			if (Unresolved.Note(Interface.Interface.Get()))
			{
				continue;
			}
			if (FMissingObjects::IsMissing(Interface.Interface.Get()))
			{
				Log.Error(*FString::Printf(TEXT("Blueprint '%s' implements an interface that is missing: '%s'"),
					*Blueprint.GetName(), *Interface.Interface.Get()->GetPathName()));
			}
			else if (!Interface.Interface.Get())
			{
				Log.Warning(*FString::Printf(
					TEXT(
						"Blueprint '%s' implemented an interface that is gone; its functions stay as functions of its own"),
					*Blueprint.GetName()));
			}
		}
		FBlueprintEditorUtils::ConformImplementedInterfaces(&Blueprint);
		Graphs.Empty();
		Blueprint.GetAllGraphs(Graphs);
		FBlueprintClassBuilder::Build(Blueprint);
		if (RefreshOutdatedNodes())
		{
			FBlueprintClassBuilder::Build(Blueprint);
		}
	}

	/** Whether the signature of a function or an event changed by it. */
	bool RefreshOutdatedNodes()
	{
		bool bSignatures = false;
		for (const UEdGraph* const Graph : Graphs)
		{
			const TArray<TObjectPtr<UEdGraphNode>> Nodes = Graph->Nodes;
			for (UEdGraphNode* const Node : Nodes)
			{
				if (Node && FollowsBlueprint(*Node))
				{
					bSignatures |= Refresh(*Node);
				}
			}
		}
		return bSignatures;
	}

	UBlueprint& Blueprint;
	FCompilerResultsLog& Log;
	FUnresolvedUse Unresolved;
	TArray<UEdGraph*> Graphs;
};

/** Those whose classes stand on this one have to be built again before they are next used. */
static void NotifyDependants(UBlueprint& Blueprint)
{
	TArray<UBlueprint*> Dependants;
	FBlueprintEditorUtils::GetDependentBlueprints(&Blueprint, Dependants);
	for (UBlueprint* const Dependant : Dependants)
	{
		Dependant->bSkeletonIsStale = true;
	}
}
} // namespace BlueprintCompilation

void FBlueprintCompiler::Compile(UBlueprint* Blueprint, FCompilerResultsLog* Log)
{
	if (!Blueprint || Blueprint->bBeingCompiled)
	{
		return;
	}
	FCompilerResultsLog Dropped;
	FCompilerResultsLog& Used = Log ? *Log : Dropped;
	const int32 ErrorsBefore = Used.NumErrors;
	const int32 WarningsBefore = Used.NumWarnings;
	TGuardValue<bool> Compiling(Blueprint->bBeingCompiled, true);
	BlueprintCompilation::FRun(*Blueprint, Used).Run();
	if (Used.NumErrors > ErrorsBefore)
	{
		Blueprint->Status = BS_Error;
	}
	else
	{
		Blueprint->Status = Used.NumWarnings > WarningsBefore ? BS_UpToDateWithWarnings : BS_UpToDate;
	}
	BlueprintCompilation::NotifyDependants(*Blueprint);
}
