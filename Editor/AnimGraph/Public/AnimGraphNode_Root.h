#pragma once

#include "AnimGraphNode_Base.h"

/** The pose that a graph gives out. */
class UAnimGraphNode_Root : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_Root, UAnimGraphNode_Base)

public:
	bool IsSinkNode() const override { return true; }
	FText GetTooltipText() const override;
	bool CanUserDeleteNode() const override { return false; }

protected:
	bool IsInMenu() const override { return false; }
};

/** The pose that a state gives out. */
class UAnimGraphNode_StateResult : public UAnimGraphNode_Root
{
	EDITOR_CLASS(UAnimGraphNode_StateResult, UAnimGraphNode_Root)

public:
	FText GetTooltipText() const override;
};

/** Whether a transition may be taken. */
class UAnimGraphNode_TransitionResult : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_TransitionResult, UAnimGraphNode_Base)

public:
	bool IsSinkNode() const override { return true; }
	FText GetTooltipText() const override;
	bool CanUserDeleteNode() const override { return false; }

protected:
	bool IsInMenu() const override { return false; }
};
