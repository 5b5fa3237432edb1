// How nodes follow a variable or function that goes by another name, and what they refer to.

#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunctionOnMember.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Variable.h"
#include "PinNames.h"

namespace NodeRenames
{
/** Whether the reference, in a node of the Blueprint, means a member of the class or of one below it. */
static bool IsMemberOf(const FMemberReference& Reference, const UBlueprint* Blueprint, const UClass* Class)
{
	UClass* const Self = Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
	const UClass* const Scope = Reference.GetMemberParentClass(Self);
	return Scope && Class && Scope->IsChildOf(Class) && !Reference.IsLocalScope();
}

static const UEdGraph* TopGraph(const UEdGraphNode& Node)
{
	const UEdGraph* Graph = Node.GetGraph();
	while (Graph && Graph->GetParentGraph())
	{
		Graph = Graph->GetParentGraph();
	}
	return Graph;
}

/** Answers whether the reference meant the member and was changed. */
static bool Follow(UK2Node& Node, FMemberReference& Reference, const UBlueprint* Blueprint, const UClass* Class,
	FName OldName, FName NewName)
{
	if (Reference.GetMemberName() != OldName || !IsMemberOf(Reference, Blueprint, Class))
	{
		return false;
	}
	Node.Modify();
	Reference.SetMemberName(NewName);
	return true;
}
} // namespace NodeRenames

ERenamePinResult UK2Node::RenameUserDefinedPin(const FName OldName, const FName NewName, bool bTest)
{
	UEdGraphPin* Renamed = nullptr;
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin->PinName == OldName)
		{
			Renamed = Renamed ? Renamed : Pin;
		}
		else if (Pin->PinName == NewName)
		{
			return ERenamePinResult_NameCollision;
		}
	}
	if (!Renamed)
	{
		return ERenamePinResult_NoSuchPin;
	}
	if (!bTest)
	{
		Modify();
		PinNames::Rename(*Renamed, NewName);
	}
	return ERenamePinResult_Success;
}

void UK2Node_Variable::HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass, UEdGraph* InGraph,
	const FName& InOldVarName, const FName& InNewVarName)
{
	bool bFollows = false;
	if (InGraph)
	{
		bFollows = VariableReference.IsLocalScope() && GetVarName() == InOldVarName
			&& NodeRenames::TopGraph(*this) == InGraph;
		if (bFollows)
		{
			Modify();
			VariableReference.SetMemberName(InNewVarName);
		}
	}
	else
	{
		bFollows = NodeRenames::Follow(
			*this, VariableReference, InBlueprint, InVariableClass, InOldVarName, InNewVarName);
	}
	if (bFollows)
	{
		RenameUserDefinedPin(InOldVarName, InNewVarName);
	}
}

void UK2Node_Variable::HandleFunctionRenamed(
	UBlueprint*, UClass*, UEdGraph* InGraph, const FName& InOldFuncName, const FName& InNewFuncName)
{
	// A local variable is known by its function's name.
	if (VariableReference.IsLocalScope() && FName(VariableReference.GetMemberScopeName()) == InOldFuncName
		&& NodeRenames::TopGraph(*this) == InGraph)
	{
		Modify();
		VariableReference.SetLocalMember(GetVarName(), InNewFuncName.ToString(), VariableReference.GetMemberGuid());
	}
}

bool UK2Node_Variable::ReferencesVariable(const FName& InVarName, const UStruct* InScope) const
{
	const bool bRightScope = InScope ? VariableReference.GetMemberScopeName() == InScope->GetName()
									 : !VariableReference.IsLocalScope();
	return bRightScope && GetVarName() == InVarName;
}

void UK2Node_BaseMCDelegate::HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass, UEdGraph* InGraph,
	const FName& InOldVarName, const FName& InNewVarName)
{
	if (!InGraph)
	{
		NodeRenames::Follow(*this, DelegateReference, InBlueprint, InVariableClass, InOldVarName, InNewVarName);
	}
}

bool UK2Node_BaseMCDelegate::ReferencesVariable(const FName& InVarName, const UStruct* InScope) const
{
	return !InScope && GetPropertyName() == InVarName;
}

void UK2Node_ComponentBoundEvent::HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass,
	UEdGraph* InGraph, const FName& InOldVarName, const FName& InNewVarName)
{
	const UClass* const Self = InBlueprint ? InBlueprint->GeneratedClass.Get() : nullptr;
	if (!InGraph && InVariableClass && Self && Self->IsChildOf(InVariableClass)
		&& ComponentPropertyName == InOldVarName)
	{
		Modify();
		ComponentPropertyName = InNewVarName;
	}
}

bool UK2Node_ComponentBoundEvent::ReferencesVariable(const FName& InVarName, const UStruct* InScope) const
{
	return !InScope && ComponentPropertyName == InVarName;
}

void UK2Node_CallFunctionOnMember::HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass,
	UEdGraph* InGraph, const FName& InOldVarName, const FName& InNewVarName)
{
	if (!InGraph)
	{
		NodeRenames::Follow(*this, MemberVariableToCallOn, InBlueprint, InVariableClass, InOldVarName, InNewVarName);
	}
}

bool UK2Node_CallFunctionOnMember::ReferencesVariable(const FName& InVarName, const UStruct* InScope) const
{
	return !InScope && MemberVariableToCallOn.GetMemberName() == InVarName;
}

void UK2Node_CallFunction::HandleFunctionRenamed(
	UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph*, const FName& InOldFuncName, const FName& InNewFuncName)
{
	NodeRenames::Follow(*this, FunctionReference, InBlueprint, InFunctionClass, InOldFuncName, InNewFuncName);
}

void UK2Node_CreateDelegate::HandleFunctionRenamed(
	UBlueprint*, UClass* InFunctionClass, UEdGraph*, const FName& InOldFuncName, const FName& InNewFuncName)
{
	const UClass* const Scope = SelectedFunctionName == InOldFuncName ? GetScopeClass() : nullptr;
	if (Scope && InFunctionClass && Scope->GetAuthoritativeClass()->IsChildOf(InFunctionClass))
	{
		Modify();
		SetFunction(InNewFuncName);
	}
}

void UK2Node_Event::HandleFunctionRenamed(
	UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph*, const FName& InOldFuncName, const FName& InNewFuncName)
{
	if (bOverrideFunction)
	{
		NodeRenames::Follow(*this, EventReference, InBlueprint, InFunctionClass, InOldFuncName, InNewFuncName);
	}
}

void UK2Node_FunctionTerminator::HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass,
	UEdGraph* InGraph, const FName& InOldFuncName, const FName& InNewFuncName)
{
	// The function's own ends name it without a class until it was compiled, those of an override name the parent.
	const bool bOwnEnd = GetGraph() == InGraph && !FunctionReference.GetMemberParentClass();
	if (bOwnEnd && FunctionReference.GetMemberName() == InOldFuncName)
	{
		Modify();
		FunctionReference.SetMemberName(InNewFuncName);
		return;
	}
	NodeRenames::Follow(*this, FunctionReference, InBlueprint, InFunctionClass, InOldFuncName, InNewFuncName);
}

void UK2Node_FunctionEntry::HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
	const FName& InOldFuncName, const FName& InNewFuncName)
{
	Super::HandleFunctionRenamed(InBlueprint, InFunctionClass, InGraph, InOldFuncName, InNewFuncName);
	if (GetGraph() == InGraph && CustomGeneratedFunctionName == InOldFuncName)
	{
		Modify();
		CustomGeneratedFunctionName = InNewFuncName;
	}
}
