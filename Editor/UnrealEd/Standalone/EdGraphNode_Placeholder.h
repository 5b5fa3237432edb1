#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphNode.h"

/**
 * Stands in for a node whose class nobody here knows, as of a plug-in that is not there. It keeps the class path, every
 * line and every pin that its text had, and is written back as it was read. It compiles to an error.
 */
class UEdGraphNode_Placeholder : public UEdGraphNode
{
	EDITOR_CLASS(UEdGraphNode_Placeholder, UEdGraphNode)

public:
	/** As read: "/Script/SomeModule.K2Node_Something". */
	FString GetOriginalClassPath() const;

	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
