#include "MovieScene.h"

#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UMovieScene, "/Script/MovieScene", CLASS_None)

void UMovieScene::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PlaybackStart"), &UMovieScene::PlaybackStart);
	Class.Property(TEXT("PlaybackEnd"), &UMovieScene::PlaybackEnd);
}

void UMovieScene::SetPlaybackRange(FFrameNumber Start, int32 Duration, bool bAlwaysMarkDirty)
{
	PlaybackStart = Start.Value;
	PlaybackEnd = Start.Value + Duration;
	Modify(bAlwaysMarkDirty);
}

void UMovieScene::SetPlaybackRange(double StartSeconds, double EndSeconds)
{
	const FFrameNumber Start{static_cast<int32>(StartSeconds * TicksPerSecond)};
	SetPlaybackRange(Start, static_cast<int32>((EndSeconds - StartSeconds) * TicksPerSecond));
}
