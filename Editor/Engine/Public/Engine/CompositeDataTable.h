#pragma once

#include "Engine/DataTable.h"

/** The rows of several tables, where a later one's go before an earlier one's of the same name. */
class UCompositeDataTable : public UDataTable
{
	EDITOR_CLASS(UCompositeDataTable, UDataTable)

public:
	TMap<FName, FString> GetRowTexts() const override;

	TArray<TObjectPtr<UDataTable>> ParentTables;
};
