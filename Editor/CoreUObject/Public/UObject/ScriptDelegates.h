#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

/** A value of a delegate property: an object and the name of its function. Never called here, only kept and written. */
struct FScriptDelegate
{
	bool IsBound() const { return !FunctionName.IsNone() && Object.IsValid(); }
	void BindUFunction(UObject* InObject, FName InFunctionName)
	{
		Object = InObject;
		FunctionName = InFunctionName;
	}
	bool operator==(const FScriptDelegate& Other) const = default;

	FWeakObjectPtr Object;
	FName FunctionName;
};

struct FMulticastScriptDelegate
{
	bool IsBound() const { return !InvocationList.IsEmpty(); }
	bool operator==(const FMulticastScriptDelegate& Other) const { return InvocationList == Other.InvocationList; }

	TArray<FScriptDelegate> InvocationList;
};
