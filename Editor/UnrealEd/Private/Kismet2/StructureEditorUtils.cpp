#include "Kismet2/StructureEditorUtils.h"

#include "Compiler/PinTypeProperty.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"

IMPLEMENT_EDITOR_STRUCT(FStructVariableDescription, "/Script/UnrealEd")
IMPLEMENT_EDITOR_CLASS(UUserDefinedStructEditorData, "/Script/UnrealEd", CLASS_None)

void FStructVariableDescription::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("VarName"), &FStructVariableDescription::VarName);
	Struct.Property(TEXT("VarGuid"), &FStructVariableDescription::VarGuid);
	Struct.Property(TEXT("FriendlyName"), &FStructVariableDescription::FriendlyName);
	Struct.Property(TEXT("DefaultValue"), &FStructVariableDescription::DefaultValue);
	Struct.Property(TEXT("Category"), &FStructVariableDescription::Category);
	Struct.Property(TEXT("SubCategory"), &FStructVariableDescription::SubCategory);
	Struct.Property(TEXT("SubCategoryObject"), &FStructVariableDescription::SubCategoryObject);
	Struct.Property(TEXT("PinValueType"), &FStructVariableDescription::PinValueType);
	Struct.Property(TEXT("ContainerType"), &FStructVariableDescription::ContainerType);
	Struct.Property(TEXT("bDontEditOnInstance"), &FStructVariableDescription::bDontEditOnInstance);
	Struct.Property(TEXT("bEnableSaveGame"), &FStructVariableDescription::bEnableSaveGame);
	Struct.Property(TEXT("bEnableMultiLineText"), &FStructVariableDescription::bEnableMultiLineText);
	Struct.Property(TEXT("bEnable3dWidget"), &FStructVariableDescription::bEnable3dWidget);
	Struct.Property(TEXT("CurrentDefaultValue"), &FStructVariableDescription::CurrentDefaultValue);
	Struct.Property(TEXT("bInvalidMember"), &FStructVariableDescription::bInvalidMember);
	Struct.Property(TEXT("ToolTip"), &FStructVariableDescription::ToolTip);
}

void UUserDefinedStructEditorData::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("UniqueNameId"), &UUserDefinedStructEditorData::UniqueNameId);
	Class.Property(TEXT("VariablesDescriptions"), &UUserDefinedStructEditorData::VariablesDescriptions);
	Class.Property(TEXT("ToolTip"), &UUserDefinedStructEditorData::ToolTip);
}

bool FStructVariableDescription::SetPinType(const FEdGraphPinType& VarType)
{
	Category = VarType.PinCategory;
	SubCategory = VarType.PinSubCategory;
	SubCategoryObject = TSoftObjectPtr<UObject>(FSoftObjectPath(VarType.PinSubCategoryObject.Get()));
	PinValueType = VarType.PinValueType;
	ContainerType = VarType.ContainerType;
	return !VarType.bIsWeakPointer;
}

FEdGraphPinType FStructVariableDescription::ToPinType() const
{
	return FEdGraphPinType(
		Category, SubCategory, SubCategoryObject.LoadSynchronous(), ContainerType, false, PinValueType);
}

UUserDefinedStruct* UUserDefinedStructEditorData::GetOwnerStruct() const
{
	return Cast<UUserDefinedStruct>(GetOuter());
}

void UUserDefinedStructEditorData::PostLoad()
{
	Super::PostLoad();
	RecreateMembers();
}

void UUserDefinedStructEditorData::RecreateMembers()
{
	UUserDefinedStruct* const Struct = GetOwnerStruct();
	if (!Struct)
	{
		return;
	}
	Struct->DropDefaultValue();
	Struct->DestroyMembers();
	Struct->MemberDefaults.Empty();
	for (FStructVariableDescription& Member : VariablesDescriptions)
	{
		FProperty* const Property = PinTypeProperty::Create(FFieldVariant(Struct), Member.VarName, Member.ToPinType());
		Member.bInvalidMember = !Property;
		if (!Property)
		{
			continue;
		}
		Property->SetPropertyFlags(CPF_Edit | CPF_BlueprintVisible);
		Property->SetMetaData(FBlueprintMetadata::MD_DisplayName, *Member.FriendlyName);
		if (!Member.ToolTip.IsEmpty())
		{
			Property->SetMetaData(FBlueprintMetadata::MD_Tooltip, *Member.ToolTip);
		}
		if (!Member.DefaultValue.IsEmpty())
		{
			Struct->MemberDefaults.Add(Member.VarName, Member.DefaultValue);
		}
		Struct->AddProperty(Property);
	}
	Struct->Link();
}

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
	const bool bCarried = Member.SetPinType(VarType);
	const TUniquePtr<FProperty> Tried(
		bCarried ? PinTypeProperty::Create(FFieldVariant(Struct), Member.VarName, VarType) : nullptr);
	if (!Tried || VarType.PinSubCategoryObject == Struct)
	{
		return false;
	}
	Data.VariablesDescriptions.Add(MoveTemp(Member));
	StructureEditing::Change(*Struct);
	return true;
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
