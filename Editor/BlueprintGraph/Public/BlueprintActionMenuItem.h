#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphSchema.h"

class UBlueprintNodeSpawner;

/** A menu entry that spawns a Blueprint node. */
struct FBlueprintActionMenuItem : FEdGraphSchemaAction
{
	static FName StaticGetTypeId()
	{
		static const FName Type(TEXT("FBlueprintActionMenuItem"));
		return Type;
	}
	FName GetTypeId() const override { return StaticGetTypeId(); }

	explicit FBlueprintActionMenuItem(const UBlueprintNodeSpawner* InAction)
		: Action(InAction)
	{
	}
	FBlueprintActionMenuItem(const UBlueprintNodeSpawner* InAction, FText InCategory, FText InTitle, FText InTooltip,
		FText InKeywords, int32 InGrouping = 0)
		: FEdGraphSchemaAction(
			MoveTemp(InCategory), MoveTemp(InTitle), MoveTemp(InTooltip), InGrouping, MoveTemp(InKeywords))
		, Action(InAction)
	{
	}
	const UBlueprintNodeSpawner* GetRawAction() const { return Action; }
	/** The spawner's, asked for once. */
	const FText& GetTooltipDescription() const override;
	UEdGraphNode* PerformAction(
		UEdGraph* ParentGraph, UEdGraphPin* FromPin, const FVector2f& Location, bool bSelectNewNode = true) override;

private:
	const UBlueprintNodeSpawner* Action;
	mutable FText Tooltip;
};
