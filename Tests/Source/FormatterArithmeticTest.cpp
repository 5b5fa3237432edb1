#include "Formatter/FormatterArithmetic.h"
#include "Formatter/FormatterContext.h"
#include "GraphBuilder.h"

#include <gtest/gtest.h>

#include <random>

namespace FormatterArithmeticTest
{
using namespace FormatterArithmetic;

static FBox2D Box(double MinX, double MinY, double MaxX, double MaxY)
{
	return FBox2D(FVector2D(MinX, MinY), FVector2D(MaxX, MaxY));
}

/** A placement with the plain scans, as the indexed one must come out. */
static FVector2D SettlePlainly(const FVector2D& Desired, const FVector2D& Size, const TArray<float>& Xs,
	const TArray<float>& Ys, const TArray<FBox2D>& Boxes)
{
	return Settle(
		Desired, 20.0f, [&Xs](float X) { return AlignToNearest(X, Xs, 10.0f); },
		[&Ys](float Y) { return AlignToNearest(Y, Ys, 10.0f); },
		[&](const FVector2D& Position) { return OverlapsAny(Position, Size, Boxes); });
}

static FVector2D SettleIndexed(const FVector2D& Desired, const FVector2D& Size, const FAlignmentLines& Xs,
	const FAlignmentLines& Ys, const FObstacleIndex& Boxes)
{
	return Settle(
		Desired, 20.0f, [&Xs](float X) { return Xs.AlignToNearest(X); },
		[&Ys](float Y) { return Ys.AlignToNearest(Y); },
		[&](const FVector2D& Position) { return Boxes.OverlapsAny(Position, Size); });
}
} // namespace FormatterArithmeticTest

using namespace FormatterArithmeticTest;

TEST(FormatterSnap, HalvesGoUpOnBothSidesOfZero)
{
	struct FCase
	{
		double Value;
		double Expected;
	};
	for (const FCase& Case : {FCase{0, 0}, {9.9, 0}, {10, 20}, {30, 40}, {-9.9, 0}, {-10, 0}, {-10.1, -20}, {-30, -20},
			 {2147483647.0, 2147483640.0}})
	{
		EXPECT_EQ(SnapToGrid(FVector2D(Case.Value, -0.0), 20.0f), FVector2D(Case.Expected, 0.0)) << Case.Value;
	}
	EXPECT_EQ(SnapToGrid(FVector2D(7.0, 9.0), 0.0f), FVector2D(7.0, 9.0));
	EXPECT_EQ(SnapToGrid(FVector2D(7.0, 9.0), -20.0f), FVector2D(7.0, 9.0));
}

TEST(FormatterAlign, TakesTheNearestLineWithinTheToleranceAndTheLastOfEquals)
{
	struct FCase
	{
		const char* Label;
		float Value;
		TArray<float> Lines;
		float Expected;
	};
	const FCase Cases[] = {
		{"no lines", 40, {}, 40},
		{"the limit is included", 40, {50}, 50},
		{"beyond the limit", 40, {51}, 40},
		{"nearest wins, not first", 40, {48, 43}, 43},
		{"nearest wins, not last", 40, {43, 48}, 43},
		{"of equals the last, above", 40, {35, 45}, 45},
		{"of equals the last, below", 40, {45, 35}, 35},
		{"last of three equals", 40, {45, 35, 45}, 45},
		{"a repeated line counts where it last stood", 40, {35, 45, 35}, 35},
		{"already on a line", 40, {45, 40, 35}, 40},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(AlignToNearest(Case.Value, Case.Lines, 10.0f), Case.Expected) << Case.Label;
		EXPECT_EQ(FAlignmentLines(Case.Lines, 10.0f).AlignToNearest(Case.Value), Case.Expected) << Case.Label;
	}
}

TEST(FormatterOverlap, TouchingEdgesOverlapAndTheValidityFlagIsNotLookedAt)
{
	const FVector2D Size(10, 10);
	FBox2D Target = Box(100, 100, 200, 200);
	Target.bIsValid = false;
	struct FCase
	{
		FVector2D Position;
		bool bExpected;
	};
	for (const FCase& Case : {FCase{{90, 150}, true}, {{89.99, 150}, false}, {{200, 150}, true}, {{200.01, 150}, false},
			 {{150, 90}, true}, {{150, 89.99}, false}, {{150, 200}, true}, {{150, 200.01}, false}})
	{
		EXPECT_EQ(OverlapsAny(Case.Position, Size, {Target}), Case.bExpected)
			<< Case.Position.X << "," << Case.Position.Y;
		EXPECT_EQ(FObstacleIndex({Target}).OverlapsAny(Case.Position, Size), Case.bExpected);
	}
	EXPECT_FALSE(FObstacleIndex().OverlapsAny({0, 0}, Size));
}

