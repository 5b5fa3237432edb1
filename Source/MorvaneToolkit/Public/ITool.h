#pragma once

#include "CoreMinimal.h"
#include "ToolResult.h"

/** Called once, with the result that the caller handed in. */
using FOnToolCompleted = TFunction<void(const TSharedPtr<Morvane::FToolResult>&)>;

/** One tool as the executor and its clients see it. Holds no state of a run. */
class ITool
{
public:
	virtual ~ITool() = default;

	/** A note on the arguments as JSON text; may be empty. It is no schema. */
	virtual FString GetParameters() const = 0;
	/** For the agent to read. */
	virtual FString GetDescription() const = 0;
	/** Adds an error to the result when the text is no JSON object. */
	virtual void Validate(const FString& Json, Morvane::FToolResult& Result) const = 0;
	/** A small JSON object as text: what kind of operation on what kind of data. */
	virtual FString GetMetadata() = 0;
	virtual FString GetName() const = 0;
	/** Runs the command, reports into the result, and completes with it before it returns. */
	virtual void Execute(const Morvane::FToolCommand& Command, const TSharedPtr<Morvane::FToolResult>& Result,
		const FOnToolCompleted& OnCompleted) = 0;
};
