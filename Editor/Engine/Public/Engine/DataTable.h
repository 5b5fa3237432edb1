#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

/** Rows of one struct, each under a name. Here the values of a row are text and nobody changes them. */
class UDataTable : public UObject
{
	EDITOR_CLASS(UDataTable, UObject)

public:
	const UScriptStruct* GetRowStruct() const { return RowStruct.Get(); }
	/** In the order of the table. */
	TArray<FName> GetRowNames() const;
	/** "(Damage=3,Icon=None)" by the names that the members have in files; a table made of others has all of theirs. */
	virtual TMap<FName, FString> GetRowTexts() const { return RowTexts; }
	void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;

	TObjectPtr<UScriptStruct> RowStruct;

private:
	TMap<FName, FString> RowTexts;
};
