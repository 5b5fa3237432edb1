#pragma once

#include "CoreMinimal.h"

struct FSubobjectData;

/** Stands for one object in the tree of an actor's components. Handles of two gatherings are equal when they stand for
 * the same object. */
struct FSubobjectDataHandle
{
	FSubobjectDataHandle() = default;
	explicit FSubobjectDataHandle(const TSharedPtr<FSubobjectData>& InData)
		: DataPtr(InData)
	{
	}

	bool IsValid() const { return DataPtr.IsValid(); }
	/** Null for an invalid handle. */
	FSubobjectData* GetData() const { return DataPtr.Get(); }
	bool operator==(const FSubobjectDataHandle& Other) const;

	static const FSubobjectDataHandle InvalidHandle;

private:
	TSharedPtr<FSubobjectData> DataPtr;
};
