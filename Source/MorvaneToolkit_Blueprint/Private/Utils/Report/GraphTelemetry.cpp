#include "Utils/Report/GraphTelemetry.h"

#include "JsonReading.h"

#include "ToolResult.h"
#include "Utils/Report/JsonTexts.h"

namespace GraphTelemetry
{
static const TCHAR* const TelemetryKey = TEXT("telemetry");

TSharedPtr<FJsonObject> Find(const Morvane::FToolResult& Result)
{
	const TSharedPtr<FJsonObject>* Telemetry = nullptr;
	if (Result.GetDatas() && Result.GetDatas()->TryGetObjectField(TelemetryKey, Telemetry))
	{
		return *Telemetry;
	}
	return nullptr;
}

TSharedRef<FJsonObject> Ensure(Morvane::FToolResult& Result)
{
	TSharedPtr<FJsonObject> Telemetry = Find(Result);
	if (!Telemetry)
	{
		Telemetry = MakeShared<FJsonObject>();
		Result.SetData(TelemetryKey, Telemetry);
	}
	return Telemetry.ToSharedRef();
}

void SetString(Morvane::FToolResult& Result, const FString& Key, const FString& Value)
{
	Ensure(Result)->SetStringField(Key, Value);
}

void SetNumber(Morvane::FToolResult& Result, const FString& Key, double Value)
{
	Ensure(Result)->SetNumberField(Key, Value);
}

/** A member that is not there yet counts as 0. */
static void AddOne(FJsonObject& Counters, const FString& Key)
{
	double Count = 0.0;
	MorvaneJson::TryGetNumberField(Counters, *Key, Count);
	Counters.SetNumberField(Key, Count + 1.0);
}

void Increment(Morvane::FToolResult& Result, const FString& Key)
{
	AddOne(*Ensure(Result), Key);
}

void Append(Morvane::FToolResult& Result, const FString& Key, const TSharedRef<FJsonObject>& Entry)
{
	const TSharedRef<FJsonObject> Telemetry = Ensure(Result);
	const TSharedPtr<FJsonValue> Field = Telemetry->TryGetField(Key);
	TArray<TSharedPtr<FJsonValue>>* Entries = nullptr;
	if (Field && Field->TryGetArray(Entries))
	{
		Entries->Add(MakeShared<FJsonValueObject>(Entry));
	}
	else
	{
		Telemetry->SetArrayField(Key, {MakeShared<FJsonValueObject>(Entry)});
	}
}

void RecordSpawnMethod(Morvane::FToolResult& Result, const FString& Method)
{
	const TSharedRef<FJsonObject> Telemetry = Ensure(Result);
	const TSharedPtr<FJsonObject>* Methods = nullptr;
	if (!Telemetry->TryGetObjectField(TEXT("spawn_methods"), Methods))
	{
		Telemetry->SetObjectField(TEXT("spawn_methods"), MakeShared<FJsonObject>());
		Telemetry->TryGetObjectField(TEXT("spawn_methods"), Methods);
	}
	AddOne(**Methods, Method);
}

void RecordValidationFailure(Morvane::FToolResult& Result, const FString& Text)
{
	const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("message"), Text);
	Append(Result, TEXT("validation_failures"), Entry);
}

void RecordNodeCreationLatency(
	Morvane::FToolResult& Result, const FString& NodeId, const FString& NodeTitle, double DurationMs)
{
	const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("node_id"), NodeId);
	Entry->SetStringField(TEXT("node_title"), NodeTitle);
	Entry->SetNumberField(TEXT("duration_ms"), DurationMs);
	Append(Result, TEXT("node_creation_latency_ms"), Entry);
}

void RecordPinDirectionFallback(Morvane::FToolResult& Result)
{
	Increment(Result, TEXT("pin_direction_fallbacks"));
}

void RecordConnectionFailure(Morvane::FToolResult& Result, const FString& SourceNode, const FString& SourcePin,
	const FString& TargetNode, const FString& TargetPin, const FString& Reason)
{
	const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("source_node"), SourceNode);
	Entry->SetStringField(TEXT("source_pin"), SourcePin);
	Entry->SetStringField(TEXT("target_node"), TargetNode);
	Entry->SetStringField(TEXT("target_pin"), TargetPin);
	Entry->SetStringField(TEXT("reason"), Reason);
	Append(Result, TEXT("connection_failures"), Entry);
}

void RecordPinLookupFailure(
	Morvane::FToolResult& Result, const FString& Node, const FString& Asked, const TArray<FString>& Available)
{
	const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("node"), Node);
	Entry->SetStringField(TEXT("asked"), Asked);
	Entry->SetArrayField(TEXT("available"), ToJsonTexts(Available));
	Append(Result, TEXT("pin_lookup_failures"), Entry);
}

void RecordMatchHint(Morvane::FToolResult& Result, const FString& Context, const FString& Hint)
{
	if (Hint.IsEmpty())
	{
		return;
	}
	const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("context"), Context);
	Entry->SetStringField(TEXT("hint"), Hint);
	Append(Result, TEXT("match_hints"), Entry);
}

void RecordHalfConnectedNode(Morvane::FToolResult& Result, const FString& NodeId, const FString& NodeTitle,
	int32 ExpectedConnections, int32 ActualConnections)
{
	const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("node_id"), NodeId);
	Entry->SetStringField(TEXT("node_title"), NodeTitle);
	Entry->SetNumberField(TEXT("expected_connections"), ExpectedConnections);
	Entry->SetNumberField(TEXT("actual_connections"), ActualConnections);
	Append(Result, TEXT("half_connected_nodes"), Entry);
}
} // namespace GraphTelemetry
