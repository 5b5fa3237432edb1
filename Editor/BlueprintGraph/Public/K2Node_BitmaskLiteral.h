#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "NodeDependingOnEnumInterface.h"

/** A set of flags of an enum as an integer. Not in the menu: no known enum is one of flags. */
class UK2Node_BitmaskLiteral : public UK2Node, public INodeDependingOnEnumInterface
{
	EDITOR_CLASS(UK2Node_BitmaskLiteral, UK2Node)

public:
	static const FName& GetBitmaskInputPinName();

	UEnum* GetEnum() const override { return BitflagsEnum; }
	void ReloadEnum(UEnum* InEnum) override { BitflagsEnum = InEnum; }
	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	TObjectPtr<UEnum> BitflagsEnum;
};
