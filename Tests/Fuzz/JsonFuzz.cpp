// Any bytes: reading them either fails with a reason or gives a value that is written and read again as itself.

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Serialization/JsonSerializer.h"
#include "Standalone/JsonUtf8.h"

#include <cstdint>
#include <cstdlib>

namespace JsonFuzz
{
void Require(const bool bCondition)
{
	if (!bCondition)
	{
		std::abort();
	}
}
} // namespace JsonFuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, const std::size_t Size)
{
	const std::string_view Text(reinterpret_cast<const char*>(Data), Size);
	TSharedPtr<FJsonValue> Value;
	FString Error;
	std::string CheckError;
	const bool bRead = JsonUtf8::ParseValue(Text, Value, Error);
	JsonFuzz::Require(bRead == JsonUtf8::Check(Text, CheckError));
	JsonFuzz::Require(bRead == Error.IsEmpty() && bRead == CheckError.empty() && bRead == Value.IsValid());
	if (!bRead)
	{
		return 0;
	}
	std::string Written;
	JsonUtf8::WriteValue(*Value, Written);
	TSharedPtr<FJsonValue> Again;
	JsonFuzz::Require(JsonUtf8::ParseValue(Written, Again, Error));
	JsonFuzz::Require(FJsonValue::CompareEqual(*Value, *Again));
	TSharedPtr<FJsonValue> FromWide;
	JsonFuzz::Require(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(FromUtf8(Text)), FromWide));
	JsonFuzz::Require(FJsonValue::CompareEqual(*Value, *FromWide));
	return 0;
}
