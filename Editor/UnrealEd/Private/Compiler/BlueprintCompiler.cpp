#include "Compiler/BlueprintCompiler.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "Compiler/GraphValidator.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"

namespace BlueprintCompilation
{
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
		FBlueprintEditorUtils::ConformImplementedInterfaces(&Blueprint);
		Graphs.Empty();
		Blueprint.GetAllGraphs(Graphs);
		FBlueprintClassBuilder::Build(Blueprint);
		RefreshOutdatedNodes();
		CheckNames();
		CheckVariables();
		CheckInterfaces();
		for (UEdGraph* const Graph : Graphs)
		{
			FGraphValidator(Blueprint, *Graph, Log).Validate();
		}
	}

private:
	void ClearNodeMessages()
	{
		for (const UEdGraph* const Graph : Graphs)
		{
			for (UEdGraphNode* const Node : Graph->Nodes)
			{
				Node->bHasCompilerMessage = false;
				Node->ErrorType = 0;
				Node->ErrorMsg.Empty();
			}
		}
	}

	bool CheckParent()
	{
		if (Blueprint.ParentClass.Get())
		{
			return true;
		}
		Log.Error(*FString::Printf(
			TEXT("Blueprint '%s' has no parent class: the class it was derived from is gone"), *Blueprint.GetName()));
		return false;
	}

	/** Whether the node's pins come from something that a Blueprint declares, so that they may lag behind it. */
	static bool FollowsBlueprint(const UEdGraphNode& Node)
	{
		if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
		{
			const UFunction* const Function = Call->GetTargetFunction();
			const UClass* const Owner = Function ? Function->GetOwnerClass() : nullptr;
			return Owner && Owner->HasAnyClassFlags(CLASS_CompiledFromBlueprint);
		}
		if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
		{
			const FProperty* const Property = Variable->GetPropertyForVariable();
			const UClass* const Owner = Property ? Property->GetOwnerClass() : nullptr;
			return Owner && Owner->HasAnyClassFlags(CLASS_CompiledFromBlueprint);
		}
		return false;
	}

	void RefreshOutdatedNodes()
	{
		for (const UEdGraph* const Graph : Graphs)
		{
			const TArray<TObjectPtr<UEdGraphNode>> Nodes = Graph->Nodes;
			for (UEdGraphNode* const Node : Nodes)
			{
				if (FollowsBlueprint(*Node))
				{
					Node->ReconstructNode();
				}
			}
		}
	}

	void Claim(FName Name, const TCHAR* Kind, const UObject* Where)
	{
		const FString* const Known = Claimed.Find(Name);
		if (!Known)
		{
			Claimed.Add(Name, Kind);
			return;
		}
		const FString Users = *Known == Kind ? FString::Printf(TEXT("more than one %s"), Kind)
											 : FString::Printf(TEXT("a %s and by a %s"), **Known, Kind);
		const FString Text = FString::Printf(
			TEXT("The name '%s' is used by %s; every member of a Blueprint needs a name of its own"), *Name.ToString(),
			*Users);
		if (Where)
		{
			Log.Error(*(Text + TEXT(": @@")), Where);
		}
		else
		{
			Log.Error(*Text);
		}
	}

	/** Variables, components, timelines, functions and events share one space of names. */
	void CheckNames()
	{
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			Claim(Variable.VarName, TEXT("variable"), nullptr);
		}
		if (Blueprint.SimpleConstructionScript)
		{
			for (const USCS_Node* const Node : Blueprint.SimpleConstructionScript->GetAllNodes())
			{
				Claim(Node->GetVariableName(), TEXT("component"), nullptr);
			}
		}
		for (const UTimelineTemplate* const Timeline : Blueprint.Timelines)
		{
			Claim(Timeline->GetVariableName(), TEXT("timeline"), nullptr);
		}
		for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
		{
			Claim(Graph->GetFName(), TEXT("function"), nullptr);
		}
		for (const UEdGraph* const Graph : Blueprint.MacroGraphs)
		{
			Claim(Graph->GetFName(), TEXT("macro"), nullptr);
		}
		CheckEventNames();
	}

	void CheckEventNames()
	{
		TMap<FName, const UK2Node_Event*> Overrides;
		TArray<UK2Node_Event*> Events;
		FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Events);
		for (const UK2Node_Event* const Event : Events)
		{
			if (!Event->IsNodeEnabled())
			{
				continue;
			}
			if (Event->IsA<UK2Node_CustomEvent>())
			{
				Claim(Event->GetFunctionName(), TEXT("custom event"), Event);
				continue;
			}
			const FName Name = Event->GetFunctionName();
			if (const UK2Node_Event* const* const Other = Overrides.Find(Name))
			{
				Log.Error(TEXT("Found more than one function with the same name: @@ and @@"), *Other, Event);
				continue;
			}
			Overrides.Add(Name, Event);
		}
	}

	void CheckVariables()
	{
		const UClass* const Class = Blueprint.GeneratedClass.Get();
		const UClass* const Parent = Blueprint.ParentClass.Get();
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			const FString Name = Variable.VarName.ToString();
			const FProperty* const Property = Class->FindPropertyByName(Variable.VarName);
			if (Parent->FindPropertyByName(Variable.VarName))
			{
				Log.Error(
					*FString::Printf(TEXT("The variable '%s' has the name of a variable of the parent class '%s'"),
						*Name, *Parent->GetName()));
				continue;
			}
			if (!Property)
			{
				Log.Error(*FString::Printf(TEXT("The variable '%s' declared in '%s' has an invalid type: %s"), *Name,
					*Blueprint.GetName(), *UEdGraphSchema_K2::TypeToText(Variable.VarType).ToString()));
				continue;
			}
			CheckDefault(Variable, *Property);
		}
	}

	void CheckDefault(const FBPVariableDescription& Variable, const FProperty& Property)
	{
		if (Variable.DefaultValue.IsEmpty())
		{
			return;
		}
		TArray<uint8> Memory;
		Memory.SetNumZeroed(Property.GetElementSize() + Property.GetMinAlignment());
		uint8* Value = Memory.GetData();
		const UPTRINT Alignment = static_cast<UPTRINT>(Property.GetMinAlignment());
		Value += (Alignment - reinterpret_cast<UPTRINT>(Value) % Alignment) % Alignment;
		Property.InitializeValue(Value);
		const TCHAR* const End = Property.ImportText_Direct(
			*Variable.DefaultValue, Value, Blueprint.GeneratedClass.Get(), PPF_None);
		Property.DestroyValue(Value);
		if (!End)
		{
			Log.Warning(*FString::Printf(TEXT("The default value '%s' of the variable '%s' is not a valid %s"),
				*Variable.DefaultValue, *Variable.VarName.ToString(),
				*UEdGraphSchema_K2::TypeToText(Variable.VarType).ToString()));
		}
	}

	void CheckInterfaces()
	{
		const UClass* const Class = Blueprint.GeneratedClass.Get();
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			if (!Interface.Interface.Get())
			{
				Log.Error(*FString::Printf(
					TEXT("Blueprint '%s' implements an interface that is gone"), *Blueprint.GetName()));
				continue;
			}
			for (TFieldIterator<UFunction> It(Interface.Interface.Get(), EFieldIteratorFlags::IncludeSuper); It; ++It)
			{
				const bool bNeedsGraph = UEdGraphSchema_K2::CanKismetOverrideFunction(*It)
					&& !UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(*It);
				if (bNeedsGraph && !Class->FindFunctionByName(It->GetFName(), EIncludeSuperFlag::ExcludeSuper))
				{
					Log.Error(*FString::Printf(TEXT("Interface function '%s' of '%s' is not implemented"),
						*It->GetName(), *Interface.Interface.Get()->GetName()));
				}
			}
		}
	}

	UBlueprint& Blueprint;
	FCompilerResultsLog& Log;
	TArray<UEdGraph*> Graphs;
	TMap<FName, FString> Claimed;
};
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
	// Their classes stand on this one.
	TArray<UBlueprint*> Children;
	FBlueprintEditorUtils::GetDependentBlueprints(Blueprint, Children);
	for (UBlueprint* const Child : Children)
	{
		Child->bSkeletonIsStale = true;
	}
}
