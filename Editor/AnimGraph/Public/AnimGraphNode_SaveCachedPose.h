#pragma once

#include "AnimGraphNode_Base.h"

/** Keeps a pose under a name, for any number of takers. */
class UAnimGraphNode_SaveCachedPose : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_SaveCachedPose, UAnimGraphNode_Base)

public:
	UAnimGraphNode_SaveCachedPose();
	bool IsSinkNode() const override { return true; }
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	void PostPlacedNewNode() override;
	void PostPasteNode() override;
	void OnRenameNode(const FString& NewName) override;

	FString CacheName;

private:
	/** A name that no other cached pose of the Blueprint has. */
	void MakeNameUnique();
};
