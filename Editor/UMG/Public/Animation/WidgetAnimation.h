#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class UMovieScene;

/** A named animation of a Widget Blueprint. */
class UWidgetAnimation : public UObject
{
	EDITOR_CLASS(UWidgetAnimation, UObject)

public:
	void SetDisplayLabel(const FString& InDisplayLabel) { DisplayLabel = InDisplayLabel; }
	const FString& GetDisplayLabel() const { return DisplayLabel; }
	FText GetDisplayName() const { return FText::FromString(DisplayLabel.IsEmpty() ? GetName() : DisplayLabel); }
	UMovieScene* GetMovieScene() const { return MovieScene; }
	float GetStartTime() const;
	float GetEndTime() const;

	TObjectPtr<UMovieScene> MovieScene;

private:
	FString DisplayLabel;
};
