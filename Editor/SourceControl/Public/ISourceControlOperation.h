#pragma once

#include "CoreMinimal.h"

/** What an operation had to say. */
struct FSourceControlResultInfo
{
	TArray<FText> ErrorMessages;

	bool HasErrors() const { return !ErrorMessages.IsEmpty(); }
};

class ISourceControlOperation
{
public:
	virtual ~ISourceControlOperation() = default;
	virtual FName GetName() const = 0;

	const FSourceControlResultInfo& GetResultInfo() const { return ResultInfo; }
	void AddErrorMessage(const FText& Message) { ResultInfo.ErrorMessages.Add(Message); }

	template <typename OperationType>
	static TSharedRef<OperationType> Create()
	{
		return MakeShared<OperationType>();
	}

private:
	FSourceControlResultInfo ResultInfo;
};

using FSourceControlOperationRef = TSharedRef<ISourceControlOperation>;
using FSourceControlOperationPtr = TSharedPtr<ISourceControlOperation>;
