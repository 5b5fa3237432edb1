// Variables that live in one function: kept by the entry node of its graph.

#include "Kismet2/BlueprintEditorUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Variable.h"
#include "Kismet2/VariableDescriptions.h"

namespace LocalVariables
{
static UK2Node_FunctionEntry* FindEntry(const UBlueprint* Blueprint, const UStruct* Scope)
{
	return FBlueprintEditorUtils::GetEntryNode(FBlueprintEditorUtils::FindScopeGraph(Blueprint, Scope));
}

static FBPVariableDescription* Find(UK2Node_FunctionEntry* Entry, FName Name)
{
	return Entry ? Entry->LocalVariables.FindByPredicate(
			   [Name](const FBPVariableDescription& Variable) { return Variable.VarName == Name; })
				 : nullptr;
}

/** A parameter and a local variable of one name would be one property. */
static bool IsParameter(const UK2Node_FunctionEntry& Entry, FName Name)
{
	TArray<UK2Node_FunctionTerminator*> Ends;
	Entry.GetGraph()->GetNodesOfClass(Ends);
	return Ends.ContainsByPredicate([Name](const UK2Node_FunctionTerminator* End)
		{ return End->FindPin(Name) && !UEdGraphSchema_K2::IsExecPin(*End->FindPin(Name)); });
}

static bool IsTaken(UK2Node_FunctionEntry& Entry, FName Name)
{
	return Find(&Entry, Name) || IsParameter(Entry, Name);
}

/** Gets and sets of a local variable in the function's graph and in what is collapsed in it. */
static TArray<UK2Node_Variable*> FindNodes(UEdGraph& Graph, FName Name)
{
	TArray<UEdGraph*> Graphs = {&Graph};
	Graph.GetAllChildrenGraphs(Graphs);
	TArray<UK2Node_Variable*> Found;
	for (const UEdGraph* const Each : Graphs)
	{
		TArray<UK2Node_Variable*> Nodes;
		Each->GetNodesOfClass(Nodes);
		for (UK2Node_Variable* const Node : Nodes)
		{
			if (Node->VariableReference.IsLocalScope() && Node->GetVarName() == Name)
			{
				Found.Add(Node);
			}
		}
	}
	return Found;
}
} // namespace LocalVariables

bool FBlueprintEditorUtils::AddLocalVariable(UBlueprint* Blueprint, UEdGraph* InTargetGraph, const FName InNewVarName,
	const FEdGraphPinType& InNewVarType, const FString& DefaultValue)
{
	UK2Node_FunctionEntry* const Entry = InTargetGraph ? GetEntryNode(GetTopLevelGraph(InTargetGraph)) : nullptr;
	if (!Blueprint || !Entry || InNewVarName.IsNone() || LocalVariables::IsTaken(*Entry, InNewVarName))
	{
		return false;
	}
	Entry->Modify();
	FBPVariableDescription Variable = VariableDescriptions::Make(*Blueprint, InNewVarName, InNewVarType, DefaultValue);
	Variable.PropertyFlags = CPF_BlueprintVisible;
	Entry->LocalVariables.Add(MoveTemp(Variable));
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

void FBlueprintEditorUtils::RemoveLocalVariable(UBlueprint* InBlueprint, const UStruct* InScope, const FName InVarName)
{
	UK2Node_FunctionEntry* const Entry = LocalVariables::FindEntry(InBlueprint, InScope);
	if (!LocalVariables::Find(Entry, InVarName))
	{
		return;
	}
	Entry->Modify();
	Entry->LocalVariables.RemoveAll(
		[InVarName](const FBPVariableDescription& Variable) { return Variable.VarName == InVarName; });
	for (UK2Node_Variable* const Node : LocalVariables::FindNodes(*Entry->GetGraph(), InVarName))
	{
		Node->DestroyNode();
	}
	MarkBlueprintAsStructurallyModified(InBlueprint);
}

void FBlueprintEditorUtils::RenameLocalVariable(
	UBlueprint* InBlueprint, const UStruct* InScope, const FName InOldName, const FName InNewName)
{
	UK2Node_FunctionEntry* const Entry = LocalVariables::FindEntry(InBlueprint, InScope);
	FBPVariableDescription* const Variable = LocalVariables::Find(Entry, InOldName);
	const bool bTaken = Variable && InNewName != InOldName && LocalVariables::IsTaken(*Entry, InNewName);
	if (!Variable || InNewName.IsNone() || bTaken || InOldName.IsEqual(InNewName, ENameCase::CaseSensitive))
	{
		return;
	}
	Entry->Modify();
	VariableDescriptions::Rename(*Variable, InNewName);
	UEdGraph* const Graph = Entry->GetGraph();
	for (UK2Node_Variable* const Node : LocalVariables::FindNodes(*Graph, InOldName))
	{
		Node->HandleVariableRenamed(InBlueprint, nullptr, Graph, InOldName, InNewName);
	}
	MarkBlueprintAsStructurallyModified(InBlueprint);
}

void FBlueprintEditorUtils::ChangeLocalVariableType(
	UBlueprint* InBlueprint, const UStruct* InScope, const FName InVariableName, const FEdGraphPinType& InNewPinType)
{
	UK2Node_FunctionEntry* const Entry = LocalVariables::FindEntry(InBlueprint, InScope);
	FBPVariableDescription* const Variable = LocalVariables::Find(Entry, InVariableName);
	if (!Variable || Variable->VarType == InNewPinType)
	{
		return;
	}
	Entry->Modify();
	VariableDescriptions::ChangeType(*InBlueprint, *Variable, InNewPinType);
	Variable->PropertyFlags = CPF_BlueprintVisible;
	MarkBlueprintAsStructurallyModified(InBlueprint);
	for (UK2Node_Variable* const Node : LocalVariables::FindNodes(*Entry->GetGraph(), InVariableName))
	{
		Node->Modify();
		Node->ReconstructNode();
	}
}

FBPVariableDescription* FBlueprintEditorUtils::FindLocalVariable(
	UBlueprint*, const UEdGraph* InScopeGraph, const FName InVariableName, UK2Node_FunctionEntry** OutFunctionEntry)
{
	UK2Node_FunctionEntry* const Entry = GetEntryNode(GetTopLevelGraph(InScopeGraph));
	if (OutFunctionEntry)
	{
		*OutFunctionEntry = Entry;
	}
	return LocalVariables::Find(Entry, InVariableName);
}

FBPVariableDescription* FBlueprintEditorUtils::FindLocalVariable(UBlueprint* InBlueprint, const UStruct* InScope,
	const FName InVariableName, UK2Node_FunctionEntry** OutFunctionEntry)
{
	return FindLocalVariable(InBlueprint, FindScopeGraph(InBlueprint, InScope), InVariableName, OutFunctionEntry);
}
