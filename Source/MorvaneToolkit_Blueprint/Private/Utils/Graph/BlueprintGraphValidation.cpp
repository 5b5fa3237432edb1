#include "BlueprintGraphUtils.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"

namespace BlueprintGraphValidation
{
static bool IsBroken(const UEdGraphPin* Linked)
{
	return !Linked || !Linked->GetOwningNodeUnchecked();
}

static bool ValidateNode(const UEdGraphNode& Node, TArray<FString>& OutErrors)
{
	const int32 NumBefore = OutErrors.Num();
	const FString Title = Node.GetNodeTitle(ENodeTitleType::ListView).ToString();
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (!Pin)
		{
			OutErrors.Add(FString::Printf(TEXT("Node '%s' has null pin"), *Title));
			continue;
		}
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			if (IsBroken(Linked))
			{
				OutErrors.Add(FString::Printf(TEXT("Node '%s' has broken connection"), *Title));
			}
		}
	}
	return OutErrors.Num() == NumBefore;
}
} // namespace BlueprintGraphValidation

bool FBlueprintGraphUtils::ValidateGraph(const UEdGraph* Graph, TArray<FString>& OutErrors)
{
	if (!Graph)
	{
		OutErrors.Add(TEXT("Graph is null"));
		return false;
	}
	bool bValid = true;
	for (const UEdGraphNode* const Node : Graph->Nodes)
	{
		if (!Node)
		{
			OutErrors.Add(TEXT("Graph contains null node"));
			bValid = false;
			continue;
		}
		bValid &= BlueprintGraphValidation::ValidateNode(*Node, OutErrors);
	}
	return bValid;
}
