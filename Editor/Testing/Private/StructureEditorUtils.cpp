#include "Kismet2/StructureEditorUtils.h"

#include "EdGraphSchema_K2.h"
#include "UObject/UnrealType.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"

namespace StructureEditing
{
static UUserDefinedStructEditorData& DataOf(UUserDefinedStruct& Struct)
{
	return *CastChecked<UUserDefinedStructEditorData>(Struct.EditorData.Get());
}

static FStructVariableDescription* FindMember(UUserDefinedStruct& Struct, const FGuid& Guid)
{
	return DataOf(Struct).VariablesDescriptions.FindByPredicate(
		[&Guid](const FStructVariableDescription& Member) { return Member.VarGuid == Guid; });
}

static void Change(UUserDefinedStruct& Struct)
{
	DataOf(Struct).RecreateMembers();
	Struct.MarkPackageDirty();
}
} // namespace StructureEditing

UUserDefinedStruct* FStructureEditorUtils::CreateUserDefinedStruct(UObject* InParent, FName Name, EObjectFlags Flags)
{
	UUserDefinedStruct* const Struct = NewObject<UUserDefinedStruct>(InParent, Name, Flags);
	Struct->Guid = FGuid::NewGuid();
	Struct->EditorData = NewObject<UUserDefinedStructEditorData>(Struct, NAME_None, RF_Transactional);
	FEdGraphPinType Bool;
	Bool.PinCategory = UEdGraphSchema_K2::PC_Boolean;
	AddVariable(Struct, Bool);
	return Struct;
}

bool FStructureEditorUtils::AddVariable(UUserDefinedStruct* Struct, const FEdGraphPinType& VarType)
{
	UUserDefinedStructEditorData& Data = StructureEditing::DataOf(*Struct);
	FStructVariableDescription Member;
	const FString Shown = FString::Printf(TEXT("MemberVar_%u"), Data.GenerateUniqueNameIdForMemberVariable());
	Member.VarGuid = FGuid::NewGuid();
	Member.FriendlyName = Shown;
	Member.VarName = FName(Shown + TEXT("_") + Member.VarGuid.ToString());
	if (!Member.SetPinType(VarType) || VarType.PinSubCategoryObject == Struct)
	{
		return false;
	}
	Data.VariablesDescriptions.Add(MoveTemp(Member));
	StructureEditing::Change(*Struct);
	if (!Data.VariablesDescriptions.Last().bInvalidMember)
	{
		return true;
	}
	Data.VariablesDescriptions.RemoveAt(Data.VariablesDescriptions.Num() - 1);
	StructureEditing::Change(*Struct);
	return false;
}

bool FStructureEditorUtils::RemoveVariable(UUserDefinedStruct* Struct, FGuid VarGuid)
{
	TArray<FStructVariableDescription>& Members = GetVarDesc(Struct);
	const int32 NumRemoved = Members.Num() < 2
		? 0
		: Members.RemoveAll([&VarGuid](const FStructVariableDescription& Member) { return Member.VarGuid == VarGuid; });
	if (NumRemoved > 0)
	{
		StructureEditing::Change(*Struct);
	}
	return NumRemoved > 0;
}

bool FStructureEditorUtils::RenameVariable(UUserDefinedStruct* Struct, FGuid VarGuid, const FString& NewDisplayNameStr)
{
	const bool bTaken = GetVarDesc(Struct).ContainsByPredicate(
		[&NewDisplayNameStr](const FStructVariableDescription& Member)
		{ return Member.FriendlyName == NewDisplayNameStr; });
	FStructVariableDescription* const Member = StructureEditing::FindMember(*Struct, VarGuid);
	if (!Member || bTaken || NewDisplayNameStr.IsEmpty())
	{
		return false;
	}
	Member->FriendlyName = NewDisplayNameStr;
	StructureEditing::Change(*Struct);
	return true;
}

bool FStructureEditorUtils::ChangeVariableDefaultValue(
	UUserDefinedStruct* Struct, FGuid VarGuid, const FString& NewDefaultValue)
{
	FStructVariableDescription* const Member = StructureEditing::FindMember(*Struct, VarGuid);
	if (!Member)
	{
		return false;
	}
	Member->DefaultValue = NewDefaultValue;
	StructureEditing::Change(*Struct);
	return true;
}

TArray<FStructVariableDescription>& FStructureEditorUtils::GetVarDesc(UUserDefinedStruct* Struct)
{
	return StructureEditing::DataOf(*Struct).VariablesDescriptions;
}
