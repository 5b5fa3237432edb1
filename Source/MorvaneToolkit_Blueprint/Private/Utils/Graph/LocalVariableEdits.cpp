#include "Utils/Graph/LocalVariableEdits.h"

#include "BlueprintGraphUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Graph/NodeRefresh.h"

namespace LocalVariableEditsImpl
{
static bool IsWhole(const FEdGraphPinType& Type)
{
	return Type.PinCategory == UEdGraphSchema_K2::PC_Int || Type.PinCategory == UEdGraphSchema_K2::PC_Int64
		|| (Type.PinCategory == UEdGraphSchema_K2::PC_Byte && !Type.PinSubCategoryObject.Get());
}

/** What is wrong with a default of the type; empty when nothing is, or when only a compile can tell. */
static FString FindFault(const FEdGraphPinType& Type, FName Name, const FString& Default)
{
	const bool bObject = Type.PinCategory == UEdGraphSchema_K2::PC_Object
		|| Type.PinCategory == UEdGraphSchema_K2::PC_Class || Type.PinCategory == UEdGraphSchema_K2::PC_Interface;
	if (Default.IsEmpty() || bObject || Type.IsContainer())
	{
		return FString();
	}
	// Numbers of a request come with a fraction, be it none.
	FString Text = Default;
	if (IsWhole(Type))
	{
		Text.RemoveFromEnd(TEXT(".0"));
	}
	FString Fault;
	GetDefault<UEdGraphSchema_K2>()->DefaultValueSimpleValidation(Type, Name, Text, nullptr, FText(), &Fault);
	return Fault;
}

/** One run over the records of one entry node. */
class FEdits
{
public:
	FEdits(UBlueprint& InBlueprint, UEdGraph& InGraph, UK2Node_FunctionEntry& InEntry, Morvane::FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Graph(InGraph)
		, Entry(InEntry)
		, Result(InResult)
	{
	}

	bool Apply(const FBPLocalVariableModification& Record)
	{
		if (FName(*Record.Name).IsNone())
		{
			return ThrowOut(Record, TEXT("The name cannot be empty"));
		}
		switch (Record.Action)
		{
		case EBPNodeAction::Add:
			return Add(Record);
		case EBPNodeAction::Modify:
			return Modify(Record);
		case EBPNodeAction::Remove:
			return Remove(Record);
		}
		return false;
	}

private:
	bool Warn(const FString& Text)
	{
		Result.AddWarningMessage(Text);
		return false;
	}
	bool ThrowOut(const FBPLocalVariableModification& Record, const FString& Reason)
	{
		return Warn(FString::Printf(TEXT("Failed to process local variable '%s': %s"), *Record.Name, *Reason));
	}

	FBPVariableDescription* Find(const FString& Name)
	{
		return Entry.LocalVariables.FindByPredicate(
			[&Name](const FBPVariableDescription& Variable) { return Variable.VarName == FName(*Name); });
	}

	/** Gets and sets, in the function and in what is collapsed in it. */
	TArray<UK2Node*> FindNodes(FName Name) const
	{
		TArray<UK2Node_Variable*> Nodes;
		FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Nodes);
		TArray<UK2Node*> Found;
		for (UK2Node_Variable* const Node : Nodes)
		{
			if (Node->VariableReference.IsLocalScope() && Node->GetVarName() == Name
				&& FBlueprintEditorUtils::GetTopLevelGraph(Node->GetGraph()) == &Graph)
			{
				Found.Add(Node);
			}
		}
		return Found;
	}

	bool Add(const FBPLocalVariableModification& Record)
	{
		if (Find(Record.Name))
		{
			return Warn(FString::Printf(TEXT("Local variable '%s' already exists, cannot add"), *Record.Name));
		}
		if (!Record.Type)
		{
			return ThrowOut(Record, TEXT("It needs a type"));
		}
		const FString Default = Record.DefaultValue.Get(FString());
		const FString Fault = FindFault(*Record.Type, FName(*Record.Name), Default);
		if (!Fault.IsEmpty())
		{
			return ThrowOut(Record, Fault);
		}
		if (!FBlueprintEditorUtils::AddLocalVariable(&Blueprint, &Graph, FName(*Record.Name), *Record.Type, Default))
		{
			return Warn(FString::Printf(TEXT("Failed to create local variable: %s"), *Record.Name));
		}
		Entry.ReconstructNode();
		Result.AddSuccessMessage(FString::Printf(TEXT("Created new local variable: %s"), *Record.Name));
		return true;
	}

