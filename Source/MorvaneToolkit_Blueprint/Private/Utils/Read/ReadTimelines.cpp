// Timelines of a Blueprint with the curves of their tracks, in the form in which an edit gives them.

#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "Curves/RichCurve.h"
#include "Engine/Blueprint.h"
#include "Engine/TimelineTemplate.h"
#include "Utils/Read/ReadDetail.h"
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
	const TSharedPtr<FJsonObject> Value = MakeShared<FJsonObject>();
	for (int32 Index = 0; Index < Curves.Num(); ++Index)
	{
		Value->SetNumberField(FString::Chr(Parts[Index]), static_cast<double>(Curves[Index]->Eval(Time)));
	}
	return MakeShared<FJsonValueObject>(Value);
}

static TSharedPtr<FJsonValue> MakeNumber(float Number, bool bLean)
{
	return MakeShared<FJsonValueNumber>(bLean ? ReadDetail::ShortenFloat(Number) : static_cast<double>(Number));
}

/** A list in lean: time, then the value, with its parts in the order of their names. */
static TSharedPtr<FJsonValue> MakePoint(float Time, const TArray<float>& Values)
{
	TArray<TSharedPtr<FJsonValue>> Numbers = {MakeNumber(Time, true)};
	for (const float Value : Values)
	{
		Numbers.Add(MakeNumber(Value, true));
	}
	return MakeShared<FJsonValueArray>(Numbers);
}

static TSharedPtr<FJsonValue> MakePoint(float Time, const TSharedPtr<FJsonValue>& Value)
{
	const TSharedPtr<FJsonObject> Point = MakeShared<FJsonObject>();
	Point->SetField(TEXT("time"), MakeNumber(Time, false));
	Point->SetField(TEXT("value"), Value);
	return MakeShared<FJsonValueObject>(Point);
}

static TArray<TSharedPtr<FJsonValue>> MakePoints(const FCurves& Curves, const TCHAR* Parts, bool bLean)
{
	TArray<TSharedPtr<FJsonValue>> Points;
	if (Curves.Num() == 1)
	{
		// Every key as it is, those of the same time too.
		for (const FRichCurveKey& Key : Curves[0]->GetConstRefOfKeys())
		{
			Points.Add(bLean ? MakePoint(Key.Time, TArray<float>{Key.Value})
							 : MakePoint(Key.Time, MakeNumber(Key.Value, false)));
		}
		return Points;
	}
	for (const float Time : GetTimes(Curves))
	{
		TArray<float> Values;
		for (const FRichCurve* const Curve : Curves)
		{
			Values.Add(Curve->Eval(Time));
		}
		Points.Add(bLean ? MakePoint(Time, Values) : MakePoint(Time, MakeValue(Curves, Parts, Time)));
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
	bool bLean, TArray<TSharedPtr<FJsonValue>>& Out)
{
	for (const TTrack& Track : Tracks)
	{
		const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetStringField(TEXT("name"), Track.GetTrackName().ToString());
		// A curve without a type is made as one of floats.
		if (!bLean || FString(Type) != TEXT("Float"))
		{
			Entry->SetStringField(TEXT("type"), Type);
		}
		const TAsset* const Curve = Track.*Asset;
		if (Curve && Track.bIsExternalCurve)
		{
			Entry->SetStringField(TEXT("external_curve"), Curve->GetPathName());
		}
		if (Curve)
		{
			Entry->SetArrayField(TEXT("points"), MakePoints(GetCurves(*Curve), Parts, bLean));
		}
		Out.Add(MakeShared<FJsonValueObject>(Entry));
	}
}

static void SetFlag(FJsonObject& Entry, const TCHAR* Key, bool bValue, bool bLean)
{
	if (bValue || !bLean)
	{
		Entry.SetBoolField(Key, bValue);
	}
}

static void SetDetails(FJsonObject& Entry, const UTimelineTemplate& Timeline, bool bLean)
{
	Entry.SetField(TEXT("length"), MakeNumber(Timeline.TimelineLength, bLean));
	SetFlag(Entry, TEXT("auto_play"), Timeline.bAutoPlay, bLean);
	SetFlag(Entry, TEXT("loop"), Timeline.bLoop, bLean);
	SetFlag(Entry, TEXT("replicated"), Timeline.bReplicated, bLean);
	const bool bToLastKey = Timeline.LengthMode == TL_LastKeyFrame;
	if (bToLastKey || !bLean)
	{
		Entry.SetStringField(TEXT("length_mode"), bToLastKey ? TEXT("last_key_frame") : TEXT("timeline_length"));
	}
	TArray<TSharedPtr<FJsonValue>> Curves;
	AddTracks(Timeline.FloatTracks, &FTTFloatTrack::CurveFloat, TEXT("Float"), TEXT(""), bLean, Curves);
	AddTracks(Timeline.VectorTracks, &FTTVectorTrack::CurveVector, TEXT("Vector"), TEXT("xyz"), bLean, Curves);
	AddTracks(Timeline.LinearColorTracks, &FTTLinearColorTrack::CurveLinearColor, TEXT("LinearColor"), TEXT("RGBA"),
		bLean, Curves);
	AddTracks(Timeline.EventTracks, &FTTEventTrack::CurveKeys, TEXT("Event"), TEXT(""), bLean, Curves);
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
			ReadTimelines::SetDetails(*Entry, *Timeline, Section.bLean);
		}
	}
}