TEST(FormatterSettle, StepsDownAtMostEightTimesAndLeavesTheLastUntested)
{
	const FVector2D Size(300, 100);
	EXPECT_EQ(SettlePlainly({0, 0}, Size, {}, {}, {Box(0, 0, 10, 250)}), FVector2D(0, 300)) << "past one obstacle";
	EXPECT_EQ(SettlePlainly({0, 0}, Size, {}, {}, {Box(-1000, -1000, 1000, 799)}), FVector2D(0, 800))
		<< "the eighth step is the first that is free";
	EXPECT_EQ(SettlePlainly({0, 0}, Size, {}, {}, {Box(-1000, -1000, 1000, 100000)}), FVector2D(0, 800))
		<< "nine stacked obstacles: it gives up 800 below, in one";
	EXPECT_EQ(SettlePlainly({0, 0}, Size, {}, {}, {Box(0, 100, 10, 110)}), FVector2D(0, 200))
		<< "touching the edge is enough to move on";
}

TEST(FormatterSettle, AlignsAfterSnappingAndNotAgainOnTheWayDown)
{
	// 12 snaps to 20; the line at 13 is within reach of 20, so it wins over the grid.
	EXPECT_EQ(SettlePlainly({12, 12}, {300, 100}, {13}, {27}, {}), FVector2D(13, 27));
	// The first step snaps the aligned 27 + 100 to 120, with the X too back on the grid, and stays off the line at 125.
	EXPECT_EQ(SettlePlainly({12, 12}, {300, 100}, {13}, {27, 125}, {Box(0, 0, 50, 50)}), FVector2D(20, 120));
}

TEST(FormatterTruncate, GoesTowardZeroAndStopsAtTheEndsOfAnInt)
{
	EXPECT_EQ(TruncateToCanvas(1.9), 1);
	EXPECT_EQ(TruncateToCanvas(-1.9), -1);
	EXPECT_EQ(TruncateToCanvas(1e18), MAX_int32);
	EXPECT_EQ(TruncateToCanvas(-1e18), MIN_int32);
}

TEST(FormatterIndexes, AnswerLikeThePlainScans)
{
	std::mt19937 Random(20);
	const auto Between = [&Random](int32 Low, int32 High)
	{ return std::uniform_int_distribution<int32>(Low, High)(Random); };
	for (int32 Round = 0; Round < 60; ++Round)
	{
		// Small and large canvases, sparse and crowded, with boxes turned inside out and lines far out of 24 bits.
		const int32 Reach = Round % 3 == 0 ? 1000 : Round % 3 == 1 ? 20000 : 1000000000;
		TArray<FBox2D> Boxes;
		TArray<float> Xs;
		TArray<float> Ys;
		for (int32 Index = Between(0, 300); Index > 0; --Index)
		{
			const FVector2D Min(Between(-Reach, Reach), Between(-Reach, Reach));
			const FVector2D Extent(Between(-100, Reach / 4), Between(-100, Reach / 4));
			Boxes.Add(FBox2D(Min, Min + Extent));
			Xs.Add(static_cast<float>(Between(-Reach, Reach)));
			Ys.Add(static_cast<float>(Between(-Reach / 10, Reach / 10)));
		}
		const FObstacleIndex Index(Boxes);
		const FAlignmentLines LinesX(Xs, 10.0f);
		const FAlignmentLines LinesY(Ys, 10.0f);
		for (int32 Query = 0; Query < 200; ++Query)
		{
			const FVector2D Desired(Between(-Reach, Reach), Between(-Reach, Reach));
			const FVector2D Size(Query % 2 ? 300 : 450, Between(1, 900));
			EXPECT_EQ(SettleIndexed(Desired, Size, LinesX, LinesY, Index), SettlePlainly(Desired, Size, Xs, Ys, Boxes))
				<< "round " << Round << " query " << Query;
		}
	}
}
