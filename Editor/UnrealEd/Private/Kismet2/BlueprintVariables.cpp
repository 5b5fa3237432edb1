// Variables of Blueprints: adding, removing, renaming, flags and metadata.

#include "Kismet2/BlueprintEditorUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintClassProvider.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Variable.h"
#include "K2Node_VariableGet.h"

namespace BlueprintVariables
{
/** What a new variable has until an author says otherwise: editable on the class alone. */
constexpr uint64 NewVariableFlags = CPF_Edit | CPF_BlueprintVisible | CPF_DisableEditOnInstance;

FBPVariableDescription Describe(FName Name, const FEdGraphPinType& Type, const FString& DefaultValue)
{
	FBPVariableDescription Variable;
	Variable.VarName = Name;
	Variable.VarGuid = FGuid::NewGuid();
	Variable.VarType = Type;
	Variable.FriendlyName = FName::NameToDisplayString(
		Name.ToString(), Type.PinCategory == UEdGraphSchema_K2::PC_Boolean);
	Variable.DefaultValue = DefaultValue;
	Variable.Category = UEdGraphSchema_K2::VR_DefaultCategory;
	Variable.PropertyFlags = NewVariableFlags;
	if (Type.PinCategory == UEdGraphSchema_K2::PC_MCDelegate)
	{
		Variable.PropertyFlags |= CPF_BlueprintAssignable | CPF_BlueprintCallable;
	}
	return Variable;
}

FBPVariableDescription* Find(UBlueprint* Blueprint, FName Name)
{
	const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(Blueprint, Name);
	return Index == INDEX_NONE ? nullptr : &Blueprint->NewVariables[Index];
}

FBPVariableDescription* Find(UBlueprint* Blueprint, FName Name, const UStruct* LocalScope)
{
	if (!LocalScope)
	{
		return Find(Blueprint, Name);
	}
	for (UEdGraph* const Graph : Blueprint->FunctionGraphs)
	{
		if (Graph && Graph->GetFName() == LocalScope->GetFName())
		{
			return FBlueprintEditorUtils::FindLocalVariable(Blueprint, Graph, Name);
		}
	}
	return nullptr;
}

void SetFlag(UBlueprint* Blueprint, FName Name, uint64 Flag, bool bSet)
{
	if (FBPVariableDescription* const Variable = Find(Blueprint, Name))
	{
		Variable->PropertyFlags = bSet ? Variable->PropertyFlags | Flag : Variable->PropertyFlags & ~Flag;
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
}
} // namespace BlueprintVariables

bool FBlueprintEditorUtils::AddMemberVariable(
	UBlueprint* Blueprint, const FName& NewVarName, const FEdGraphPinType& NewVarType, const FString& DefaultValue)
{
	if (!Blueprint || NewVarName.IsNone())
	{
		return false;
	}
	TSet<FName> Taken;
	GetClassVariableList(Blueprint, Taken, true);
	GetSCSVariableNameList(Blueprint, Taken);
	if (Taken.Contains(NewVarName))
	{
		return false;
	}
	Blueprint->Modify();
	Blueprint->NewVariables.Add(BlueprintVariables::Describe(NewVarName, NewVarType, DefaultValue));
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
	const bool bDispatcher = Blueprint->NewVariables[Index].VarType.PinCategory == UEdGraphSchema_K2::PC_MCDelegate;
	Blueprint->NewVariables.RemoveAt(Index);
	TArray<UK2Node_Variable*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node_Variable* const Node : Nodes)
	{
		if (Node->GetVarName() == VarName && Node->VariableReference.IsSelfContext())
		{
			Node->DestroyNode();
		}
	}
	if (UEdGraph* const Signature = bDispatcher ? GetDelegateSignatureGraphByName(Blueprint, VarName) : nullptr)
	{
		RemoveGraph(Blueprint, Signature, EGraphRemoveFlags::MarkTransient);
	}
	MarkBlueprintAsStructurallyModified(Blueprint);
}

void FBlueprintEditorUtils::RenameMemberVariable(UBlueprint* Blueprint, const FName OldName, const FName NewName)
{
	FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, OldName);
	if (!Variable || NewName.IsNone() || OldName.IsEqual(NewName, ENameCase::CaseSensitive))
	{
		return;
	}
	Variable->VarName = NewName;
	Variable->FriendlyName = FName::NameToDisplayString(
		NewName.ToString(), Variable->VarType.PinCategory == UEdGraphSchema_K2::PC_Boolean);
	MarkBlueprintAsStructurallyModified(Blueprint);
	TArray<UK2Node_Variable*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node_Variable* const Node : Nodes)
	{
		if (Node->GetVarName() != OldName || !Node->VariableReference.IsSelfContext())
		{
			continue;
		}
		for (UEdGraphPin* const Pin : Node->Pins)
		{
			if (Pin->PinName == OldName)
			{
				Pin->PinName = NewName;
			}
		}
		Node->VariableReference.SetMemberName(NewName);
		Node->ReconstructNode();
	}
}

