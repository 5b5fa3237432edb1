#include "SourceControlHelpers.h"

#include "ISourceControlModule.h"
#include "SourceControlOperations.h"

namespace SourceControlHelpers
{
static FText& LastError()
{
	static FText Message;
	return Message;
}

static bool Run(const FSourceControlOperationRef& Operation, const FString& File)
{
	LastError() = FText::GetEmpty();
	if (ISourceControlModule::Get().GetProvider().Execute(Operation, File) == ECommandResult::Succeeded)
	{
		return true;
	}
	TArray<FString> Lines;
	for (const FText& Message : Operation->GetResultInfo().ErrorMessages)
	{
		Lines.Add(Message.ToString());
	}
	LastError() = FText::FromString(FString::Join(Lines, TEXT("\n")));
	return false;
}
} // namespace SourceControlHelpers

FString USourceControlHelpers::CurrentProvider()
{
	return ISourceControlModule::Get().GetProvider().GetName().ToString();
}

bool USourceControlHelpers::IsEnabled()
{
	return ISourceControlModule::Get().IsEnabled();
}

FText USourceControlHelpers::LastErrorMsg()
{
	return SourceControlHelpers::LastError();
}

bool USourceControlHelpers::CheckOutFile(const FString& File, bool)
{
	return SourceControlHelpers::Run(ISourceControlOperation::Create<FCheckOut>(), File);
}

bool USourceControlHelpers::MarkFileForAdd(const FString& File, bool)
{
	return SourceControlHelpers::Run(ISourceControlOperation::Create<FMarkForAdd>(), File);
}

bool USourceControlHelpers::MarkFileForDelete(const FString& File, bool)
{
	return SourceControlHelpers::Run(ISourceControlOperation::Create<FDelete>(), File);
}
