#include "NoSourceControl.h"

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
	const FSourceControlOperationRef& Operation, const TArray<FString>&, EConcurrency::Type)
{
	Operation->AddErrorMessage(FText::FromString(TEXT("There is no source control.")));
	return ECommandResult::Failed;
}

FSourceControlStatePtr FNoSourceControl::GetState(const FString&, EStateCacheUsage::Type)
{
	return nullptr;
}
