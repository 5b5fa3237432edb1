// Reading and writing the kind of JSON that tools exchange, over growing documents.

#include "Dom/JsonObject.h"
#include "Serialization/JsonSerializer.h"
#include "Standalone/JsonUtf8.h"

#include <benchmark/benchmark.h>

namespace JsonBench
{
/** A graph of so many nodes as a read returns it. */
static std::string MakeDocument(const int64_t NumNodes)
{
	std::string Text = R"({"nodes":[)";
	for (int64_t Index = 0; Index < NumNodes; ++Index)
	{
		Text += Index > 0 ? "," : "";
		Text += R"({"node_guid":"A1B2C3D","class_name":"K2Node_CallFunction","title":"Print String","x":)"
			+ std::to_string(Index * 16) + R"(,"y":0.5,"pins":[{"name":"execute","direction":"input","linked":true},)"
			+ R"({"name":"InString","value":"Hello \"World\""}]})";
	}
	return Text + "]}";
}

static TSharedPtr<FJsonObject> Read(const std::string& Text)
{
	TSharedPtr<FJsonObject> Object;
	FString Error;
	JsonUtf8::Parse(Text, Object, Error);
	return Object;
}

static void Report(benchmark::State& State, const std::string& Text)
{
	State.SetBytesProcessed(static_cast<int64_t>(State.iterations()) * static_cast<int64_t>(Text.size()));
	State.SetComplexityN(State.range(0));
}
} // namespace JsonBench

static void JsonCheck(benchmark::State& State)
{
	const std::string Text = JsonBench::MakeDocument(State.range(0));
	std::string Error;
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(JsonUtf8::Check(Text, Error));
	}
	JsonBench::Report(State, Text);
}
BENCHMARK(JsonCheck)->RangeMultiplier(10)->Range(100, 10'000)->Complexity();

static void JsonParse(benchmark::State& State)
{
	const std::string Text = JsonBench::MakeDocument(State.range(0));
	for (auto _ : State)
	{
		benchmark::DoNotOptimize(JsonBench::Read(Text));
	}
	JsonBench::Report(State, Text);
}
BENCHMARK(JsonParse)->RangeMultiplier(10)->Range(100, 10'000)->Complexity();

static void JsonWriteUtf8(benchmark::State& State)
{
	const std::string Text = JsonBench::MakeDocument(State.range(0));
	const TSharedPtr<FJsonObject> Object = JsonBench::Read(Text);
	for (auto _ : State)
	{
		std::string Written;
		JsonUtf8::Write(*Object, Written);
		benchmark::DoNotOptimize(Written);
	}
	JsonBench::Report(State, Text);
}
BENCHMARK(JsonWriteUtf8)->RangeMultiplier(10)->Range(100, 10'000)->Complexity();

static void JsonWriteString(benchmark::State& State)
{
	const std::string Text = JsonBench::MakeDocument(State.range(0));
	const TSharedPtr<FJsonObject> Object = JsonBench::Read(Text);
	for (auto _ : State)
	{
		FString Written;
		FJsonSerializer::Serialize(
			Object.ToSharedRef(), TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Written));
		benchmark::DoNotOptimize(Written);
	}
	JsonBench::Report(State, Text);
}
BENCHMARK(JsonWriteString)->RangeMultiplier(10)->Range(100, 10'000)->Complexity();
