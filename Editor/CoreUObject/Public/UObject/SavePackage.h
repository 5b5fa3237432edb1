#pragma once

#include "CoreMinimal.h"
#include "UObject/Package.h"

enum ESaveFlags : uint32
{
	SAVE_None = 0,
	SAVE_NoError = 1,
};

struct FSavePackageArgs
{
	EObjectFlags TopLevelFlags = RF_NoFlags;
	uint32 SaveFlags = SAVE_None;
	bool bForceByteSwapping = false;
	bool bWarnOfLongFilename = true;
	bool bSlowTask = true;
	FOutputDevice* Error = nullptr;
};

enum class ESavePackageResult : uint8
{
	Success,
	Canceled,
	Error,
	MissingFile,
};

struct FSavePackageResultStruct
{
	ESavePackageResult Result = ESavePackageResult::Error;
	int64 TotalFileSize = 0;
	/** What went wrong and where, for a person or an agent; empty on success. */
	FString ErrorMessage;

	bool IsSuccessful() const { return Result == ESavePackageResult::Success; }
	bool operator==(ESavePackageResult Other) const { return Result == Other; }
};
