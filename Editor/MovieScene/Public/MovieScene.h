#pragma once

#include "CoreMinimal.h"
#include "Math/Range.h"
#include "Misc/FrameRate.h"
#include "UObject/Object.h"

/** The content of an animation. Here it has a length and no tracks. */
class UMovieScene : public UObject
{
	EDITOR_CLASS(UMovieScene, UObject)

public:
	/** The rate in which its times are counted. */
	FFrameRate GetTickResolution() const { return FFrameRate(24000, 1); }
	/** Start and end, which is Duration behind and does not play. */
	void SetPlaybackRange(const TRange<FFrameNumber>& NewRange, bool bAlwaysMarkDirty = true);
	TRange<FFrameNumber> GetPlaybackRange() const { return TRange<FFrameNumber>(PlaybackStart, PlaybackEnd); }

private:
	int32 PlaybackStart = 0;
	int32 PlaybackEnd = 0;
};