	bool Modify(const FBPLocalVariableModification& Record)
	{
		FBPVariableDescription* const Variable = Find(Record.Name);
		if (!Variable)
		{
			return Warn(FString::Printf(TEXT("Local variable '%s' not found for modification"), *Record.Name));
		}
		if (!Record.Type && !Record.DefaultValue)
		{
			return ThrowOut(Record, TEXT("Neither a type nor a default is given"));
		}
		const FEdGraphPinType Type = Record.Type.Get(Variable->VarType);
		const FString Fault = FindFault(Type, Variable->VarName, Record.DefaultValue.Get(FString()));
		if (!Fault.IsEmpty())
		{
			return ThrowOut(Record, Fault);
		}
		Entry.Modify();
		const bool bOtherType = Type != Variable->VarType;
		Variable->VarType = Type;
		// A default that the new type cannot read is none.
		const bool bKept = FindFault(Type, Variable->VarName, Variable->DefaultValue).IsEmpty();
		Variable->DefaultValue = Record.DefaultValue.Get(bKept ? Variable->DefaultValue : FString());
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		if (bOtherType)
		{
			FollowType(*Variable);
		}
		Entry.ReconstructNode();
		Result.AddSuccessMessage(FString::Printf(TEXT("Modified local variable: %s"), *Record.Name));
		return true;
	}

	void FollowType(const FBPVariableDescription& Variable)
	{
		const TArray<FString> Lost = NodeRefresh::Reconstruct(FindNodes(Variable.VarName));
		if (!Lost.IsEmpty())
		{
			Warn(FString::Printf(TEXT("Local variable '%s' has another type now. These links do not fit it: %s"),
				*Variable.VarName.ToString(), *FString::Join(Lost, TEXT(", "))));
		}
	}

	bool Remove(const FBPLocalVariableModification& Record)
	{
		const FBPVariableDescription* const Variable = Find(Record.Name);
		if (!Variable)
		{
			return Warn(FString::Printf(TEXT("Local variable '%s' not found for removal"), *Record.Name));
		}
		const FName Name = Variable->VarName;
		Entry.Modify();
		Entry.LocalVariables.RemoveAll([Name](const FBPVariableDescription& Each) { return Each.VarName == Name; });
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		Entry.ReconstructNode();
		Result.AddSuccessMessage(FString::Printf(TEXT("Removed local variable: %s"), *Record.Name));
		const TArray<UK2Node*> Users = FindNodes(Name);
		if (!Users.IsEmpty())
		{
			Warn(FString::Printf(TEXT("Local variable '%s' is removed, and these nodes still use it: %s"),
				*Name.ToString(), *NodeRefresh::DescribeAll(Users)));
		}
		return true;
	}

	UBlueprint& Blueprint;
	UEdGraph& Graph;
	UK2Node_FunctionEntry& Entry;
	Morvane::FToolResult& Result;
};

/** The entry that keeps the variables; null after a warning. */
static UK2Node_FunctionEntry* FindEntry(
	const UBlueprint& Blueprint, const UEdGraph* TopGraph, Morvane::FToolResult& Result)
{
	const bool bPage = FBlueprintGraphUtils::IsUbergraphPage(&Blueprint, TopGraph);
	if (bPage || FBlueprintGraphUtils::IsDelegateSignatureGraph(&Blueprint, TopGraph))
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Local variables are not supported in %s"),
			bPage ? TEXT("event graphs") : TEXT("delegate signature graphs")));
		return nullptr;
	}
	UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(TopGraph);
	if (!Entry)
	{
		Result.AddWarningMessage(TEXT("Cannot process local variables: Function entry node not found"));
	}
	return Entry;
}
} // namespace LocalVariableEditsImpl

LocalVariableEdits::FOutcome LocalVariableEdits::Apply(UBlueprint& Blueprint, UEdGraph* Graph,
	const TArray<FBPLocalVariableModification>& Records, Morvane::FToolResult& Result)
{
	FOutcome Outcome;
	UEdGraph* const TopGraph = FBlueprintEditorUtils::GetTopLevelGraph(Graph);
	UK2Node_FunctionEntry* const Entry = LocalVariableEditsImpl::FindEntry(Blueprint, TopGraph, Result);
	if (!Entry)
	{
		Outcome.Failed = Records.Num();
		return Outcome;
	}
	LocalVariableEditsImpl::FEdits Edits(Blueprint, *TopGraph, *Entry, Result);
	for (const FBPLocalVariableModification& Record : Records)
	{
		++(Edits.Apply(Record) ? Outcome.Processed : Outcome.Failed);
	}
	Outcome.Entry = Outcome.Processed > 0 ? Entry : nullptr;
	return Outcome;
}
