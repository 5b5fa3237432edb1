#pragma once

#include "EdGraph/EdGraph.h"
#include "K2Node.h"

/** What the rule of a transition asks. */
namespace ETransitionGetter
{
enum Type
{
	AnimationAsset_GetCurrentTime,
	AnimationAsset_GetLength,
	AnimationAsset_GetCurrentTimeFraction,
	AnimationAsset_GetTimeFromEnd,
	AnimationAsset_GetTimeFromEndFraction,
	CurrentState_ElapsedTime,
	CurrentState_GetBlendWeight,
	CurrentTransitionDuration,
	ArbitraryState_GetBlendWeight,
};
} // namespace ETransitionGetter
template <>
UEnum* StaticEnum<ETransitionGetter::Type>();

/** The older form of such a question; newer graphs ask by UK2Node_AnimGetter. */
class UK2Node_TransitionRuleGetter : public UK2Node
{
	EDITOR_CLASS(UK2Node_TransitionRuleGetter, UK2Node)

public:
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;

	ETransitionGetter::Type GetterType = ETransitionGetter::AnimationAsset_GetCurrentTime;
	TObjectPtr<UEdGraphNode> AssociatedAnimAssetPlayerNode;
	TObjectPtr<UEdGraphNode> AssociatedStateNode;
};
