#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class UCurveFloat;
class UCurveLinearColor;
class UCurveVector;
class UTimelineTemplate;

/** What all tracks of a timeline share. */
struct FTTTrackBase
{
	EDITOR_STRUCT(FTTTrackBase)

	FName GetTrackName() const { return TrackName; }
	void SetTrackName(FName NewTrackName, UTimelineTemplate* OwningTimelineTemplate);

	bool bIsExternalCurve = false;
	bool bIsExpanded = false;

protected:
	FName TrackName;
	friend class UTimelineTemplate;
};

struct FTTPropertyTrack : FTTTrackBase
{
	/** The member that holds the track's value while the timeline runs. */
	FName GetPropertyName() const { return PropertyName; }
	void SetTrackName(FName NewTrackName, UTimelineTemplate* OwningTimelineTemplate);

protected:
	void UpdatePropertyName(const UTimelineTemplate* OwningTimelineTemplate);

	FName PropertyName;
	friend class UTimelineTemplate;
};

struct FTTEventTrack : FTTTrackBase
{
	EDITOR_STRUCT(FTTEventTrack)

	FName GetFunctionName() const { return FunctionName; }
	void SetTrackName(FName NewTrackName, UTimelineTemplate* OwningTimelineTemplate);

	TObjectPtr<UCurveFloat> CurveKeys;

protected:
	void UpdateFunctionName(const UTimelineTemplate* OwningTimelineTemplate);

	FName FunctionName;
	friend class UTimelineTemplate;
};

struct FTTFloatTrack : FTTPropertyTrack
{
	EDITOR_STRUCT(FTTFloatTrack)

	TObjectPtr<UCurveFloat> CurveFloat;
};

struct FTTVectorTrack : FTTPropertyTrack
{
	EDITOR_STRUCT(FTTVectorTrack)

	TObjectPtr<UCurveVector> CurveVector;
};

struct FTTLinearColorTrack : FTTPropertyTrack
{
	EDITOR_STRUCT(FTTLinearColorTrack)

	TObjectPtr<UCurveLinearColor> CurveLinearColor;
};

enum ETimelineLengthMode : uint8
{
	TL_TimelineLength,
	TL_LastKeyFrame,
};
template <>
UEnum* StaticEnum<ETimelineLengthMode>();

/** A timeline of a Blueprint: settings and tracks. Named after its variable with "_Template" behind. */
class UTimelineTemplate : public UObject
{
	EDITOR_CLASS(UTimelineTemplate, UObject)

public:
	static FString TimelineVariableNameToTemplateName(FName Name) { return Name.ToString() + TEXT("_Template"); }
	static FString TimelineTemplateNameToVariableName(FName Name);
	FName GetVariableName() const { return VariableName; }
	FName GetDirectionPropertyName() const { return DirectionPropertyName; }
	FName GetUpdateFunctionName() const { return UpdateFunctionName; }
	FName GetFinishedFunctionName() const { return FinishedFunctionName; }
	int32 FindFloatTrackIndex(FName FloatTrackName) const;
	int32 FindVectorTrackIndex(FName VectorTrackName) const;
	int32 FindEventTrackIndex(FName EventTrackName) const;
	int32 FindLinearColorTrackIndex(FName ColorTrackName) const;
	bool IsNewTrackNameValid(FName NewTrackName) const;
	/** Names what the timeline and its tracks have in the class after the timeline's own name. */
	void UpdateCachedNames();

	float TimelineLength = 5.0f;
	ETimelineLengthMode LengthMode = TL_TimelineLength;
	bool bAutoPlay = false;
	bool bLoop = false;
	bool bReplicated = false;
	bool bIgnoreTimeDilation = false;
	TArray<FTTEventTrack> EventTracks;
	TArray<FTTFloatTrack> FloatTracks;
	TArray<FTTVectorTrack> VectorTracks;
	TArray<FTTLinearColorTrack> LinearColorTracks;
	FGuid TimelineGuid;

private:
	FName VariableName;
	FName DirectionPropertyName;
	FName UpdateFunctionName;
	FName FinishedFunctionName;
};
