#include "Cli/Command.h"

#include "Dom/JsonValue.h"
#include "Standalone/JsonUtf8.h"

void FCommandContext::Print(const std::string& Json) const
{
	TSharedPtr<FJsonValue> Value;
	FString Error;
	if (!Options.bPretty || !JsonUtf8::ParseValue(Json, Value, Error))
	{
		Output.WriteLine(Json);
		return;
	}
	std::string Text;
	JsonUtf8::WriteValue(*Value, Text, true);
	Output.WriteLine(Text);
}
