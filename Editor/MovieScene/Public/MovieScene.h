#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

/** A point of a movie scene's time, in ticks. */
struct FFrameNumber
{
	int32 Value = 0;
};

/** The content of an animation. Here it has a length and no tracks. */
class UMovieScene : public UObject
{
	EDITOR_CLASS(UMovieScene, UObject)

public:
	static constexpr int32 TicksPerSecond = 24000;

	void SetPlaybackRange(FFrameNumber Start, int32 Duration, bool bAlwaysMarkDirty = true);
	/** The same in seconds. */
	void SetPlaybackRange(double StartSeconds, double EndSeconds);
	double GetPlaybackStartSeconds() const { return static_cast<double>(PlaybackStart) / TicksPerSecond; }
	double GetPlaybackEndSeconds() const { return static_cast<double>(PlaybackEnd) / TicksPerSecond; }

private:
	int32 PlaybackStart = 0;
	int32 PlaybackEnd = 0;
};
