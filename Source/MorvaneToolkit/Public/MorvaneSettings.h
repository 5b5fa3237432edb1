#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

#include "MorvaneSettings.generated.h"

/** Settings of the tool pack; the class default object holds what applies. */
UCLASS(Config = Editor)
class MORVANETOOLKIT_API UMorvaneSettings : public UObject
{
	GENERATED_BODY()

public:
	/** Brings a node or graph into view when a tool has changed it. */
	UPROPERTY(Config, EditAnywhere, Category = "Editing")
	bool bFocusOnModifiedNode = false;
};