void FBlueprintEditorUtils::ChangeMemberVariableType(
	UBlueprint* Blueprint, const FName VariableName, const FEdGraphPinType& NewPinType)
{
	FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VariableName);
	if (!Variable || Variable->VarType == NewPinType)
	{
		return;
	}
	Variable->VarType = NewPinType;
	Variable->DefaultValue.Empty();
	MarkBlueprintAsStructurallyModified(Blueprint);
	TArray<UK2Node_Variable*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node_Variable* const Node : Nodes)
	{
		if (Node->GetVarName() == VariableName)
		{
			Node->ReconstructNode();
		}
	}
}

bool FBlueprintEditorUtils::AddLocalVariable(UBlueprint* Blueprint, UEdGraph* InTargetGraph, const FName InNewVarName,
	const FEdGraphPinType& InNewVarType, const FString& DefaultValue)
{
	UK2Node_FunctionEntry* const Entry = InTargetGraph ? GetEntryNode(GetTopLevelGraph(InTargetGraph)) : nullptr;
	if (!Blueprint || !Entry || InNewVarName.IsNone() || FindLocalVariable(Blueprint, InTargetGraph, InNewVarName))
	{
		return false;
	}
	Entry->Modify();
	FBPVariableDescription Variable = BlueprintVariables::Describe(InNewVarName, InNewVarType, DefaultValue);
	Variable.PropertyFlags = CPF_BlueprintVisible;
	Entry->LocalVariables.Add(MoveTemp(Variable));
	MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

void FBlueprintEditorUtils::RemoveLocalVariable(UBlueprint* InBlueprint, const UStruct* InScope, const FName InVarName)
{
	for (UEdGraph* const Graph : InBlueprint->FunctionGraphs)
	{
		UK2Node_FunctionEntry* const Entry = Graph && InScope && Graph->GetFName() == InScope->GetFName()
			? GetEntryNode(Graph)
			: nullptr;
		if (Entry)
		{
			Entry->LocalVariables.RemoveAll(
				[InVarName](const FBPVariableDescription& Variable) { return Variable.VarName == InVarName; });
			MarkBlueprintAsStructurallyModified(InBlueprint);
			return;
		}
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
	return Entry ? Entry->LocalVariables.FindByPredicate(
			   [InVariableName](const FBPVariableDescription& Variable) { return Variable.VarName == InVariableName; })
				 : nullptr;
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
		if (const FBPVariableDescription* const Variable = BlueprintVariables::Find(InBlueprint, InVariableName))
		{
			return Variable->VarGuid;
		}
		InBlueprint = UBlueprint::GetBlueprintFromClass(InBlueprint->ParentClass.Get());
	}
	return FGuid();
}

FGuid FBlueprintEditorUtils::FindLocalVariableGuidByName(
	UBlueprint* InBlueprint, const UStruct* InScope, const FName InVariableName)
{
	const FBPVariableDescription* const Variable = BlueprintVariables::Find(InBlueprint, InVariableName, InScope);
	return Variable ? Variable->VarGuid : FGuid();
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

void FBlueprintEditorUtils::SetBlueprintOnlyEditableFlag(
	UBlueprint* Blueprint, const FName& VarName, const bool bNewBlueprintOnly)
{
	BlueprintVariables::SetFlag(Blueprint, VarName, CPF_DisableEditOnInstance, bNewBlueprintOnly);
}

void FBlueprintEditorUtils::SetBlueprintPropertyReadOnlyFlag(
	UBlueprint* Blueprint, const FName& VarName, const bool bVariableReadOnly)
{
	BlueprintVariables::SetFlag(Blueprint, VarName, CPF_BlueprintReadOnly, bVariableReadOnly);
}

void FBlueprintEditorUtils::SetInterpFlag(UBlueprint* Blueprint, const FName& VarName, const bool bInterp)
{
	BlueprintVariables::SetFlag(Blueprint, VarName, CPF_Interp, bInterp);
}

void FBlueprintEditorUtils::SetVariableTransientFlag(
	UBlueprint* InBlueprint, const FName& InVarName, const bool bInIsTransient)
{
	BlueprintVariables::SetFlag(InBlueprint, InVarName, CPF_Transient, bInIsTransient);
}

void FBlueprintEditorUtils::SetVariableSaveGameFlag(
	UBlueprint* InBlueprint, const FName& InVarName, const bool bInIsSaveGame)
{
	BlueprintVariables::SetFlag(InBlueprint, InVarName, CPF_SaveGame, bInIsSaveGame);
}

void FBlueprintEditorUtils::SetBlueprintVariableMetaData(UBlueprint* Blueprint, const FName& VarName,
	const UStruct* InLocalVarScope, const FName& MetaDataKey, const FString& MetaDataValue)
{
	if (FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VarName, InLocalVarScope))
	{
		Variable->SetMetaData(MetaDataKey, MetaDataValue);
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

bool FBlueprintEditorUtils::GetBlueprintVariableMetaData(const UBlueprint* Blueprint, const FName& VarName,
	const UStruct* InLocalVarScope, const FName& MetaDataKey, FString& OutMetaDataValue)
{
	const FBPVariableDescription* const Variable = BlueprintVariables::Find(
		const_cast<UBlueprint*>(Blueprint), VarName, InLocalVarScope);
	if (!Variable || !Variable->HasMetaData(MetaDataKey))
	{
		OutMetaDataValue.Empty();
		return false;
	}
	OutMetaDataValue = Variable->GetMetaData(MetaDataKey);
	return true;
}

void FBlueprintEditorUtils::RemoveBlueprintVariableMetaData(
	UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FName& MetaDataKey)
{
	if (FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VarName, InLocalVarScope))
	{
		Variable->RemoveMetaData(MetaDataKey);
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

void FBlueprintEditorUtils::SetBlueprintVariableCategory(
	UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FText& NewCategory, bool)
{
	if (FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VarName, InLocalVarScope))
	{
		Variable->Category = NewCategory.IsEmpty() ? UEdGraphSchema_K2::VR_DefaultCategory : NewCategory;
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

FText FBlueprintEditorUtils::GetBlueprintVariableCategory(
	UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope)
{
	const FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VarName, InLocalVarScope);
	return Variable ? Variable->Category : FText();
}

void FBlueprintEditorUtils::SetBlueprintVariableRepNotifyFunc(
	UBlueprint* Blueprint, const FName& VarName, const FName& RepNotifyFunc)
{
	if (FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VarName))
	{
		Variable->RepNotifyFunc = RepNotifyFunc;
	}
}

FName FBlueprintEditorUtils::GetBlueprintVariableRepNotifyFunc(UBlueprint* Blueprint, const FName& VarName)
{
	const FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VarName);
	return Variable ? Variable->RepNotifyFunc : FName();
}

uint64* FBlueprintEditorUtils::GetBlueprintVariablePropertyFlags(UBlueprint* Blueprint, const FName& VarName)
{
	FBPVariableDescription* const Variable = BlueprintVariables::Find(Blueprint, VarName);
	return Variable ? &Variable->PropertyFlags : nullptr;
}

bool FBlueprintEditorUtils::IsVariableUsed(
	const UBlueprint* Blueprint, const FName& VariableName, const UEdGraph* LocalGraphScope)
{
	TArray<UK2Node_Variable*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	return Nodes.ContainsByPredicate([&VariableName, LocalGraphScope](const UK2Node_Variable* Node)
		{ return Node->GetVarName() == VariableName && (!LocalGraphScope || Node->GetGraph() == LocalGraphScope); });
}

bool FBlueprintEditorUtils::PropertyValueFromString(
	const FProperty* Property, const FString& StrValue, uint8* Container, UObject* OwningObject, int32 PortFlags)
{
	return PropertyValueFromString_Direct(
		Property, StrValue, Property->ContainerPtrToValuePtr<uint8>(Container), OwningObject, PortFlags);
}

bool FBlueprintEditorUtils::PropertyValueFromString_Direct(
	const FProperty* Property, const FString& StrValue, uint8* DirectValue, UObject* OwningObject, int32 PortFlags)
{
	if (StrValue.IsEmpty() && !Property->IsA<FStrProperty>() && !Property->IsA<FTextProperty>())
	{
		Property->ClearValue(DirectValue);
		return true;
	}
	return Property->ImportText_Direct(*StrValue, DirectValue, OwningObject, PortFlags) != nullptr;
}

bool FBlueprintEditorUtils::PropertyValueToString(
	const FProperty* Property, const uint8* Container, FString& OutForm, UObject* OwningObject, int32 PortFlags)
{
	return PropertyValueToString_Direct(
		Property, Property->ContainerPtrToValuePtr<uint8>(Container), OutForm, OwningObject, PortFlags);
}

bool FBlueprintEditorUtils::PropertyValueToString_Direct(
	const FProperty* Property, const uint8* DirectValue, FString& OutForm, UObject* OwningObject, int32 PortFlags)
{
	OutForm.Empty();
	Property->ExportTextItem_Direct(OutForm, DirectValue, nullptr, OwningObject, PortFlags);
	return true;
}
