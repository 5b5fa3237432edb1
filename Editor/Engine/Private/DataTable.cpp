#include "Engine/CompositeDataTable.h"

#include "Misc/FeedbackContext.h"
#include "Misc/Parse.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UDataTable, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UCompositeDataTable, "/Script/Engine", CLASS_None)

void UDataTable::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("RowStruct"), &UDataTable::RowStruct);
}

void UCompositeDataTable::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ParentTables"), &UCompositeDataTable::ParentTables, CPF_Edit);
}

TArray<FName> UDataTable::GetRowNames() const
{
	TArray<FName> Names;
	GetRowTexts().GetKeys(Names);
	return Names;
}

void UDataTable::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	const FString Spaces = FString::ChrN(static_cast<int32>(Indent), TEXT(' '));
	for (const TPair<FName, FString>& Row : RowTexts)
	{
		Out.Logf(TEXT("%sCustomProperties Row \"%s\" %s\r\n"), *Spaces,
			*Row.Key.ToString().ReplaceCharWithEscapedChar(), *Row.Value);
	}
}

void UDataTable::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	const TCHAR* Cursor = SourceText;
	FString Name;
	int32 NumRead = 0;
	if (!FParse::Command(&Cursor, TEXT("Row")) || !FParse::QuotedString(Cursor, Name, &NumRead))
	{
		Super::ImportCustomProperties(SourceText, Warn);
		return;
	}
	RowTexts.Add(FName(Name), FString(Cursor + NumRead).TrimStartAndEnd());
}

namespace CompositeDataTable
{
/** Each table counts once, so one that is made of itself, by whatever way, comes to an end. */
static void AddRows(const UDataTable& Table, TSet<const UDataTable*>& Seen, TMap<FName, FString>& Rows)
{
	bool bSeen = false;
	Seen.Add(&Table, &bSeen);
	const UCompositeDataTable* const Composite = Cast<UCompositeDataTable>(&Table);
	if (bSeen)
	{
		return;
	}
	if (!Composite)
	{
		Rows.Append(Table.GetRowTexts());
		return;
	}
	for (const UDataTable* const Parent : Composite->ParentTables)
	{
		if (Parent)
		{
			AddRows(*Parent, Seen, Rows);
		}
	}
}
} // namespace CompositeDataTable

TMap<FName, FString> UCompositeDataTable::GetRowTexts() const
{
	TMap<FName, FString> Rows;
	TSet<const UDataTable*> Seen;
	CompositeDataTable::AddRows(*this, Seen, Rows);
	return Rows;
}
