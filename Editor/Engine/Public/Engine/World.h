#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class ULevel;

/** The asset of a map. */
class UWorld : public UObject
{
	EDITOR_CLASS(UWorld, UObject)

public:
	bool IsAsset() const override { return true; }
	void PostLoad() override;

	/** Known by its name, since the engine's packages do not say which it is in text. */
	TObjectPtr<ULevel> PersistentLevel;
};
