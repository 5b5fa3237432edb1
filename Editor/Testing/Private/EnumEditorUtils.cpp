#include "Kismet2/EnumEditorUtils.h"

#include "UObject/Class.h"

UUserDefinedEnum* FEnumEditorUtils::CreateUserDefinedEnum(UObject* InParent, FName EnumName, EObjectFlags Flags)
{
	UUserDefinedEnum* const Enum = NewObject<UUserDefinedEnum>(InParent, EnumName, Flags);
	Enum->RebuildEntries();
	return Enum;
}

void FEnumEditorUtils::AddNewEnumeratorForUserDefinedEnum(UUserDefinedEnum* Enum)
{
	// Names are never shown and never used again; what people read is the display name.
	int32 Number = Enum->DisplayNameMap.Num();
	FName Name;
	do
	{
		Name = FName(FString::Printf(TEXT("NewEnumerator%d"), Number++));
	} while (Enum->DisplayNameMap.Contains(Name));
	Enum->DisplayNameMap.Add(Name, FText::FromString(FName::NameToDisplayString(Name.ToString(), false)));
	Enum->RebuildEntries();
	Enum->MarkPackageDirty();
}

bool FEnumEditorUtils::SetEnumeratorDisplayName(UUserDefinedEnum* Enum, int32 EnumeratorIndex, FText NewDisplayName)
{
	FText* const Shown = Enum->DisplayNameMap.Find(FName(Enum->GetNameStringByIndex(EnumeratorIndex)));
	bool bTaken = NewDisplayName.IsEmpty();
	for (const TPair<FName, FText>& Row : Enum->DisplayNameMap)
	{
		bTaken |= Row.Value.EqualTo(NewDisplayName);
	}
	if (!Shown || bTaken)
	{
		return false;
	}
	*Shown = MoveTemp(NewDisplayName);
	Enum->RebuildEntries();
	Enum->MarkPackageDirty();
	return true;
}
