#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
/** One invocation of a tool. Nothing changes in it after construction. */
class MORVANECORE_API FToolCommand
{
public:
	FToolCommand(const FString& InCommandId, const FString& InToolName, const FString& InArguments)
		: CommandId(InCommandId)
		, ToolName(InToolName)
		, Arguments(InArguments)
	{
	}

	const FString& GetCommandId() const { return CommandId; }
	const FString& GetToolName() const { return ToolName; }
	/** The arguments as JSON text, unparsed. */
	const FString& GetArguments() const { return Arguments; }

private:
	FString CommandId;
	FString ToolName;
	FString Arguments;
};
} // namespace Morvane
