#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "NodeDependingOnEnumInterface.h"

/** The base of the small nodes that are bound to one enum. */
class UK2Node_EnumNodeBase : public UK2Node, public INodeDependingOnEnumInterface
{
	EDITOR_CLASS(UK2Node_EnumNodeBase, UK2Node)

public:
	UEnum* GetEnum() const override { return Enum; }
	void ReloadEnum(UEnum* InEnum) override { Enum = InEnum; }
	FText GetMenuCategory() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	TObjectPtr<UEnum> Enum;

protected:
	FString GetEnumDisplayName() const;
};
