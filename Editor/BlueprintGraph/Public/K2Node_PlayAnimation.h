#pragma once

#include "CoreMinimal.h"
#include "K2Node_BaseAsyncTask.h"

/** Plays an animation of a widget and goes on when it is over. The result is the player, as older assets have it. */
class UK2Node_PlayAnimation : public UK2Node_BaseAsyncTask
{
	EDITOR_CLASS(UK2Node_PlayAnimation, UK2Node_BaseAsyncTask)

public:
	UK2Node_PlayAnimation();
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetMenuCategory() const override;

protected:
	void CreateFlowPins() override;
	/** Takes the factory by its name. */
	void PlayWith(const TCHAR* FactoryFunction);
};

/** As above, for a stretch of the animation. */
class UK2Node_PlayAnimationTimeRange : public UK2Node_PlayAnimation
{
	EDITOR_CLASS(UK2Node_PlayAnimationTimeRange, UK2Node_PlayAnimation)

public:
	UK2Node_PlayAnimationTimeRange();
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
};

/** Plays an animation of a widget and goes on when it is over. The result is a handle. */
class UK2Node_PlayAnimation2 : public UK2Node_PlayAnimation
{
	EDITOR_CLASS(UK2Node_PlayAnimation2, UK2Node_PlayAnimation)

public:
	UK2Node_PlayAnimation2();
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};

/** As above, for a stretch of the animation. */
class UK2Node_PlayAnimationTimeRange2 : public UK2Node_PlayAnimationTimeRange
{
	EDITOR_CLASS(UK2Node_PlayAnimationTimeRange2, UK2Node_PlayAnimationTimeRange)

public:
	UK2Node_PlayAnimationTimeRange2();
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
};
