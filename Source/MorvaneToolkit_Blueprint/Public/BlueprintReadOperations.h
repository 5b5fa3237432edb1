#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}

/** The read tools: each validates its command, reads through FBlueprintReadUtils and tells how that went. */
#define MORVANE_READ_OPERATION(TOperation) \
	class MORVANETOOLKIT_BLUEPRINT_API TOperation \
	{ \
	public: \
		static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result); \
	};

MORVANE_READ_OPERATION(FBlueprintReadSchemaOperation)
MORVANE_READ_OPERATION(FBlueprintVariableReadOperation)
MORVANE_READ_OPERATION(FBlueprintComponentReadOperation)
MORVANE_READ_OPERATION(FBlueprintFunctionReadOperation)
MORVANE_READ_OPERATION(FBlueprintInterfaceReadOperation)
MORVANE_READ_OPERATION(FBlueprintEventReadOperation)
MORVANE_READ_OPERATION(FBlueprintTimelineReadOperation)
MORVANE_READ_OPERATION(FBlueprintDelegateReadOperation)
MORVANE_READ_OPERATION(FBlueprintMacroReadOperation)
MORVANE_READ_OPERATION(FWidgetBlueprintWidgetTreeReadOperation)

#undef MORVANE_READ_OPERATION
