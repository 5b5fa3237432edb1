#include "Standalone/EditorFaults.h"

#include "ISourceControlModule.h"
#include "Standalone/PackageText.h"
#include "UObject/UObjectGlobals.h"

namespace EditorFaults
{
FRefuseSourceControl::FRefuseSourceControl(FName InOperation, const FString& InReason)
	: Operation(InOperation)
	, Reason(InReason)
{
	ISourceControlModule::Get().OverrideProvider(this);
}

FRefuseSourceControl::~FRefuseSourceControl()
{
	ISourceControlModule::Get().OverrideProvider(nullptr);
}

const FName& FRefuseSourceControl::GetName() const
{
	static const FName Name(TEXT("Refusing"));
	return Name;
}

ECommandResult::Type FRefuseSourceControl::Execute(
	const FSourceControlOperationRef& Command, const TArray<FString>& Files, EConcurrency::Type)
{
	if (Command->GetName() != Operation)
	{
		return ECommandResult::Succeeded;
	}
	Command->AddErrorMessage(FText::FromString(Reason));
	return ECommandResult::Failed;
}

FFailSaves::FFailSaves(const FString& Reason, const FString& PathPart)
{
	FPackageText::SetSaveFault([Reason, PathPart](const FString& Filename)
		{ return PathPart.IsEmpty() || Filename.Contains(PathPart, ESearchCase::CaseSensitive) ? Reason : FString(); });
}

FFailSaves::~FFailSaves()
{
	FPackageText::SetSaveFault(nullptr);
}

FSavingNow::FSavingNow()
	: bBefore(GIsSavingPackage)
{
	GIsSavingPackage = true;
}

FSavingNow::~FSavingNow()
{
	GIsSavingPackage = bBefore;
}

FCollectingNow::FCollectingNow()
	: bBefore(GIsGarbageCollecting)
{
	GIsGarbageCollecting = true;
}

FCollectingNow::~FCollectingNow()
{
	GIsGarbageCollecting = bBefore;
}
} // namespace EditorFaults
