// What looks wrong in the curves of timelines; nothing is changed.

#include "BlueprintCreateModifyRemoveUtils.h"
#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "Curves/RichCurve.h"
#include "Engine/Blueprint.h"
#include "Engine/TimelineTemplate.h"
#include "ToolResult.h"

namespace TimelineValidation
{
class FCheck
{
public:
	FCheck(const UTimelineTemplate& InTimeline, Morvane::FToolResult& InResult)
		: Timeline(InTimeline)
		, Name(UTimelineTemplate::TimelineTemplateNameToVariableName(InTimeline.GetFName()))
		, Result(InResult)
	{
	}

	void Run()
	{
		for (const FTTFloatTrack& Track : Timeline.FloatTracks)
		{
			CheckFloat(Track.GetTrackName().ToString(), Track.CurveFloat);
		}
		for (const FTTVectorTrack& Track : Timeline.VectorTracks)
		{
			CheckVector(Track.GetTrackName().ToString(), Track.CurveVector);
		}
		for (const FTTLinearColorTrack& Track : Timeline.LinearColorTracks)
		{
			CheckColor(Track.GetTrackName().ToString(), Track.CurveLinearColor);
		}
	}

private:
	/** Each key's time to the first of the two when it lies behind the end, to the second when it was there before. */
	void VisitTimes(const FRichCurve& Curve, TFunctionRef<void(double)> Beyond, TFunctionRef<void(double)> Twice) const
	{
		TSet<float> Seen;
		for (const FRichCurveKey& Key : Curve.GetConstRefOfKeys())
		{
			if (Key.Time > Timeline.TimelineLength)
			{
				Beyond(static_cast<double>(Key.Time));
			}
			if (Seen.Contains(Key.Time))
			{
				Twice(static_cast<double>(Key.Time));
			}
			Seen.Add(Key.Time);
		}
	}

	void CheckFloat(const FString& Track, const UCurveFloat* Curve)
	{
		if (!Curve)
		{
			Warn(FString::Printf(TEXT("Timeline '%s' has null float curve '%s'"), *Name, *Track));
			return;
		}
		if (Curve->FloatCurve.GetNumKeys() == 0)
		{
			Warn(FString::Printf(TEXT("Timeline '%s' has empty float curve '%s'"), *Name, *Track));
		}
		VisitTimes(
			Curve->FloatCurve,
			[&](double Time)
			{
				Warn(FString::Printf(
					TEXT("Timeline '%s' float curve '%s' has key at time %.2f beyond timeline length %.2f"), *Name,
					*Track, Time, static_cast<double>(Timeline.TimelineLength)));
			},
			[&](double Time) {
				Warn(FString::Printf(
					TEXT("Timeline '%s' float curve '%s' has duplicate key at time %.2f"), *Name, *Track, Time));
			});
	}

	void CheckVector(const FString& Track, const UCurveVector* Curve)
	{
		if (!Curve)
		{
			Warn(FString::Printf(TEXT("Timeline '%s' has null vector curve '%s'"), *Name, *Track));
			return;
		}
		const TCHAR* const Components[] = {TEXT("X"), TEXT("Y"), TEXT("Z")};
		for (int32 Index = 0; Index < 3; ++Index)
		{
			const TCHAR* const Component = Components[Index];
			if (Curve->FloatCurves[Index].GetNumKeys() == 0)
			{
				Warn(FString::Printf(
					TEXT("Timeline '%s' vector curve '%s' has empty %s component"), *Name, *Track, Component));
			}
			VisitTimes(
				Curve->FloatCurves[Index],
				[&](double Time)
				{
					Warn(FString::Printf(
						TEXT(
							"Timeline '%s' vector curve '%s' %s component has key at time %.2f beyond timeline length %.2f"),
						*Name, *Track, Component, Time, static_cast<double>(Timeline.TimelineLength)));
				},
				[&](double Time)
				{
					Warn(FString::Printf(
						TEXT("Timeline '%s' vector curve '%s' %s component has duplicate key at time %.2f"), *Name,
						*Track, Component, Time));
				});
		}
	}

	void CheckColor(const FString& Track, const UCurveLinearColor* Curve)
	{
		if (!Curve)
		{
			Warn(FString::Printf(TEXT("Timeline '%s' has null linear color curve '%s'"), *Name, *Track));
			return;
		}
		const TCHAR* const Components[] = {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")};
		for (int32 Index = 0; Index < 4; ++Index)
		{
			const TCHAR* const Component = Components[Index];
			if (Curve->FloatCurves[Index].GetNumKeys() == 0)
			{
				Warn(FString::Printf(
					TEXT("Timeline '%s' linear color curve '%s' has empty %s component"), *Name, *Track, Component));
			}
			VisitTimes(
				Curve->FloatCurves[Index],
				[&](double Time)
				{
					Warn(FString::Printf(
						TEXT(
							"Timeline '%s' linear color curve '%s' %s component has key at time %.2f beyond timeline length %.2f"),
						*Name, *Track, Component, Time, static_cast<double>(Timeline.TimelineLength)));
				},
				[&](double Time)
				{
					Warn(FString::Printf(
						TEXT("Timeline '%s' linear color curve '%s' %s component has duplicate key at time %.2f"),
						*Name, *Track, Component, Time));
				});
		}
	}

	void Warn(const FString& Text) { Result.AddWarningMessage(Text); }

	const UTimelineTemplate& Timeline;
	FString Name;
	Morvane::FToolResult& Result;
};
} // namespace TimelineValidation

void FBlueprintCreateModifyRemoveUtils::ValidateTimelineCurves(UBlueprint* Blueprint, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		return;
	}
	for (const UTimelineTemplate* const Timeline : Blueprint->Timelines)
	{
		if (Timeline)
		{
			TimelineValidation::FCheck(*Timeline, Result).Run();
		}
	}
}
