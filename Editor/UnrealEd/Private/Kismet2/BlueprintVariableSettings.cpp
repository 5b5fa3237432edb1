// Flags, metadata and categories of variables.

#include "Kismet2/BlueprintEditorUtils.h"

#include "EdGraphSchema_K2.h"
#include "Kismet2/VariableDescriptions.h"

namespace VariableSettings
{
static void SetFlag(UBlueprint* Blueprint, FName Name, uint64 Flag, bool bSet)
{
	if (FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, Name))
	{
		Variable->PropertyFlags = bSet ? Variable->PropertyFlags | Flag : Variable->PropertyFlags & ~Flag;
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
}
} // namespace VariableSettings

void FBlueprintEditorUtils::SetBlueprintOnlyEditableFlag(
	UBlueprint* Blueprint, const FName& VarName, const bool bNewBlueprintOnly)
{
	VariableSettings::SetFlag(Blueprint, VarName, CPF_DisableEditOnInstance, bNewBlueprintOnly);
}

void FBlueprintEditorUtils::SetBlueprintPropertyReadOnlyFlag(
	UBlueprint* Blueprint, const FName& VarName, const bool bVariableReadOnly)
{
	VariableSettings::SetFlag(Blueprint, VarName, CPF_BlueprintReadOnly, bVariableReadOnly);
}

void FBlueprintEditorUtils::SetVariableSaveGameFlag(
	UBlueprint* InBlueprint, const FName& InVarName, const bool bInIsSaveGame)
{
	VariableSettings::SetFlag(InBlueprint, InVarName, CPF_SaveGame, bInIsSaveGame);
}

void FBlueprintEditorUtils::SetBlueprintVariableMetaData(UBlueprint* Blueprint, const FName& VarName,
	const UStruct* InLocalVarScope, const FName& MetaDataKey, const FString& MetaDataValue)
{
	if (FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VarName, InLocalVarScope))
	{
		Variable->SetMetaData(MetaDataKey, MetaDataValue);
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

bool FBlueprintEditorUtils::GetBlueprintVariableMetaData(const UBlueprint* Blueprint, const FName& VarName,
	const UStruct* InLocalVarScope, const FName& MetaDataKey, FString& OutMetaDataValue)
{
	const FBPVariableDescription* const Variable = VariableDescriptions::Find(
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
	if (FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VarName, InLocalVarScope))
	{
		Variable->RemoveMetaData(MetaDataKey);
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

void FBlueprintEditorUtils::SetBlueprintVariableCategory(
	UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope, const FText& NewCategory, bool)
{
	if (FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VarName, InLocalVarScope))
	{
		Variable->Category = NewCategory.IsEmpty() ? UEdGraphSchema_K2::VR_DefaultCategory : NewCategory;
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

FText FBlueprintEditorUtils::GetBlueprintVariableCategory(
	UBlueprint* Blueprint, const FName& VarName, const UStruct* InLocalVarScope)
{
	const FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VarName, InLocalVarScope);
	return Variable ? Variable->Category : FText();
}

void FBlueprintEditorUtils::SetBlueprintVariableRepNotifyFunc(
	UBlueprint* Blueprint, const FName& VarName, const FName& RepNotifyFunc)
{
	if (FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VarName))
	{
		Variable->RepNotifyFunc = RepNotifyFunc;
		MarkBlueprintAsStructurallyModified(Blueprint);
	}
}

FName FBlueprintEditorUtils::GetBlueprintVariableRepNotifyFunc(UBlueprint* Blueprint, const FName& VarName)
{
	const FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VarName);
	return Variable ? Variable->RepNotifyFunc : FName();
}

uint64* FBlueprintEditorUtils::GetBlueprintVariablePropertyFlags(UBlueprint* Blueprint, const FName& VarName)
{
	FBPVariableDescription* const Variable = VariableDescriptions::Find(Blueprint, VarName);
	return Variable ? &Variable->PropertyFlags : nullptr;
}
