#pragma once

#include "AnimGraphNode_Base.h"

/** A choice between poses, each with the time that changing to it takes. */
class UAnimGraphNode_BlendListBase : public UAnimGraphNode_Base
{
	EDITOR_CLASS(UAnimGraphNode_BlendListBase, UAnimGraphNode_Base)

protected:
	void SetNumPoses(int32 Num);
	void CustomizePinData(UEdGraphPin* Pin, FName SourcePropertyName, int32 ArrayIndex) const override;
	/** What chooses the pose of an index; empty where the index itself says enough. */
	virtual FString GetChoiceName(int32 Index) const { return FString(); }
};

class UAnimGraphNode_BlendListByBool : public UAnimGraphNode_BlendListBase
{
	EDITOR_CLASS(UAnimGraphNode_BlendListByBool, UAnimGraphNode_BlendListBase)

protected:
	FString GetChoiceName(int32 Index) const override;
};

class UAnimGraphNode_BlendListByInt : public UAnimGraphNode_BlendListBase
{
	EDITOR_CLASS(UAnimGraphNode_BlendListByInt, UAnimGraphNode_BlendListBase)

public:
	void AllocateDefaultPins() override;
};
