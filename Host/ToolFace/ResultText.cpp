#include "ToolFace/ResultText.h"

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Standalone/JsonEmitter.h"
#include "Standalone/JsonUtf8.h"
#include "ToolResult.h"

namespace ResultTextPrivate
{
using FEmitter = TJsonEmitter<char>;

void WriteMessages(FEmitter& Emitter, const TCHAR* Name, const TArray<FString>& Messages)
{
	Emitter.Key(Name);
	Emitter.BeginArray();
	for (const FString& Message : Messages)
	{
		Emitter.String(Message);
	}
	Emitter.EndArray();
}

/** A reader answers JSON text, which goes out as it is; text that is none is still shown, since the change it tells of
 * stands. */
void WriteContent(FEmitter& Emitter, const FString& Content)
{
	if (Content.IsEmpty())
	{
		return;
	}
	Emitter.Key(TEXT("content"));
	std::string Ignored;
	if (JsonUtf8::Check(ToUtf8(Content), Ignored))
	{
		Emitter.Raw(Content);
		return;
	}
	Emitter.BeginObject();
	Emitter.Key(TEXT("text"));
	Emitter.String(Content);
	Emitter.EndObject();
}

void WriteModification(FEmitter& Emitter, const Morvane::FTrackedModification& Modification)
{
	Emitter.BeginObject();
	Emitter.Key(TEXT("tool"));
	Emitter.String(Modification.ReadTool);
	Emitter.Key(TEXT("parameters"));
	Emitter.Object(*Modification.Parameters);
	WriteContent(Emitter, Modification.Content);
	Emitter.EndObject();
}
} // namespace ResultTextPrivate

std::string WriteResultText(const Morvane::FToolResult& Result)
{
	ResultTextPrivate::FEmitter Emitter;
	Emitter.BeginObject();
	Emitter.Key(TEXT("success"));
	Emitter.Boolean(Result.WasSuccessful());
	ResultTextPrivate::WriteMessages(Emitter, TEXT("errors"), Result.GetErrorMessages());
	ResultTextPrivate::WriteMessages(Emitter, TEXT("warnings"), Result.GetWarningMessages());
	ResultTextPrivate::WriteMessages(Emitter, TEXT("messages"), Result.GetSuccessMessages());
	Emitter.Key(TEXT("data"));
	Emitter.Object(Result.GetDatas() ? *Result.GetDatas() : FJsonObject());
	Emitter.Key(TEXT("modifications"));
	Emitter.BeginArray();
	for (const Morvane::FTrackedModification& Modification : Result.GetModifications())
	{
		ResultTextPrivate::WriteModification(Emitter, Modification);
	}
	Emitter.EndArray();
	Emitter.EndObject();
	return std::move(Emitter.GetText());
}
