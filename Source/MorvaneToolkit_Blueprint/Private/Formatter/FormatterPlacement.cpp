#include "BlueprintFormatterService.h"

#include "EdGraph/EdGraphNode.h"
#include "Formatter/FormatterArithmetic.h"
#include "Formatter/FormatterContext.h"

// The step that every placement ends in, and the stack of what nothing else placed.

float FBlueprintFormatterService::ComputeBottom(const TArray<FFormatterNodeEntry>& Entries)
{
	float Bottom = 0.0f;
	for (const FFormatterNodeEntry& Entry : Entries)
	{
		if (Entry.bPlaced)
		{
			Bottom = FMath::Max(Bottom, static_cast<float>(Entry.Position.Y + Entry.Size.Y));
		}
	}
	return Bottom;
}

void FBlueprintFormatterService::PlaceOrphans(
	TArray<FFormatterNodeEntry>& Entries, TSet<UEdGraphNode*>& Placed, float Bottom, FFormatterContext& Context)
{
	float ColumnX = 0.0f;
	for (const float AnchorX : Context.AnchorXs)
	{
		ColumnX += AnchorX;
	}
	if (!Context.AnchorXs.IsEmpty())
	{
		ColumnX /= static_cast<float>(Context.AnchorXs.Num());
	}

	const float Top = static_cast<float>(Bottom + FormatterNumbers::RowGap);
	float NextY = Top;
	float Widest = 0.0f;
	for (FFormatterNodeEntry& Entry : Entries)
	{
		if (Placed.Contains(Entry.Node) || !Context.IsAllowed(Entry.Node))
		{
			continue;
		}
		// Under a graph that reaches deep, every node opens a column of its own and the stack is a row.
		// Held by FormatterOrphans.UnderADeepGraphTheStackIsARow.
		if (NextY > FormatterNumbers::OrphanColumnLimit)
		{
			ColumnX = static_cast<float>(ColumnX + Widest + FormatterNumbers::ColumnGap);
			NextY = Top;
			Widest = 0.0f;
		}
		Entry.Position = ResolvePlacement(FVector2D(ColumnX, NextY), Entry.Size, Context);
		Entry.bPlaced = true;
		Placed.Add(Entry.Node);
		NextY = static_cast<float>(NextY + Entry.Size.Y + FormatterNumbers::RowGap);
		Widest = FMath::Max(Widest, static_cast<float>(Entry.Size.X));
	}
}

FVector2D FBlueprintFormatterService::ResolvePlacement(
	const FVector2D& Desired, const FVector2D& Size, const FFormatterContext& Context)
{
	return FormatterArithmetic::Settle(
		Desired, Context.GridSize, [&Context](float X) { return Context.LinesX.AlignToNearest(X); },
		[&Context](float Y) { return Context.LinesY.AlignToNearest(Y); },
		[&Context, &Size](const FVector2D& Position) { return Context.Obstacles.OverlapsAny(Position, Size); });
}
