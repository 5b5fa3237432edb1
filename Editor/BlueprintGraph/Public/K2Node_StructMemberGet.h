#pragma once

#include "CoreMinimal.h"
#include "K2Node_StructOperation.h"

/** The base of nodes that read members of a struct. */
class UK2Node_StructMemberGet : public UK2Node_StructOperation
{
	EDITOR_CLASS(UK2Node_StructMemberGet, UK2Node_StructOperation)

public:
	bool IsNodePure() const override { return true; }

protected:
	bool IsMemberUsable(const FProperty& Property) const override;
};
