#include "ToolAdapter.h"

#include "Dom/JsonObject.h"
#include "JsonReading.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Utils/Read/ReadBudget.h"

namespace ToolAdapterJson
{
/** Null when the text is not JSON or no object. */
static TSharedPtr<FJsonObject> ParseObject(const FString& Json)
{
	TSharedPtr<FJsonObject> Object;
	const TSharedRef<TJsonReader<>> Reader = TJsonReaderFactory<>::Create(Json);
	return FJsonSerializer::Deserialize(Reader, Object) ? Object : nullptr;
}

static bool HoldsNull(const FString& Text)
{
	int32 Place = INDEX_NONE;
	return Text.FindChar(TEXT('\0'), Place);
}

FString FindNull(const FJsonObject& Object, const FString& Place);

/** Where U+0000 stands in a value: "functions[0].name"; empty when it stands nowhere. */
static FString FindNull(const FJsonValue& Value, const FString& Place)
{
	if (Value.Type == EJson::String)
	{
		return HoldsNull(Value.AsString()) ? Place : FString();
	}
	if (Value.Type == EJson::Object)
	{
		return FindNull(*MorvaneJson::AsObject(Value), Place + TEXT("."));
	}
	FString Found;
	if (Value.Type == EJson::Array)
	{
		const TArray<TSharedPtr<FJsonValue>>& Elements = MorvaneJson::AsArray(Value);
		for (int32 Index = 0; Index < Elements.Num() && Found.IsEmpty(); ++Index)
		{
			Found = Elements[Index] ? FindNull(*Elements[Index], FString::Printf(TEXT("%s[%d]"), *Place, Index))
									: FString();
		}
	}
	return Found;
}

FString FindNull(const FJsonObject& Object, const FString& Place)
{
	for (const auto& Pair : Object.Values)
	{
		const FString Key(Pair.Key);
		if (HoldsNull(Key))
		{
			int32 Null = INDEX_NONE;
			Key.FindChar(TEXT('\0'), Null);
			return Place + Key.Left(Null) + TEXT("\\u0000");
		}
		const FString Found = Pair.Value ? FindNull(*Pair.Value, Place + Key) : FString();
		if (!Found.IsEmpty())
		{
			return Found;
		}
	}
	return FString();
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
	FReadBudget::Begin();
	// The editor's texts end where a null stands, so that a value with one would be cut in silence.
	const FString Null = Args.IsValid() ? ToolAdapterJson::FindNull(*Args, FString()) : FString();
	if (!Null.IsEmpty())
	{
		Result->AddErrorMessage(
			FString::Printf(TEXT("'%s' holds the character U+0000, which no text of an asset can hold"), *Null));
	}
	else if (Args.IsValid())
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
