#pragma once

#include "AnimGraphNode_BlendListBase.h"
#include "NodeDependingOnEnumInterface.h"

/** A pose for each chosen entry of an enum, and one for all others. */
class UAnimGraphNode_BlendListByEnum : public UAnimGraphNode_BlendListBase, public INodeDependingOnEnumInterface
{
	EDITOR_CLASS(UAnimGraphNode_BlendListByEnum, UAnimGraphNode_BlendListBase)

public:
	UEnum* GetEnum() const override { return BoundEnum; }
	void ReloadEnum(UEnum* InEnum) override { BoundEnum = InEnum; }
	/** Shows the pose of one more entry. */
	void ExposeEnumElementAsPin(FName EnumElementName);
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

protected:
	FString GetChoiceName(int32 Index) const override;

private:
	TObjectPtr<UEnum> BoundEnum;
	TArray<FName> VisibleEnumEntries;
};
