#include "EdGraph/EdGraphPin.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_STRUCT(FSimpleMemberReference, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FEdGraphTerminalType, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FEdGraphPinType, "/Script/Engine")

template <>
UEnum* StaticEnum<EPinContainerType>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EPinContainerType"), TEXT("/Script/Engine"),
		UEnum::ECppForm::EnumClass, {{TEXT("None"), 0}, {TEXT("Array"), 1}, {TEXT("Set"), 2}, {TEXT("Map"), 3}});
	return Enum;
}

template <>
UEnum* StaticEnum<EEdGraphPinDirection>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EEdGraphPinDirection"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Regular, {{TEXT("EGPD_Input"), EGPD_Input}, {TEXT("EGPD_Output"), EGPD_Output}});
	return Enum;
}

void FSimpleMemberReference::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("MemberParent"), &FSimpleMemberReference::MemberParent);
	Struct.Property(TEXT("MemberName"), &FSimpleMemberReference::MemberName);
	Struct.Property(TEXT("MemberGuid"), &FSimpleMemberReference::MemberGuid);
}

void FEdGraphTerminalType::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("TerminalCategory"), &FEdGraphTerminalType::TerminalCategory);
	Struct.Property(TEXT("TerminalSubCategory"), &FEdGraphTerminalType::TerminalSubCategory);
	Struct.Property(TEXT("TerminalSubCategoryObject"), &FEdGraphTerminalType::TerminalSubCategoryObject);
	Struct.BitField<FEdGraphTerminalType>(TEXT("bTerminalIsConst"), [](auto& Type) { Type.bTerminalIsConst = true; });
	Struct.BitField<FEdGraphTerminalType>(
		TEXT("bTerminalIsWeakPointer"), [](auto& Type) { Type.bTerminalIsWeakPointer = true; });
	Struct.BitField<FEdGraphTerminalType>(
		TEXT("bTerminalIsUObjectWrapper"), [](auto& Type) { Type.bTerminalIsUObjectWrapper = true; });
}

void FEdGraphPinType::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("PinCategory"), &FEdGraphPinType::PinCategory);
	Struct.Property(TEXT("PinSubCategory"), &FEdGraphPinType::PinSubCategory);
	Struct.Property(TEXT("PinSubCategoryObject"), &FEdGraphPinType::PinSubCategoryObject);
	Struct.Property(TEXT("PinSubCategoryMemberReference"), &FEdGraphPinType::PinSubCategoryMemberReference);
	Struct.Property(TEXT("PinValueType"), &FEdGraphPinType::PinValueType);
	Struct.Property(TEXT("ContainerType"), &FEdGraphPinType::ContainerType);
	Struct.BitField<FEdGraphPinType>(TEXT("bIsReference"), [](auto& Type) { Type.bIsReference = true; });
	Struct.BitField<FEdGraphPinType>(TEXT("bIsConst"), [](auto& Type) { Type.bIsConst = true; });
	Struct.BitField<FEdGraphPinType>(TEXT("bIsWeakPointer"), [](auto& Type) { Type.bIsWeakPointer = true; });
	Struct.BitField<FEdGraphPinType>(TEXT("bIsUObjectWrapper"), [](auto& Type) { Type.bIsUObjectWrapper = true; });
	Struct.BitField<FEdGraphPinType>(
		TEXT("bSerializeAsSinglePrecisionFloat"), [](auto& Type) { Type.bSerializeAsSinglePrecisionFloat = true; });
}

FEdGraphTerminalType FEdGraphTerminalType::FromPinType(const FEdGraphPinType& PinType)
{
	FEdGraphTerminalType Type;
	Type.TerminalCategory = PinType.PinCategory;
	Type.TerminalSubCategory = PinType.PinSubCategory;
	Type.TerminalSubCategoryObject = PinType.PinSubCategoryObject;
	Type.bTerminalIsConst = PinType.bIsConst;
	Type.bTerminalIsWeakPointer = PinType.bIsWeakPointer;
	Type.bTerminalIsUObjectWrapper = PinType.bIsUObjectWrapper;
	return Type;
}

bool FEdGraphTerminalType::operator==(const FEdGraphTerminalType& Other) const
{
	return TerminalCategory == Other.TerminalCategory && TerminalSubCategory == Other.TerminalSubCategory
		&& TerminalSubCategoryObject == Other.TerminalSubCategoryObject && bTerminalIsConst == Other.bTerminalIsConst
		&& bTerminalIsWeakPointer == Other.bTerminalIsWeakPointer
		&& bTerminalIsUObjectWrapper == Other.bTerminalIsUObjectWrapper;
}

namespace PinTypeUpgrade
{
static void GivePrecision(FName& Category, FName& SubCategory)
{
	static const FName Float(TEXT("float"));
	static const FName Double(TEXT("double"));
	static const FName Real(TEXT("real"));
	if (Category == Float)
	{
		Category = Real;
		SubCategory = Double;
	}
}
} // namespace PinTypeUpgrade

void FEdGraphTerminalType::PostImportText()
{
	PinTypeUpgrade::GivePrecision(TerminalCategory, TerminalSubCategory);
}

void FEdGraphPinType::PostImportText()
{
	PinTypeUpgrade::GivePrecision(PinCategory, PinSubCategory);
}

FEdGraphPinType FEdGraphPinType::GetPinTypeForTerminalType(const FEdGraphTerminalType& TerminalType)
{
	FEdGraphPinType Type;
	Type.PinCategory = TerminalType.TerminalCategory;
	Type.PinSubCategory = TerminalType.TerminalSubCategory;
	Type.PinSubCategoryObject = TerminalType.TerminalSubCategoryObject;
	Type.bIsConst = TerminalType.bTerminalIsConst;
	Type.bIsWeakPointer = TerminalType.bTerminalIsWeakPointer;
	Type.bIsUObjectWrapper = TerminalType.bTerminalIsUObjectWrapper;
	return Type;
}

bool FEdGraphPinType::operator==(const FEdGraphPinType& Other) const
{
	return PinCategory == Other.PinCategory && PinSubCategory == Other.PinSubCategory
		&& PinSubCategoryObject == Other.PinSubCategoryObject
		&& PinSubCategoryMemberReference == Other.PinSubCategoryMemberReference && PinValueType == Other.PinValueType
		&& ContainerType == Other.ContainerType && bIsReference == Other.bIsReference && bIsConst == Other.bIsConst
		&& bIsWeakPointer == Other.bIsWeakPointer && bIsUObjectWrapper == Other.bIsUObjectWrapper;
}
