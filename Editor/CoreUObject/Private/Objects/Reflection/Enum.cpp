#include "UObject/Class.h"

#include "Standalone/NativeClass.h"

namespace EnumNames
{
/** What stands behind the last "::". */
static FStringView WithoutScope(FStringView Name)
{
	int32 Colon = INDEX_NONE;
	return Name.FindLastChar(TEXT(':'), Colon) ? Name.Mid(Colon + 1) : Name;
}
} // namespace EnumNames

void UEnum::DescribeClass(FClassDescriber& Class) {}
void UUserDefinedEnum::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("EnumDescription"), &UUserDefinedEnum::EnumDescription);
	Class.Property(TEXT("DisplayNameMap"), &UUserDefinedEnum::DisplayNameMap);
}

void UUserDefinedEnum::PostLoad()
{
	Super::PostLoad();
	RebuildEntries();
}

void UUserDefinedEnum::RebuildEntries()
{
	const FString Scope = GetName() + TEXT("::");
	TArray<FEntry> Made;
	for (const TPair<FName, FText>& Row : DisplayNameMap)
	{
		Made.Add({FName(Scope + Row.Key.ToString()), Made.Num(), Row.Value.ToString(), false});
	}
	Made.Add({FName(Scope + GetName() + TEXT("_MAX")), Made.Num(), FString(), true});
	SetEnums(MoveTemp(Made), ECppForm::Namespaced);
}

void UEnum::SetEnums(TArray<FEntry> InEntries, ECppForm InForm)
{
	Entries = MoveTemp(InEntries);
	CppForm = InForm;
	IndexByName.Reset();
	for (int32 Index = 0; Index < Entries.Num(); ++Index)
	{
		IndexByName.FindOrAdd(Entries[Index].Name, Index);
		// Texts name entries with and without their scope.
		IndexByName.FindOrAdd(FName(EnumNames::WithoutScope(Entries[Index].Name.GetView())), Index);
	}
}

int32 UEnum::NumEnums() const
{
	return Entries.Num();
}

FName UEnum::GetNameByIndex(int32 Index) const
{
	return Entries.IsValidIndex(Index) ? Entries[Index].Name : FName();
}

FString UEnum::GetNameStringByIndex(int32 Index) const
{
	return Entries.IsValidIndex(Index) ? FString(EnumNames::WithoutScope(Entries[Index].Name.GetView())) : FString();
}

FText UEnum::GetDisplayNameTextByIndex(int32 Index) const
{
	if (!Entries.IsValidIndex(Index))
	{
		return FText::GetEmpty();
	}
	const FString& Given = Entries[Index].DisplayName;
	return FText::FromString(Given.IsEmpty() ? FName::NameToDisplayString(GetNameStringByIndex(Index), false) : Given);
}

int64 UEnum::GetValueByIndex(int32 Index) const
{
	return Entries.IsValidIndex(Index) ? Entries[Index].Value : static_cast<int64>(INDEX_NONE);
}

int32 UEnum::GetIndexByName(FName Name) const
{
	const int32* const Index = IndexByName.Find(Name);
	return Index ? *Index : GetIndexByNameString(Name.ToString());
}

int32 UEnum::GetIndexByNameString(const FString& Name) const
{
	// Another scope in front, such as that of a namespace where entries have none, does not matter.
	for (const FStringView Text : {FStringView(Name), EnumNames::WithoutScope(Name)})
	{
		// A name that nobody has made is no entry's; but None, which such a name reads as, is an entry of many enums.
		const FName Known(Text, FNAME_Find);
		const bool bIsKnown = !Known.IsNone() || Text == TEXT("None");
		const int32* const Index = bIsKnown ? IndexByName.Find(Known) : nullptr;
		if (Index)
		{
			return *Index;
		}
	}
	return INDEX_NONE;
}

int32 UEnum::GetIndexByValue(int64 Value) const
{
	return Entries.IndexOfByPredicate([Value](const FEntry& Entry) { return Entry.Value == Value; });
}

int64 UEnum::GetValueByName(FName Name) const
{
	return GetValueByIndex(GetIndexByName(Name));
}

int64 UEnum::GetValueByNameString(const FString& Name) const
{
	return GetValueByIndex(GetIndexByNameString(Name));
}

FString UEnum::GetNameStringByValue(int64 Value) const
{
	return GetNameStringByIndex(GetIndexByValue(Value));
}

FText UEnum::GetDisplayNameTextByValue(int64 Value) const
{
	return GetDisplayNameTextByIndex(GetIndexByValue(Value));
}

bool UEnum::ContainsExistingMax() const
{
	return !Entries.IsEmpty()
		&& GetNameStringByIndex(Entries.Num() - 1).EndsWith(TEXT("_MAX"), ESearchCase::IgnoreCase);
}

bool UEnum::HasMetaData(const TCHAR* Key, int32 Index) const
{
	if (!Entries.IsValidIndex(Index))
	{
		return false;
	}
	const FString Name(Key);
	const bool bIsHidden = Entries[Index].bHidden && (Name == TEXT("Hidden") || Name == TEXT("Spacer"));
	const bool bIsNamed = !Entries[Index].DisplayName.IsEmpty() && Name == TEXT("DisplayName");
	return bIsHidden || bIsNamed;
}
