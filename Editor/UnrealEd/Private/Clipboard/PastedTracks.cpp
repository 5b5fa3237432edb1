#include "Clipboard/PastedTracks.h"

#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "EdGraphSchema_K2.h"
#include "Engine/TimelineTemplate.h"

namespace PastedTracks
{
namespace
{
/** The curve lives below the timeline and dies with it. */
template <class TTrack, class TCurve>
void AddTo(
	UTimelineTemplate& Timeline, TArray<TTrack>& Tracks, TObjectPtr<TCurve> TTrack::*const Curve, const FName Name)
{
	TTrack Track;
	Track.*Curve = NewObject<TCurve>(&Timeline, NAME_None, RF_Transactional);
	Track.SetTrackName(Name, &Timeline);
	Tracks.Add(Track);
}
} // namespace

void Add(UTimelineTemplate& Timeline, const UEdGraphPin& Pin)
{
	const FName Name = Pin.PinName;
	const UObject* const Struct = Pin.PinType.PinSubCategoryObject.Get();
	if (UEdGraphSchema_K2::IsExecPin(Pin))
	{
		AddTo(Timeline, Timeline.EventTracks, &FTTEventTrack::CurveKeys, Name);
	}
	else if (Pin.PinType.PinCategory == UEdGraphSchema_K2::PC_Real)
	{
		AddTo(Timeline, Timeline.FloatTracks, &FTTFloatTrack::CurveFloat, Name);
	}
	else if (Struct == TBaseStructure<FVector>::Get())
	{
		AddTo(Timeline, Timeline.VectorTracks, &FTTVectorTrack::CurveVector, Name);
	}
	else if (Struct == TBaseStructure<FLinearColor>::Get())
	{
		AddTo(Timeline, Timeline.LinearColorTracks, &FTTLinearColorTrack::CurveLinearColor, Name);
	}
}
} // namespace PastedTracks
