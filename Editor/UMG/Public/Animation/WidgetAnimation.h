#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class UMovieScene;

/** A widget that an animation moves, and under which id its tracks are found. */
struct FWidgetAnimationBinding
{
	EDITOR_STRUCT(FWidgetAnimationBinding)

	FName WidgetName;
	/** The slot of a widget whose content is moved; none for the widget itself. */
	FName SlotWidgetName;
	FGuid AnimationGuid;
	bool bIsRootWidget = false;
};

/** A named animation of a Widget Blueprint. */
class UWidgetAnimation : public UObject
{
	EDITOR_CLASS(UWidgetAnimation, UObject)

public:
	void SetDisplayLabel(const FString& InDisplayLabel) { DisplayLabel = InDisplayLabel; }
	const FString& GetDisplayLabel() const { return DisplayLabel; }
	FText GetDisplayName() const { return FText::FromString(DisplayLabel.IsEmpty() ? GetName() : DisplayLabel); }
	float GetStartTime() const;
	float GetEndTime() const;

	TObjectPtr<UMovieScene> MovieScene;
	TArray<FWidgetAnimationBinding> AnimationBindings;

private:
	FString DisplayLabel;
};
