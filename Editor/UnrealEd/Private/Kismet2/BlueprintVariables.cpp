// Member variables of Blueprints: adding, removing, renaming, other types.

#include "Kismet2/BlueprintEditorUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Variable.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Kismet2/TakenNames.h"
#include "Kismet2/VariableDescriptions.h"
#include "Standalone/BlueprintClassProvider.h"

namespace BlueprintVariables
{
static bool IsDispatcher(const FBPVariableDescription& Variable)
{
	return Variable.VarType.PinCategory == UEdGraphSchema_K2::PC_MCDelegate;
}

/** A value that was set on the class default object alone goes into the description, which outlives a change of the
 * class. */
static void KeepDefault(UBlueprint& Blueprint, FBPVariableDescription& Variable)
{
	UClass* const Class = BlueprintClassProvider::GetSelfClass(&Blueprint);
	const FProperty* const Property = Class ? Class->FindPropertyByName(Variable.VarName) : nullptr;
	if (!Property || Property->GetOwnerClass() != Class || BlueprintVariables::IsDispatcher(Variable))
	{
		return;
	}
	UObject* const Default = Class->GetDefaultObject();
	const uint8* const Value = Property->ContainerPtrToValuePtr<uint8>(Default);
	TArray<uint8> Untouched;
	Untouched.SetNumZeroed(Property->GetElementSize());
	Property->InitializeValue(Untouched.GetData());
	if (!Property->Identical(Value, Untouched.GetData()))
	{
		Variable.DefaultValue.Empty();
		Property->ExportTextItem_Direct(Variable.DefaultValue, Value, nullptr, Default, PPF_None);
	}
	Property->DestroyValue(Untouched.GetData());
}

/** Gets and sets of a member, wherever they are. */
static TArray<UK2Node_Variable*> FindNodes(UBlueprint* Blueprint, FName Name)
{
	TArray<UBlueprint*> Users;
	FBlueprintEditorUtils::GetDependentBlueprints(Blueprint, Users);
	Users.Insert(Blueprint, 0);
	TArray<UK2Node_Variable*> Found;
	for (const UBlueprint* const User : Users)
	{
		TArray<UK2Node_Variable*> Nodes;
		FBlueprintEditorUtils::GetAllNodesOfClass(User, Nodes);
		for (UK2Node_Variable* const Node : Nodes)
		{
			const UClass* const Source = Node->VariableReference.GetMemberParentClass(User->GeneratedClass.Get());
			if (Node->ReferencesVariable(Name, nullptr) && Source && Source->IsChildOf(Blueprint->GeneratedClass.Get()))
			{
				Found.Add(Node);
			}
		}
	}
	return Found;
}

/** The index of a member that can have the new name, or none. */
static int32 FindRenamable(UBlueprint* Blueprint, FName OldName, FName NewName)
{
	const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(Blueprint, OldName);
	if (Index == INDEX_NONE || NewName.IsNone() || OldName.IsEqual(NewName, ENameCase::CaseSensitive))
	{
		return INDEX_NONE;
	}
	return FKismetNameValidator(Blueprint, OldName).IsValid(NewName) == EValidatorResult::Ok ? Index : INDEX_NONE;
}
} // namespace BlueprintVariables

