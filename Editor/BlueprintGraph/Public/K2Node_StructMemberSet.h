#pragma once

#include "CoreMinimal.h"
#include "K2Node_StructOperation.h"

/** The base of nodes that write members of a struct. */
class UK2Node_StructMemberSet : public UK2Node_StructOperation
{
	EDITOR_CLASS(UK2Node_StructMemberSet, UK2Node_StructOperation)

protected:
	bool IsMemberUsable(const FProperty& Property) const override;
};
