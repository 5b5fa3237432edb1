#pragma once

#include "BlueprintBuilder.h"
#include "IToolExecutor.h"
#include "MorvaneToolkitModule.h"
#include "Session/EditorModules.h"
#include "ToolInfo.h"
#include "ToolResults.h"

/** Runs a tool as an agent does: by name, with JSON text, through the executor. */
inline TSharedPtr<Morvane::FToolResult> RunTool(const TCHAR* Tool, const std::string& Arguments)
{
	EditorModules::StartTools();
	const Morvane::FToolCommand Command(TEXT("test"), Tool, FString(UTF8_TO_TCHAR(Arguments.c_str())));
	const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
	FMorvaneToolkitModule::GetToolExecutor()->ExecuteTool(
		Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	return Result;
}

/** One saved Blueprint, and populate calls on it. */
struct FPopulating
{
	explicit FPopulating(const TCHAR* ParentPath = nullptr)
		: Blueprint(ParentPath)
	{
	}

	FBlueprintBuilder Blueprint;
	TSharedPtr<Morvane::FToolResult> Result;

	/** Members is what stands in the arguments behind path and graph. */
	Morvane::FToolResult& Populate(const std::string& Members, const std::string& Graph = "EventGraph")
	{
		Result = RunTool(Morvane::ToolInfo::ToolName_BPPopulateGraph,
			R"({"path":")" + ToStd(Blueprint.Path()) + R"(","graph_name":")" + Graph + "\"," + Members + "}");
		return *Result;
	}
	Morvane::FToolResult& Nodes(const std::string& List, const std::string& Graph = "EventGraph")
	{
		return Populate(R"("nodes":[)" + List + "]", Graph);
	}

	/** A data string; empty where it is missing. */
	std::string Data(const TCHAR* Key) const
	{
		return Result->GetDatas() ? ToStd(Result->GetDatas()->GetStringField(Key)) : "";
	}
	/** Null where nothing was said. */
	TSharedPtr<FJsonObject> Telemetry() const
	{
		const TSharedPtr<FJsonObject>* Object = nullptr;
		return Result->GetDatas() && Result->GetDatas()->TryGetObjectField(TEXT("telemetry"), Object) ? *Object
																									  : nullptr;
	}
	/** A member of the telemetry as JSON text; empty where it is missing. */
	std::string Told(const TCHAR* Key) const
	{
		const TSharedPtr<FJsonObject> Object = Telemetry();
		const TSharedPtr<FJsonValue> Value = Object ? Object->TryGetField(Key) : nullptr;
		const TSharedRef<FJsonObject> Wrapped = MakeShared<FJsonObject>();
		Wrapped->SetField(TEXT("v"), Value);
		const std::string Text = JsonText(Wrapped);
		return Value ? Text.substr(5, Text.size() - 6) : "";
	}
	/** The "message" of each validation failure. */
	std::vector<std::string> Failures() const
	{
		std::vector<std::string> Texts;
		const TSharedPtr<FJsonObject> Object = Telemetry();
		if (Object)
		{
			for (const TSharedPtr<FJsonValue>& Entry : Object->GetArrayField(TEXT("validation_failures")))
			{
				Texts.push_back(ToStd(Entry->AsObject()->GetStringField(TEXT("message"))));
			}
		}
		return Texts;
	}
	/** "tool parameters" for each tracked read. */
	std::vector<std::string> Tracked() const
	{
		std::vector<std::string> Texts;
		for (const Morvane::FTrackedModification& Modification : Result->GetModifications())
		{
			Texts.push_back(ToStd(Modification.ReadTool) + " " + JsonText(Modification.Parameters));
		}
		return Texts;
	}

	/** The real guid of the node that a request id became, as the result tells it; empty when there is none. */
	std::string GuidOf(const std::string& RequestId) const
	{
		const TSharedRef<FJsonObject> Summary = Json(Data(TEXT("created_nodes_summary")));
		for (const TSharedPtr<FJsonValue>& Item : Summary->GetArrayField(TEXT("items")))
		{
			if (ToStd(Item->AsObject()->GetStringField(TEXT("request_guid"))) == RequestId)
			{
				return ToStd(Item->AsObject()->GetStringField(TEXT("node_guid")));
			}
		}
		return "";
	}
	/** The first node of the class in a graph of the Blueprint as it is in memory now; null when there is none. */
	template <typename TNode>
	static TNode* FindNode(const UEdGraph* Graph)
	{
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			if (TNode* const Typed = Cast<TNode>(Node))
			{
				return Typed;
			}
		}
		return nullptr;
	}
};

/** An exact request for a call of a function of a class. */
inline std::string CallNode(
	const std::string& Id, const std::string& Class, const std::string& Function, const std::string& More = "")
{
	return R"({"node_guid":")" + Id + R"(","class_name":"K2Node_CallFunction","target_class":")" + Class
		+ R"(","target_function":")" + Function + "\"" + (More.empty() ? "" : ",") + More + "}";
}

/** A loose request by title alone. */
inline std::string LooseNode(const std::string& Id, const std::string& Title, const std::string& More = "")
{
	return R"({"node_guid":")" + Id + R"(","menu_title":")" + Title + "\"" + (More.empty() ? "" : ",") + More + "}";
}

inline std::string EventNode(const std::string& Id, const std::string& Name, const std::string& More = "")
{
	return R"({"node_guid":")" + Id + R"(","class_name":"K2Node_Event","node_metadata":{"event_name":")" + Name + "\""
		+ (More.empty() ? "" : ",") + More + "}}";
}

inline std::string Link(
	const std::string& Source, const std::string& SourcePin, const std::string& Target, const std::string& TargetPin)
{
	return R"({"source_node_guid":")" + Source + R"(","source_pin_name":")" + SourcePin + R"(","target_node_guid":")"
		+ Target + R"(","target_pin_name":")" + TargetPin + "\"}";
}
