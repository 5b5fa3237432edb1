#pragma once

#include "CoreMinimal.h"

class USCS_Node;

namespace ConstructionScriptNodes
{
/** The name of a variable's template: its ending tells it from an instance. */
FName TemplateName(FName VariableName);
/** The node and all below it, parents before children. */
void CollectBelow(USCS_Node* Node, TArray<USCS_Node*>& Out);
} // namespace ConstructionScriptNodes
