#include "Standalone/JsonUtf8.h"

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Serialization/JsonParser.h"
#include "Standalone/JsonEmitter.h"

/** Large texts are not copied when there is nothing to put them behind. */
static void Append(std::string& OutText, std::string&& Text)
{
	if (OutText.empty())
	{
		OutText = MoveTemp(Text);
	}
	else
	{
		OutText += Text;
	}
}

bool JsonUtf8::Check(const std::string_view Text, std::string& OutError, const std::size_t MaxValues)
{
	FJsonParseError Error;
	if (JsonParser::Check(Text, Error, MaxValues))
	{
		return true;
	}
	OutError = Error.Describe();
	return false;
}

bool JsonUtf8::ParseValue(const std::string_view Text, TSharedPtr<FJsonValue>& OutValue, FString& OutError)
{
	FJsonParseError Error;
	if (JsonParser::Parse(Text, OutValue, Error))
	{
		return true;
	}
	OutError = FromUtf8(Error.Describe());
	return false;
}

bool JsonUtf8::Parse(const std::string_view Text, TSharedPtr<FJsonObject>& OutObject, FString& OutError)
{
	OutObject = nullptr;
	TSharedPtr<FJsonValue> Value;
	if (!ParseValue(Text, Value, OutError))
	{
		return false;
	}
	const TSharedPtr<FJsonObject>* Object = nullptr;
	OutObject = Value->TryGetObject(Object) ? *Object : nullptr;
	if (!OutObject)
	{
		OutError = TEXT("The text is not a JSON object (line 1, character 1)");
	}
	return OutObject.IsValid();
}

void JsonUtf8::Write(const FJsonObject& Object, std::string& OutText, const bool bPretty)
{
	TJsonEmitter<char> Emitter(bPretty);
	Emitter.Object(Object);
	Append(OutText, MoveTemp(Emitter.GetText()));
}

void JsonUtf8::WriteValue(const FJsonValue& Value, std::string& OutText, const bool bPretty)
{
	TJsonEmitter<char> Emitter(bPretty);
	Emitter.Value(Value);
	Append(OutText, MoveTemp(Emitter.GetText()));
}
