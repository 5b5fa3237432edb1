#pragma once

#include "CoreMinimal.h"

class UObject;

/** A value of an interface property: the object that implements it. */
struct FScriptInterface
{
	UObject* GetObject() const { return Object; }
	void SetObject(UObject* InObject) { Object = InObject; }
	bool operator==(const FScriptInterface& Other) const = default;

	UObject* Object = nullptr;
};
