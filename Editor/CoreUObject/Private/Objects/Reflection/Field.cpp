#include "UObject/Field.h"

#include "Standalone/NativeClass.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

namespace FieldTexts
{
static const FString Empty;

static FText DisplayName(const FMetaDataTable& MetaData, const FString& Name, bool bIsBool)
{
	static const FName DisplayNameKey(TEXT("DisplayName"));
	const FString* const Given = MetaData.Find(DisplayNameKey);
	return FText::FromString(Given ? *Given : FName::NameToDisplayString(Name, bIsBool));
}

/** A class that a Blueprint made is shown by the Blueprint's name, whichever of its two classes it is. */
static FString ShownName(const UField& Field)
{
	FString Name = Field.GetName();
	const UClass* const Class = Cast<UClass>(&Field);
	if (Class && Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
	{
		Name.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive);
		Name.RemoveFromStart(TEXT("SKEL_"), ESearchCase::CaseSensitive);
	}
	return Name;
}

static FText ToolTip(const FMetaDataTable& MetaData, const FText& DisplayName, bool bShort)
{
	static const FName ToolTipKey(TEXT("ToolTip"));
	static const FName ShortToolTipKey(TEXT("ShortToolTip"));
	const FString* const Short = bShort ? MetaData.Find(ShortToolTipKey) : nullptr;
	const FString* const Given = Short ? Short : MetaData.Find(ToolTipKey);
	return Given ? FText::FromString(*Given) : DisplayName;
}
} // namespace FieldTexts

FField::~FField() = default;

UObject* FField::GetOwnerUObject() const
{
	const FFieldVariant* Outer = &Owner;
	while (Outer->ToField())
	{
		Outer = &Outer->ToField()->Owner;
	}
	return Outer->ToUObject();
}

UStruct* FField::GetOwnerStruct() const
{
	return Cast<UStruct>(GetOwnerUObject());
}

UClass* FField::GetOwnerClass() const
{
	UObject* const Object = GetOwnerUObject();
	UClass* const Class = Cast<UClass>(Object);
	return Class || !Object ? Class : Object->GetTypedOuter<UClass>();
}

FString FField::GetPathName() const
{
	const UObject* const Object = GetOwnerUObject();
	FString Path = Object ? Object->GetPathName() : FString();
	FString Below;
	for (const FField* Field = this; Field; Field = Field->Owner.ToField())
	{
		Below = Below.IsEmpty() ? Field->GetName() : Field->GetName() + TEXT(".") + Below;
	}
	Path.AppendChar(TEXT(':'));
	Path += Below;
	return Path;
}

const FString& FField::GetMetaData(FName Key) const
{
	const FString* const Value = MetaData.Find(Key);
	return Value ? *Value : FieldTexts::Empty;
}

FText FField::GetDisplayNameText() const
{
	return FieldTexts::DisplayName(MetaData, GetName(), IsA<FBoolProperty>());
}

FText FField::GetToolTipText(bool bShortTooltip) const
{
	return FieldTexts::ToolTip(MetaData, GetDisplayNameText(), bShortTooltip);
}

void UField::DescribeClass(FClassDescriber& Class) {}

const FString* UField::FindMetaData(FName Key) const
{
	EnsureMembers();
	return MetaData.Find(Key);
}

const FString& UField::GetMetaData(FName Key) const
{
	const FString* const Value = FindMetaData(Key);
	return Value ? *Value : FieldTexts::Empty;
}

const FMetaDataTable& UField::GetMetaDataTable() const
{
	EnsureMembers();
	return MetaData;
}

FText UField::GetDisplayNameText() const
{
	EnsureMembers();
	return FieldTexts::DisplayName(MetaData, FieldTexts::ShownName(*this), false);
}

FText UField::GetToolTipText(bool bShortTooltip) const
{
	return FieldTexts::ToolTip(GetMetaDataTable(), GetDisplayNameText(), bShortTooltip);
}

UClass* UField::GetOwnerClass() const
{
	UClass* const Self = Cast<UClass>(const_cast<UField*>(this));
	return Self ? Self : GetTypedOuter<UClass>();
}
