#include "Engine/TimelineTemplate.h"

#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UTimelineTemplate, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_STRUCT(FTTTrackBase, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FTTEventTrack, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FTTFloatTrack, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FTTVectorTrack, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FTTLinearColorTrack, "/Script/Engine")

template <>
UEnum* StaticEnum<ETimelineLengthMode>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ETimelineLengthMode"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Regular, {{TEXT("TL_TimelineLength"), 0}, {TEXT("TL_LastKeyFrame"), 1}});
	return Enum;
}

void FTTTrackBase::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("TrackName"), &FTTTrackBase::TrackName);
	Struct.Property(TEXT("bIsExternalCurve"), &FTTTrackBase::bIsExternalCurve);
	Struct.Property(TEXT("bIsExpanded"), &FTTTrackBase::bIsExpanded);
}

void FTTEventTrack::DescribeStruct(FStructDescriber& Struct)
{
	FTTTrackBase::DescribeStruct(Struct);
	Struct.Property(TEXT("FunctionName"), &FTTEventTrack::FunctionName);
	Struct.Property(TEXT("CurveKeys"), &FTTEventTrack::CurveKeys);
}

void FTTFloatTrack::DescribeStruct(FStructDescriber& Struct)
{
	FTTTrackBase::DescribeStruct(Struct);
	Struct.Property(TEXT("PropertyName"), &FTTFloatTrack::PropertyName);
	Struct.Property(TEXT("CurveFloat"), &FTTFloatTrack::CurveFloat);
}

void FTTVectorTrack::DescribeStruct(FStructDescriber& Struct)
{
	FTTTrackBase::DescribeStruct(Struct);
	Struct.Property(TEXT("PropertyName"), &FTTVectorTrack::PropertyName);
	Struct.Property(TEXT("CurveVector"), &FTTVectorTrack::CurveVector);
}

void FTTLinearColorTrack::DescribeStruct(FStructDescriber& Struct)
{
	FTTTrackBase::DescribeStruct(Struct);
	Struct.Property(TEXT("PropertyName"), &FTTLinearColorTrack::PropertyName);
	Struct.Property(TEXT("CurveLinearColor"), &FTTLinearColorTrack::CurveLinearColor);
}

void FTTTrackBase::SetTrackName(FName NewTrackName, UTimelineTemplate*)
{
	TrackName = NewTrackName;
}

void FTTPropertyTrack::SetTrackName(FName NewTrackName, UTimelineTemplate* OwningTimelineTemplate)
{
	FTTTrackBase::SetTrackName(NewTrackName, OwningTimelineTemplate);
	UpdatePropertyName(OwningTimelineTemplate);
}

void FTTPropertyTrack::UpdatePropertyName(const UTimelineTemplate* OwningTimelineTemplate)
{
	const FString Timeline = OwningTimelineTemplate ? OwningTimelineTemplate->GetVariableName().ToString() : FString();
	// Two timelines may have tracks of one name, and so may a timeline that was removed and made again.
	const FString Guid = OwningTimelineTemplate ? OwningTimelineTemplate->TimelineGuid.ToString() : FGuid().ToString();
	PropertyName = FName(FString::Printf(TEXT("%s_%s_%s"), *Timeline, *TrackName.ToString(), *Guid));
}

void FTTEventTrack::SetTrackName(FName NewTrackName, UTimelineTemplate* OwningTimelineTemplate)
{
	FTTTrackBase::SetTrackName(NewTrackName, OwningTimelineTemplate);
	UpdateFunctionName(OwningTimelineTemplate);
}

void FTTEventTrack::UpdateFunctionName(const UTimelineTemplate* OwningTimelineTemplate)
{
	const FString Timeline = OwningTimelineTemplate ? OwningTimelineTemplate->GetVariableName().ToString() : FString();
	FunctionName = FName(FString::Printf(TEXT("%s__%s__EventFunc"), *Timeline, *TrackName.ToString()));
}

