#pragma once

#include "CoreMinimal.h"

/** The names of input actions and axes in a project's settings, Config/DefaultInput.ini. */
struct FInputMappings
{
	/** Of the open project; empty where there is no such file. Each name once, in order of their lines. */
	static FInputMappings Read();
	bool operator==(const FInputMappings& Other) const = default;

	TArray<FString> Actions;
	TArray<FString> Axes;
};
