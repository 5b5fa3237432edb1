#include "UserDefinedStructure/UserDefinedStructEditorData.h"

#include "Compiler/PinTypeProperty.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

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
