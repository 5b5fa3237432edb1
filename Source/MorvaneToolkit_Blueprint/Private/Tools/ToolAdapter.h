#pragma once

#include "ITool.h"

class FJsonObject;

/** What all tools of this module share: their texts, and the way from JSON text to an operation. */
class FToolAdapterBase : public ITool
{
public:
	using FMetadataGenerator = TFunction<FString()>;

	/** A generator's flag is set from the start, so that the stored metadata stands until someone clears it. */
	FToolAdapterBase(const FString& InParameters, const FString& InDescription, const FString& InMetadata,
		FMetadataGenerator InGenerator = nullptr)
		: Parameters(InParameters)
		, Description(InDescription)
		, Metadata(InMetadata)
		, MetadataGenerator(MoveTemp(InGenerator))
	{
	}

	FString GetParameters() const override { return Parameters; }
	FString GetDescription() const override { return Description; }
	void Validate(const FString& Json, Morvane::FToolResult& Result) const override;
	FString GetMetadata() override;
	void Execute(const Morvane::FToolCommand& Command, const TSharedPtr<Morvane::FToolResult>& Result,
		const FOnToolCompleted& OnCompleted) override;

	/** Lets the generator, if there is one, make the metadata when it is next asked for. */
	void InvalidateMetadata() { bMetadataGenerated = false; }

protected:
	virtual void Run(const FJsonObject& Args, Morvane::FToolResult& Result) const = 0;

private:
	FString Parameters;
	FString Description;
	FString Metadata;
	FMetadataGenerator MetadataGenerator;
	bool bMetadataGenerated = true;
};

using FToolOperation = void (*)(const FJsonObject&, Morvane::FToolResult&);

/** The tool class of one operation. */
template <const TCHAR* const& ToolName, FToolOperation Operation>
class TToolAdapter final : public FToolAdapterBase
{
public:
	using FToolAdapterBase::FToolAdapterBase;

	FString GetName() const override { return ToolName; }

protected:
	void Run(const FJsonObject& Args, Morvane::FToolResult& Result) const override { Operation(Args, Result); }
};
