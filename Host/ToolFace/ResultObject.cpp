#include "ToolFace/ResultObject.h"

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Standalone/JsonEmitter.h"
#include "Standalone/JsonUtf8.h"
#include "Support/JsonText.h"
#include "ToolResult.h"

namespace ResultObjectPrivate
{
constexpr std::string_view SchemaText = R"json({
	"type": "object",
	"description": "The outcome of a call. success is false when there is any error; warnings tell what failed in part.",
	"properties": {
		"success": { "type": "boolean" },
		"errors": { "type": "array", "items": { "type": "string" } },
		"warnings": { "type": "array", "items": { "type": "string" } },
		"messages": { "type": "array", "items": { "type": "string" }, "description": "What was done, in sentences." },
		"data": {
			"type": "object",
			"description": "What the tool answers, by key. Read tools put the document they read under content, as JSON text. Counts are decimal text."
		},
		"modifications": {
			"type": "array",
			"description": "What was changed and saved, each read again after the change.",
			"items": {
				"type": "object",
				"properties": {
					"tool": { "type": "string", "description": "The read tool that shows it." },
					"parameters": { "type": "object", "description": "What that tool was asked for." },
					"content": { "type": "object", "description": "What it answered: lean past 64 KB; where that is still too long, the nodes that the call touched and the calls that read the rest." }
				},
				"required": ["tool", "parameters"]
			}
		},
		"unsaved": {
			"type": "array",
			"items": { "type": "string" },
			"description": "The assets that stand changed in memory and not on disk, by path; absent when there are none. A later save of the asset writes the change, the end of the process drops it."
		},
		"cut": {
			"type": "string",
			"description": "Set when the result did not fit into one answer: what is left out is said in its place, and here how to read it."
		}
	},
	"required": ["success", "errors", "warnings", "messages", "data", "modifications"]
})json";

using FEmitter = TJsonEmitter<char>;

static void WriteMessages(FEmitter& Emitter, const TCHAR* Name, const TArray<FString>& Messages)
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
static void WriteContent(FEmitter& Emitter, const FString& Content)
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

static void WriteModification(FEmitter& Emitter, const Morvane::FTrackedModification& Modification)
{
	Emitter.BeginObject();
	Emitter.Key(TEXT("tool"));
	Emitter.String(Modification.ReadTool);
	Emitter.Key(TEXT("parameters"));
	Emitter.Object(*Modification.Parameters);
	WriteContent(Emitter, Modification.Content);
	Emitter.EndObject();
}

/** The list as it was closed. One that was not tells of changes that no save has made last. */
static void WriteModifications(FEmitter& Emitter, const Morvane::FToolResult& Result)
{
	Emitter.Key(TEXT("modifications"));
	Emitter.BeginArray();
	for (const Morvane::FTrackedModification& Modification : Result.GetModifications())
	{
		if (Result.HasFinalModifications())
		{
			WriteModification(Emitter, Modification);
		}
	}
	Emitter.EndArray();
}
} // namespace ResultObjectPrivate

std::string ResultObject::Write(const Morvane::FToolResult& Result, const TArray<FString>& Unsaved)
{
	ResultObjectPrivate::FEmitter Emitter;
	Emitter.BeginObject();
	Emitter.Key(TEXT("success"));
	Emitter.Boolean(Result.WasSuccessful());
	ResultObjectPrivate::WriteMessages(Emitter, TEXT("errors"), Result.GetErrorMessages());
	ResultObjectPrivate::WriteMessages(Emitter, TEXT("warnings"), Result.GetWarningMessages());
	ResultObjectPrivate::WriteMessages(Emitter, TEXT("messages"), Result.GetSuccessMessages());
	Emitter.Key(TEXT("data"));
	Emitter.Object(Result.GetDatas() ? *Result.GetDatas() : FJsonObject());
	ResultObjectPrivate::WriteModifications(Emitter, Result);
	if (!Unsaved.IsEmpty())
	{
		ResultObjectPrivate::WriteMessages(Emitter, TEXT("unsaved"), Unsaved);
	}
	Emitter.EndObject();
	return std::move(Emitter.GetText());
}

std::string ResultObject::Failure(const std::string_view Error)
{
	Morvane::FToolResult Result{Morvane::FToolCommand(FString(), FString(), FString())};
	Result.AddErrorMessage(FromUtf8(JsonText::RepairUtf8(Error)));
	return Write(Result);
}

std::string_view ResultObject::Schema()
{
	return ResultObjectPrivate::SchemaText;
}
