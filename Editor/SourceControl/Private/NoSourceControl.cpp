#include "NoSourceControl.h"

#include "FileRemoval.h"
#include "HAL/FileManager.h"

const FName& FNoSourceControl::GetName() const
{
	static const FName Name(TEXT("None"));
	return Name;
}

FText FNoSourceControl::GetStatusText() const
{
	return FText::FromString(TEXT("No source control"));
}

ECommandResult::Type FNoSourceControl::Execute(
	const FSourceControlOperationRef& Operation, const TArray<FString>& Files, EConcurrency::Type)
{
	const bool bNeedsWriting = Operation->GetName() == TEXT("CheckOut") || Operation->GetName() == TEXT("Delete");
	for (const FString& File : Files)
	{
		if (bNeedsWriting && IFileManager::Get().IsReadOnly(*File))
		{
			Operation->AddErrorMessage(FText::FromString(FString::Printf(
				TEXT("The file '%s' is read-only and there is no source control to check it out from."), *File)));
		}
		else if (Operation->GetName() == TEXT("Delete"))
		{
			const FString Problem = RemoveFileForGood(File);
			if (!Problem.IsEmpty())
			{
				Operation->AddErrorMessage(FText::FromString(Problem));
			}
		}
	}
	return Operation->GetResultInfo().HasErrors() ? ECommandResult::Failed : ECommandResult::Succeeded;
}

FSourceControlStatePtr FNoSourceControl::GetState(const FString&, EStateCacheUsage::Type)
{
	return nullptr;
}