void UTimelineTemplate::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("TimelineLength"), &UTimelineTemplate::TimelineLength, CPF_Edit);
	Class.Property(TEXT("LengthMode"), &UTimelineTemplate::LengthMode);
	Class.Property(TEXT("bAutoPlay"), &UTimelineTemplate::bAutoPlay, CPF_Edit);
	Class.Property(TEXT("bLoop"), &UTimelineTemplate::bLoop, CPF_Edit);
	Class.Property(TEXT("bReplicated"), &UTimelineTemplate::bReplicated, CPF_Edit);
	Class.Property(TEXT("bIgnoreTimeDilation"), &UTimelineTemplate::bIgnoreTimeDilation, CPF_Edit);
	Class.Property(TEXT("EventTracks"), &UTimelineTemplate::EventTracks);
	Class.Property(TEXT("FloatTracks"), &UTimelineTemplate::FloatTracks);
	Class.Property(TEXT("VectorTracks"), &UTimelineTemplate::VectorTracks);
	Class.Property(TEXT("LinearColorTracks"), &UTimelineTemplate::LinearColorTracks);
	Class.Property(TEXT("TimelineGuid"), &UTimelineTemplate::TimelineGuid);
	Class.Property(TEXT("VariableName"), &UTimelineTemplate::VariableName);
	Class.Property(TEXT("DirectionPropertyName"), &UTimelineTemplate::DirectionPropertyName);
	Class.Property(TEXT("UpdateFunctionName"), &UTimelineTemplate::UpdateFunctionName);
	Class.Property(TEXT("FinishedFunctionName"), &UTimelineTemplate::FinishedFunctionName);
}

FString UTimelineTemplate::TimelineTemplateNameToVariableName(FName Name)
{
	FString Text = Name.ToString();
	Text.RemoveFromEnd(TEXT("_Template"));
	return Text;
}

namespace TimelineTracks
{
template <class TTrack>
int32 FindIndex(const TArray<TTrack>& Tracks, FName Name)
{
	return Tracks.IndexOfByPredicate([Name](const TTrack& Track) { return Track.GetTrackName() == Name; });
}
} // namespace TimelineTracks

int32 UTimelineTemplate::FindFloatTrackIndex(FName FloatTrackName) const
{
	return TimelineTracks::FindIndex(FloatTracks, FloatTrackName);
}

int32 UTimelineTemplate::FindVectorTrackIndex(FName VectorTrackName) const
{
	return TimelineTracks::FindIndex(VectorTracks, VectorTrackName);
}

int32 UTimelineTemplate::FindEventTrackIndex(FName EventTrackName) const
{
	return TimelineTracks::FindIndex(EventTracks, EventTrackName);
}

int32 UTimelineTemplate::FindLinearColorTrackIndex(FName ColorTrackName) const
{
	return TimelineTracks::FindIndex(LinearColorTracks, ColorTrackName);
}

bool UTimelineTemplate::IsNewTrackNameValid(FName NewTrackName) const
{
	return FindFloatTrackIndex(NewTrackName) == INDEX_NONE && FindVectorTrackIndex(NewTrackName) == INDEX_NONE
		&& FindEventTrackIndex(NewTrackName) == INDEX_NONE && FindLinearColorTrackIndex(NewTrackName) == INDEX_NONE;
}

void UTimelineTemplate::UpdateCachedNames()
{
	VariableName = FName(TimelineTemplateNameToVariableName(GetFName()));
	const FString Name = VariableName.ToString();
	DirectionPropertyName = FName(FString::Printf(TEXT("%s__Direction_%s"), *Name, *TimelineGuid.ToString()));
	UpdateFunctionName = FName(FString::Printf(TEXT("%s__UpdateFunc"), *Name));
	FinishedFunctionName = FName(FString::Printf(TEXT("%s__FinishedFunc"), *Name));
	for (FTTEventTrack& Track : EventTracks)
	{
		Track.UpdateFunctionName(this);
	}
	const auto Update = [this](auto& Tracks)
	{
		for (FTTPropertyTrack& Track : Tracks)
		{
			Track.UpdatePropertyName(this);
		}
	};
	Update(FloatTracks);
	Update(VectorTracks);
	Update(LinearColorTracks);
}
