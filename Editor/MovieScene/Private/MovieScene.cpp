#include "MovieScene.h"

#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UMovieScene, "/Script/MovieScene", CLASS_None)

void UMovieScene::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PlaybackStart"), &UMovieScene::PlaybackStart);
	Class.Property(TEXT("PlaybackEnd"), &UMovieScene::PlaybackEnd);
}

void UMovieScene::SetPlaybackRange(const TRange<FFrameNumber>& NewRange, bool bAlwaysMarkDirty)
{
	Modify(bAlwaysMarkDirty);
	PlaybackStart = NewRange.GetLowerBoundValue().Value;
	PlaybackEnd = NewRange.GetUpperBoundValue().Value;
}
