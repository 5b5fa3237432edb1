#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

class UNodeDependingOnEnumInterface : public UInterface
{
	EDITOR_CLASS(UNodeDependingOnEnumInterface, UInterface)
};

/** A node that is bound to an enum. */
class INodeDependingOnEnumInterface
{
public:
	using UClassType = UNodeDependingOnEnumInterface;

	virtual ~INodeDependingOnEnumInterface() = default;
	virtual UEnum* GetEnum() const { return nullptr; }
	virtual void ReloadEnum(UEnum* InEnum) {}
};
