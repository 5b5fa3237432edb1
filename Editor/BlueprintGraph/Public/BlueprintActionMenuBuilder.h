#pragma once

#include "BlueprintActionFilter.h"
#include "CoreMinimal.h"
#include "EdGraph/EdGraphSchema.h"

/** The list of Blueprint actions that a context offers. */
class FBlueprintActionMenuBuilder : public FGraphActionListBuilderBase
{
public:
	FBlueprintActionMenuBuilder() = default;
	/** Adds what the database holds and the filter lets through, in the database's order. */
	void AddMenuSection(
		const FBlueprintActionFilter& Filter, const FText& Heading = FText(), int32 MenuOrder = 0, uint32 Flags = 0);
	void RebuildActionList();

private:
	TArray<FBlueprintActionFilter> Sections;
};
