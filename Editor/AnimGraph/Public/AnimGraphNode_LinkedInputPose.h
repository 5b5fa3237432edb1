#pragma once

#include "AnimGraphNode_Base.h"

/** A pose that whoever runs the graph gives to it, and the values that come with it. */
class UAnimGraphNode_LinkedInputPose : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_LinkedInputPose, UAnimGraphNode_Base)

public:
	UAnimGraphNode_LinkedInputPose() { bCanRenameNode = true; }
	FName GetInputName() const { return FName(GetMemberText(TEXT("Name"))); }
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	void PostPlacedNewNode() override;
	void OnRenameNode(const FString& NewName) override;

private:
	void SetInputName(const FString& Name);
};
