// Timelines of a Blueprint with the curves of their tracks, in the form in which an edit gives them.

#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "Curves/RichCurve.h"
#include "Engine/Blueprint.h"
#include "Engine/TimelineTemplate.h"
#include "Utils/Read/ReadItems.h"

namespace ReadTimelines
{
using FCurves = TArray<const FRichCurve*>;

/** The times at which any of the curves has a key, in order. */
static TArray<float> GetTimes(const FCurves& Curves)
{
	TArray<float> Times;
	for (const FRichCurve* const Curve : Curves)
	{
		for (const FRichCurveKey& Key : Curve->GetConstRefOfKeys())
		{
			Times.AddUnique(Key.Time);
		}
	}
	Times.Sort();
	return Times;
}

/** A number for a track of one curve, an object of the parts for others. */
static TSharedPtr<FJsonValue> MakeValue(const FCurves& Curves, const TCHAR* Parts, float Time)
{
	if (Curves.Num() == 1)
	{
		return MakeShared<FJsonValueNumber>(static_cast<double>(Curves[0]->Eval(Time)));
	}
	const TSharedPtr<FJsonObject> Value = MakeShared<FJsonObject>();
	for (int32 Index = 0; Index < Curves.Num(); ++Index)
	{
		Value->SetNumberField(FString::Chr(Parts[Index]), static_cast<double>(Curves[Index]->Eval(Time)));
	}
	return MakeShared<FJsonValueObject>(Value);
}

static TArray<TSharedPtr<FJsonValue>> MakePoints(const FCurves& Curves, const TCHAR* Parts)
{
	TArray<TSharedPtr<FJsonValue>> Points;
	if (Curves.Num() == 1)
	{
		// Every key as it is, those of the same time too.
		for (const FRichCurveKey& Key : Curves[0]->GetConstRefOfKeys())
		{
			const TSharedPtr<FJsonObject> Point = MakeShared<FJsonObject>();
			Point->SetNumberField(TEXT("time"), static_cast<double>(Key.Time));
			Point->SetNumberField(TEXT("value"), static_cast<double>(Key.Value));
			Points.Add(MakeShared<FJsonValueObject>(Point));
		}
		return Points;
	}
	for (const float Time : GetTimes(Curves))
	{
		const TSharedPtr<FJsonObject> Point = MakeShared<FJsonObject>();
		Point->SetNumberField(TEXT("time"), static_cast<double>(Time));
		Point->SetField(TEXT("value"), MakeValue(Curves, Parts, Time));
		Points.Add(MakeShared<FJsonValueObject>(Point));
	}
	return Points;
}

static FCurves GetCurves(const UCurveFloat& Asset)
{
	return {&Asset.FloatCurve};
}

template <class TCurves>
FCurves GetCurves(const TCurves& Asset)
{
	FCurves Curves;
	for (const FRichCurve& Curve : Asset.FloatCurves)
	{
		Curves.Add(&Curve);
	}
	return Curves;
}

/** Type: the word by which an edit asks for such a track. */
template <class TTrack, class TAsset>
void AddTracks(const TArray<TTrack>& Tracks, TObjectPtr<TAsset> TTrack::*Asset, const TCHAR* Type, const TCHAR* Parts,
	TArray<TSharedPtr<FJsonValue>>& Out)
{
	for (const TTrack& Track : Tracks)
	{
		const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetStringField(TEXT("name"), Track.GetTrackName().ToString());
		Entry->SetStringField(TEXT("type"), Type);
		const TAsset* const Curve = Track.*Asset;
		if (Curve && Track.bIsExternalCurve)
		{
			Entry->SetStringField(TEXT("external_curve"), Curve->GetPathName());
		}
		if (Curve)
		{
			Entry->SetArrayField(TEXT("points"), MakePoints(GetCurves(*Curve), Parts));
		}
		Out.Add(MakeShared<FJsonValueObject>(Entry));
	}
}

static void SetDetails(FJsonObject& Entry, const UTimelineTemplate& Timeline)
{
	Entry.SetNumberField(TEXT("length"), static_cast<double>(Timeline.TimelineLength));
	Entry.SetBoolField(TEXT("auto_play"), Timeline.bAutoPlay);
	Entry.SetBoolField(TEXT("loop"), Timeline.bLoop);
	Entry.SetBoolField(TEXT("replicated"), Timeline.bReplicated);
	const bool bToLastKey = Timeline.LengthMode == TL_LastKeyFrame;
	Entry.SetStringField(TEXT("length_mode"), bToLastKey ? TEXT("last_key_frame") : TEXT("timeline_length"));
	TArray<TSharedPtr<FJsonValue>> Curves;
	AddTracks(Timeline.FloatTracks, &FTTFloatTrack::CurveFloat, TEXT("Float"), TEXT(""), Curves);
	AddTracks(Timeline.VectorTracks, &FTTVectorTrack::CurveVector, TEXT("Vector"), TEXT("xyz"), Curves);
	AddTracks(
		Timeline.LinearColorTracks, &FTTLinearColorTrack::CurveLinearColor, TEXT("LinearColor"), TEXT("RGBA"), Curves);
	AddTracks(Timeline.EventTracks, &FTTEventTrack::CurveKeys, TEXT("Event"), TEXT(""), Curves);
	ReadSections::SetUnlessEmpty(Entry, TEXT("curves"), MoveTemp(Curves));
}
} // namespace ReadTimelines

void ReadSections::AddTimelines(FReadSection& Section)
{
	for (const UTimelineTemplate* const Timeline : Section.Blueprint.Timelines)
	{
		if (!Timeline)
		{
			continue;
		}
		const FString Name = Timeline->GetName().Replace(TEXT("_Template"), TEXT(""), ESearchCase::IgnoreCase);
		if (!Section.Stands(Name))
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Name);
		if (Section.bFull)
		{
			ReadTimelines::SetDetails(*Entry, *Timeline);
		}
	}
}
