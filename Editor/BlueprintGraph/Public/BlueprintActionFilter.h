#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UEdGraph;
class UEdGraphPin;
class UObject;

/** Where a menu is asked for. */
struct FBlueprintActionContext
{
	TArray<UBlueprint*> Blueprints;
	TArray<UEdGraph*> Graphs;
	TArray<UEdGraphPin*> Pins;
	TArray<UObject*> SelectedObjects;
};

/** Which actions of the database a menu shows. */
class FBlueprintActionFilter
{
public:
	enum EFlags : uint32
	{
		BPFILTER_NoFlags = 0,
		BPFILTER_RejectPermittedSubClasses = 1,
		BPFILTER_RejectGlobalFields = 2,
		BPFILTER_RejectIncompatibleThreadSafety = 4,
		BPFILTER_RejectNonImportedFields = 8,
	};

	explicit FBlueprintActionFilter(uint32 InFlags = BPFILTER_NoFlags)
		: Flags(InFlags)
	{
	}

	FBlueprintActionContext Context;
	bool bContextSensitive = false;
	uint32 Flags;
};
