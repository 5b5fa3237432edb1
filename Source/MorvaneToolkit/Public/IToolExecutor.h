#pragma once

#include "CoreMinimal.h"
#include "ITool.h"

/** The tools by name. Game thread only. */
class IToolExecutor
{
public:
	virtual ~IToolExecutor() = default;

	/** False, and nothing changes, for a null tool, an empty name or a name that is taken. */
	virtual bool RegisterTool(const FString& Name, const TSharedPtr<ITool>& Tool) = 0;
	/** A name that is not registered is no fault. */
	virtual void UnregisterTool(const FString& Name) = 0;

	/** In the order of registration. */
	virtual TArray<FString> GetToolNames() const = 0;
	/** Null for an unknown name. Names are compared with case. */
	virtual TSharedPtr<ITool> FindTool(const FString& Name) const = 0;
	/** Runs the tool that the command names. An unknown name is an error in the result, which is completed all the
	 * same. */
	virtual void ExecuteTool(const Morvane::FToolCommand& Command, const TSharedPtr<Morvane::FToolResult>& Result,
		const FOnToolCompleted& OnCompleted) = 0;
};
