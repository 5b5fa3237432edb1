#pragma once

#include "AnimGraphNode_Base.h"

class UAnimGraphNode_SaveCachedPose;

/** A pose that was kept under a name. */
class UAnimGraphNode_UseCachedPose : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_UseCachedPose, UAnimGraphNode_Base)

public:
	UAnimGraphNode_UseCachedPose() { bCanRenameNode = true; }
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	void PostPlacedNewNode() override;
	void PostPasteNode() override;
	/** Takes the pose that is kept under the name from now on. */
	void OnRenameNode(const FString& NewName) override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	TWeakObjectPtr<UAnimGraphNode_SaveCachedPose> SaveCachedPoseNode;

private:
	FString GetCacheName() const;
	void FindCache();

	/** Its name, for when the node is read or pasted before the one that it names. */
	FString NameOfCache;
};
