#include "ToolAdapter.h"

#include "Dom/JsonObject.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

namespace ToolAdapterJson
{
/** Null when the text is not JSON or no object. */
TSharedPtr<FJsonObject> ParseObject(const FString& Json)
{
	TSharedPtr<FJsonObject> Object;
	const TSharedRef<TJsonReader<>> Reader = TJsonReaderFactory<>::Create(Json);
	return FJsonSerializer::Deserialize(Reader, Object) ? Object : nullptr;
}
} // namespace ToolAdapterJson

void FToolAdapterBase::Validate(const FString& Json, Morvane::FToolResult& Result) const
{
	if (!ToolAdapterJson::ParseObject(Json).IsValid())
	{
		Result.AddErrorMessage(TEXT("Invalid JSON format"));
	}
}

FString FToolAdapterBase::GetMetadata()
{
	if (MetadataGenerator && !bMetadataGenerated)
	{
		Metadata = MetadataGenerator();
		bMetadataGenerated = true;
		if (Metadata.Len() <= 1)
		{
			Metadata = TEXT("{}");
		}
	}
	return Metadata;
}

void FToolAdapterBase::Execute(const Morvane::FToolCommand& Command, const TSharedPtr<Morvane::FToolResult>& Result,
	const FOnToolCompleted& OnCompleted)
{
	const TSharedPtr<FJsonObject> Args = ToolAdapterJson::ParseObject(Command.GetArguments());
	if (Args.IsValid())
	{
		Run(*Args, *Result);
	}
	else
	{
		Result->AddErrorMessage(TEXT("Invalid JSON command"));
		Result->AddErrorMessage(TEXT("Failed to parse command JSON"));
	}
	OnCompleted(Result);
}
