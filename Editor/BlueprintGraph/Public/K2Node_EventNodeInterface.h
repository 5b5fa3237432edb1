#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

struct FEdGraphSchemaAction;

class UK2Node_EventNodeInterface : public UInterface
{
	EDITOR_CLASS(UK2Node_EventNodeInterface, UInterface)
};

/** What every node that starts an execution flow implements. */
class IK2Node_EventNodeInterface
{
public:
	using UClassType = UK2Node_EventNodeInterface;

	virtual ~IK2Node_EventNodeInterface() = default;
};