bool FBlueprintEditorUtils::AddMemberVariable(
	UBlueprint* Blueprint, const FName& NewVarName, const FEdGraphPinType& NewVarType, const FString& DefaultValue)
{
	if (!Blueprint || NewVarName.IsNone() || TakenNames::IsVariable(*Blueprint, NewVarName))
	{
		return false;
	}
	Blueprint->Modify();
	Blueprint->NewVariables.Add(VariableDescriptions::Make(*Blueprint, NewVarName, NewVarType, DefaultValue));
	ValidateBlueprintChildVariables(Blueprint, NewVarName);
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

void FBlueprintEditorUtils::RemoveMemberVariable(UBlueprint* Blueprint, const FName VarName)
{
	const int32 Index = FindNewVariableIndex(Blueprint, VarName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	const bool bDispatcher = BlueprintVariables::IsDispatcher(Blueprint->NewVariables[Index]);
	Blueprint->NewVariables.RemoveAt(Index);
	RemoveVariableNodes(Blueprint, VarName);
	// A dispatcher is a variable and a signature, and half of one is of no use.
	if (UEdGraph* const Signature = bDispatcher ? GetDelegateSignatureGraphByName(Blueprint, VarName) : nullptr)
	{
		RemoveGraph(Blueprint, Signature, EGraphRemoveFlags::MarkTransient);
	}
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::BulkRemoveMemberVariables(UBlueprint* Blueprint, const TArray<FName>& VarNames)
{
	for (const FName Name : VarNames)
	{
		RemoveMemberVariable(Blueprint, Name);
	}
}

void FBlueprintEditorUtils::RenameMemberVariable(UBlueprint* Blueprint, const FName OldName, const FName NewName)
{
	const int32 Index = BlueprintVariables::FindRenamable(Blueprint, OldName, NewName);
	if (Index == INDEX_NONE)
	{
		return;
	}
	Blueprint->Modify();
	FBPVariableDescription& Variable = Blueprint->NewVariables[Index];
	BlueprintVariables::KeepDefault(*Blueprint, Variable);
	VariableDescriptions::Rename(Variable, NewName);
	ReplaceVariableReferences(Blueprint, OldName, NewName);
	if (BlueprintVariables::IsDispatcher(Variable))
	{
		MoveDispatcherSignature(*Blueprint, OldName, NewName);
	}
	ValidateBlueprintChildVariables(Blueprint, NewName);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::ChangeMemberVariableType(
	UBlueprint* Blueprint, const FName VariableName, const FEdGraphPinType& NewPinType)
{
	FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VariableName);
	if (!Variable || Variable->VarType == NewPinType)
	{
		return;
	}
	Blueprint->Modify();
	BlueprintVariables::KeepDefault(*Blueprint, *Variable);
	VariableDescriptions::ChangeType(*Blueprint, *Variable, NewPinType);
	MarkBlueprintAsStructurallyModified(Blueprint);
	for (UK2Node_Variable* const Node : BlueprintVariables::FindNodes(Blueprint, VariableName))
	{
		Node->Modify();
		Node->ReconstructNode();
	}
}

void FBlueprintEditorUtils::RenameComponentMemberVariable(UBlueprint* Blueprint, USCS_Node* Node, const FName NewName)
{
	const FName OldName = Node ? Node->GetVariableName() : NAME_None;
	if (OldName.IsNone() || NewName.IsNone() || OldName.IsEqual(NewName, ENameCase::CaseSensitive)
		|| FKismetNameValidator(Blueprint, OldName).IsValid(NewName) != EValidatorResult::Ok)
	{
		return;
	}
	Blueprint->Modify();
	ValidateBlueprintChildVariables(Blueprint, NewName);
	Node->Modify();
	Node->SetVariableName(NewName);
	ReplaceVariableReferences(Blueprint, OldName, NewName);
	MarkBlueprintAsStructurallyModified(Blueprint);
}

int32 FBlueprintEditorUtils::FindNewVariableIndex(const UBlueprint* Blueprint, const FName& InName)
{
	return InName.IsNone() ? INDEX_NONE
						   : Blueprint->NewVariables.IndexOfByPredicate(
							   [InName](const FBPVariableDescription& Variable) { return Variable.VarName == InName; });
}

FGuid FBlueprintEditorUtils::FindMemberVariableGuidByName(UBlueprint* InBlueprint, const FName InVariableName)
{
	while (InBlueprint)
	{
		if (const FBPVariableDescription* const Variable = VariableDescriptions::Find(InBlueprint, InVariableName))
		{
			return Variable->VarGuid;
		}
		InBlueprint = UBlueprint::GetBlueprintFromClass(InBlueprint->ParentClass.Get());
	}
	return FGuid();
}

FName FBlueprintEditorUtils::FindMemberVariableNameByGuid(UBlueprint* InBlueprint, const FGuid& InVariableGuid)
{
	for (const UBlueprint* Blueprint = InBlueprint; Blueprint;
		 Blueprint = UBlueprint::GetBlueprintFromClass(Blueprint->ParentClass.Get()))
	{
		for (const FBPVariableDescription& Variable : Blueprint->NewVariables)
		{
			if (Variable.VarGuid == InVariableGuid)
			{
				return Variable.VarName;
			}
		}
	}
	return NAME_None;
}
